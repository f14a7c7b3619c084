// The settings: the table of keys, the files and pages that must agree with it, each accessor.

#include "core/run_time_error.h"
#include "core/spoilt_count.h"
#include "model/module1.h"
#include "tests/support/settings_folder.h"

#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;
using testing::Property;
using testing::Throws;

namespace {

QString textOf(std::u16string_view characters)
{
    return QStringView(characters).toString();
}

QString contentOf(const char* name)
{
    QFile file(QStringLiteral(ORVANTA_SOURCE_DIR "/") + QString::fromUtf8(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return QString::fromUtf8(file.readAll());
}

/// "[section] key=value" of the table, for new settings or with what the README calls the default.
QSet<QString> tableLines(const QString& forNone, const QString& forEmpty)
{
    QSet<QString> lines;
    for (const SettingKey& row : kSettings) {
        const QString value = QString::fromUtf16(row.byDefault);
        const QString text = value.isEmpty() ? forEmpty : value;
        const QString& shown = row.byDefault == nullptr ? forNone : text;
        lines.insert(u"[%1] %2=%3"_s.arg(textOf(row.section), textOf(row.key), shown));
    }
    EXPECT_EQ(lines.size(), qsizetype(kSettings.size())) << "a key is there twice";
    return lines;
}

void expectSame(const QSet<QString>& found, const QSet<QString>& wanted)
{
    EXPECT_EQ(QSet(found).subtract(wanted), QSet<QString>())
        << "not in the table: " << qPrintable(QSet(found).subtract(wanted).values().join(u", "));
    EXPECT_EQ(QSet(wanted).subtract(found), QSet<QString>())
        << "only in the table: " << qPrintable(QSet(wanted).subtract(found).values().join(u", "));
}

auto raises(ErrorNumber number)
{
    return Throws<RuntimeError>(Property(&RuntimeError::number, number));
}

} // namespace

TEST(SettingsTable, AgreesWithTheSettingsOfAFirstStart)
{
    QSet<QString> found;
    QString section;
    int types = 0;
    for (const QString& line :
         contentOf("resources/orvanta.ini").split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'[')) {
            section = line.trimmed();
            continue;
        }
        QString key = line.section(u'=', 0, 0);
        types += key.startsWith(u"file") ? 1 : 0;
        const bool isFurther = (key.startsWith(u"file") && key != u"file0") ||
                               (section == u"[add-ins]" && key.endsWith(u'2'));
        if (!isFurther) { // of many the first stands for all
            key.replace(QRegularExpression(u"\\d+"_s), u"#"_s);
            found.insert(section + u' ' + key + u'=' + line.section(u'=', 1).trimmed());
        }
    }
    QSet<QString> wanted = tableLines(u"none"_s, {});
    wanted.removeIf([](const QString& line) { return line.endsWith(u"=none"); });
    expectSame(found, wanted);
    EXPECT_TRUE(found.contains(u"[types] num="_s + QString::number(types)));
}

TEST(SettingsTable, AgreesWithTheReadme)
{
    static const QRegularExpression row(
        u"^\\| `(\\[[\\w-]+\\])` \\| `([^`]+)` \\| (.*?) ?\\| \\S"_s,
        QRegularExpression::MultilineOption);
    QSet<QString> found;
    for (auto rows = row.globalMatch(contentOf("README.md")); rows.hasNext();) {
        const QRegularExpressionMatch match = rows.next();
        found.insert(match.captured(1) + u' ' + match.captured(2) + u'=' +
                     match.captured(3).remove(u'`'));
    }
    expectSame(found, tableLines({}, u"empty"_s));
}

