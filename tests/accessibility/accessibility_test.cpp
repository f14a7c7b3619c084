// Every window, the splash and the menus as assistive technology is told of them: each control that
// can be used has a name, a role and something that can be done with it. Open menus are no part of
// what other programs see of a window, so they are asked here, inside the program.

#include "system/form12_tray.h"
#include "tests/accessibility/accessible_walk.h"
#include "tests/captions/every_window.h"
#include "window/form1_splash.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"

#include <QAccessible>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

void expectUsable(QObject& top, int fewest)
{
    const AccessibleWalk walk = walkOver(top);
    EXPECT_TRUE(walk.complaints.isEmpty()) << qPrintable(walk.complaints.join(u'\n'));
    EXPECT_GE(walk.met, fewest);
}

} // namespace

class EveryWindowIsTold : public testing::TestWithParam<std::tuple<WindowOfProgram, int>>
{};

static std::string nameOfCase(const testing::TestParamInfo<EveryWindowIsTold::ParamType>& info)
{
    const std::string language = std::get<int>(info.param) == 1 ? "English" : "Russian";
    return std::get<WindowOfProgram>(info.param).name + language;
}

TEST_P(EveryWindowIsTold, WithANameARoleAndAnActionForEachControl)
{
    Surroundings surroundings{std::get<int>(GetParam())};
    const std::unique_ptr<QWidget> window =
        std::get<WindowOfProgram>(GetParam()).make(surroundings);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    EXPECT_FALSE(
        QAccessible::queryAccessibleInterface(window.get())->text(QAccessible::Name).isEmpty());
    expectUsable(*window, 1);
}

INSTANTIATE_TEST_SUITE_P(Windows, EveryWindowIsTold,
                         testing::Combine(testing::ValuesIn(everyWindow()), testing::Values(1, 2)),
                         nameOfCase);

TEST(TheSplash, BearsTheProgramsNameAndNothingToUse)
{
    Form1 splash(1);
    splash.show();
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(&splash)->text(QAccessible::Name).isEmpty());
    const AccessibleWalk walk = walkOver(splash);
    EXPECT_TRUE(walk.complaints.isEmpty()) << qPrintable(walk.complaints.join(u'\n'));
    EXPECT_EQ(walk.met, 0);
}

class MenusAreTold : public testing::TestWithParam<int>
{
protected:
    /// Every entry is met: separators are none.
    static void expectEveryEntry(QMenu& menu)
    {
        menu.popup(QPoint(10, 10));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
        const QList<QAction*> actions = menu.actions();
        expectUsable(menu, static_cast<int>(std::count_if(
                               actions.begin(), actions.end(),
                               [](const QAction* entry) { return !entry->isSeparator(); })));
        menu.close();
    }

    Surroundings surroundings{GetParam()};
};

TEST_P(MenusAreTold, OfTheMainWindow)
{
    const auto window = everyWindow().front().make(surroundings);
    window->show();
    const auto& main = dynamic_cast<const Form2&>(*window);
    for (QMenu* menu : {main.create, main.tools, main.help}) {
        expectEveryEntry(*menu);
    }
}

TEST_P(MenusAreTold, OfTheTray)
{
    Form12 tray(surroundings.module);
    expectEveryEntry(tray.tray);
}

INSTANTIATE_TEST_SUITE_P(Languages, MenusAreTold, testing::Values(1, 2));

class PlaylistIsTold : public testing::TestWithParam<int>
{
protected:
    PlaylistIsTold()
    {
        PlaylistEntry lesson;
        lesson.Title = u"Lesson"_s;
        lesson.Clips = {{.Time = {}, .Text = u"one"_s, .Path = {}},
                        {.Time = {}, .Text = {}, .Path = {}}};
        lesson.ClipCount = 2;
        PlaylistEntry last = lesson;
        last.Title = u"Last"_s;
        surroundings.module.playlist.Playlist = {lesson, last};
        surroundings.module.playlist.PlaylistCount = 2;
        window = everyWindow().front().make(surroundings);
        form2().RebuildTree();
        window->show();
        list = QAccessible::queryAccessibleInterface(form2().List1);
    }

    Form2& form2() { return dynamic_cast<Form2&>(*window); }

    QString told(int row, QAccessible::Text what) { return list->child(row)->text(what); }

    Surroundings surroundings{GetParam()};
    std::unique_ptr<QWidget> window;
    QAccessibleInterface* list = nullptr;
};

TEST_P(PlaylistIsTold, LineByLineWithoutTheTreeBeforeIt)
{
    ASSERT_EQ(list->childCount(), 7);
    const QStringList expected = {u"!Orvanta!"_s, u"Lesson"_s, u"one"_s, u" "_s,
                                  u"Last"_s,      u"one"_s,    u" "_s};
    for (int row = 0; row < expected.size(); ++row) {
        EXPECT_EQ(told(row, QAccessible::Name), expected.at(row)) << row;
    }
}

TEST_P(PlaylistIsTold, WithItsPacketsCalledSo)
{
    const QString word = GetParam() == 1 ? u"Packet"_s : u"Пакет"_s;
    EXPECT_EQ(told(1, QAccessible::Description), word);
    EXPECT_EQ(told(4, QAccessible::Description), word);
    for (const int row : {0, 2, 3, 5}) {
        EXPECT_EQ(told(row, QAccessible::Description), QString()) << row;
    }
}

TEST_P(PlaylistIsTold, WithTheStateOfItsMarks)
{
    form2().List1->model()->setData(form2().List1->model()->index(2, 0), Qt::Unchecked,
                                    Qt::CheckStateRole);
    EXPECT_FALSE(list->child(0)->state().checkable);
    EXPECT_TRUE(list->child(1)->state().checkable && list->child(1)->state().checked);
    EXPECT_TRUE(list->child(2)->state().checkable && !list->child(2)->state().checked);
}

// Readers say of a plain line neither "not checked" nor that a key has changed it.
TEST_P(PlaylistIsTold, WithACheckBoxForEachLineThatHasOne)
{
    EXPECT_EQ(list->child(0)->role(), QAccessible::Heading);
    EXPECT_EQ(list->child(2)->role(), QAccessible::CheckBox);
    EXPECT_EQ(list->indexOfChild(list->child(2)), 2);
    list->child(2)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(form2().List1->isLineChecked(2));
}

TEST_P(PlaylistIsTold, WithoutTheLinesThatAreGone)
{
    const QAccessible::Id before = QAccessible::uniqueId(list->child(2));
    form2().List1->setLines({});
    EXPECT_EQ(list->childCount(), 0);
    EXPECT_EQ(QAccessible::accessibleInterface(before), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Languages, PlaylistIsTold, testing::Values(1, 2));

TEST(AccessibleWalkRules, SeeAControlWithoutAName)
{
    QWidget window;
    window.setWindowTitle(u"A window"_s);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(new QPushButton(u"Ok"_s));
    window.show();
    EXPECT_TRUE(walkOver(window).complaints.isEmpty());
    EXPECT_EQ(walkOver(window).met, 1);
    layout->addWidget(new QPushButton);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(walkOver(window).complaints.size(), 1);
}

} // namespace orvanta::test
