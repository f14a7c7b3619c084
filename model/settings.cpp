#include "model/settings.h"

#include "core/error_boundary.h"
#include "core/ini.h"
#include "core/numbers.h"
#include "core/paths.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

/// A key that is not in the table does not compile.
static consteval const SettingKey& setting(std::u16string_view section, std::u16string_view key)
{
    const auto* const row = std::ranges::find_if(kSettings, [&](const SettingKey& candidate) {
        return candidate.section == section && candidate.key == key;
    });
    return row == kSettings.end() ? throw "no such setting" : *row;
}

namespace {

constexpr auto kOptionCount = std::size_t(Option::StartWithSession) + 1;
static_assert(std::ranges::all_of(kSettings, [](const SettingKey& row) {
    return (row.section == u"options") == (&row < &kSettings[kOptionCount]);
}));

constexpr const SettingKey& kLanguage = setting(u"main", u"language");
constexpr const SettingKey& kSetupSource = setting(u"main", u"screxe");
constexpr const SettingKey& kTypeCount = setting(u"types", u"num");
constexpr const SettingKey& kType = setting(u"types", u"file#");
constexpr const SettingKey& kTypeOwner = setting(u"types", u"#reg");
constexpr const SettingKey& kVolume = setting(u"save", u"volume");
constexpr const SettingKey& kBalance = setting(u"save", u"balance");
constexpr const SettingKey& kFolder = setting(u"save", u"open");
constexpr const SettingKey& kAddInCount = setting(u"add-ins", u"num");
constexpr const SettingKey& kAddInEnglish = setting(u"add-ins", u"namee#");
constexpr const SettingKey& kAddInRussian = setting(u"add-ins", u"namer#");
constexpr const SettingKey& kAddInPath = setting(u"add-ins", u"path#");
constexpr const SettingKey& kPosition = setting(u"pos", u"#");
constexpr const SettingKey& kCodePage = setting(u"text", u"codepage");

} // namespace

static const SettingKey& setting(Option option)
{
    return kSettings[std::size_t(option)];
}

static QString sectionOf(const SettingKey& row)
{
    return QStringView(row.section).toString();
}

/// name: what stands for the "#".
static QString keyOf(const SettingKey& row, const QString& name)
{
    return QStringView(row.key).toString().replace(u'#', name);
}

static QString read(const QString& iniPath, const SettingKey& row, const QString& name = {})
{
    return ReadIni(sectionOf(row), keyOf(row, name), iniPath);
}

/// What is absent counts as in a new file.
static QString readOrDefault(const QString& iniPath, const SettingKey& row)
{
    return ReadIni(sectionOf(row), keyOf(row, {}), iniPath, QString::fromUtf16(row.byDefault));
}

static IniChange change(const SettingKey& row, const QString& value, int number = 0)
{
    return {sectionOf(row), keyOf(row, QString::number(number)), value};
}

static void write(const QString& iniPath, const SettingKey& row, const QString& value,
                  const QString& name = {})
{
    WriteIni(sectionOf(row), keyOf(row, name), value, iniPath);
}

/// All of them in one replacement of the file; nothing when nothing changes.
static void writeTogether(const QString& iniPath, std::vector<IniChange> changes)
{
    const IniSnapshot settings(iniPath);
    std::erase_if(changes, [&](const IniChange& change) {
        return settings.read(change.section, change.key) == change.value;
    });
    if (!changes.empty() && !changeIniAtOnce(iniPath, [&](const auto&) { return changes; })) {
        qCInfo(logErrors, "%ls cannot be written", qUtf16Printable(iniPath));
    }
}

bool optionIsOn(const QString& iniPath, Option option)
{
    return read(iniPath, setting(option)) == u"1";
}

bool optionIsOne(const QString& iniPath, Option option)
{
    const QString text = read(iniPath, setting(option));
    return !text.isEmpty() && conditionHolds("option", [&] { return decimalValue(text) == 1; });
}

void storeOptions(const QString& iniPath, const std::vector<std::pair<Option, bool>>& options)
{
    std::vector<IniChange> changes;
    for (const auto& [option, isOn] : options) {
        changes.push_back(change(setting(option), isOn ? u"1"_s : u"0"_s));
    }
    writeTogether(iniPath, std::move(changes));
}

static double languageNumber(const QString& iniPath)
{
    const QString text = read(iniPath, kLanguage);
    double language = 0;
    if (!text.isEmpty()) {
        resumeNext("reading the language", [&] { language = std::trunc(decimalValue(text)); });
    }
    return language;
}

Int16 storedLanguage(const QString& iniPath)
{
    return roundToInt16(languageNumber(iniPath));
}

bool isLanguageStored(const QString& iniPath)
{
    return !read(iniPath, kLanguage).isEmpty();
}