TEST(Options, EachHasItsKey)
{
    constexpr std::pair<Option, const char*> kRows[] = {
        {Option::StartPlaying, "as"},     {Option::NextClip, "agnc"},
        {Option::NextPacket, "agnp"},     {Option::CloseWhenOver, "acp"},
        {Option::Replay, "ar"},           {Option::TrayIcon, "si"},
        {Option::KeepRunning, "nc"},      {Option::CopyFromDriveA, "r"},
        {Option::StartWithSession, "ws"},
    };
    for (const auto& [option, key] : kRows) {
        const SettingsFolder folder("[options]\n" + QByteArray(key) + "=1\n");
        const Settings settings(folder.ini());
        for (const auto& [other, otherKey] : kRows) {
            EXPECT_EQ(settings.isOn(other), other == option) << key << ' ' << otherKey;
        }
        settings.storeOptions({{option, false}});
        EXPECT_EQ(folder.bytes(u"orvanta.ini"_s), "[options]\n" + QByteArray(key) + "=0\n");
    }
}

TEST(Options, AreOnForExactlyOneAndTheDialogTakesAnyNumberOne)
{
    struct Row
    {
        const char* settings;
        bool isOn;
        bool isOne;
    };
    const Row rows[] = {
        {"as=1\n", true, true},      {"as=0\n", false, false}, {"as=01\n", false, true},
        {"as=1.0\n", false, true},   {"as=2\n", false, false}, {"as=-1\n", false, false},
        {"as=true\n", false, false}, {"as=\n", false, false},  {"", false, false},
    };
    for (const Row& row : rows) {
        const SettingsFolder folder("[options]\n" + QByteArray(row.settings));
        const Settings settings(folder.ini());
        Module1 module;
        module.IniPath = folder.ini();
        EXPECT_EQ(module.optionIsOn(Option::StartPlaying), row.isOn) << row.settings;
        EXPECT_EQ(settings.isOne(Option::StartPlaying), row.isOne) << row.settings;
    }
    EXPECT_FALSE(Settings(u"/no/such/file.ini"_s).isOn(Option::StartPlaying));
}

TEST(Options, AnEditOfTheFileIsSeenByTheNextLook)
{
    const SettingsFolder folder("[options]\nas=1\n");
    const Settings settings(folder.ini());
    EXPECT_TRUE(settings.isOn(Option::StartPlaying));
    folder.write(u"orvanta.ini"_s, "[options]\nas=\n");
    EXPECT_FALSE(settings.isOn(Option::StartPlaying));
}

TEST(StoredLanguage, IsANumberAndEachWindowHasItsWayWithOddOnes)
{
    constexpr auto kEnglish = TextLanguage::English;
    constexpr auto kRussian = TextLanguage::Russian;
    struct Row
    {
        const char* settings;
        int number;
        // What windows show for which other values are English, and those for which Russian.
        TextLanguage russianForTwo;
        TextLanguage englishForOne;
        TextLanguage russianForTextTwo;
        TextLanguage englishForTextOne;
    };
    const Row rows[] = {
        {"language=1\n", 1, kEnglish, kEnglish, kEnglish, kEnglish},
        {"language=2\n", 2, kRussian, kRussian, kRussian, kRussian},
        {"", 0, kEnglish, kRussian, kEnglish, kRussian},
        {"language=\n", 0, kEnglish, kRussian, kEnglish, kRussian},
        {"language=3\n", 3, kEnglish, kRussian, kEnglish, kRussian},
        {"language=-1\n", -1, kEnglish, kRussian, kEnglish, kRussian},
        {"language=1.5\n", 1, kEnglish, kEnglish, kEnglish, kRussian},
        {"language=2.9\n", 2, kRussian, kRussian, kEnglish, kRussian},
        {"language=English\n", 0, kEnglish, kRussian, kEnglish, kRussian},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.settings);
        const SettingsFolder folder("[main]\n" + QByteArray(row.settings));
        const Settings settings(folder.ini());
        EXPECT_EQ(settings.language(), Int16(row.number));
        EXPECT_EQ(settings.textLanguage(kEnglish), row.russianForTwo);
        EXPECT_EQ(settings.textLanguage(kRussian), row.englishForOne);
        EXPECT_EQ(settings.exactTextLanguage(kEnglish), row.russianForTextTwo);
        EXPECT_EQ(settings.exactTextLanguage(kRussian), row.englishForTextOne);
        const bool isAbsent = QByteArray(row.settings).size() < 11;
        EXPECT_EQ(settings.exactTextLanguage(kRussian, kEnglish),
                  isAbsent ? kEnglish : row.englishForTextOne);
    }
}

