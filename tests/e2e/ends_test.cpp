// The end of a clip: recognised once for whatever file, and never mistaken.

#include "tests/e2e/support/end_to_end.h"

#include <functional>
#include <ostream>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

struct PlayableFile
{
    const char* name;
    friend void PrintTo(const PlayableFile& file, std::ostream* out) { *out << file.name; }
};

class NaturalEnd : public EndToEnd, public testing::WithParamInterface<PlayableFile>
{};

TEST_P(NaturalEnd, AdvancesExactlyOnce)
{
    const QString clip = media(QString::fromLatin1(GetParam().name));
    ASSERT_FALSE(clip.isEmpty());
    const QString packet =
        writeClips(file(u"packet.vxl"_s),
                   {{clip, u"Tested"_s}, {clip, u"Again"_s}, {media(u"short.wav"_s), u"Last"_s}});
    ASSERT_TRUE(program.startAndShow({packet}));
    ASSERT_TRUE(plays(u"start 1 1 Tested"_s));
    ASSERT_TRUE(plays(u"ended 1 3"_s));
    saidUntilAnotherFileIsOpen();
    const QStringList expected = {
        u"orvanta.playback: start 1 1 Tested"_s, u"orvanta.playback: ended 1 1"_s,
        u"orvanta.playback: start 1 2 Again"_s,  u"orvanta.playback: ended 1 2"_s,
        u"orvanta.playback: start 1 3 Last"_s,   u"orvanta.playback: ended 1 3"_s,
    };
    EXPECT_EQ(program.linesMatching(u"^orvanta.playback: (start|ended)"_s), expected);
}

constexpr PlayableFile kPlayableFiles[] = {
    {"short.avi"},     {"short.mp4"},     {"short.mp3"},    {"short.wav"},  {"sound2.mp3"},
    {"sound2.ogg"},    {"silent2.mp4"},   {"video2.avi"},   {"video2.mkv"}, {"video2.webm"},
    {"says_more.wav"}, {"says_less.wav"}, {"variable.mp3"}, {"cut.mp4"},    {"cut.mkv"},
    {"cut.mp3"},       {"cut.avi"},
};

INSTANTIATE_TEST_SUITE_P(Of, NaturalEnd, testing::ValuesIn(kPlayableFiles), [](const auto& tested) {
    return QString::fromLatin1(tested.param.name).replace(u'.', u'_').toStdString();
});

class NoEnd : public EndToEnd
{
protected:
    void playFirstOf(const QString& clip)
    {
        const QString packet =
            writeClips(file(u"packet.vxl"_s),
                       {{media(clip), u"Tested"_s}, {media(u"short.wav"_s), u"Last"_s}});
        ASSERT_TRUE(program.startAndShow({packet}));
        ASSERT_TRUE(plays(u"start 1 1"_s));
        ASSERT_TRUE(waitFor([this] { return window().currentSeconds() > 0; }));
    }

    /// Does something in the clip's last whole second, which begins here. On a busy machine the
    /// clip may be over before: then it is tried again from its beginning. False when it has ended
    /// every time, as it does when the deed itself is taken for the end.
    bool tryInTheLastSecond(double secondBegins, const std::function<void()>& deed)
    {
        constexpr int kTries = 5;
        for (int i = 0; i < kTries; ++i) {
            const qsizetype before = ends().size();
            EXPECT_TRUE(waitFor([&] { return window().currentSeconds() >= secondBegins; }));
            deed();
            EXPECT_TRUE(waitFor([&] { return window().currentSeconds() < 1; }));
            if (ends().size() == before) {
                return true;
            }
            window().doubleClickRow(2);
            EXPECT_TRUE(plays(u"start 1 1"_s));
        }
        return false;
    }

    [[nodiscard]] QStringList ends() const
    {
        return program.linesMatching(u"^orvanta.playback: ended"_s);
    }
    [[nodiscard]] QStringList starts() const
    {
        return program.linesMatching(u"^orvanta.playback: start"_s);
    }
};

TEST_F(NoEnd, StopDoesNotAdvance)
{
    playFirstOf(u"video3.mp4"_s);
    window().press(u"Stop"_s);
    ASSERT_TRUE(plays(u"stopped"_s));
    EXPECT_EQ(window().currentTime(), u"0.00"_s);
    saidUntilAnotherFileIsOpen();
    EXPECT_EQ(ends(), QStringList());
    EXPECT_EQ(starts().size(), 1);
}

TEST_F(NoEnd, StopInTheLastSecondDoesNotAdvance)
{
    playFirstOf(u"video3.mp4"_s);
    const bool inTime = tryInTheLastSecond(2, [this] { window().press(u"Stop"_s); });
    ASSERT_TRUE(inTime);
    const QStringList said = saidUntilAnotherFileIsOpen();
    EXPECT_EQ(said.filter(u"orvanta.playback: ended"_s), QStringList());
    EXPECT_EQ(said.filter(u"orvanta.playback: start"_s), QStringList());
}

TEST_F(NoEnd, SeekingWithTheSliderDoesNotAdvance)
{
    playFirstOf(u"tone20.wav"_s);
    for (const int percent : {50, 10, 90, 30, 80, 0}) {
        window().clickSlider(u"Position"_s, percent);
        const double target = 20.0 * percent / 100;
        ASSERT_TRUE(waitFor([&] {
            return std::abs(window().currentSeconds() - target) < 1.0 && program.isRunning();
        })) << percent;
    }
    saidUntilAnotherFileIsOpen();
    EXPECT_EQ(ends(), QStringList());
    EXPECT_EQ(starts().size(), 1);
}

TEST_F(NoEnd, SeekingFromTheLastSecondToTheBeginningDoesNotAdvance)
{
    playFirstOf(u"video3.mp4"_s);
    const bool inTime = tryInTheLastSecond(2, [this] { window().clickSlider(u"Position"_s, 0); });
    ASSERT_TRUE(inTime);
    EXPECT_TRUE(plays(u"ended 1 1"_s)); // at the natural end of the second time round
}

TEST_F(NoEnd, PauseDoesNotAdvanceAndTheSliderDoesNotSeekThen)
{
    playFirstOf(u"tone20.wav"_s);
    window().press(u"Pause"_s);
    ASSERT_TRUE(waitFor([this] { return window().isEnabled(u"Play"_s); }));
    const double stood = window().currentSeconds();
    window().clickSlider(u"Position"_s, 80);
    window().press(u"Play"_s);
    ASSERT_TRUE(waitFor([&] { return window().currentSeconds() > stood; }));
    EXPECT_LT(window().currentSeconds(), 14); // goes on where it was
    EXPECT_EQ(ends(), QStringList());
}

} // namespace orvanta::e2e
