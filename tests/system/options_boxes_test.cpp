// The nine boxes and the three pages of the Options dialog.

#include "system/option_pictures.h"
#include "tests/system/options_room.h"

#include <QApplication>
#include <QLabel>

#include <algorithm>

namespace orvanta::test {

namespace {

struct BoxRow
{
    OptionBox* Form8::*box;
    const char16_t* key;
    const char16_t* english;
    const char16_t* russian;
};

constexpr BoxRow kBoxes[] = {
    {&Form8::Check1, u"as", u"Auto start playing after opening files.",
     u"Автоматически начинать играть после открытия"},
    {&Form8::Check2, u"agnc", u"Auto go to next clip",
     u"Автоматически начинать играть следующий клип"},
    {&Form8::Check3, u"agnp", u"Auto go to next packet",
     u"Автоматически начинать играть следующий пакет"},
    {&Form8::Check4, u"acp", u"Auto close program after playing files which was open from explorer",
     u"Автоматически закрывать программу после воспроизведения файлов, открытых из проводника"},
    {&Form8::Check5, u"ar", u"Auto replay clips", u"Автоповтор"},
    {&Form8::Check6, u"si", u"Show icon in system tray", u"Показывать иконку в system tray"},
    {&Form8::Check7, u"nc", u"Do not close program (work faster, but need more memory)",
     u"Не закрывать программу (работает быстрее, но расходует память)"},
    {&Form8::Check8, u"r", u"Copy file to hard disk from drive a when opening ",
     u"Использовать предварительное чтение с дисковода A"},
    {&Form8::Check9, u"ws", u"Start program with windows",
     u"Запускать программу при запуске системы"},
};

QString text(const char16_t* characters)
{
    return QString::fromUtf16(characters);
}

} // namespace

class OptionsBoxes : public OptionsRoom
{
protected:
    void expectTexts(bool english)
    {
        EXPECT_EQ(dialog->windowTitle(), english ? u"Options"_s : u"Опции"_s);
        for (const BoxRow& row : kBoxes) {
            const OptionBox* box = dialog.get()->*row.box;
            EXPECT_EQ(box->text(), text(english ? row.english : row.russian));
        }
        EXPECT_EQ(dialog->Image3->toolTip(),
                  english ? u"Playing options"_s : u"Опции воспроизведения"_s);
        EXPECT_EQ(dialog->Image4->toolTip(), english ? u"Program options"_s : u"Опции программы"_s);
        EXPECT_EQ(dialog->Image5->toolTip(), english ? u"File options"_s : u"Опции файлов"_s);
        EXPECT_EQ(dialog->Image2->toolTip(), u"Ok");
        EXPECT_FALSE(dialog->Image6->accessibleName().isEmpty());
        EXPECT_EQ(dialog->Image1->toolTip(), english ? u"Cancel"_s : u"Отмена"_s);
        EXPECT_EQ(dialog->Command1->text(), english ? u"Add"_s : u"Добавить"_s);
        EXPECT_EQ(dialog->Command2->text(),
                  english ? u"Remove selected"_s : u"Удалить выделенный"_s);
        EXPECT_EQ(dialog->Command3->text(), english ? u"Select icon..."_s : u"Выбрать иконку..."_s);
        EXPECT_EQ(dialog->Command4->text(), english ? u"Default icon"_s : u"По умолчанию"_s);
    }

    /// Of the page that shows, and of what stands around it.
    void expectCaptionsFit() const
    {
        for (const auto* button : dialog->findChildren<QAbstractButton*>()) {
            if (!button->isVisible()) {
                continue;
            }
            if (const auto* box = qobject_cast<const OptionBox*>(button)) {
                EXPECT_TRUE(box->rect().contains(box->captionPlace())) << qPrintable(box->text());
                continue;
            }
            EXPECT_LE(button->sizeHint().width(), button->width()) << qPrintable(button->text());
            EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()), button->width() - 8)
                << qPrintable(button->text());
        }
        for (const auto* label : dialog->findChildren<QLabel*>()) {
            EXPECT_TRUE(!label->isVisible() || label->sizeHint().width() <= label->width())
                << qPrintable(label->text());
        }
    }
};

TEST_F(OptionsBoxes, TheTextsAreEnglishForTheStoredLanguageOneAndRussianOtherwise)
{
    for (const QString& language : {u"1"_s, u"2"_s, u"3"_s, u"0"_s, QString()}) {
        SCOPED_TRACE(qPrintable(language));
        set(u"main"_s, u"language"_s, language);
        open();
        expectTexts(language == u"1");
    }
}

static QString keyOf(const OptionRow& row)
{
    return QString::fromUtf16(iniKey(row.key).key.data());
}

TEST_F(OptionsBoxes, BelongToTheKeysOfOldSettings)
{
    for (const BoxRow& box : kBoxes) {
        const auto row = std::ranges::find(kOptionRows, box.box, &OptionRow::box);
        ASSERT_NE(row, kOptionRows.end());
        EXPECT_EQ(keyOf(*row), text(box.key));
    }
}

