// The table of interface texts, and how the windows take their texts from it.

#include "tests/window/window_fixture.h"

#include <QFontMetrics>
#include <QMap>
#include <QSet>

namespace orvanta::test {

namespace {

struct Row
{
    const char16_t* control;
    const char16_t* english;
    const char16_t* russian;
};

QString text(const char16_t* characters)
{
    return QString::fromUtf16(characters);
}

/// The key that a control's tip names.
QString keyOf(const QString& control)
{
    static const QMap<QString, QString> keys = {{u"Image8"_s, u"Ctrl+Shift+O"_s},
                                                {u"Image14"_s, u"Ctrl+O"_s},
                                                {u"Text1"_s, u"Ctrl+F"_s},
                                                {u"Image2"_s, u"F3"_s}};
    return keys.value(control);
}

constexpr Row kToolTips[] = {
    {u"Image8", u"Open clip...", u"Открыть клип..."},
    {u"Image9", u"New...", u"Новый..."},
    {u"Image10", u"Tools...", u"Инструменты..."},
    {u"Image11", u"Help...", u"Помощь..."},
    {u"Image12", u"Minimize button", u"Кнопка свернуть"},
    {u"Image13", u"Close button", u"Кнопка закрыть"},
    {u"Image14", u"Open file...", u"Открыть файл..."},
    {u"List1", u"Playlist", u"Playlist"},
    {u"Label1", u"Current time", u"Текущее время"},
    {u"Label2", u"Length of clip", u"Длина клипа"},
    {u"Slider2", u"Volume", u"Громкость"},
    {u"Slider3", u"Balance", u"Баланс"},
    {u"Text2", u"Current clip", u"Текущий клип"},
    {u"Text1", u"Find text", u"Искать текст"},
    {u"Image2", u"Find", u"Поиск"},
    {u"Image5", u"", u""},
    {u"Image3", u"", u""},
    {u"Image4", u"", u""},
};

// Of buttons without a tool tip.
constexpr Row kNames[] = {
    {u"Image5", u"Play", u"Воспроизвести"},
    {u"Image3", u"Pause", u"Пауза"},
    {u"Image4", u"Stop", u"Стоп"},
};

constexpr Row kMenus[] = {
    {u"cp", u"&Packet...", u"&Пакет..."}, {u"cg", u"&Group...", u"&Группу..."},
    {u"op", u"&Options", u"&Опции"},      {u"cdc", u"&CD Create", u"&CD Create"},
    {u"ai", u"&Add-ins", u"&Дополнения"}, {u"doc", u"&Documentation", u"&Документация"},
    {u"tu", u"&Tutorial", u"&Учебник"},   {u"ab", u"&About", u"&О программе"},
};

} // namespace

using InterfaceTexts = Form2Test;

TEST_F(InterfaceTexts, AreEnglishForLanguageOneAndRussianForEveryOther)
{
    for (const int language : {1, 0, 2, 3}) {
        SCOPED_TRACE(language);
        load(language);
        EXPECT_EQ(window->windowTitle(), u"!Orvanta!");
        for (const Row& row : kToolTips) {
            const auto* found = window->findChild<QWidget*>(text(row.control));
            ASSERT_NE(found, nullptr) << qPrintable(text(row.control));
            const QString tip = text(language == 1 ? row.english : row.russian);
            const QString key = keyOf(found->objectName());
            EXPECT_EQ(found->toolTip(), key.isEmpty() ? tip : tip + u" ("_s + key + u')')
                << qPrintable(text(row.control));
            if (qobject_cast<const QLabel*>(found) == nullptr && !found->toolTip().isEmpty()) {
                EXPECT_EQ(found->accessibleName(), tip);
            }
        }
        for (const Row& row : kMenus) {
            const auto* entry = window->findChild<QAction*>(text(row.control));
            ASSERT_NE(entry, nullptr) << qPrintable(text(row.control));
            EXPECT_EQ(entry->text(), text(language == 1 ? row.english : row.russian));
        }
        for (const Row& row : kNames) {
            EXPECT_EQ(window->findChild<QWidget*>(text(row.control))->accessibleName(),
                      text(language == 1 ? row.english : row.russian));
        }
    }
}

TEST_F(InterfaceTexts, MenusHaveTheirEntriesInOrder)
{
    load();
    EXPECT_EQ(window->create->actions(), (QList<QAction*>{window->cp, window->cg}));
    EXPECT_EQ(window->tools->actions(),
              (QList<QAction*>{window->op, window->cdc, window->ai->menuAction()}));
    EXPECT_EQ(window->help->actions(), (QList<QAction*>{window->doc, window->tu, window->ab}));
}

TEST_F(InterfaceTexts, CaptionsFitWhereTheyStand)
{
    for (const int language : {1, 2}) {
        show(language);
        const QLineEdit& find = *window->Text1;
        EXPECT_LT(find.fontMetrics().horizontalAdvance(find.placeholderText()), find.width() - 24);
        for (QLabel* label : {window->Label1, window->Label2}) {
            label->setText(u"000000,000"_s);
            EXPECT_LE(label->sizeHint().width(), label->width());
        }
    }
}

TEST(TextTable, NoCellIsEmptyAndNoRowIsThereTwice)
{
    QSet<QString> rows;
    for (const InterfaceText& row : interfaceTexts()) {
        const QString key = row.window.toString() + u'/' + row.control.toString();
        EXPECT_FALSE(rows.contains(key)) << qPrintable(key);
        rows.insert(key);
        EXPECT_FALSE(row.english.trimmed().isEmpty()) << qPrintable(key);
        EXPECT_FALSE(row.russian.trimmed().isEmpty()) << qPrintable(key);
    }
    EXPECT_GT(rows.size(), 30);
}

TEST(TextTable, BothLanguagesMarkAnAccessKeyInTheSameRows)
{
    for (const InterfaceText& row : interfaceTexts()) {
        EXPECT_EQ(row.english.contains(u'&'), row.russian.contains(u'&'))
            << qPrintable(row.control.toString());
    }
}

} // namespace orvanta::test