TEST(StoredLanguage, IsZeroWithoutAFileAndOverflowsBeyondSixteenBits)
{
    EXPECT_EQ(Settings(u"/no/such/file.ini"_s).language(), Int16(0));
    const SettingsFolder folder("[main]\nlanguage=40000\n");
    const Settings settings(folder.ini());
    EXPECT_THAT([&] { (void)settings.language(); }, raises(ErrorNumber::Overflow));
    EXPECT_EQ(settings.textLanguage(TextLanguage::Russian), TextLanguage::Russian);
}

TEST(StoredLanguage, IsStoredAsItsNumber)
{
    const SettingsFolder folder;
    const Settings settings(folder.ini());
    settings.setLanguage(TextLanguage::English);
    EXPECT_EQ(folder.value("main", "language"), u"1");
    settings.setLanguage(TextLanguage::Russian);
    EXPECT_EQ(folder.value("main", "language"), u"2");
}

TEST(StoredTypes, GiveTheListAndBothPatterns)
{
    struct Row
    {
        const char* settings;
        const char16_t* types;
        const char16_t* typePattern;
        const char16_t* clipPattern;
    };
    const Row rows[] = {
        {"num=3\nfile0=avi\nfile1=mpg\nfile2=wav\n", u"avi mpg wav", u"*.avi;*.mpg;*.wav",
         u"*.avi;*.mpg;*.wav"},
        {"num=1\nfile0=avi\nfile1=mpg\n", u"avi", u"*.avi", u"*.avi"},
        {"num=0\nfile0=avi\n", u"", u"*.avi", u""}, // the first type is always in the pattern
        {"num=2\nfile0=avi\nfile1=\n", u"avi ", u"*.avi;*.", u"*.avi;*."},
        {"num=1.9\nfile0=avi\nfile1=mpg\n", u"avi mpg", u"*.avi;*.mpg", u"*.avi"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.settings);
        const SettingsFolder folder("[types]\n" + QByteArray(row.settings));
        const Settings settings(folder.ini());
        EXPECT_EQ(settings.types().join(u' '), QString::fromUtf16(row.types));
        EXPECT_EQ(settings.typePattern(), QString::fromUtf16(row.typePattern));
        EXPECT_EQ(settings.clipPattern(), QString::fromUtf16(row.clipPattern));
    }
}

TEST(StoredTypes, ACountThatIsAbsentOrNoNumberIsATypeMismatch)
{
    for (const QByteArray count : {"", "num=\n", "num=three\n"}) {
        SCOPED_TRACE(count.constData());
        const SettingsFolder folder("[types]\nfile0=avi\n" + count);
        const Settings settings(folder.ini());
        const auto mismatch = raises(ErrorNumber::TypeMismatch);
        EXPECT_THAT([&] { (void)settings.typePattern(); }, mismatch);
        EXPECT_THAT([&] { (void)settings.clipPattern(); }, mismatch);
        EXPECT_THAT([&] { (void)settings.types(); }, mismatch);
        EXPECT_THAT([&] { settings.appendType(u"mpg"_s); }, mismatch);
    }
}