TEST_F(OptionsBoxes, EachBoxShowsItsKey)
{
    for (const OptionRow& row : kOptionRows) {
        set(u"options"_s, u"nc"_s, u"1"_s); // or "ws" would not show
        set(u"options"_s, keyOf(row), u"1"_s);
        open();
        EXPECT_TRUE((dialog.get()->*row.box)->isChecked()) << qPrintable(keyOf(row));
        set(u"options"_s, keyOf(row), u"0"_s);
        open();
        EXPECT_FALSE((dialog.get()->*row.box)->isChecked()) << qPrintable(keyOf(row));
    }
}

TEST_F(OptionsBoxes, AKeyThatIsAbsentOrNoNumberIsOff)
{
    set(u"options"_s, u"as"_s, u"yes"_s);
    open();
    EXPECT_FALSE(dialog->Check1->isChecked());
    EXPECT_FALSE(dialog->Check2->isChecked());
    EXPECT_TRUE(untrapped.isEmpty());
}

TEST_F(OptionsBoxes, OkWritesEachBoxToItsKey)
{
    for (const OptionRow& row : kOptionRows) {
        open();
        for (const OptionRow& other : kOptionRows) {
            (dialog.get()->*other.box)->setChecked(false);
        }
        dialog->Check7->setChecked(row.box == &Form8::Check9 || row.box == &Form8::Check7);
        (dialog.get()->*row.box)->setChecked(true);
        click(dialog->Image2);
        for (const OptionRow& other : kOptionRows) {
            const bool isOn = (dialog.get()->*other.box)->isChecked();
            EXPECT_EQ(option(keyOf(other)), isOn ? u"1"_s : u"0"_s);
        }
        EXPECT_EQ(option(keyOf(row)), u"1");
        EXPECT_EQ(dialog->result(), int(QDialog::Accepted));
        EXPECT_FALSE(dialog->isVisible());
    }
}

TEST_F(OptionsBoxes, CancelWritesNoneOfThem)
{
    open();
    dialog->Check1->setChecked(true);
    click(dialog->Image1);
    EXPECT_EQ(option(u"as"_s), QString());
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), int(QDialog::Rejected));
}

TEST_F(OptionsBoxes, EscapeAndTheWindowManagersCloseAreCancel)
{
    open().Check1->setChecked(true);
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    open().Check1->setChecked(true);
    dialog->close();
    EXPECT_EQ(option(u"as"_s), QString());
}

TEST_F(OptionsBoxes, WithoutKeepingTheProgramThereIsNoStartWithTheSession)
{
    set(u"options"_s, u"nc"_s, u"1"_s);
    set(u"options"_s, u"ws"_s, u"1"_s);
    open();
    EXPECT_TRUE(dialog->Check9->isEnabled());
    EXPECT_TRUE(dialog->Check9->isChecked());
    dialog->Check7->setChecked(false);
    EXPECT_FALSE(dialog->Check9->isEnabled());
    EXPECT_FALSE(dialog->Check9->isChecked());
    dialog->Check7->setChecked(true);
    EXPECT_TRUE(dialog->Check9->isEnabled());
    EXPECT_FALSE(dialog->Check9->isChecked());
}

TEST_F(OptionsBoxes, AStoredStartWithTheSessionIsNotOfferedToAProgramThatDoesNotStay)
{
    set(u"options"_s, u"nc"_s, u"0"_s);
    set(u"options"_s, u"ws"_s, u"1"_s);
    open();
    EXPECT_FALSE(dialog->Check9->isEnabled());
    EXPECT_FALSE(dialog->Check9->isChecked());
    click(dialog->Image1);
    EXPECT_EQ(option(u"ws"_s), u"1");
    open();
    click(dialog->Image2);
    EXPECT_EQ(option(u"ws"_s), u"0");
}

TEST_F(OptionsBoxes, TheStartWithTheSessionFollowsItsBoxAtOk)
{
    set(u"options"_s, u"nc"_s, u"1"_s);
    open().Check9->setChecked(true);
    click(dialog->Image2);
    EXPECT_EQ(option(u"ws"_s), u"1");
    EXPECT_TRUE(desktop.has(u"config/autostart/orvanta.desktop"));
    open().Check7->setChecked(false);
    EXPECT_TRUE(desktop.has(u"config/autostart/orvanta.desktop"));
    click(dialog->Image2);
    EXPECT_EQ(option(u"ws"_s), u"0");
    EXPECT_FALSE(desktop.has(u"config/autostart/orvanta.desktop"));
}

TEST_F(OptionsBoxes, AStartWithTheSessionThatCannotBeWrittenLeavesTheOptionOn)
{
    desktop.write(u"config/autostart", "a file where a folder should be");
    set(u"options"_s, u"nc"_s, u"1"_s);
    open().Check9->setChecked(true);
    click(dialog->Image2);
    EXPECT_EQ(option(u"ws"_s), u"1");
    EXPECT_TRUE(untrapped.isEmpty());
}

