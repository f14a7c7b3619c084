#include "model/settings.h"

#include "core/error_boundary.h"
#include "core/spoilt_count.h"
#include "model/languages.h"

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

static_assert(std::ranges::all_of(kSettings, [](const SettingKey& row) {
    const auto place = std::size_t(&row - kSettings.data());
    return (row.section == u"options") == (place <= std::size_t(Option::StartWithSession));
}));

static IniChange change(const SettingKey& key, const QString& value, const QString& name = {})
{
    return {QStringView(key.section).toString(),
            QStringView(key.key).toString().replace(u'#', name), value};
}

QString Settings::read(const SettingKey& key, const QString& name) const
{
    const IniChange place = change(key, {}, name);
    return ReadIni(place.section, place.key, m_iniPath);
}

double Settings::number(const SettingKey& key) const
{
    const QString text = read(key);
    return decimalValue(text.isEmpty() ? QString::fromUtf16(key.byDefault) : text);
}

Int16 Settings::addInCount() const
{
    const QString count = read(iniKey(u"add-ins", u"num"));
    return roundToInt16(count.isEmpty() ? 0 : decimalValue(count));
}

QSize Settings::windowSize() const
{
    const int width = read(iniKey(u"window", u"width")).toInt();
    const int height = read(iniKey(u"window", u"height")).toInt();
    return width > 0 && height > 0 ? QSize(width, height) : QSize();
}

void Settings::setWindowSize(QSize size) const
{
    writeTogether({change(iniKey(u"window", u"width"), QString::number(size.width()), {}),
                   change(iniKey(u"window", u"height"), QString::number(size.height()), {})});
}

void Settings::write(const SettingKey& key, const QString& value, const QString& name) const
{
    const IniChange place = change(key, value, name);
    WriteIni(place.section, place.key, value, m_iniPath);
}

/// Nothing is written when nothing changes.
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
    const QString text = read(iniKey(option));
    return !text.isEmpty() && conditionHolds("option", [&] { return decimalValue(text) == 1; });
}

void Settings::storeOptions(const std::vector<std::pair<Option, bool>>& options) const
{
    std::vector<IniChange> changes;
    changes.reserve(options.size());
    for (const auto& [option, isOn] : options) {
        changes.push_back(change(iniKey(option), isOn ? u"1"_s : u"0"_s));
    }
    writeTogether(std::move(changes));
}

double Settings::languageNumber() const
{
    const QString text = read(iniKey(u"main", u"language"));
    double language = 0;
    if (!text.isEmpty()) {
        resumeNext("reading the language", [&] { language = std::trunc(decimalValue(text)); });
    }
    return language;
}

void Settings::setLanguage(TextLanguage language) const
{
    write(iniKey(u"main", u"language"), language == TextLanguage::English ? u"1"_s : u"2"_s);
}

TextLanguage Settings::textLanguage(TextLanguage otherwise) const
{
    return orvanta::textLanguage(languageNumber(), otherwise);
}

TextLanguage Settings::exactTextLanguage(TextLanguage otherwise,
                                         std::optional<TextLanguage> absent) const
{
    const QString text = read(iniKey(u"main", u"language"));
    const int number = text == u"1" ? 1 : text == u"2" ? 2 : 0;
    return orvanta::textLanguage(number, text.isEmpty() ? absent.value_or(otherwise) : otherwise);
}

QStringList Settings::firstTypes(int count) const
{
    QStringList types;
    for (int i = 0; i < count; ++i) {
        types.append(read(iniKey(u"types", u"file#"), i));
    }
    return types;
}

Int16 Settings::typeCount() const
{
    const SettingKey& key = iniKey(u"types", u"num");
    const IniChange place = change(key, {});
    return countAt({m_iniPath, place.section, place.key}, read(key));
}

static QString patternOf(const QStringList& types)
{
    return types.isEmpty() ? QString() : u"*."_s + types.join(u";*."_s);
}

QString Settings::typePattern() const
{
    return patternOf(firstTypes(std::max(typeCount().value(), 1)));
}

QString Settings::clipPattern() const
{
    (void)typeCount(); // its error says where the count stands
    const double count = decimalValue(read(iniKey(u"types", u"num")));
    return patternOf(firstTypes(roundToInt16(std::floor(count)).value()));
}

void Settings::appendType(const QString& type) const
{
    const Int16 count = typeCount();
    const Int16 more = count + Int16(1);
    writeTogether({change(iniKey(u"types", u"num"), QString::number(more.value())),
                   change(iniKey(u"types", u"file#"), type, QString::number(count.value()))});
}

