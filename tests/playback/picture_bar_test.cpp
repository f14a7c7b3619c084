// The bar over the picture: when it shows, what it shows, and where its clicks go.
#include "playback/overlay_bar.h"
#include "playback/overlay_button.h"
#include "playback/overlay_picture.h"
#include "playback/overlay_track.h"
#include "playback/overlay_wait_ring.h"
#include "tests/playback/video_window_fixture.h"

#include <QApplication>
#include <QMenu>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

class PictureBarTest : public VideoWindowTest
{
protected:
    void SetUp() override
    {
        control.duration = 200;
        marks = {{.seconds = 50, .text = u"Two beats"_s, .isEnd = false},
                 {.seconds = 100, .text = u"Three beats"_s, .isEnd = false},
                 {.seconds = 190, .text = u"End"_s, .isEnd = true}};
        open(u"/a.avi"_s, {640, 480});
    }

    void moveMouse(QPoint place) { QTest::mouseMove(&form, place); }

    void showBar()
    {
        moveMouse({100, 100});
        moveMouse({140, 140});
        ASSERT_TRUE(QTest::qWaitFor([this] { return form.Bar->isVisible(); }));
    }

    /// The middle of the track's height, so many pixels from its left.
    [[nodiscard]] QPoint onTrack(int x) const { return {x, form.Bar->track->height() / 2}; }
    [[nodiscard]] int placeOf(double seconds) const { return form.Bar->track->placeOf(seconds); }

    void clickAt(double seconds)
    {
        QTest::mouseClick(form.Bar->track, Qt::LeftButton, {}, onTrack(placeOf(seconds)));
    }

    [[nodiscard]] QStringList seeks() const { return control.calls.filter(u"seek"_s); }
};

} // namespace

TEST_F(PictureBarTest, SubtitlesStandAboveTheBarAndTheText)
{
    const auto below = [this](const QWidget& part) { return 1 - double(part.y()) / form.height(); };
    EXPECT_EQ(control.subtitlesRaised, 0);
    form.setLine({.text = u"Two beats"_s, .number = 1, .count = 2});
    EXPECT_EQ(control.subtitlesRaised, 0);
    form.nextTextLevel();
    const double withText = control.subtitlesRaised;
    EXPECT_DOUBLE_EQ(withText, below(*form.LessonText));
    EXPECT_GT(withText, 0);
    showBar();
    EXPECT_DOUBLE_EQ(control.subtitlesRaised, below(*form.LessonText));
    EXPECT_GT(control.subtitlesRaised, below(*form.Bar));
    form.setLine({.text = {}, .number = 2, .count = 2}); // a line without a text
    EXPECT_DOUBLE_EQ(control.subtitlesRaised, below(*form.Bar));
    form.setLine({.text = u"Two beats"_s, .number = 1, .count = 2});
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form.Bar->isVisible(); }, 20000));
    EXPECT_DOUBLE_EQ(control.subtitlesRaised, withText);
    form.nextTextLevel();
    form.nextTextLevel();
    EXPECT_EQ(control.subtitlesRaised, 0);
}

TEST_F(PictureBarTest, ShowsWhenTheMouseMovesAndGoesByItself)
{
    EXPECT_FALSE(form.Bar->isVisible());
    showBar();
    EXPECT_EQ(form.Bar->geometry().bottom(), form.height() - 1);
    EXPECT_EQ(form.Bar->width(), form.width());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form.Bar->isVisible(); }, 20000));
}

TEST_F(PictureBarTest, TheNudgeOfOnePixelDoesNotShowIt)
{
    showBar();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form.Bar->isVisible(); }, 20000));
    moveMouse({140, 141});
    moveMouse({140, 140});
    QCoreApplication::processEvents();
    EXPECT_FALSE(form.Bar->isVisible());
}

TEST_F(PictureBarTest, GoesAtOnceWhenTheMouseLeaves)
{
    showBar();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&form, &leave);
    EXPECT_FALSE(form.Bar->isVisible());
}

TEST_F(PictureBarTest, AKeyThatChangesSomethingShowsItAndOneThatDoesNotShowsNone)
{
    QTest::keyClick(&form, 'x');
    EXPECT_FALSE(form.Bar->isVisible());
    QTest::keyClick(&form, Qt::Key_Right);
    EXPECT_TRUE(form.Bar->isVisible());
}

TEST_F(PictureBarTest, AKeyThatChangesTheTextOrTheScreenShowsItToo)
{
    for (const Qt::Key key : {Qt::Key_F5, Qt::Key_F11}) {
        form.Bar->hide();
        QTest::keyClick(&form, key);
        EXPECT_TRUE(form.Bar->isVisible()) << key;
    }
}

