// The menu of the video window.
#include "playback/command_menu.h"
#include "tests/playback/video_window_fixture.h"

#include <QContextMenuEvent>
#include <QMenu>

namespace orvanta::test {
namespace {

class VideoMenu : public VideoWindowTest
{
protected:
    void SetUp() override
    {
        control.duration = 600.0;
        open(u"/clip.avi"_s, {160, 120});
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    }
    void TearDown() override { form.PictureMenu->hide(); }

    void rightClick()
    {
        const QPoint place = form.rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, form.mapToGlobal(place));
        QCoreApplication::sendEvent(form.ActiveMovie1, &event);
    }
    [[nodiscard]] QAction& entry(Command command) const
    {
        return *form.PictureMenu->entryOf(command);
    }
};

TEST_F(VideoMenu, OpensOverThePictureAndByKey)
{
    rightClick();
    EXPECT_TRUE(form.PictureMenu->isVisible());
    EXPECT_EQ(entry(Command::TogglePlay).text(), u"Play or p&ause"_s);
    form.PictureMenu->hide();
    QTest::keyClick(&form, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(form.PictureMenu->isVisible());
    form.PictureMenu->hide();
    QTest::keyClick(&form, Qt::Key_Menu);
    EXPECT_TRUE(form.PictureMenu->isVisible());
}

TEST_F(VideoMenu, OffersNothingOfTheListAndOfTheMainWindowAlone)
{
    for (const Command command :
         {Command::PlayLine, Command::CheckLine, Command::AlwaysOnTop, Command::FindAgain}) {
        EXPECT_EQ(form.PictureMenu->entryOf(command), nullptr);
    }
}

TEST_F(VideoMenu, SteersThePlayerAtOnce)
{
    entry(Command::TogglePlay).trigger();
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    entry(Command::TogglePlay).trigger();
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    entry(Command::Stop).trigger();
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    rightClick();
    EXPECT_FALSE(entry(Command::Stop).isEnabled());
}

TEST_F(VideoMenu, HandsOnWhatIsNotItsOwn)
{
    for (const Command command :
         {Command::NextLine, Command::PreviousLine, Command::OpenFile, Command::OpenClips,
          Command::Find, Command::Help, Command::Quit}) {
        entry(command).trigger();
    }
    EXPECT_EQ(asked, (QList{Command::NextLine, Command::PreviousLine, Command::OpenFile,
                            Command::OpenClips, Command::Find, Command::Help, Command::Quit}));
}

TEST_F(VideoMenu, ShowsThePointerInFullScreenAndFullScreenStays)
{
    form.setFullScreen(true);
    ASSERT_EQ(form.cursor().shape(), Qt::BlankCursor);
    rightClick();
    EXPECT_TRUE(form.PictureMenu->isVisible());
    EXPECT_TRUE(form.isFullScreen());
    EXPECT_NE(form.cursor().shape(), Qt::BlankCursor);
    EXPECT_TRUE(entry(Command::ToggleFullScreen).isChecked());
    form.PictureMenu->hide();
    EXPECT_EQ(form.cursor().shape(), Qt::BlankCursor);
    EXPECT_TRUE(form.windowState().testFlag(Qt::WindowFullScreen));
    entry(Command::ToggleFullScreen).trigger();
    EXPECT_FALSE(form.isFullScreen());
    EXPECT_NE(form.cursor().shape(), Qt::BlankCursor);
}

TEST_F(VideoMenu, GoesToABookmarkOnlyWhereThereIsOne)
{
    rightClick();
    EXPECT_FALSE(entry(Command::GoToBookmark).isEnabled());
    form.PictureMenu->hide();
    control.playTo(50.0);
    entry(Command::SetBookmark).trigger();
    control.playTo(90.0);
    rightClick();
    EXPECT_TRUE(entry(Command::GoToBookmark).isEnabled());
    entry(Command::GoToBookmark).trigger();
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 50.0);
}

/// What a submenu offers; the chosen entry has a star.
QStringList entriesOf(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* entry : menu.actions()) {
        texts += (entry->isChecked() ? u"*"_s : QString()) + entry->text();
    }
    return texts;
}

QMenu* submenu(const QMenu& menu, const QString& title)
{
    for (const QAction* entry : menu.actions()) {
        if (entry->text() == title) {
            return entry->menu<QMenu*>();
        }
    }
    return nullptr;
}

class VideoTracks : public VideoMenu
{
protected:
    void SetUp() override
    {
        control.clipTracks = {
            {.kind = MediaTrack::Sound, .id = 1, .language = u"eng"_s, .chosen = true},
            {.kind = MediaTrack::Sound, .id = 2, .language = u"rus"_s, .title = u"A & B"_s},
            {.kind = MediaTrack::Subtitles, .id = 1, .language = u"ger"_s}};
        VideoMenu::SetUp();
    }
};

TEST_F(VideoTracks, AreSubmenusAndAChoiceIsNoCommand)
{
    rightClick();
    QMenu* sound = submenu(*form.PictureMenu, u"Soun&d"_s);
    QMenu* subtitles = submenu(*form.PictureMenu, u"Su&btitles"_s);
    ASSERT_TRUE(sound != nullptr && subtitles != nullptr);
    EXPECT_EQ(entriesOf(*sound), (QStringList{u"*English"_s, u"Russian — A && B"_s}));
    EXPECT_EQ(entriesOf(*subtitles), (QStringList{u"*Off"_s, u"German"_s}));
    control.calls.clear();
    sound->actions().at(1)->trigger();
    subtitles->actions().at(1)->trigger();
    EXPECT_EQ(control.calls, (QStringList{u"sound 2"_s, u"subtitles 1"_s}));
    EXPECT_EQ(asked, QList<Command>());
    form.PictureMenu->hide();
    rightClick();
    EXPECT_EQ(entriesOf(*sound), (QStringList{u"English"_s, u"*Russian — A && B"_s}));
}

TEST_F(VideoTracks, AreChosenByKeyboard)
{
    QTest::keyClick(&form, Qt::Key_Menu);
    QMenu* subtitles = submenu(*form.PictureMenu, u"Su&btitles"_s);
    QTest::keyClick(form.PictureMenu, Qt::Key_B);
    ASSERT_TRUE(QTest::qWaitFor([&] { return subtitles->isVisible(); }));
    QTest::keyClick(subtitles, Qt::Key_Up);
    QTest::keyClick(subtitles, Qt::Key_Return);
    EXPECT_TRUE(control.tracks().back().chosen);
}

TEST_F(VideoTracks, AreGreyWhereThereIsNothingToChoose)
{
    control.clipTracks.resize(1);
    open(u"/other.avi"_s, {160, 120});
    rightClick();
    EXPECT_FALSE(submenu(*form.PictureMenu, u"Soun&d"_s)->menuAction()->isEnabled());
    EXPECT_FALSE(submenu(*form.PictureMenu, u"Su&btitles"_s)->menuAction()->isEnabled());
}

} // namespace
} // namespace orvanta::test
