// What assistive technology's own action does to a switch: it checks the button without a click.

#include "companions/cdcreate/box_window.h"
#include "editors/form5_packet_editor.h"
#include "tests/captions/every_window.h"
#include "window/editing_row.h"
#include "window/form2_main_window.h"
#include "window/practice_panel.h"
#include "window/skin_button.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>
#include <string_view>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static void toggle(QWidget* button)
{
    QAccessibleActionInterface* actions =
        QAccessible::queryAccessibleInterface(button)->actionInterface();
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    actions->doAction(QAccessibleActionInterface::toggleAction());
}

namespace {

class Switches : public testing::Test
{
protected:
    /// name: of everyWindow().
    template <class Window> Window& make(std::string_view name)
    {
        const auto found = std::ranges::find(
            everyWindow(), name, [](const auto& each) { return std::string_view(each.name); });
        m_window = found->make(surroundings);
        m_window->show();
        return dynamic_cast<Window&>(*m_window);
    }

    void openLesson()
    {
        PlaylistEntry lesson;
        lesson.Title = u"Lesson"_s;
        lesson.Clips = {{.Time = {}, .Text = u"one"_s, .Path = {}}};
        lesson.ClipCount = 1;
        surroundings.module.playlist.Playlist = {lesson};
        surroundings.module.playlist.PlaylistCount = 1;
    }

    Surroundings surroundings{1};

private:
    std::unique_ptr<QWidget> m_window;
};

} // namespace

TEST_F(Switches, ThePracticeButtonOpensAndClosesItsPanel)
{
    auto& window = make<Form2>("Form2");
    toggle(window.PracticeButton);
    EXPECT_TRUE(window.Panel->isVisible());
    EXPECT_TRUE(window.PracticeButton->isChecked());
    toggle(window.PracticeButton);
    EXPECT_FALSE(window.Panel->isVisible());
    EXPECT_FALSE(window.PracticeButton->isChecked());
}

TEST_F(Switches, TheEditButtonSwitchesEditingOnAndOff)
{
    openLesson();
    auto& window = make<Form2>("Form2");
    window.RebuildTree();
    toggle(window.EditButton);
    EXPECT_TRUE(window.findChild<EditingRow*>()->isVisible());
    toggle(window.EditButton);
    EXPECT_FALSE(window.findChild<EditingRow*>()->isVisible());
}

TEST_F(Switches, TheEditButtonIsNotLeftCheckedWhereNothingCanBeEdited)
{
    auto& window = make<Form2>("Form2");
    toggle(window.EditButton);
    EXPECT_FALSE(window.EditButton->isChecked());
    window.EditButton->click();
    EXPECT_FALSE(window.EditButton->isChecked());
}

TEST_F(Switches, TheKindOfPacketChangesItsPage)
{
    auto& editor = make<Form5>("Form5Clips");
    toggle(editor.Option2);
    EXPECT_TRUE(editor.Frame5->isVisible());
    EXPECT_FALSE(editor.Frame1->isVisible());
    toggle(editor.Option1);
    EXPECT_FALSE(editor.Frame5->isVisible());
    EXPECT_TRUE(editor.Frame1->isVisible());
}

TEST_F(Switches, TheFormOfABoxProposesItsPlace)
{
    auto& window = make<BoxWindow>("BoxWindow");
    const QString lesson = surroundings.home.path() + u"/lesson.vxl"_s;
    QFile file(lesson);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[main]\nfiles=0\n");
    file.close();
    window.addLessons({lesson});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.TargetEdit->text().isEmpty(); }));
    toggle(window.ZipOption);
    EXPECT_TRUE(window.TargetEdit->text().endsWith(u".zip"_s))
        << qPrintable(window.TargetEdit->text());
    toggle(window.FolderOption);
    EXPECT_FALSE(window.TargetEdit->text().endsWith(u".zip"_s));
}

} // namespace orvanta::test
