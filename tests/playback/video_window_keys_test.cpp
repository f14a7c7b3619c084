// The video window's keys, and what keeps the desktop awake.
#include "tests/playback/video_window_fixture.h"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

class VideoWindowKeysTest : public VideoWindowTest
{
protected:
    VideoWindowKeysTest() { control.duration = 600.0; }

    void SetUp() override { open(u"/a.avi"_s, {320, 240}); }
    void type(char letter) { QTest::keyClick(&form, letter); }
};

TEST_F(VideoWindowKeysTest, PauseRunAndStopActInTheSameTurn)
{
    type('p');
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    type('r');
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    type('s');
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_FALSE(form.mirror().RequestPending);
}

TEST_F(VideoWindowKeysTest, VolumeStepsReachThePlayerInTheSameTurn)
{
    form.mirror().VideoVolume = 100;
    for (int i = 0; i < 10; ++i) {
        type('-');
    }
    EXPECT_EQ(form.mirror().VideoVolume, 50);
    EXPECT_EQ(control.Volume(), -1000);
    type('+');
    EXPECT_EQ(form.mirror().VideoVolume, 55);
}

TEST_F(VideoWindowKeysTest, SmallLettersSeekByAMinuteAndCapitalsDoNothing)
{
    control.playTo(100.0);
    type('m');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 160.0);
    type('B');
    type('M');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 160.0);
    type('b');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
}

TEST_F(VideoWindowKeysTest, TIsIgnored)
{
    control.calls.clear();
    type('t');
    EXPECT_TRUE(control.calls.isEmpty());
    EXPECT_FALSE(form.mirror().RequestPending);
}

TEST_F(VideoWindowKeysTest, ABookmarkIsKeptAndFoundAgain)
{
    control.playTo(12.5);
    type('k');
    control.playTo(99.0);
    type('l');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 12.5);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(VideoWindowKeysTest, SpaceTheMediaKeyAndTheArrowsActAsInEveryPlayer)
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_MediaPlay}) {
        QTest::keyClick(&form, key);
        EXPECT_EQ(control.CurrentState(), MediaControl::Paused) << key;
        QTest::keyClick(&form, key);
        EXPECT_EQ(control.CurrentState(), MediaControl::Running) << key;
    }
    control.playTo(100.0);
    QTest::keyClick(&form, Qt::Key_Right);
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 105.0);
    QTest::keyClick(&form, Qt::Key_Left);
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
}

TEST_F(VideoWindowKeysTest, TheQuitKeyAndTheMediaKeysAskThePlayer)
{
    QTest::keyClick(&form, Qt::Key_Q, Qt::ControlModifier);
    QTest::keyClick(&form, Qt::Key_Q);
    QTest::keyClick(&form, Qt::Key_MediaStop);
    QTest::keyClick(&form, Qt::Key_MediaNext);
    QTest::keyClick(&form, Qt::Key_MediaPrevious);
    EXPECT_EQ(asked, (QList{Command::Quit, Command::StopButton, Command::NextClip,
                            Command::PreviousClip}));
}

TEST_F(VideoWindowKeysTest, ALetterHeldWithControlIsNoCommand)
{
    QTest::keyClick(&form, Qt::Key_P, Qt::ControlModifier);
    QTest::keyClick(&form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(VideoWindowKeysTest, TheDesktopIsKeptAwakeUntilTheClipHasStoodStillForAWhile)
{
    control.Stop();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form.Timer1.isActive(); }, 20000));
    toldAwake.clear();
    control.Run();
    EXPECT_TRUE(form.Timer1.isActive());
    control.Pause();
    EXPECT_TRUE(form.Timer1.isActive());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form.Timer1.isActive(); }, 20000));
    EXPECT_EQ(toldAwake, (QList<bool>{true, false}));
}

TEST_F(VideoWindowKeysTest, SeeksAndChangesOfClipNeitherReleaseNorRestartWhatKeepsTheDesktopAwake)
{
    control.Run();
    toldAwake.clear();
    const int left = form.Timer1.remainingTime();
    control.Pause(); // as a seek does
    control.setCurrentPosition(3);
    control.Run();
    control.setFileName(QString()); // as the end of a clip does
    open(u"/clips/two.avi"_s, {});
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_LE(form.Timer1.remainingTime(), left);
    EXPECT_TRUE(toldAwake.isEmpty());
}

/// Keeps the places to which the mouse cursor moves over any window.
class PointerPlaces : public QObject
{
public:
    PointerPlaces() { qApp->installEventFilter(this); }
    QList<QPoint> seen;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::MouseMove && receiver->isWindowType()) {
            seen.append(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        }
        return false;
    }
};

TEST_F(VideoWindowKeysTest, TheNudgeGoesOnePixelDownAndStraightBack)
{
    const QPoint place = form.frameGeometry().center();
    QCursor::setPos(place);
    QCoreApplication::processEvents();
    PointerPlaces pointer;
    ASSERT_TRUE(QMetaObject::invokeMethod(&form.Timer1, "timeout"));
    QCoreApplication::processEvents();
    EXPECT_EQ(pointer.seen, (QList<QPoint>{place + QPoint(0, 1), place}));
    EXPECT_EQ(QCursor::pos(), place);
}

} // namespace
