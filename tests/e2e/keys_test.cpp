// The keys of both windows on a playing clip, by their places on the keyboard, under a Latin and a
// Cyrillic layout.

#include "tests/e2e/support/steered.h"

#include <ostream>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

struct Layout
{
    const char* name;
    friend void PrintTo(const Layout& layout, std::ostream* out) { *out << layout.name; }
};

class Keys : public Steered, public testing::WithParamInterface<Layout>
{
protected:
    void SetUp() override
    {
        Steered::SetUp();
        playLesson();
        desktop.setKeyboard(QString::fromLatin1(GetParam().name));
    }

    [[nodiscard]] QString savedPosition() const { return home.get(u"pos"_s, u"Lesson"_s); }

    /// Seconds as the settings keep them; -1 while there are none.
    [[nodiscard]] double savedSeconds() const
    {
        const QString text = savedPosition();
        return text.isEmpty() ? -1 : text.toDouble();
    }

    [[nodiscard]] bool isAbove()
    {
        return desktop.run(u"xprop"_s, {u"-name"_s, kMainWindow, u"_NET_WM_STATE"_s})
            .contains("_NET_WM_STATE_ABOVE");
    }
};

class MainWindowKeys : public Keys
{
protected:
    void SetUp() override
    {
        Keys::SetUp();
        ASSERT_TRUE(desktop.activate(kMainWindow));
    }
};

TEST_P(MainWindowKeys, PauseRunAndStop)
{
    press(Key::P);
    EXPECT_TRUE(becomes(u"Paused"_s));
    press(Key::R);
    EXPECT_TRUE(becomes(u"Playing"_s));
    press(Key::S);
    EXPECT_TRUE(becomes(u"Stopped"_s));
    press(Key::R);
    EXPECT_TRUE(becomes(u"Playing"_s));
    pressUpper(Key::P);
    EXPECT_TRUE(becomes(u"Paused"_s));
    pressUpper(Key::R);
    EXPECT_TRUE(becomes(u"Playing"_s));
    pressUpper(Key::S);
    EXPECT_TRUE(becomes(u"Stopped"_s));
}

TEST_P(MainWindowKeys, AMinuteBackAndForwardInSmallAndCapitalLetters)
{
    press(Key::M);
    EXPECT_TRUE(comesBetween(60, 90));
    pressUpper(Key::M);
    EXPECT_TRUE(comesBetween(120, 170));
    press(Key::B);
    EXPECT_TRUE(comesBetween(60, 119));
    pressUpper(Key::B);
    EXPECT_TRUE(comesBetween(0, 59));
    EXPECT_TRUE(isPlaying());
}

TEST_P(MainWindowKeys, VolumeStepsAreHeldInTheSettings)
{
    ASSERT_EQ(controls.volume(), 100);
    press(Key::Minus);
    EXPECT_TRUE(volumeBecomes(95));
    press(Key::Minus);
    EXPECT_TRUE(volumeBecomes(90));
    EXPECT_TRUE(waitFor([this] { return home.get(u"save"_s, u"volume"_s) == u"-8"_s; }));
    EXPECT_EQ(window().slider(u"Volume"_s), 90);
    press(Key::Plus, true);
    EXPECT_TRUE(volumeBecomes(95));
    press(Key::Plus, true);
    press(Key::Plus, true);
    EXPECT_TRUE(volumeBecomes(100));
    EXPECT_EQ(window().slider(u"Volume"_s), 100);
}

TEST_P(MainWindowKeys, ABookmarkIsKeptShownAndGoneTo)
{
    goTo(100);
    press(Key::K);
    ASSERT_TRUE(waitFor([this] { return savedSeconds() >= 99; })) << savedPosition().toStdString();
    const double saved = savedSeconds();
    goTo(10);
    press(Key::L);
    EXPECT_TRUE(comesBetween(saved - 0.5, saved + 20));
    EXPECT_TRUE(becomes(u"Playing"_s));
    // From a paused clip as well, which then runs.
    goTo(10);
    press(Key::P);
    ASSERT_TRUE(becomes(u"Paused"_s));
    pressUpper(Key::L);
    EXPECT_TRUE(comesBetween(saved - 0.5, saved + 20));
    EXPECT_TRUE(becomes(u"Playing"_s));
}

