// The signs over the picture, and the mouse's wheel and middle button.
#include "playback/overlay_picture.h"
#include "playback/sign_picture.h"
#include "tests/playback/video_window_fixture.h"

#include <QWheelEvent>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

class PictureSignsTest : public VideoWindowTest
{
protected:
    void SetUp() override
    {
        control.duration = 600.0;
        form.mirror().VideoVolume = 60;
        open(u"/a.avi"_s, {640, 480});
    }

    /// The picture of a sign with these words, as the window would paint it.
    [[nodiscard]] QSize sizeOf(const QString& text, const QString& lead = {})
    {
        const TextShape shape{.fontSize = signTextSize(form.height()),
                              .width = form.width(),
                              .devicePixelRatio = form.devicePixelRatioF()};
        return pictureOfSign(lead, text, shape).deviceIndependentSize().toSize();
    }

    [[nodiscard]] bool says(const QString& text, const QString& lead = {})
    {
        return form.Sign->isShown() && form.Sign->size() == sizeOf(text, lead);
    }

    void turnWheel(int eighths)
    {
        const QPointF place(50, 50);
        QWheelEvent event(place, form.mapToGlobal(place), {}, {0, eighths}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        // A wheel that no hand turns does not go from a child to its window.
        QCoreApplication::sendEvent(&form, &event);
    }
};

} // namespace

TEST_F(PictureSignsTest, NothingIsSaidUntilSomethingIsDone)
{
    EXPECT_FALSE(form.Sign->isVisible());
}

TEST_F(PictureSignsTest, SayWhatAKeyHasChangedAndGoByThemselves)
{
    QTest::keyClick(&form, Qt::Key_Space);
    EXPECT_TRUE(says(u"Pause"_s));
    EXPECT_LT(form.Sign->x(), 40);
    EXPECT_LT(form.Sign->y(), 40);
    QTest::keyClick(&form, Qt::Key_Space);
    EXPECT_TRUE(says(u"Play"_s));
    QTest::keyClick(&form, Qt::Key_Plus);
    EXPECT_TRUE(says(u"Volume 65 %"_s));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form.Sign->isVisible(); }, 20000));
}

TEST_F(PictureSignsTest, SayTheLineThatAPersonGoesTo)
{
    form.setLine({.text = u"Two beats"_s, .number = 2, .count = 8});
    EXPECT_FALSE(form.Sign->isVisible());
    onPlayerKey = [this] { form.setLine({.text = u"Three beats"_s, .number = 3, .count = 8}); };
    QTest::keyClick(&form, Qt::Key_MediaNext);
    EXPECT_TRUE(says(u"Three beats"_s, u"3 of 8"_s));
}

TEST_F(PictureSignsTest, SayThatThereIsNoBookmarkAndNothingElseHappens)
{
    control.playTo(12);
    control.calls.clear();
    QTest::keyClick(&form, 'l');
    EXPECT_TRUE(says(u"No bookmark here"_s));
    EXPECT_TRUE(control.calls.isEmpty());
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 12);
}

TEST_F(PictureSignsTest, SayItOnTheWholeScreenToo)
{
    QTest::keyClick(&form, Qt::Key_F11);
    ASSERT_TRUE(QTest::qWaitFor([this] { return form.size() == form.screen()->size(); }));
    QTest::keyClick(&form, 'l');
    EXPECT_TRUE(says(u"No bookmark here"_s));
}

TEST_F(PictureSignsTest, SayWhereTheBookmarkIsSet)
{
    control.playTo(64.9);
    form.showBookmark();
    EXPECT_TRUE(says(u"Bookmark at 1:04"_s));
}

TEST_F(PictureSignsTest, ABookmarkThatIsThereIsGoneToWithoutAWord)
{
    form.mirror().VideoBookmark = u"7.5"_s;
    QTest::keyClick(&form, 'l');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 7.5);
    EXPECT_FALSE(form.Sign->isVisible());
}

TEST_F(PictureSignsTest, SayTheLanguageOfTheProgram)
{
    language = TextLanguage::Russian;
    QTest::keyClick(&form, 'l');
    EXPECT_TRUE(says(u"Здесь нет закладки"_s));
}

TEST_F(PictureSignsTest, AreNowhereWithoutAPictureInSight)
{
    open(u"/a.mp3"_s, {});
    form.showSign(u"Pause"_s);
    EXPECT_FALSE(form.Sign->isShown());
}

TEST_F(PictureSignsTest, LongWordsEndWithinTheWindow)
{
    form.showSign(u"word "_s.repeated(200), u"3 of 8"_s);
    EXPECT_TRUE(form.rect().contains(form.Sign->geometry()));
}

TEST_F(PictureSignsTest, TheWheelOverThePictureIsTheVolumeByFive)
{
    turnWheel(120);
    EXPECT_EQ(form.mirror().VideoVolume, 65);
    turnWheel(-240);
    EXPECT_EQ(form.mirror().VideoVolume, 55);
    turnWheel(-60);
    EXPECT_EQ(form.mirror().VideoVolume, 55);
    turnWheel(-60);
    EXPECT_EQ(form.mirror().VideoVolume, 50);
    EXPECT_TRUE(says(u"Volume 50 %"_s));
    EXPECT_EQ(control.Volume(), -1000);
}

TEST_F(PictureSignsTest, TheMiddleButtonPausesAndPlays)
{
    QTest::mouseClick(form.ActiveMovie1, Qt::MiddleButton);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    EXPECT_TRUE(says(u"Pause"_s));
    QTest::mouseClick(form.ActiveMovie1, Qt::MiddleButton);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    QTest::mouseClick(form.ActiveMovie1, Qt::LeftButton);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}