void Settings::storeRemainingTypes(const QStringList& remaining) const
{
    const Int16 count = typeCount() - Int16(1);
    std::vector changes = {change(iniKey(u"types", u"num"), QString::number(count.value()))};
    for (int i = 0; i < remaining.size(); ++i) {
        changes.push_back(change(iniKey(u"types", u"file#"), remaining[i], QString::number(i)));
    }
    writeTogether(std::move(changes));
}

void Settings::saveOwners(const QMap<int, QString>& owners) const
{
    std::vector<IniChange> changes;
    for (auto owner = owners.cbegin(); owner != owners.cend(); ++owner) {
        changes.push_back(
            change(iniKey(u"types", u"#reg"), owner.value(), QString::number(owner.key())));
    }
    writeTogether(std::move(changes));
}

TextLevel Settings::textLevel() const
{
    const QString text = read(iniKey(u"practice", u"text"));
    if (text == u"1" || text == u"2") {
        return text == u"1" ? TextLevel::Text : TextLevel::Large;
    }
    if (!text.isEmpty() && text != u"0") {
        qCInfo(logErrors, "[practice] text=%ls is no level: the text is off",
               qUtf16Printable(text));
    }
    return TextLevel::Off;
}

void Settings::setTextLevel(TextLevel level) const
{
    write(iniKey(u"practice", u"text"), QString::number(static_cast<int>(level)));
}

QString Settings::languageIn(const SettingKey& key) const
{
    const QString text = read(key);
    QString code = languageCode(text);
    if (code.isEmpty() && !text.isEmpty()) {
        qCInfo(logErrors, "[practice] %ls is no language", qUtf16Printable(text));
    }
    return code;
}

TrackWish Settings::trackWish() const
{
    return {.sound = languageIn(iniKey(u"practice", u"sound")),
            .subtitles = languageIn(iniKey(u"practice", u"subtitles"))};
}

void Settings::setTrackWish(const TrackWish& wish) const
{
    writeTogether({change(iniKey(u"practice", u"sound"), wish.sound),
                   change(iniKey(u"practice", u"subtitles"), wish.subtitles)});
}

QString Settings::addInCaption(int i, TextLanguage language) const
{
    const bool isEnglish = language == TextLanguage::English;
    return read(isEnglish ? iniKey(u"add-ins", u"namee#") : iniKey(u"add-ins", u"namer#"), i);
}

int Settings::wholeNumber(const SettingKey& key, int otherwise) const
{
    const QString text = read(key);
    int number = otherwise;
    if (!text.isEmpty()) {
        resumeNext("reading a number", [&] { number = roundToInt16(decimalValue(text)).value(); });
    }
    return number;
}

int Settings::recentSeconds() const
{
    constexpr int kUsual = 30;
    const int seconds = wholeNumber(iniKey(u"recent", u"seconds"), kUsual);
    return seconds >= 1 && seconds <= 3600 ? seconds : kUsual;
}

Practice Settings::practice() const
{
    const Practice usual;
    const Practice stored = {.speed = wholeNumber(iniKey(u"practice", u"speed"), usual.speed),
                             .times = wholeNumber(iniKey(u"practice", u"repeat"), usual.times),
                             .wait = wholeNumber(iniKey(u"practice", u"wait"), usual.wait),
                             .seconds = wholeNumber(iniKey(u"practice", u"seconds"), usual.seconds),
                             .from = wholeNumber(iniKey(u"practice", u"from"), usual.from),
                             .step = wholeNumber(iniKey(u"practice", u"step"), usual.step),
                             .mirror = read(iniKey(u"practice", u"mirror")) == u"1",
                             .even = read(iniKey(u"practice", u"even")) == u"1"};
    return stored.inRange();
}

/// A value that is as usual and was never stored stays away.
void Settings::setPractice(const Practice& practice) const
{
    const Practice to = practice.inRange();
    const Practice usual;
    std::vector<IniChange> changes;
    const auto store = [&](const SettingKey& key, int value, int usualValue) {
        if (value != usualValue || !read(key).isEmpty()) {
            changes.push_back(change(key, QString::number(value)));
        }
    };
    store(iniKey(u"practice", u"speed"), to.speed, usual.speed);
    store(iniKey(u"practice", u"repeat"), to.times, usual.times);
    store(iniKey(u"practice", u"wait"), to.wait, usual.wait);
    store(iniKey(u"practice", u"seconds"), to.seconds, usual.seconds);
    store(iniKey(u"practice", u"from"), to.from, usual.from);
    store(iniKey(u"practice", u"step"), to.step, usual.step);
    store(iniKey(u"practice", u"mirror"), to.mirror, usual.mirror);
    store(iniKey(u"practice", u"even"), to.even, usual.even);
    writeTogether(std::move(changes));
}

} // namespace orvanta