TEST_F(PictureBarTest, AKeyThatChangesThePracticeShowsItToo)
{
    const std::pair<Qt::Key, Practice> changes[] = {{Qt::Key_F6, {.times = 0}},
                                                    {Qt::Key_F7, {.speed = 95}},
                                                    {Qt::Key_F8, {.speed = 110}},
                                                    {Qt::Key_F9, {.wait = Practice::kWaitForKey}}};
    for (const auto& [key, change] : changes) {
        form.Bar->hide();
        onPlayerKey = [] {};
        QTest::keyClick(&form, key); // at a limit, for instance
        EXPECT_FALSE(form.Bar->isVisible()) << key;
        onPlayerKey = [this, &change] { practised = change; };
        QTest::keyClick(&form, key);
        EXPECT_TRUE(form.Bar->isVisible()) << key;
    }
}

TEST_F(PictureBarTest, IsNotThereWithoutAPictureInSightNorInATinyWindow)
{
    open(u"/tiny.avi"_s, {160, 120});
    moveMouse({10, 10});
    moveMouse({60, 60});
    QTest::keyClick(&form, Qt::Key_Right);
    EXPECT_FALSE(form.Bar->isVisible());
}

TEST_F(PictureBarTest, ShowsTimesAsMinutesAndSeconds)
{
    control.playTo(64.2);
    showBar();
    EXPECT_EQ(form.Bar->position->text(), u"1:04"_s + QLocale().decimalPoint() + u'2');
    EXPECT_EQ(form.Bar->length->text(), u"3:20"_s);
    control.playTo(65.0);
    EXPECT_TRUE(form.Bar->position->text().startsWith(u"1:05"_s));
}

TEST_F(PictureBarTest, AClickOnATickGoesExactlyThere)
{
    showBar();
    control.calls.clear();
    QTest::mouseClick(form.Bar->track, Qt::LeftButton, {}, onTrack(placeOf(100) + 3));
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100);
    EXPECT_EQ(seeks().size(), 1);
}

TEST_F(PictureBarTest, AClickElsewhereGoesToThatPartOfTheClip)
{
    showBar();
    clickAt(140);
    EXPECT_NEAR(control.CurrentPosition(), 140, 1);
}

TEST_F(PictureBarTest, ADragShowsTheTimeAndSeeksOnceAtItsEnd)
{
    showBar();
    control.calls.clear();
    QTest::mousePress(form.Bar->track, Qt::LeftButton, {}, onTrack(placeOf(20)));
    QTest::mouseMove(form.Bar->track, onTrack(placeOf(80)));
    QTest::mouseMove(form.Bar->track, onTrack(placeOf(150)));
    control.playTo(5); // the clip runs on below the hand
    EXPECT_TRUE(form.Bar->position->text().startsWith(u"2:"_s));
    EXPECT_TRUE(seeks().isEmpty());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&form, &leave);
    EXPECT_TRUE(form.Bar->isVisible());
    QTest::mouseRelease(form.Bar->track, Qt::LeftButton, {}, onTrack(placeOf(150)));
    EXPECT_EQ(seeks().size(), 1);
    EXPECT_NEAR(control.CurrentPosition(), 150, 1);
}

TEST_F(PictureBarTest, TheBubbleIsThereWhileThePointerIsOnTheTrack)
{
    showBar();
    QTest::mouseMove(form.Bar->track, onTrack(placeOf(140)));
    const int bare = form.Bar->bubble->width();
    EXPECT_TRUE(form.Bar->bubble->isShown());
    QTest::mouseMove(form.Bar->track, onTrack(placeOf(100)));
    EXPECT_GT(form.Bar->bubble->width(), bare);
    EXPECT_TRUE(form.Bar->rect().contains(form.Bar->bubble->geometry()));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(form.Bar->track, &leave);
    EXPECT_FALSE(form.Bar->bubble->isVisible());
}

TEST_F(PictureBarTest, TheEndMarkHasTheWarningColour)
{
    showBar();
    const QImage track = form.Bar->track->grab().toImage();
    const qreal ratio = track.devicePixelRatio();
    const auto colourAt = [&](double seconds) {
        return track.pixelColor(int(placeOf(seconds) * ratio), int(6 * ratio));
    };
    EXPECT_EQ(colourAt(190), QColor(0xb8, 0x4a, 0x4f));
    EXPECT_EQ(colourAt(100), QColor(0xe6, 0xea, 0xf2));
}

