// Every caption of every window can be read, in both languages; access keys are clear.

#include "playback/command_menu.h"
#include "system/form12_tray.h"
#include "tests/captions/captions.h"
#include "tests/captions/every_window.h"
#include "window/editing_row.h"
#include "window/form2_main_window.h"

#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class Captions : public testing::TestWithParam<std::tuple<WindowOfProgram, int>>
{
protected:
    Captions()
        : window(std::get<WindowOfProgram>(GetParam()).make(surroundings))
    {
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    Surroundings surroundings{std::get<int>(GetParam())};
    std::unique_ptr<QWidget> window;
};

std::string nameOfCase(const testing::TestParamInfo<Captions::ParamType>& info)
{
    const std::string language = std::get<int>(info.param) == 1 ? "English" : "Russian";
    return std::get<WindowOfProgram>(info.param).name + language;
}

void expectNone(const QStringList& complaints)
{
    EXPECT_TRUE(complaints.isEmpty()) << qPrintable(complaints.join(u'\n'));
}

} // namespace

TEST_P(Captions, FitAtTheSizeInWhichTheWindowOpens)
{
    expectNone(captionsThatDoNotFit(*window));
    EXPECT_GE(captionCount(*window), std::get<WindowOfProgram>(GetParam()).captions);
}

TEST_P(Captions, FitAtTheSmallestSizeOfTheWindow)
{
    window->resize(window->minimumSizeHint().expandedTo(window->minimumSize()));
    QTest::qWait(0);
    expectNone(captionsThatDoNotFit(*window));
}

TEST_P(Captions, ShareNoAccessKeyWithinAWindow)
{
    expectNone(accessKeyComplaints(*window));
}

INSTANTIATE_TEST_SUITE_P(Windows, Captions,
                         testing::Combine(testing::ValuesIn(everyWindow()), testing::Values(1, 2)),
                         nameOfCase);

class Menus : public testing::TestWithParam<int>
{
protected:
    static void expectGoodMenu(const QMenu& menu, const QStringList& known = {})
    {
        EXPECT_EQ(accessKeyComplaints(menu), known)
            << qPrintable(accessKeyComplaints(menu).join(u'\n'));
        EXPECT_GE(menu.actions().size(), 1);
        // A menu grows with its captions; one that is higher than the screen has two columns.
        const int width = menu.sizeHint().width();
        const QRect last = menu.actionGeometry(menu.actions().back());
        const bool hasColumns = last.x() > menu.actionGeometry(menu.actions().front()).x();
        EXPECT_LT(width, hasColumns ? 800 : 400);
    }

    Surroundings surroundings{GetParam()};
};

TEST_P(Menus, OfTheMainWindowHaveAccessKeysOfTheirOwn)
{
    const auto window = everyWindow().front().make(surroundings);
    const auto& main = dynamic_cast<const Form2&>(*window);
    for (const QMenu* menu : {main.create, main.tools, main.help}) {
        expectGoodMenu(*menu);
    }
    expectGoodMenu(*main.ListMenu);
    for (const QMenu* menu : main.ListMenu->findChildren<QMenu*>()) {
        if (!menu->isEmpty()) { // no clip is open that had sounds or subtitles
            expectGoodMenu(*menu);
        }
    }
    expectGoodMenu(*main.Editing->More);
    for (const QMenu* menu : main.Editing->More->findChildren<QMenu*>()) {
        expectGoodMenu(*menu);
    }
}

TEST_P(Menus, OfTheVideoWindowHasAccessKeysOfItsOwn)
{
    CommandMenu menu(MenuPlace::VideoWindow, nullptr);
    menu.setLanguage(GetParam() == 1 ? TextLanguage::English : TextLanguage::Russian);
    expectGoodMenu(menu);
}

// The tray's captions are as they have always been: pressing a shared key twice goes to the second.
TEST_P(Menus, OfTheTraySharesNoMoreAccessKeysThanItsCaptionsAlwaysDid)
{
    const Form12 tray(surroundings.module);
    const QStringList english = {u"\"&Play\" and \"&Previous clip\" share P"_s,
                                 u"\"Paus&e\" and \"&Exit\" share E"_s};
    const QStringList russian = {u"\"&Стоп\" and \"&Следующий клип\" share С"_s,
                                 u"\"&Пауза\" and \"&Предыдущий клип\" share П"_s};
    expectGoodMenu(tray.tray, GetParam() == 1 ? english : russian);
}

INSTANTIATE_TEST_SUITE_P(Languages, Menus, testing::Values(1, 2));

TEST(CaptionRules, SeeAButtonThatIsTooNarrow)
{
    QWidget window;
    QPushButton button(u"Something longer"_s, &window);
    button.setObjectName(u"Command1"_s);
    button.setGeometry(0, 0, 40, 30);
    window.resize(200, 40);
    window.show();
    const QStringList complaints = captionsThatDoNotFit(window);
    ASSERT_EQ(complaints.size(), 1);
    EXPECT_TRUE(complaints.first().startsWith(u"Command1 \"Something longer\" needs "));
}

TEST(CaptionRules, SeeAButtonThatSticksOutOfItsWindow)
{
    QWidget window;
    QPushButton button(u"Ok"_s, &window);
    button.setGeometry(150, 0, 90, 30);
    window.resize(200, 40);
    window.show();
    EXPECT_EQ(captionsThatDoNotFit(window).size(), 1);
}

TEST(CaptionRules, SeeKeysThatAreSharedOrMissing)
{
    QMenu menu;
    menu.addAction(u"&Open"_s);
    menu.addAction(u"&Other"_s);
    menu.addAction(u"None"_s);
    menu.addSeparator();
    EXPECT_EQ(accessKeyComplaints(menu).size(), 2);
}

TEST(CaptionRules, RunAtTheScaleThatTheyAreNamedAfter)
{
    const QString name = QCoreApplication::applicationName();
    EXPECT_EQ(QApplication::primaryScreen()->devicePixelRatio(), name.endsWith(u"_200") ? 2 : 1);
}

} // namespace orvanta::test
