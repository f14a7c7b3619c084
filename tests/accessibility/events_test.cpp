// What assistive technology is told when something happens.

#include "editors/folder_tree.h"
#include "playback/announcement.h"
#include "playback/spoken_focus.h"
#include "system/page_button.h"
#include "tests/captions/every_window.h"
#include "window/form2_main_window.h"
#include "window/line_editor.h"
#include "window/playlist_list.h"
#include "window/practice_chips.h"
#include "window/practice_panel.h"
#include "window/skin_button.h"
#include "window/skin_slider.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QTest>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <private/qguiapplication_p.h>
#include <vector>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

struct Told
{
    QAccessible::Event type;
    const QObject* object;
    int child;
    QString name; // of a line of a list, which is no object of its own
};

/// Hears all events while it lives.
class Listener
{
public:
    Listener()
    {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        s_told.clear();
        m_before = QAccessible::installUpdateHandler(hear);
    }
    ~Listener()
    {
        QAccessible::installUpdateHandler(m_before);
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(false);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    [[nodiscard]] static std::ptrdiff_t count(QAccessible::Event type, const QObject* object)
    {
        return std::ranges::count_if(
            s_told, [&](const Told& each) { return each.type == type && each.object == object; });
    }
    [[nodiscard]] static const std::vector<Told>& all() { return s_told; }
    static void forget() { s_told.clear(); }

private:
    static void hear(QAccessibleEvent* event)
    {
        const bool isLine = event->object() == nullptr && event->accessibleInterface() != nullptr;
        s_told.push_back(
            {event->type(), event->object(), event->child(),
             isLine ? event->accessibleInterface()->text(QAccessible::Name) : QString()});
    }

    static std::vector<Told> s_told;
    QAccessible::UpdateHandler m_before = nullptr;
};

std::vector<Told> Listener::s_told;

class Events : public testing::TestWithParam<int>
{
protected:
    Events()
    {
        PlaylistEntry lesson;
        lesson.Title = u"Lesson"_s;
        lesson.Clips = {{.Time = {}, .Text = u"one"_s, .Path = {}},
                        {.Time = {}, .Text = u"two"_s, .Path = {}}};
        lesson.ClipCount = 2;
        surroundings.module.playlist.Playlist = {lesson};
        surroundings.module.playlist.PlaylistCount = 1;
        window = everyWindow().front().make(surroundings);
        form2().RebuildTree();
        window->show();
        announcement = window->findChild<Announcement*>();
    }

    Form2& form2() { return dynamic_cast<Form2&>(*window); }
    [[nodiscard]] QString word(const QString& english, const QString& russian) const
    {
        return GetParam() == 1 ? english : russian;
    }

    Surroundings surroundings{GetParam()};
    std::unique_ptr<QWidget> window;
    Announcement* announcement = nullptr;
    Listener listener;
};

} // namespace

TEST_P(Events, WhatBeginsToPlayIsAnnouncedOnceAndTheListStaysSilent)
{
    ASSERT_NE(announcement, nullptr);
    form2().Text1->setFocus();
    Listener::forget();
    form2().setListIndex(3);
    form2().showPlaying({1, 2, PlayingSign::Playing});
    form2().showPlaying({1, 2, PlayingSign::Paused});
    form2().showPlaying({1, 2, PlayingSign::Playing});
    EXPECT_EQ(announcement->text(), word(u"two, playing"_s, u"two, играет"_s));
    EXPECT_EQ(Listener::count(QAccessible::ObjectShow, announcement), 1);
    EXPECT_EQ(Listener::count(QAccessible::Focus, form2().List1), 0);
    form2().showPlaying({1, 1, PlayingSign::Playing});
    EXPECT_EQ(announcement->text(), word(u"one, playing"_s, u"one, играет"_s));
    EXPECT_EQ(Listener::count(QAccessible::ObjectShow, announcement), 2);
}

TEST_P(Events, AMarkThatIsToggledIsTold)
{
    Listener::forget();
    form2().List1->toggleLine(2);
    ASSERT_EQ(Listener::count(QAccessible::StateChanged, form2().List1), 1);
    const auto event = std::ranges::find_if(
        Listener::all(), [](const Told& each) { return each.type == QAccessible::StateChanged; });
    EXPECT_EQ(event->child, 2);
    auto* list = QAccessible::queryAccessibleInterface(form2().List1);
    EXPECT_TRUE(list->child(2)->state().checkable && !list->child(2)->state().checked);
    EXPECT_EQ(list->child(2)->role(), QAccessible::CheckBox);
}