TEST(StoredTypes, GrowAndShrinkWithTheirCount)
{
    const SettingsFolder folder("[types]\nnum=2\nfile0=avi\nfile1=mp3\n");
    const Settings settings(folder.ini());
    settings.appendType(u"mpg"_s);
    EXPECT_EQ(folder.value("types", "num"), u"3");
    EXPECT_EQ(settings.types(), (QStringList{u"avi"_s, u"mp3"_s, u"mpg"_s}));
    settings.storeRemainingTypes({u"avi"_s, u"mpg"_s});
    EXPECT_EQ(folder.value("types", "num"), u"2");
    EXPECT_EQ(settings.types(), (QStringList{u"avi"_s, u"mpg"_s}));
}

TEST(StoredTypes, KeepWhoOwnedThemByTheirNumber)
{
    const SettingsFolder folder("[types]\nnum=2\nfile0=avi\nfile1=mp3\n");
    Settings(folder.ini()).saveOwners({{0, u"player.desktop"_s}, {1, u"other.desktop"_s}});
    EXPECT_EQ(folder.value("types", "0reg"), u"player.desktop");
    EXPECT_EQ(folder.value("types", "1reg"), u"other.desktop");
}

TEST(RecentLessonsAreKept, EveryThirtySecondsWhereTheSettingsNameNoSpanThatCanBe)
{
    for (const QByteArray value : {"", "0", "-1", "3601", "soon"}) {
        SCOPED_TRACE(value.constData());
        const SettingsFolder folder("[recent]\nseconds=" + value + "\n");
        EXPECT_EQ(Settings(folder.ini()).recentSeconds(), 30);
    }
    for (const int seconds : {1, 3600}) {
        const SettingsFolder folder("[recent]\nseconds=" + QByteArray::number(seconds) + "\n");
        EXPECT_EQ(Settings(folder.ini()).recentSeconds(), seconds);
    }
}

TEST(StoredTypes, TheErrorOfASpoiltCountSaysWhereItStands)
{
    const SettingsFolder folder("[types]\nnum=three\n");
    const Settings settings(folder.ini());
    EXPECT_THAT([&] { (void)settings.clipPattern(); },
                testing::Throws<SpoiltCount>(testing::AllOf(
                    testing::Property(&SpoiltCount::value, QString(u"three"_s)),
                    testing::Property(
                        &SpoiltCount::place,
                        testing::AllOf(testing::Field(&SpoiltCount::Place::file, folder.ini()),
                                       testing::Field(&SpoiltCount::Place::section, u"types"_s),
                                       testing::Field(&SpoiltCount::Place::key, u"num"_s))))));
}

TEST(SavedValues, CountAsInNewSettingsWhereTheyAreAbsent)
{
    const SettingsFolder folder("[main]\n");
    const Settings settings(folder.ini());
    EXPECT_EQ(settings.volume(), 0);
    EXPECT_EQ(settings.balance(), Int16(50));
    EXPECT_EQ(settings.addInCount(), Int16(0));
    EXPECT_EQ(settings.folder(), QString());
    EXPECT_EQ(settings.position(u"A clip"_s), QString());
    EXPECT_EQ(settings.setupSource(), QString());
    EXPECT_EQ(Settings(folder.file(u"platform.ini"_s)).codePage(), QString());
}

TEST(SavedValues, AreReadBackFromTheirKeys)
{
    const SettingsFolder folder("[main]\nscrexe=/cd/setup1.exe\n[add-ins]\nnum=2\n"
                                "namee2=Quiz\nnamer2=Опрос\npath2=quiz.exe\n");
    const Settings settings(folder.ini());
    folder.write(u"platform.ini"_s, "[text]\ncodepage=windows-1251\n");
    settings.setVolume(-1728.5);
    settings.setBalance(Int16(80));
    settings.setFolder(u"/music"_s);
    EXPECT_EQ(folder.value("save", "volume"), u"-1728.5");
    EXPECT_EQ(settings.volume(), -1728.5);
    EXPECT_EQ(folder.value("save", "balance"), u"80");
    EXPECT_EQ(settings.balance(), Int16(80));
    EXPECT_EQ(folder.value("save", "open"), u"/music");
    EXPECT_EQ(settings.folder(), u"/music");
    EXPECT_EQ(settings.addInCount(), Int16(2));
    EXPECT_EQ(settings.addInCaption(2, TextLanguage::English), u"Quiz");
    EXPECT_EQ(settings.addInCaption(2, TextLanguage::Russian), u"Опрос");
    EXPECT_EQ(settings.addInPath(2), u"quiz.exe");
    EXPECT_EQ(settings.setupSource(), u"/cd/setup1.exe");
    EXPECT_EQ(Settings(folder.file(u"platform.ini"_s)).codePage(), u"windows-1251");
}

