// The menu of the playlist.
#include "playback/command_menu.h"
#include "tests/window/window_fixture.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QSignalSpy>

namespace orvanta::test {
namespace {

class ListMenu : public Form2Test
{
protected:
    /// Rows: 0 root, 1 header, 2 one, 3 two.
    void SetUp() override
    {
        addClips(u"packet"_s, {u"one"_s, u"two"_s});
        control.duration = 600.0;
        showList();
        window->List1->setFocus();
    }

    void TearDown() override
    {
        if (window) {
            window->ListMenu->hide();
        }
    }

    void rightClick(QPoint place)
    {
        QWidget* list = window->List1->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, list->mapToGlobal(place));
        QCoreApplication::sendEvent(list, &event);
    }

    [[nodiscard]] QAction& entry(Command command) const
    {
        return *window->ListMenu->entryOf(command);
    }

    /// By keyboard: down to the entry, then Enter.
    void chooseByKeyboard(Command command)
    {
        CommandMenu* menu = window->ListMenu;
        for (int i = 0; i < 30 && menu->activeAction() != &entry(command); ++i) {
            QTest::keyClick(menu, Qt::Key_Down);
        }
        ASSERT_EQ(menu->activeAction(), &entry(command));
        QTest::keyClick(menu, Qt::Key_Return);
    }
};

TEST_F(ListMenu, OpensForTheLineUnderThePointer)
{
    rightClick(textOfRow(3));
    EXPECT_TRUE(window->ListMenu->isVisible());
    EXPECT_EQ(window->List1->cursorLine(), 3);
    EXPECT_TRUE(entry(Command::PlayLine).isEnabled());
    EXPECT_TRUE(entry(Command::CheckLine).isEnabled());
    EXPECT_TRUE(entry(Command::CheckLine).isChecked());
    EXPECT_FALSE(entry(Command::Stop).isEnabled());
    EXPECT_FALSE(entry(Command::SetBookmark).isEnabled());
    EXPECT_TRUE(entry(Command::TogglePlay).isEnabled());
}

TEST_F(ListMenu, OffersToCheckAPacketButNotToPlayItsLine)
{
    rightClick(textOfRow(1));
    EXPECT_FALSE(entry(Command::PlayLine).isEnabled());
    EXPECT_TRUE(entry(Command::CheckLine).isEnabled());
}

TEST_F(ListMenu, OpensByTheMenuKeyAndByShiftF10ForTheCurrentLine)
{
    window->setListIndex(2);
    QTest::keyClick(window->List1, Qt::Key_Menu);
    EXPECT_TRUE(window->ListMenu->isVisible());
    const QRect line = window->List1->visualRect(window->List1->currentIndex());
    const int below = window->List1->viewport()->mapToGlobal(line.bottomLeft()).y();
    const int lowest = window->screen()->geometry().bottom() + 1 - window->ListMenu->height();
    EXPECT_EQ(window->ListMenu->pos().y(), std::min(below, lowest));
    window->ListMenu->hide();
    QTest::keyClick(window->List1, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(window->ListMenu->isVisible());
    window->ListMenu->hide();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(window->List1->viewport(), &event);
    EXPECT_TRUE(window->ListMenu->isVisible());
    EXPECT_TRUE(entry(Command::PlayLine).isEnabled());
}

TEST_F(ListMenu, WithoutALineOffersWhatNeedsNone)
{
    window->setListIndex(-1);
    QTest::keyClick(window->List1, Qt::Key_Menu);
    EXPECT_TRUE(window->ListMenu->isVisible());
    EXPECT_FALSE(entry(Command::PlayLine).isEnabled());
    EXPECT_FALSE(entry(Command::CheckLine).isEnabled());
    EXPECT_TRUE(entry(Command::OpenFile).isEnabled());
}

TEST_F(ListMenu, TheMenuKeyElsewhereOpensNoMenuOfTheList)
{
    window->Slider2->setFocus();
    QTest::keyClick(window->Slider2, Qt::Key_Menu);
    EXPECT_FALSE(window->ListMenu->isVisible());
}

TEST_F(ListMenu, PlaysTheLineByKeyboard)
{
    window->setListIndex(3);
    QTest::keyClick(window->List1, Qt::Key_Menu);
    chooseByKeyboard(Command::PlayLine);
    EXPECT_EQ(module.playlist.CurrentClip.value(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.CurrentState() == MediaControl::Running; }));
}

TEST_F(ListMenu, ChecksAndUnchecksTheLine)
{
    window->setListIndex(3);
    QTest::keyClick(window->List1, Qt::Key_Menu);
    chooseByKeyboard(Command::CheckLine);
    EXPECT_FALSE(window->isLineChecked(3));
    QTest::keyClick(window->List1, Qt::Key_Menu);
    EXPECT_FALSE(entry(Command::CheckLine).isChecked());
    chooseByKeyboard(Command::CheckLine);
    EXPECT_TRUE(window->isLineChecked(3));
}

TEST_F(ListMenu, SteersThePlayer)
{
    ASSERT_TRUE(start(1, 1));
    control.playTo(100.0);
    engine->tick();
    const auto choose = [this](Command command) {
        QTest::keyClick(window->List1, Qt::Key_Menu);
        EXPECT_TRUE(entry(command).isEnabled());
        window->ListMenu->hide(); // before its entry acts, as a menu does
        entry(command).trigger();
    };
    choose(Command::TogglePlay);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    choose(Command::SetBookmark);
    EXPECT_EQ(ReadIni(u"pos"_s, u"one"_s, module.IniPath), u"100"_s);
    control.setCurrentPosition(5.0);
    choose(Command::GoToBookmark);
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
    choose(Command::ToggleFullScreen);
    EXPECT_TRUE(screen.on);
    QTest::keyClick(window->List1, Qt::Key_Menu);
    EXPECT_TRUE(entry(Command::ToggleFullScreen).isChecked());
    window->ListMenu->hide();
    choose(Command::NextLine);
    EXPECT_EQ(module.playlist.CurrentClip.value(), 2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return control.CurrentState() == MediaControl::Running; }));
    choose(Command::PreviousLine);
    EXPECT_EQ(module.playlist.CurrentClip.value(), 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return control.CurrentState() == MediaControl::Running; }));
    choose(Command::Stop);
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    choose(Command::OpenFile);
    EXPECT_EQ(pickers.calls.last(), u"open *.vxl;*.vxg"_s);
    choose(Command::OpenClips);
    EXPECT_EQ(pickers.calls.last(), u"open several "_s + module.TypePattern);
    choose(Command::Find);
    EXPECT_EQ(window->focusWidget(), window->Text1);
    window->List1->setFocus();
    choose(Command::Quit);
    EXPECT_TRUE(othersUnloaded);
}