TEST_P(Events, ASliderThatMovesByItselfSpeaksSeldomAndAlwaysForTheUser)
{
    Listener::forget();
    for (int percent = 1; percent <= 20; ++percent) {
        form2().moveSlider(Int16(percent));
    }
    EXPECT_LE(Listener::count(QAccessible::ValueChanged, form2().Slider1), 1);
    Listener::forget();
    form2().Slider1->stepTo(50);
    form2().Slider1->stepTo(51);
    EXPECT_EQ(Listener::count(QAccessible::ValueChanged, form2().Slider1), 2);
}

// A reader that hears of the caret first takes the box for known and does not name it.
TEST_P(Events, ALineOfTextThatGetsTheKeyboardTellsThatAndNothingOfItsText)
{
    form2().Text1->setText(u"apple"_s);
    form2().List1->setFocus();
    QCoreApplication::processEvents();
    Listener::forget();
    form2().Text1->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(form2().Text1->selectedText(), u"apple"_s);
    EXPECT_EQ(Listener::count(QAccessible::Focus, form2().Text1), 1);
    EXPECT_EQ(Listener::count(QAccessible::TextCaretMoved, form2().Text1), 0);
    EXPECT_EQ(Listener::count(QAccessible::TextSelectionChanged, form2().Text1), 0);
    form2().Text1->setCursorPosition(1);
    EXPECT_EQ(Listener::count(QAccessible::TextCaretMoved, form2().Text1), 1);
}

TEST_P(Events, AListThatGetsTheKeyboardNamesItsCurrentLine)
{
    form2().Text1->setFocus();
    form2().setListIndex(2);
    Listener::forget();
    form2().List1->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(QTest::qWaitFor([] {
        return !Listener::all().empty() && Listener::all().back().type == QAccessible::Focus &&
               Listener::all().back().name == u"one"_s;
    }));
}

TEST_P(Events, WhatWasFoundIsAnnouncedAndSoIsThatNothingWas)
{
    form2().Text1->setFocus();
    form2().Text1->setText(u"two"_s);
    QTest::keyClick(form2().Text1, Qt::Key_Return);
    EXPECT_EQ(announcement->text(), u"two"_s);
    form2().Text1->setText(u"three"_s);
    QTest::keyClick(form2().Text1, Qt::Key_Return);
    EXPECT_EQ(announcement->text(), word(u"Not found"_s, u"Не найдено"_s));
}

TEST_P(Events, AFieldOverALineTellsOfTheKeyboardBeforeItsText)
{
    LineEditor field(form2().List1);
    form2().List1->setFocus();
    QCoreApplication::processEvents();
    Listener::forget();
    field.edit(2, LineEditor::Field::Text, u"one"_s);
    ASSERT_TRUE(field.hasFocus());
    EXPECT_EQ(Listener::count(QAccessible::Focus, &field), 1);
    EXPECT_EQ(Listener::count(QAccessible::TextCaretMoved, &field), 0);
    EXPECT_EQ(Listener::count(QAccessible::TextInserted, &field), 0);
    field.giveUp();
}

TEST_P(Events, AChipThatStandsThereIsNotToldOfAgainAndAgain)
{
    form2().Chips->setValues({.speed = 25});
    for (int i = 0; i < 20; ++i) {
        QCoreApplication::processEvents();
    }
    Listener::forget();
    for (int i = 0; i < 20; ++i) {
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(Listener::all().empty()) << Listener::all().size();
}

TEST_P(Events, ABoxOfChoicesIsDescribedByWhatIsChosen)
{
    QComboBox box(window.get());
    box.addItems({u"slow"_s, u"fast"_s});
    speakChoice(box);
    box.show();
    const auto* accessible = QAccessible::queryAccessibleInterface(&box);
    EXPECT_EQ(accessible->text(QAccessible::Description), u"slow"_s);
    box.setCurrentIndex(1);
    EXPECT_EQ(accessible->text(QAccessible::Description), u"fast"_s);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    const QSignalBlocker silent(box);
    box.setCurrentIndex(0);
    box.setFocus();
    ASSERT_TRUE(box.hasFocus());
    EXPECT_EQ(accessible->text(QAccessible::Description), u"slow"_s);
}

TEST_P(Events, WhatAKeyChoosesInAClosedBoxIsAnnouncedOnce)
{
    PracticePanel& panel = *form2().Panel;
    panel.openAbove(*form2().PracticeButton);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    ASSERT_TRUE(panel.TimesBox->isVisible());
    panel.TimesBox->setFocus();
    Listener::forget();
    QTest::keyClick(panel.TimesBox, Qt::Key_Down);
    EXPECT_EQ(announcement->text(), word(u"2 times"_s, u"2 раза"_s));
    EXPECT_EQ(Listener::count(QAccessible::ObjectShow, announcement), 1);
    panel.WaitBox->setCurrentIndex(1); // not in the user's hands
    EXPECT_EQ(Listener::count(QAccessible::ObjectShow, announcement), 1);

    panel.TimesBox->showPopup(); // its lines are read by themselves
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel.TimesBox->view()->isVisible(); }));
    panel.TimesBox->setCurrentIndex(0);
    panel.TimesBox->hidePopup();
    EXPECT_EQ(Listener::count(QAccessible::ObjectShow, announcement), 1);
}