void storeLanguage(const QString& iniPath, TextLanguage language)
{
    write(iniPath, kLanguage, language == TextLanguage::English ? u"1"_s : u"2"_s);
}

TextLanguage textLanguage(double number, TextLanguage otherwise)
{
    if (number == 1) {
        return TextLanguage::English;
    }
    return number == 2 ? TextLanguage::Russian : otherwise;
}

TextLanguage storedTextLanguage(const QString& iniPath, TextLanguage otherwise)
{
    return textLanguage(languageNumber(iniPath), otherwise);
}

TextLanguage exactTextLanguage(const QString& iniPath, TextLanguage otherwise)
{
    const QString text = read(iniPath, kLanguage);
    return text == u"1" || text == u"2" ? textLanguage(text.toInt(), otherwise) : otherwise;
}

static Int16 typeCount(const QString& iniPath)
{
    return countValue(read(iniPath, kTypeCount));
}

static QStringList firstTypes(const QString& iniPath, int count)
{
    const IniSnapshot settings(iniPath);
    QStringList types;
    for (int i = 0; i < count; ++i) {
        types.append(settings.read(sectionOf(kType), keyOf(kType, QString::number(i))));
    }
    return types;
}

static QString patternOf(const QStringList& types)
{
    return types.isEmpty() ? QString() : u"*."_s + types.join(u";*."_s);
}

QStringList storedTypes(const QString& iniPath)
{
    return firstTypes(iniPath, typeCount(iniPath).value());
}

QString typePattern(const QString& iniPath)
{
    return patternOf(firstTypes(iniPath, std::max(typeCount(iniPath).value(), 1)));
}

QString clipPattern(const QString& iniPath)
{
    const double count = std::floor(decimalValue(read(iniPath, kTypeCount)));
    return patternOf(firstTypes(iniPath, roundToInt16(count).value()));
}

void appendStoredType(const QString& iniPath, const QString& type)
{
    const Int16 count = typeCount(iniPath);
    const Int16 more = count + Int16(1);
    writeTogether(iniPath, {change(kTypeCount, QString::number(more.value())),
                            change(kType, type, count.value())});
}

void storeRemainingTypes(const QString& iniPath, const QStringList& remaining)
{
    const Int16 count = typeCount(iniPath) - Int16(1);
    std::vector<IniChange> changes = {change(kTypeCount, QString::number(count.value()))};
    for (int i = 0; i < remaining.size(); ++i) {
        changes.push_back(change(kType, remaining[i], i));
    }
    writeTogether(iniPath, std::move(changes));
}

void saveOwners(const QString& iniPath, const QMap<int, QString>& owners)
{
    std::vector<IniChange> changes;
    for (auto owner = owners.cbegin(); owner != owners.cend(); ++owner) {
        changes.push_back(change(kTypeOwner, owner.value(), owner.key()));
    }
    writeTogether(iniPath, std::move(changes));
}

QString savedOwner(const QString& iniPath, int row)
{
    return read(iniPath, kTypeOwner, QString::number(row));
}

double savedVolume(const QString& iniPath)
{
    return decimalValue(readOrDefault(iniPath, kVolume));
}

void saveVolume(const QString& iniPath, double volume)
{
    write(iniPath, kVolume, decimalText(volume));
}

Int16 savedBalance(const QString& iniPath)
{
    return roundToInt16(decimalValue(readOrDefault(iniPath, kBalance)));
}

void saveBalance(const QString& iniPath, Int16 balance)
{
    write(iniPath, kBalance, decimalText(balance.value()));
}

QString savedFolder(const QString& iniPath)
{
    return read(iniPath, kFolder);
}

void saveFolder(const QString& iniPath, const QString& folder)
{
    write(iniPath, kFolder, folder);
}

QString savedPosition(const QString& iniPath, const QString& text)
{
    return read(iniPath, kPosition, text);
}

void savePosition(const QString& iniPath, const QString& text, const QString& position)
{
    write(iniPath, kPosition, position, text);
}

Int16 addInCount(const QString& iniPath)
{
    return countValue(readOrDefault(iniPath, kAddInCount));
}

QString addInCaption(const QString& iniPath, int number, TextLanguage language)
{
    return read(iniPath, language == TextLanguage::English ? kAddInEnglish : kAddInRussian,
                QString::number(number));
}

QString addInPath(const QString& iniPath, int number)
{
    return read(iniPath, kAddInPath, QString::number(number));
}

QString setupSource(const QString& iniPath)
{
    return read(iniPath, kSetupSource);
}

QString legacyCodePage(const QString& applicationFolder)
{
    return read(programFile(applicationFolder, u"\\platform.ini"_s), kCodePage);
}

} // namespace orvanta