TEST_F(PictureBarTest, NothingOfItTakesTheFocusAndEveryButtonHasAName)
{
    showBar();
    for (const QWidget* part : form.Bar->findChildren<QWidget*>()) {
        EXPECT_EQ(part->focusPolicy(), Qt::NoFocus) << qPrintable(part->objectName());
    }
    for (BarButton* button : form.Bar->findChildren<BarButton*>()) {
        EXPECT_FALSE(button->accessibleName().isEmpty()) << qPrintable(button->objectName());
        const QString named = button->accessibleName() + u" ("_s;
        EXPECT_TRUE(button == form.Bar->tracks || button->toolTip().startsWith(named))
            << qPrintable(button->toolTip());
    }
    QTest::mouseClick(form.Bar->play, Qt::LeftButton);
    EXPECT_FALSE(form.Bar->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(PictureBarTest, ItsButtonsActAsTheKeysDo)
{
    showBar();
    QTest::mouseClick(form.Bar->play, Qt::LeftButton);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    QTest::mouseClick(form.Bar->previous, Qt::LeftButton);
    QTest::mouseClick(form.Bar->next, Qt::LeftButton);
    EXPECT_EQ(lineSteps, (QList<int>{-1, 1}));
    QTest::mouseClick(form.Bar->text, Qt::LeftButton);
    EXPECT_EQ(storedLevel, TextLevel::Text);
    QTest::mouseClick(form.Bar->fullScreen, Qt::LeftButton);
    EXPECT_TRUE(form.isFullScreen());
    EXPECT_TRUE(form.Bar->fullScreen->isChecked());
}

TEST_F(PictureBarTest, ShowsOfThePracticeWhatIsNotAsUsual)
{
    showBar();
    EXPECT_FALSE(form.Bar->speed->isVisible());
    EXPECT_FALSE(form.Bar->repeatText->isVisible());
    EXPECT_FALSE(form.Bar->repeat->isChecked());
    control.setSpeed(0.8);
    repeats = true;
    roundText = u"Repeat 2"_s;
    form.refreshBar();
    EXPECT_EQ(form.Bar->speed->text().left(1), u"0");
    EXPECT_TRUE(form.Bar->speed->isVisible());
    EXPECT_EQ(form.Bar->repeatText->text(), u"Repeat 2");
    EXPECT_TRUE(form.Bar->repeat->isChecked());
}

TEST_F(PictureBarTest, HasButtonsForTheLineAgainAndForRepeating)
{
    showBar();
    QTest::mouseClick(form.Bar->again, Qt::LeftButton);
    EXPECT_EQ(linesAgain, 1);
    QTest::mouseClick(form.Bar->repeat, Qt::LeftButton);
    EXPECT_TRUE(repeats);
}

TEST_F(PictureBarTest, ComesWithARingWhileTheLessonWaitsWhosePressGoesOn)
{
    form.showWait(0);
    EXPECT_TRUE(form.Bar->isVisible());
    EXPECT_TRUE(form.Bar->ring->isVisible());
    QTest::mouseClick(form.Bar->ring, Qt::LeftButton);
    EXPECT_EQ(wentOn, 1);
    form.showWaitOver();
    EXPECT_FALSE(form.Bar->ring->isVisible());
}

TEST_F(PictureBarTest, ThePointerIsThereWithItOnTheWholeScreen)
{
    QTest::keyClick(&form, Qt::Key_F11);
    ASSERT_TRUE(QTest::qWaitFor([this] { return form.size() == form.screen()->size(); }));
    EXPECT_EQ(form.cursor().shape(), Qt::BlankCursor);
    showBar();
    EXPECT_NE(form.cursor().shape(), Qt::BlankCursor);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form.Bar->isVisible(); }, 20000));
    EXPECT_EQ(form.cursor().shape(), Qt::BlankCursor);
}

TEST_F(PictureBarTest, TheTextMovesAboveIt)
{
    storedLevel = TextLevel::Text;
    form.setLine({.text = u"Three beats"_s, .number = 1, .count = 3});
    const QPoint place = form.LessonText->pos();
    showBar();
    EXPECT_LT(form.LessonText->geometry().bottom(), form.Bar->y() + 20);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form.Bar->isVisible(); }, 20000));
    EXPECT_EQ(form.LessonText->pos(), place);
}

TEST_F(PictureBarTest, ADoubleClickOnItIsNoneOnThePicture)
{
    showBar();
    QTest::mouseDClick(form.Bar, Qt::LeftButton, {}, {5, form.Bar->height() - 3});
    EXPECT_FALSE(form.isFullScreen());
}

TEST_F(PictureBarTest, TracksHaveAButtonWhereThereIsAChoice)
{
    showBar();
    EXPECT_FALSE(form.Bar->tracks->isVisible());
    control.clipTracks = {{.kind = MediaTrack::Sound, .id = 1, .chosen = true},
                          {.kind = MediaTrack::Subtitles, .id = 1, .language = u"eng"_s}};
    open(u"/b.avi"_s, {640, 480});
    showBar();
    ASSERT_TRUE(form.Bar->tracks->isVisible());
    QTest::mouseClick(form.Bar->tracks, Qt::LeftButton);
    ASSERT_TRUE(form.TracksMenu->isVisible());
    EXPECT_FALSE(form.TracksMenu->actions().first()->isEnabled()); // one sound is no choice
    QMenu* subtitles = form.TracksMenu->actions().last()->menu<QMenu*>();
    subtitles->actions().last()->trigger();
    EXPECT_TRUE(control.tracks().back().chosen);
    form.TracksMenu->hide();
    open(u"/narrow.avi"_s, {300, 200});
    showBar();
    EXPECT_FALSE(form.Bar->tracks->isVisible());
}
