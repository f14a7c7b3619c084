// That every text of the main window can be read: measured in the picture that is painted.
#include "playback/command_menu.h"
#include "playback/practice_controls.h"
#include "tests/support/contrast.h"
#include "tests/window/start_page_fixture.h"
#include "window/edit_notice.h"
#include "window/practice_chips.h"
#include "window/practice_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPainter>
#include <QPushButton>

namespace orvanta::test {

namespace {

constexpr int kFine = 4; // pixels of the picture for a logical one

QImage blank(QSize size, const QColor& colour)
{
    QImage picture(size * kFine, QImage::Format_RGB32);
    picture.setDevicePixelRatio(kFine);
    picture.fill(colour);
    return picture;
}

QImage fine(QWidget& window)
{
    QImage picture = blank(window.size(), Qt::magenta);
    window.render(&picture);
    return picture;
}

QImage words(const QColor& ink, const QColor& ground)
{
    QImage picture = blank({120, 30}, ground);
    QPainter painter(&picture);
    painter.setPen(ink);
    painter.setFont(skin::interfaceFont(11));
    painter.drawText(QRect(0, 0, 120, 30), Qt::AlignCenter, u"Words"_s);
    return picture;
}

class Contrast : public StartPageTest
{
protected:
    /// Of a text in a widget of this window, the widget's own logical pixels.
    static double in(QWidget& widget, const QRect& place)
    {
        QWidget& window = *widget.window();
        return textContrast(fine(window),
                            QRect(widget.mapTo(&window, place.topLeft()), place.size()));
    }
    static double in(QWidget& widget) { return in(widget, widget.rect()); }

    /// Of an item of a view, from so many pixels behind its left edge on.
    static double ofRow(QAbstractItemView& view, int row, const QRect& part)
    {
        const QRect place = view.visualRect(view.model()->index(row, 0));
        return in(*view.viewport(), part.translated(place.topLeft()) & place);
    }
    [[nodiscard]] double ofLine(int row) const
    {
        const int left = row == 0 ? 22 : 47; // behind box and tree
        return ofRow(*window->List1, row, {left, 0, 60, 13});
    }
    void pointAt(QAbstractItemView& view, int row) const
    {
        QTest::mouseMove(view.viewport(), view.visualRect(view.model()->index(row, 0)).center());
        QCoreApplication::processEvents();
    }

