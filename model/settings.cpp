#include "model/settings.h"

#include "core/error_boundary.h"
#include "core/numbers.h"

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

static_assert(std::ranges::all_of(kSettings, [](const SettingKey& row) {
    const auto place = std::size_t(&row - kSettings.data());
    return (row.section == u"options") == (place <= std::size_t(Option::StartWithSession));
}));

static constexpr const SettingKey& kLanguage = settingKey(u"main", u"language");
static constexpr const SettingKey& kTypeCount = settingKey(u"types", u"num");
static constexpr const SettingKey& kType = settingKey(u"types", u"file#");

static QString sectionOf(const SettingKey& key)
{
    return QStringView(key.section).toString();
}

static QString keyText(const SettingKey& key, const QString& name)
{
    return QStringView(key.key).toString().replace(u'#', name);
}

QString Settings::read(const SettingKey& key, const QString& name) const
{
    return ReadIni(sectionOf(key), keyText(key, name), m_iniPath);
}

QString Settings::read(const SettingKey& key, int number) const
{
    return read(key, QString::number(number));
}

double Settings::number(const SettingKey& key) const
{
    const QString text = read(key);
    return decimalValue(text.isEmpty() ? QString::fromUtf16(key.byDefault) : text);
}

void Settings::write(const SettingKey& key, const QString& value, const QString& name) const
{
    WriteIni(sectionOf(key), keyText(key, name), value, m_iniPath);
}

static IniChange change(const SettingKey& key, const QString& value, int number = 0)
{
    return {sectionOf(key), keyText(key, QString::number(number)), value};
}

/// All of them in one replacement of the file; nothing when nothing changes.
void Settings::writeTogether(std::vector<IniChange> changes) const
{
    const IniSnapshot settings(m_iniPath);
    std::erase_if(changes, [&](const IniChange& change) {
        return settings.read(change.section, change.key) == change.value;
    });
    if (!changes.empty() && !changeIniAtOnce(m_iniPath, [&](const auto&) { return changes; })) {
        qCInfo(logErrors, "%ls cannot be written", qUtf16Printable(m_iniPath));
    }
}

bool Settings::isOne(Option option) const
{
    const QString text = read(keyOf(option));
    return !text.isEmpty() && conditionHolds("option", [&] { return decimalValue(text) == 1; });
}

void Settings::storeOptions(const std::vector<std::pair<Option, bool>>& options) const
{
    std::vector<IniChange> changes;
    for (const auto& [option, isOn] : options) {
        changes.push_back(change(keyOf(option), isOn ? u"1"_s : u"0"_s));
    }
    writeTogether(std::move(changes));
}

TextLanguage textLanguage(double number, TextLanguage otherwise)
{
    if (number == 1) {
        return TextLanguage::English;
    }
    return number == 2 ? TextLanguage::Russian : otherwise;
}

double Settings::languageNumber() const
{
    const QString text = read(kLanguage);
    double language = 0;
    if (!text.isEmpty()) {
        resumeNext("reading the language", [&] { language = std::trunc(decimalValue(text)); });
    }
    return language;
}

Int16 Settings::language() const
{
    return roundToInt16(languageNumber());
}

void Settings::setLanguage(TextLanguage language) const
{
    write(kLanguage, language == TextLanguage::English ? u"1"_s : u"2"_s);
}

TextLanguage Settings::textLanguage(TextLanguage otherwise) const
{
    return orvanta::textLanguage(languageNumber(), otherwise);
}

TextLanguage Settings::exactTextLanguage(TextLanguage otherwise, TextLanguage absent) const
{
    const QString text = read(kLanguage);
    if (text.isEmpty()) {
        return absent;
    }
    return text == u"1" || text == u"2" ? orvanta::textLanguage(text.toInt(), otherwise)
                                        : otherwise;
}

Int16 Settings::typeCount() const
{
    return countValue(read(kTypeCount));
}

QStringList Settings::firstTypes(int count) const
{
    const IniSnapshot settings(m_iniPath);
    QStringList types;
    for (int i = 0; i < count; ++i) {
        types.append(settings.read(sectionOf(kType), keyText(kType, QString::number(i))));
    }
    return types;
}

static QString patternOf(const QStringList& types)
{
    return types.isEmpty() ? QString() : u"*."_s + types.join(u";*."_s);
}

QStringList Settings::types() const
{
    return firstTypes(typeCount().value());
}

QString Settings::typePattern() const
{
    return patternOf(firstTypes(std::max(typeCount().value(), 1)));
}

QString Settings::clipPattern() const
{
    const Int16 count = roundToInt16(std::floor(decimalValue(read(kTypeCount))));
    return patternOf(firstTypes(count.value()));
}

void Settings::appendType(const QString& type) const
{
    const Int16 count = typeCount();
    const Int16 more = count + Int16(1);
    writeTogether(
        {change(kTypeCount, QString::number(more.value())), change(kType, type, count.value())});
}

void Settings::storeRemainingTypes(const QStringList& remaining) const
{
    const Int16 count = typeCount() - Int16(1);
    std::vector<IniChange> changes = {change(kTypeCount, QString::number(count.value()))};
    for (int i = 0; i < remaining.size(); ++i) {
        changes.push_back(change(kType, remaining[i], i));
    }
    writeTogether(std::move(changes));
}

void Settings::saveOwners(const QMap<int, QString>& owners) const
{
    std::vector<IniChange> changes;
    for (auto owner = owners.cbegin(); owner != owners.cend(); ++owner) {
        changes.push_back(change(kTypeOwner, owner.value(), owner.key()));
    }
    writeTogether(std::move(changes));
}

void Settings::setVolume(double volume) const
{
    write(settingKey(u"save", u"volume"), decimalText(volume));
}

Int16 Settings::balance() const
{
    return roundToInt16(number(settingKey(u"save", u"balance")));
}

void Settings::setBalance(Int16 balance) const
{
    write(settingKey(u"save", u"balance"), decimalText(balance.value()));
}

void Settings::setPosition(const QString& text, const QString& position) const
{
    write(kPosition, position, text);
}

Int16 Settings::addInCount() const
{
    return roundToInt16(number(settingKey(u"add-ins", u"num")));
}

QString Settings::addInCaption(int number, TextLanguage language) const
{
    return language == TextLanguage::English ? read(settingKey(u"add-ins", u"namee#"), number)
                                             : read(settingKey(u"add-ins", u"namer#"), number);
}

QString Settings::addInPath(int number) const
{
    return read(settingKey(u"add-ins", u"path#"), number);
}

} // namespace orvanta