TEST(SavedValues, TheLevelOfTheTextIsOffWhereItIsAbsentOrSpoilt)
{
    const SettingsFolder folder;
    const Settings settings(folder.ini());
    EXPECT_EQ(settings.textLevel(), TextLevel::Off);
    for (const TextLevel level : {TextLevel::Large, TextLevel::Text, TextLevel::Off}) {
        settings.setTextLevel(level);
        EXPECT_EQ(settings.textLevel(), level);
    }
    EXPECT_EQ(folder.value("practice", "text"), u"0");
    for (const QString& spoilt : {u"3"_s, u"-1"_s, u"large"_s, u"1.0"_s}) {
        WriteIni(u"practice"_s, u"text"_s, spoilt, folder.ini());
        EXPECT_EQ(settings.textLevel(), TextLevel::Off) << qPrintable(spoilt);
    }
}

TEST(SavedValues, AWindowsSizeIsReadBackAndWhatIsNoSizeIsNone)
{
    const SettingsFolder folder("[main]\n");
    const QString file = folder.file(u"platform.ini"_s);
    const Settings settings(file);
    EXPECT_FALSE(settings.windowSize().isValid());
    settings.setWindowSize({640, 500});
    EXPECT_EQ(settings.windowSize(), QSize(640, 500));
    for (const char* spoilt : {"", "0", "-5", "wide", "1e400", "99999999999999"}) {
        folder.write(u"platform.ini"_s, QByteArray("[window]\nwidth=") + spoilt + "\nheight=500\n");
        EXPECT_FALSE(settings.windowSize().isValid()) << spoilt;
    }
}

TEST(SavedValues, APositionGoesByTheWholeTextOfItsClip)
{
    const SettingsFolder folder;
    const Settings settings(folder.ini());
    for (const QString& text : {u"A clip"_s, u"# 1 of 2"_s, u"num"_s}) {
        settings.setPosition(text, u"12.5"_s);
        EXPECT_EQ(folder.value("pos", text.toUtf8().constData()), u"12.5") << qPrintable(text);
        EXPECT_EQ(settings.position(text), u"12.5") << qPrintable(text);
    }
}

TEST(SavedValues, APositionOfAClipWhoseTextReadsAsSomethingElseIsKeptAndAddsNothingAtEachSave)
{
    const SettingsFolder folder("[options]\nas=1\n[pos]\n");
    const Settings settings(folder.ini());
    const QStringList texts = {u"; a remark"_s, u"[options]"_s, u" [1] One"_s, u"\tOne"_s,
                               u"\n;One"_s,     u";a=b"_s,      u"\\3B One"_s, u"\\5c3B One"_s};
    for (const QString& text : texts) {
        settings.setPosition(text, u"of "_s + text.trimmed());
    }
    const QByteArray saved = folder.bytes(u"orvanta.ini"_s);
    for (const QString& text : texts) {
        EXPECT_EQ(settings.position(text), u"of "_s + text.trimmed()) << qPrintable(text);
        settings.setPosition(text, u"of "_s + text.trimmed());
    }
    EXPECT_EQ(folder.bytes(u"orvanta.ini"_s), saved);
    EXPECT_EQ(folder.value("options", "as"), u"1");
}

} // namespace orvanta