TEST_F(ListMenu, ShowsEachKeyAndSaysItToAssistiveTechnology)
{
    QTest::keyClick(window->List1, Qt::Key_Menu);
    int keys = 0;
    for (const CommandRow& row : commands()) {
        const QAction* shown = window->ListMenu->entryOf(row.command);
        if (shown != nullptr) {
            keys += shownKey(row).isEmpty() ? 0 : 1;
            EXPECT_EQ(shown->shortcut().toString(QKeySequence::NativeText), shownKey(row));
            EXPECT_FALSE(shown->text().isEmpty());
        }
    }
    EXPECT_GE(keys, 12);
    QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(window->ListMenu);
    ASSERT_NE(menu, nullptr);
    QAccessibleInterface* first = menu->child(0);
    EXPECT_EQ(first->role(), QAccessible::MenuItem);
    EXPECT_EQ(first->text(QAccessible::Name), u"Play this line"_s);
    EXPECT_EQ(first->text(QAccessible::Accelerator), u"Enter"_s);
}

TEST_F(ListMenu, TheKeysThatItShowsAreHeardOnce)
{
    ASSERT_TRUE(start(1, 1));
    QTest::keyClick(window->List1, Qt::Key_Menu);
    window->ListMenu->hide();
    QTest::keyClick(window->List1, Qt::Key_F11);
    EXPECT_TRUE(screen.on);
    QTest::keyClick(window->List1, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(pickers.calls.count(u"open *.vxl;*.vxg"_s), 1);
}

} // namespace
} // namespace orvanta::test