    /// Of all entries, once as they are and once with the cursor on them.
    static void expectReadable(QMenu& menu)
    {
        menu.popup({});
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
        const QList<QAction*> entries = menu.actions();
        for (QAction* entry : entries) {
            if (entry->isSeparator() || entry->text().isEmpty()) {
                continue;
            }
            const QRect place = menu.actionGeometry(entry).adjusted(24, 3, -20, -3);
            const double least = entry->isEnabled() ? kReadable : kReadableWhenOff;
            menu.setActiveAction(nullptr);
            EXPECT_GE(in(menu, place), least) << qPrintable(entry->text());
            menu.setActiveAction(entry);
            EXPECT_GE(in(menu, place), least) << "current: " << qPrintable(entry->text());
        }
        menu.hide();
    }
};

} // namespace

TEST(ContrastOfColours, IsAsTheStandardSays)
{
    EXPECT_DOUBLE_EQ(contrastOf(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(contrastOf(Qt::white, Qt::black), 21);
    EXPECT_DOUBLE_EQ(contrastOf(Qt::red, Qt::red), 1);
    EXPECT_NEAR(contrastOf(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
    EXPECT_NEAR(contrastOf(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
}

TEST(ContrastOfColours, IsFoundInAPictureOfAText)
{
    const QRect all(0, 0, 120, 30);
    EXPECT_NEAR(textContrast(words(Qt::black, Qt::white), all), 21, 0.01);
    EXPECT_NEAR(textContrast(words({0x77, 0x77, 0x77}, Qt::white), all), 4.48, 0.01);
    EXPECT_NEAR(textContrast(words({0x30, 0x30, 0x30}, Qt::black), all), 1.59, 0.02);
    EXPECT_EQ(textContrast(words(Qt::red, Qt::red), all), 1);
}

TEST(ContrastOfColours, CountsTheLineOfTheGroundThatIsWorst)
{
    QImage picture = blank({120, 30}, Qt::black);
    QPainter painter(&picture);
    painter.fillRect(QRect(0, 15, 120, 15), QColor(0x76, 0x76, 0x76));
    painter.setPen(Qt::white);
    painter.setFont(skin::interfaceFont(20));
    painter.drawText(QRect(0, 0, 120, 30), Qt::AlignCenter, u"Words"_s);
    painter.end();
    EXPECT_NEAR(textContrast(picture, {0, 0, 120, 30}), 4.54, 0.02);
}

TEST(ContrastOfColours, OfAnOutlineIsThatOfWhatSurroundsTheLetters)
{
    QImage letter(60, 60, QImage::Format_ARGB32_Premultiplied);
    letter.fill(Qt::transparent);
    EXPECT_EQ(outlineContrast(letter, Qt::white, 2), 1);
    QPainter painter(&letter);
    painter.fillRect(QRect(20, 20, 20, 20), Qt::white);
    painter.end();
    EXPECT_EQ(outlineContrast(letter, Qt::white, 2), 1);
    EXPECT_NEAR(outlineContrast(letter, Qt::black, 2), 21, 0.01);
    painter.begin(&letter);
    painter.setPen(QPen(QColor(0x76, 0x76, 0x76), 6));
    painter.drawRect(QRect(17, 17, 26, 26));
    painter.end();
    EXPECT_NEAR(outlineContrast(letter, Qt::white, 2), 4.54, 0.02);
    EXPECT_EQ(outlineContrast(letter, Qt::white, 10), 1);
}

TEST_F(Contrast, OfTheLinesOfTheList)
{
    addThreePackets();
    showList();
    window->setListIndex(2);
    window->List1->toggleLine(3);
    for (int row = 0; row < window->List1->model()->rowCount(); ++row) {
        EXPECT_GE(ofLine(row), kReadable) << row;
        pointAt(*window->List1, row);
        EXPECT_GE(ofLine(row), kReadable) << "under the pointer: " << row;
    }
}

TEST_F(Contrast, OfTheTextOfTheClipTheTimesAndTheTitle)
{
    show();
    for (const QString& text : {u"The text of a clip"_s, QString()}) {
        window->Text2->setPlaceholderText(u"Open a lesson"_s);
        window->Text2->setText(text);
        EXPECT_GE(in(*window->Text2, window->Text2->rect().adjusted(12, 8, -12, -8)), kReadable);
    }
    window->Text2->setText(u"marked"_s);
    window->Text2->setFocus();
    window->Text2->selectAll();
    const int end = window->Text2->fontMetrics().horizontalAdvance(u"marked"_s);
    EXPECT_GE(in(*window->Text2, {17, 16, end, 14}), kReadable);
    EXPECT_GE(in(*window->Label1), kReadable);
    EXPECT_GE(in(*window->Label2), kReadable);
    int titles = 0;
    for (auto* label : window->findChildren<QLabel*>()) {
        if (label->text() == window->windowTitle()) {
            EXPECT_GE(in(*label), kReadable);
            ++titles;
        }
    }
    EXPECT_EQ(titles, 1);
}

TEST_F(Contrast, OfTheFindBox)
{
    show();
    window->List1->setFocus();
    const QRect text = window->Text1->rect().adjusted(8, 6, -8, -6);
    EXPECT_GE(in(*window->Text1, text), kReadable) << "what it is for";
    window->Text1->setText(u"a word that is not there"_s);
    EXPECT_GE(in(*window->Text1, text), kReadable);
    click(window->Image2);
    ASSERT_TRUE(window->Text1->property("missed").toBool());
    EXPECT_GE(in(*window->Text1, text), kReadable) << "not found";
}

TEST_F(Contrast, OfTheLineAboveTheListAndItsAnswers)
{
    show();
    window->Notice->say(u"Words"_s, {{u"Answer"_s, [] {}}});
    QCoreApplication::processEvents();
    QPushButton* answer = window->Notice->buttons()[0];
    EXPECT_GE(in(*answer, answer->rect().adjusted(3, 3, -3, -3)), kReadable);
    EXPECT_GE(in(*window->Notice, {8, 4, 60, window->Notice->height() - 8}), kReadable);
}

TEST_F(Contrast, OfThePracticeAndItsChips)
{
    show();
    engine->practice().set({.speed = 75, .times = 3});
    ASSERT_TRUE(QTest::qWaitFor([this] {
        return !window->Chips->findChildren<QPushButton*>().isEmpty() &&
               window->Chips->sizeHint().width() > 60;
    }));
    int chips = 0;
    for (auto* chip : window->Chips->findChildren<QPushButton*>()) {
        if (chip->isVisible()) {
            EXPECT_GE(in(*chip, chip->rect().adjusted(8, 2, -8, -2)), kReadable)
                << qPrintable(chip->text());
            ++chips;
        }
    }
    EXPECT_EQ(chips, 2);
    click(window->PracticeButton);
    const auto reads = [](QWidget* widget, const QMargins& beside) {
        EXPECT_GE(in(*widget, widget->rect().marginsRemoved(beside)), kReadable)
            << qPrintable(widget->objectName());
    };
    for (auto* label : window->Panel->findChildren<QLabel*>()) {
        reads(label, {});
    }
    for (auto* box : window->Panel->findChildren<QComboBox*>()) {
        reads(box, {6, 4, 26, 4});
    }
    for (auto* box : window->Panel->findChildren<QCheckBox*>()) {
        reads(box, {22, 0, 0, 0});
        box->setFocus();
        reads(box, {22, 0, 0, 0});
    }
    reads(window->Panel->NormalButton, {4, 3, 4, 3});
    click(window->Panel->NormalButton);
    EXPECT_FALSE(window->Panel->NormalButton->isEnabled());
    reads(window->Panel->NormalButton, {4, 3, 4, 3});
}

TEST_F(Contrast, OfTheChoicesInABoxOfThePractice)
{
    show();
    click(window->PracticeButton);
    QComboBox& box = *window->Panel->SpeedBox;
    box.showPopup();
    QAbstractItemView& view = *box.view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view.window()));
    view.setCurrentIndex(view.model()->index(1, 0));
    for (int row = 0; row < 4; ++row) {
        EXPECT_GE(ofRow(view, row, {4, 1, 60, 40}), kReadable) << row;
    }
    box.hidePopup();
}

TEST_F(Contrast, OfTheMenus)
{
    addThreePackets();
    showList();
    window->setListIndex(2);
    window->ListMenu->open({}, {.hasEntries = true, .editing = true});
    window->ListMenu->hide();
    for (QMenu* menu : {static_cast<QMenu*>(window->ListMenu), window->create, window->tools,
                        window->help, window->ai}) {
        SCOPED_TRACE(qPrintable(menu->objectName()));
        expectReadable(*menu);
        for (QAction* entry : menu->actions()) {
            if (entry->menu() != nullptr && menu == window->ListMenu) {
                expectReadable(*entry->menu());
            }
        }
    }
}

TEST_F(Contrast, OfTheStartPageAndItsMenu)
{
    keep(home.file(u"gone.vxl"_s));
    keepLesson(2, 1, {u"a"_s, u"b"_s, u"c"_s});
    show();
    StartPageList& page = *window->StartPage;
    ASSERT_EQ(page.model()->rowCount(), 3);
    const int right = page.viewport()->width();
    const auto expectRows = [&](const char* how) {
        for (const int row : {0, 1}) {
            EXPECT_GE(ofRow(page, row, {66, 4, 60, 18}), kReadable) << how << ", title " << row;
            EXPECT_GE(ofRow(page, row, {66, 22, 60, 17}), kReadable) << how << ", folder " << row;
            EXPECT_GE(ofRow(page, row, {right - 100, 4, 90, 18}), kReadable)
                << how << ", place " << row;
        }
        EXPECT_GE(ofRow(page, 2, {66, 4, 80, 24}), kReadable) << how << ", forget";
    };
    for (const int current : {0, 1, 2}) {
        page.setCurrentIndex(page.model()->index(current, 0));
        expectRows("current");
        pointAt(page, (current + 1) % 3);
        expectRows("under the pointer");
    }
    page.askForMenu();
    auto* menu = page.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    expectReadable(*menu);
}

} // namespace orvanta::test
