#include "core/ini_stored_names.h"

#include <algorithm>
#include <array>

namespace orvanta {

static bool isTab(QChar character)
{
    return character == u'\t' || character == u'\v';
}

static QString escaped(QChar character)
{
    return u'\\' + QString::number(character.unicode(), 16).rightJustified(2, u'0').toUpper();
}

static bool beginsEscaped(QStringView text)
{
    constexpr std::array<QStringView, 6> kForms = {u"\\3B", u"\\5B", u"\\5C",
                                                   u"\\5D", u"\\09", u"\\0B"};
    return std::any_of(kForms.begin(), kForms.end(), [&](QStringView form) {
        return text.startsWith(form, Qt::CaseInsensitive);
    });
}

/// Outer blanks are cut when a name is written, and line breaks become blanks.
static QString withoutBlanksBefore(const QString& name)
{
    const auto* first = std::find_if_not(
        name.begin(), name.end(), [](QChar c) { return c == u' ' || c == u'\r' || c == u'\n'; });
    return name.sliced(first - name.begin());
}

QString storedKey(const QString& key)
{
    const QString name = withoutBlanksBefore(key);
    if (name.isEmpty()) {
        return {};
    }
    const QChar first = name.front();
    const bool isUnfit = first == u';' || first == u'[' || isTab(first) || beginsEscaped(name);
    return isUnfit ? escaped(first) + name.sliced(1) : name;
}

static bool isUnfitSection(const QString& name)
{
    for (qsizetype i = name.indexOf(u'\\'); i >= 0; i = name.indexOf(u'\\', i + 1)) {
        if (beginsEscaped(QStringView(name).sliced(i))) {
            return true;
        }
    }
    return std::any_of(name.begin(), name.end(), [](QChar c) { return c == u']' || isTab(c); });
}

QString storedSection(const QString& section)
{
    if (!isUnfitSection(section)) {
        return section;
    }
    QString stored;
    for (const QChar character : section) {
        const bool isUnfit = character == u']' || character == u'\\' || isTab(character);
        stored += isUnfit ? escaped(character) : QString(character);
    }
    return stored;
}

} // namespace orvanta