TEST_P(MainWindowKeys, FullScreenOnAndOff)
{
    press(Key::F);
    EXPECT_TRUE(videoFillsScreen());
    ASSERT_TRUE(waitFor([this] { return desktop.activeWindowTitle() == kVideoWindow; }));
    press(Key::N);
    EXPECT_TRUE(videoIsInWindow());
    EXPECT_TRUE(becomes(u"Playing"_s));
    // The main window's own keys, with the video window filling the screen behind its back.
    ASSERT_TRUE(desktop.activate(kMainWindow));
    pressUpper(Key::F);
    EXPECT_TRUE(videoFillsScreen());
    ASSERT_TRUE(desktop.activate(kMainWindow));
    pressUpper(Key::N);
    EXPECT_TRUE(videoIsInWindow());
}

TEST_P(MainWindowKeys, AlwaysOnTopOnAndOff)
{
    ASSERT_FALSE(isAbove());
    press(Key::T);
    EXPECT_TRUE(waitFor([this] { return isAbove(); }));
    pressUpper(Key::T);
    EXPECT_TRUE(waitFor([this] { return !isAbove(); }));
}

class VideoWindowKeys : public Keys
{
protected:
    void SetUp() override
    {
        Keys::SetUp();
        ASSERT_TRUE(desktop.activate(kVideoWindow));
    }
};

TEST_P(VideoWindowKeys, PauseRunAndStopInSmallLettersOnly)
{
    press(Key::P);
    EXPECT_TRUE(becomes(u"Paused"_s));
    pressUpper(Key::R);
    press(Key::R);
    EXPECT_TRUE(becomes(u"Playing"_s));
    pressUpper(Key::P);
    pressUpper(Key::S);
    press(Key::M); // is carried out after them
    EXPECT_TRUE(comesBetween(60, 90));
    EXPECT_TRUE(isPlaying());
    press(Key::S);
    EXPECT_TRUE(becomes(u"Stopped"_s));
}

TEST_P(VideoWindowKeys, AMinuteBackAndForwardInSmallLettersOnly)
{
    goTo(70);
    pressUpper(Key::B);
    pressUpper(Key::M);
    press(Key::M);
    EXPECT_TRUE(comesBetween(130, 170));
    press(Key::B);
    EXPECT_TRUE(comesBetween(70, 129));
}

TEST_P(VideoWindowKeys, VolumeStepsReachTheMainWindow)
{
    press(Key::Minus);
    press(Key::Minus);
    EXPECT_TRUE(volumeBecomes(90));
    EXPECT_TRUE(waitFor([this] { return window().slider(u"Volume"_s) == 90; }));
    press(Key::Plus, true);
    EXPECT_TRUE(waitFor([this] { return window().slider(u"Volume"_s) == 95; }));
}

TEST_P(VideoWindowKeys, ABookmarkIsStoredByTheNextTickAndGoneTo)
{
    goTo(100);
    press(Key::K);
    ASSERT_TRUE(waitFor([this] { return savedSeconds() >= 99; })) << savedPosition().toStdString();
    const double saved = savedSeconds();
    goTo(10);
    press(Key::L);
    EXPECT_TRUE(comesBetween(saved - 1.5, saved + 20));
    EXPECT_TRUE(becomes(u"Playing"_s));
}

TEST_P(VideoWindowKeys, FullScreenOnAndOff)
{
    pressUpper(Key::F);
    press(Key::F);
    EXPECT_TRUE(videoFillsScreen());
    EXPECT_TRUE(becomes(u"Playing"_s));
    pressUpper(Key::N);
    press(Key::M); // is carried out after it
    EXPECT_TRUE(comesBetween(60, 90));
    EXPECT_TRUE(videoFillsScreen());
    press(Key::N);
    EXPECT_TRUE(videoIsInWindow());
}

TEST_P(VideoWindowKeys, AlwaysOnTopIsNoKeyHere)
{
    press(Key::T);
    press(Key::P); // is carried out after it
    ASSERT_TRUE(becomes(u"Paused"_s));
    EXPECT_FALSE(isAbove());
}

constexpr Layout kLayouts[] = {{"us"}, {"ru"}};
const auto kNameOfLayout = [](const auto& tested) { return std::string(tested.param.name); };

INSTANTIATE_TEST_SUITE_P(In, MainWindowKeys, testing::ValuesIn(kLayouts), kNameOfLayout);
INSTANTIATE_TEST_SUITE_P(In, VideoWindowKeys, testing::ValuesIn(kLayouts), kNameOfLayout);

} // namespace orvanta::e2e