TEST_P(Events, AButtonIsDescribedByItsKeyAlone)
{
    const auto* button = QAccessible::queryAccessibleInterface(form2().EditButton);
    EXPECT_EQ(button->text(QAccessible::Description), u"F4"_s);
    EXPECT_TRUE(form2().EditButton->toolTip().endsWith(u" (F4)"_s));
}

INSTANTIATE_TEST_SUITE_P(Languages, Events, testing::Values(1, 2));

/// Of one that is closed and has the keyboard; what a reader hears of the key Down.
static QString heardOfDown(QComboBox& box)
{
    box.addItems({u"one"_s, u"two"_s}); // two at least
    box.parentWidget()->show();
    box.setFocus();
    Listener::forget();
    QTest::keyClick(&box, Qt::Key_Down);
    const auto* announcement = box.window()->findChild<Announcement*>();
    const auto count =
        announcement != nullptr ? Listener::count(QAccessible::ObjectShow, announcement) : 0;
    return count == 1 ? announcement->text() : u"%1 announcements"_s.arg(count);
}

TEST(ClosedBoxes, OfEveryWindowAnnounceWhatAKeyChoosesOnce)
{
    const Listener listener;
    QStringList boxes;
    for (const WindowOfProgram& each : everyWindow()) {
        Surroundings surroundings{1};
        const std::unique_ptr<QWidget> window = each.make(surroundings);
        window->show();
        for (QComboBox* box : window->findChildren<QComboBox*>()) {
            ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
            const QString heard = heardOfDown(*box);
            EXPECT_EQ(heard, box->currentText()) << each.name << qPrintable(box->objectName());
            boxes.append(box->objectName());
        }
    }
    EXPECT_TRUE(boxes.contains(u"SpeedBox"_s) && boxes.contains(u"FormatBox"_s));
}

class Roles : public testing::TestWithParam<WindowOfProgram>
{};

TEST_P(Roles, AWindowIsAWindowOrADialog)
{
    Surroundings surroundings{1};
    const std::unique_ptr<QWidget> window = GetParam().make(surroundings);
    const QAccessible::Role role = QAccessible::queryAccessibleInterface(window.get())->role();
    EXPECT_TRUE(role == QAccessible::Window || role == QAccessible::Dialog) << role;
}

TEST_P(Roles, PagesAreTabsAndTreesHaveAHeaderWithAName)
{
    Surroundings surroundings{1};
    const std::unique_ptr<QWidget> window = GetParam().make(surroundings);
    for (const PageButton* page : window->findChildren<PageButton*>()) {
        const auto* tab = QAccessible::queryAccessibleInterface(const_cast<PageButton*>(page));
        EXPECT_EQ(tab->role(), QAccessible::PageTab);
        EXPECT_EQ(tab->state().selected, page->isChecked());
        EXPECT_FALSE(tab->text(QAccessible::Name).isEmpty());
    }
    for (const FolderTree* tree : window->findChildren<FolderTree*>()) {
        const QString header =
            tree->model()->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString();
        EXPECT_EQ(header, tree->accessibleName());
        EXPECT_FALSE(header.isEmpty());
    }
}

static std::string nameOfWindow(const testing::TestParamInfo<WindowOfProgram>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Windows, Roles, testing::ValuesIn(everyWindow()), nameOfWindow);

} // namespace orvanta::test