TEST_F(OptionsBoxes, SettingsThatCannotBeWrittenCloseTheDialogAllTheSame)
{
    module.IniPath = u"/no/such/folder/orvanta.ini"_s;
    open();
    click(dialog->Image2);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(untrapped.isEmpty());
}

TEST_F(OptionsBoxes, OnePageShowsAtATime)
{
    open();
    EXPECT_TRUE(dialog->Check1->isVisible());
    EXPECT_TRUE(dialog->Image3->isChecked());
    click(dialog->Image4);
    EXPECT_FALSE(dialog->Check1->isVisible());
    EXPECT_TRUE(dialog->Check7->isVisible());
    click(dialog->Image5);
    EXPECT_FALSE(dialog->Check7->isVisible());
    EXPECT_TRUE(dialog->List1->isVisible());
    EXPECT_TRUE(dialog->Image5->isChecked());
    EXPECT_FALSE(dialog->Image3->isChecked());
    click(dialog->Image3);
    EXPECT_FALSE(dialog->List1->isVisible());
    EXPECT_TRUE(dialog->Check1->isVisible());
}

TEST_F(OptionsBoxes, PagesAreReachedByKeys)
{
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    const auto shows = [this](Qt::Key digit, const QWidget* control) {
        QTest::keyClick(dialog.get(), digit, Qt::AltModifier);
        return QTest::qWaitFor([=] { return control->isVisible(); });
    };
    EXPECT_TRUE(shows(Qt::Key_3, dialog->List1));
    EXPECT_TRUE(shows(Qt::Key_2, dialog->Check7));
    EXPECT_TRUE(shows(Qt::Key_1, dialog->Check1));
}

TEST_F(OptionsBoxes, EveryControlOfAPageIsReachedByTab)
{
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    const QList<QList<QWidget*>> pages = {
        {dialog->Check1, dialog->Check2, dialog->Check3, dialog->Check4, dialog->Check5},
        {dialog->Check6, dialog->Check7, dialog->Check8},
        {dialog->List1, dialog->Text1, dialog->Command1, dialog->Command3, dialog->Command4},
    };
    const QList<QToolButton*> buttons = {dialog->Image3, dialog->Image4, dialog->Image5};
    for (int page = 0; page < pages.size(); ++page) {
        click(buttons[page]);
        QSet<QWidget*> reached;
        for (int i = 0; i < 25; ++i) {
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            reached.insert(dialog->focusWidget());
        }
        for (QWidget* control : pages[page]) {
            EXPECT_TRUE(reached.contains(control)) << qPrintable(control->objectName());
        }
        EXPECT_TRUE(reached.contains(dialog->Image1));
        EXPECT_TRUE(reached.contains(dialog->Image2));
    }
}

TEST_F(OptionsBoxes, ABoxIsSwitchedAnywhereOnItsCaption)
{
    open();
    OptionBox* box = dialog->Check4;
    QTest::mouseClick(box, Qt::LeftButton, {}, box->captionPlace().bottomRight() - QPoint(8, 4));
    EXPECT_TRUE(box->isChecked());
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_FALSE(box->isChecked());
}

TEST_F(OptionsBoxes, CaptionsFitInBothLanguages)
{
    for (const QString& language : {u"1"_s, u"2"_s}) {
        SCOPED_TRACE(qPrintable(language));
        set(u"main"_s, u"language"_s, language);
        open();
        for (QToolButton* page : {dialog->Image3, dialog->Image4, dialog->Image5}) {
            click(page);
            QTest::qWait(0); // laid out when it shows
            expectCaptionsFit();
        }
        EXPECT_LE(dialog->width(), 700);
        EXPECT_LE(dialog->height(), 560);
    }
}

/// The lightest colour in a picture.
static int lightnessOf(const QIcon& icon)
{
    const QImage picture = icon.pixmap(48, 48).toImage();
    int lightest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            lightest = std::max(lightest, colour.alpha() == 255 ? colour.lightness() : 0);
        }
    }
    return lightest;
}

TEST_F(OptionsBoxes, PicturesFollowTheDesktopsColours)
{
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Button, QColor(40, 40, 40));
    dark.setColor(QPalette::ButtonText, Qt::white);
    dark.setColor(QPalette::Highlight, QColor(30, 60, 120));
    QPalette light = before;
    light.setColor(QPalette::Button, QColor(240, 240, 240));
    light.setColor(QPalette::ButtonText, Qt::black);
    light.setColor(QPalette::Highlight, QColor(30, 60, 120));
    for (const QString& name : {u"playing"_s, u"program"_s, u"files"_s, u"cancel"_s}) {
        QApplication::setPalette(dark);
        EXPECT_GT(lightnessOf(optionPicture(name)), 200) << qPrintable(name);
        QApplication::setPalette(light);
        EXPECT_LT(lightnessOf(optionPicture(name)), 120) << qPrintable(name);
    }
    QApplication::setPalette(before);
}

} // namespace orvanta::test
