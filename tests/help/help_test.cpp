// The handbook in both languages: complete, alike, and true to the program's captions and keys.

#include "playback/commands.h"
#include "tests/help/handbook.h"

#include <QDirIterator>
#include <QFile>
#include <QKeySequence>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kLanguages = {TextLanguage::English, TextLanguage::Russian};

QString withoutAccessKey(QStringView caption)
{
    return caption.toString().remove(u'&').trimmed();
}

QSet<QString> captionsOfProgram(TextLanguage language)
{
    QSet<QString> captions;
    for (const InterfaceText& row : interfaceTexts()) {
        captions.insert(
            withoutAccessKey(language == TextLanguage::English ? row.english : row.russian));
    }
    return captions;
}

/// Captions of the given window: its title, tool tips, buttons, menu entries.
QStringList captionsOfWindow(QStringView window, TextLanguage language)
{
    QStringList captions;
    for (const InterfaceText& row : interfaceTexts()) {
        if (row.window == window) {
            captions.append(
                withoutAccessKey(language == TextLanguage::English ? row.english : row.russian));
        }
    }
    return captions;
}

/// How the handbook prints a key that has a sign or a name of its own.
QString printed(QString key, TextLanguage language)
{
    const std::array<std::pair<QString, QString>, 10> names = {{
        {u"Left"_s, u"←"_s},
        {u"Right"_s, u"→"_s},
        {u"Return"_s, u"Enter"_s},
        {u"+Up"_s, u"+↑"_s},
        {u"+Down"_s, u"+↓"_s},
        {u"Ins"_s, u"Insert"_s},
        {u"Del"_s, u"Delete"_s},
        {u"PgUp"_s, u"Page Up"_s},
        {u"PgDown"_s, u"Page Down"_s},
        {u"Space"_s, language == TextLanguage::English ? u"Space"_s : u"Пробел"_s},
    }};
    for (const auto& [name, print] : names) {
        key.replace(name, print);
    }
    return key;
}

/// The keys of the table of commands, as the handbook prints them.
QStringList keysOfCommands(TextLanguage language)
{
    QStringList keys;
    for (const CommandRow& row : commands()) {
        for (const NamedKey& key : row.namedKeys()) {
            const QKeySequence sequence(QKeyCombination(key.modifiers, key.key));
            const QString name = sequence.toString(QKeySequence::PortableText);
            if (!name.contains(u"Media ")) { // the handbook speaks of them in words
                keys.append(printed(name, language));
            }
        }
        if (row.letter != 0) {
            keys.append(QChar(row.letter));
        }
    }
    return keys;
}

/// Those of lists and dialogs. Alt with a number: a page of the options. Page Up to End: the slider
/// of the editor.
QStringList otherKeys()
{
    return {u"Enter"_s, u"Tab"_s,     u"Ctrl+↑"_s,    u"Ctrl+↓"_s, u"Delete"_s,
            u"Ctrl"_s,  u"Shift"_s,   u"Alt"_s,       u"1"_s,      u"2"_s,
            u"3"_s,     u"Page Up"_s, u"Page Down"_s, u"Home"_s,   u"End"_s};
}

QStringList missingFrom(const QStringList& wanted, const QStringList& there)
{
    QStringList missing;
    for (const QString& text : wanted) {
        if (!there.contains(text)) {
            missing.append(text);
        }
    }
    missing.removeDuplicates();
    return missing;
}

/// Sections of settings and documents, without the numbers that some bear, and variables of the
/// environment, as the handbook prints them.
QStringList settingsNamedIn(const QString& document)
{
    static const QRegularExpression code(u"<(code|pre)[^>]*>(.*?)</\\1>"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression name(u"\\[([a-z-]+)[0-9]*\\]|(ORVANTA_[A-Z]+)"_s);
    QStringList names;
    for (const QRegularExpressionMatch& printed : code.globalMatch(document)) {
        for (const QRegularExpressionMatch& found : name.globalMatch(printed.captured(2))) {
            names.append(found.captured(1) + found.captured(2));
        }
    }
    names.removeDuplicates();
    return names;
}

QString productSources()
{
    QString all;
    for (const char* folder :
         {"core", "platform", "model", "playback", "window", "editors", "system", "app"}) {
        QDirIterator files(QStringLiteral(ORVANTA_SOURCE_DIR "/") + QString::fromLatin1(folder),
                           {u"*.cpp"_s, u"*.h"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            all += file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
        }
    }
    return all;
}

class Help : public testing::TestWithParam<TextLanguage>
{
protected:
    void SetUp() override { ASSERT_EQ(book.problem, QString()) << qPrintable(book.problem); }

    const Handbook book = readHandbook(GetParam());
};

} // namespace

TEST(HelpInBothLanguages, HasTheSameSectionsWithTheSameParts)
{
    const Handbook english = readHandbook(TextLanguage::English);
    const Handbook russian = readHandbook(TextLanguage::Russian);
    EXPECT_EQ(english.language, u"en");
    EXPECT_EQ(russian.language, u"ru");
    EXPECT_EQ(english.outline, russian.outline);
    EXPECT_GE(english.headings.size(), 15);
    EXPECT_EQ(english.headings.size(), russian.headings.size());
    EXPECT_EQ(english.keys.size(), russian.keys.size());
}

TEST(HelpInBothLanguages, TreatsEveryWindowAndTopic)
{
    const QStringList targets = readHandbook(TextLanguage::English).targets;
    for (const char* topic :
         {"start", "ideas", "window", "keys", "video", "editing", "packet-editor", "group-editor",
          "pickers", "options", "tray", "boxes", "addins", "formats", "command-line", "settings",
          "trouble"}) {
        EXPECT_TRUE(targets.contains(QString::fromLatin1(topic))) << topic;
    }
}

TEST_P(Help, EveryCaptionInItIsOneOfTheProgram)
{
    const QSet<QString> captions = captionsOfProgram(GetParam());
    for (const QString& caption : book.captions) {
        EXPECT_TRUE(captions.contains(caption)) << qPrintable(caption);
    }
    EXPECT_GT(book.captions.size(), 80);
}

TEST_P(Help, EveryCaptionOfTheMainWindowTheEditorsAndTheTrayIsInIt)
{
    QStringList wanted;
    for (const QStringView window : {u"Form2", u"Form5", u"Form6", u"Form8", u"Form12"}) {
        wanted += captionsOfWindow(window, GetParam());
    }
    // What is said in other words: the window's own name, empty slots, names of lists and boxes,
    // the dots of a button.
    wanted.removeIf([](const QString& caption) {
        return caption.startsWith(u"!orvanta!", Qt::CaseInsensitive) || caption == u"..." ||
               caption.startsWith(u'(') || caption.endsWith(u':') || caption == u"Ok";
    });
    const QString text = book.source.simplified();
    QStringList missing;
    for (const QString& caption : wanted) {
        const QString fixedPart = caption.split(u"%1"_s).front();
        if (!text.contains(fixedPart, Qt::CaseInsensitive)) {
            missing.append(caption);
        }
    }
    EXPECT_EQ(missing, QStringList()) << qPrintable(missing.join(u" | "_s));
}

TEST_P(Help, EveryKeyInItIsOneOfTheProgram)
{
    const QStringList known = keysOfCommands(GetParam()) + otherKeys();
    EXPECT_EQ(missingFrom(book.keys, known), QStringList())
        << qPrintable(missingFrom(book.keys, known).join(u' '));
}

TEST_P(Help, EveryKeyOfTheProgramIsInIt)
{
    const QStringList wanted = keysOfCommands(GetParam()) + otherKeys();
    EXPECT_EQ(missingFrom(wanted, book.keys), QStringList())
        << qPrintable(missingFrom(wanted, book.keys).join(u' '));
}

TEST_P(Help, EverySectionAndVariableInItIsReadByTheProgram)
{
    const QString sources = productSources();
    ASSERT_GT(sources.size(), 100'000);
    const QStringList names = settingsNamedIn(book.source);
    EXPECT_GE(names.size(), 12);
    for (const QString& name : names) {
        EXPECT_TRUE(sources.contains(u'"' + name + u'"')) << qPrintable(name);
    }
}

TEST_P(Help, FetchesNothingFromOutside)
{
    EXPECT_TRUE(book.outside.isEmpty()) << qPrintable(book.outside.values().join(u' '));
    for (const QString& word : {u"http:"_s, u"https:"_s, u"url("_s, u"@import"_s, u"<script"_s,
                                u"<link"_s, u"<img"_s, u"<iframe"_s}) {
        EXPECT_FALSE(book.source.contains(word)) << qPrintable(word);
    }
}

TEST_P(Help, EveryLinkInItLeadsSomewhereAndNoTargetIsThereTwice)
{
    EXPECT_EQ(missingFrom(book.links, book.targets), QStringList());
    EXPECT_GE(book.links.size(), book.headings.size()); // the table of contents at least
    EXPECT_EQ(QSet<QString>(book.targets.begin(), book.targets.end()).size(), book.targets.size());
}

TEST_P(Help, LooksRightInLightAndInDark)
{
    EXPECT_TRUE(book.source.contains(u"color-scheme:light dark"));
    EXPECT_TRUE(book.source.contains(u"prefers-color-scheme:dark"));
}

INSTANTIATE_TEST_SUITE_P(Languages, Help, testing::ValuesIn(kLanguages), [](const auto& language) {
    return language.param == TextLanguage::English ? "English" : "Russian";
});

} // namespace orvanta::test
