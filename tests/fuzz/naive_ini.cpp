#include "tests/fuzz/naive_ini.h"

#include <algorithm>

namespace orvanta::fuzz {

static bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\v';
}

static QString trimmed(QString text)
{
    while (!text.isEmpty() && isBlank(text.back())) {
        text.chop(1);
    }
    while (!text.isEmpty() && isBlank(text.front())) {
        text.remove(0, 1);
    }
    return text;
}

static QString withoutSpaces(QString text)
{
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    while (text.startsWith(u' ')) {
        text.remove(0, 1);
    }
    return text;
}

static QString oneLine(const QString& text)
{
    QString line = text.left(text.indexOf(QChar()));
    return line.replace(QLatin1String("\r\n"), QLatin1String(" "))
        .replace(u'\r', u' ')
        .replace(u'\n', u' ');
}

static bool isSame(const QString& one, const QString& other)
{
    return one.toCaseFolded() == other.toCaseFolded();
}

static QString unquoted(const QString& value)
{
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                          (value.front() == u'"' || value.front() == u'\'');
    return isQuoted ? value.mid(1, value.size() - 2) : value;
}

static QString limited(const QString& value)
{
    constexpr int kMost = 2047;
    QList<uint> characters = value.toUcs4();
    if (characters.size() <= kMost) {
        return value;
    }
    characters.resize(kMost);
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), kMost);
}

/// Where the sign stands that ends a key with so many of them.
static qsizetype endOfKey(const QString& line, qsizetype signsBefore)
{
    qsizetype at = line.indexOf(u'=');
    for (; at >= 0 && signsBefore > 0; --signsBefore) {
        at = line.indexOf(u'=', at + 1);
    }
    return at;
}

static QStringList linesOf(const QString& text)
{
    QString plain = text;
    return plain.replace(QLatin1String("\r\n"), QLatin1String("\n"))
        .replace(u'\r', u'\n')
        .split(u'\n');
}

QString naiveValue(const QString& text, const QString& section, const QString& key)
{
    const QString wantedSection = withoutSpaces(oneLine(section));
    QString wantedKey = withoutSpaces(oneLine(key));
    const qsizetype signs = wantedKey.count(u'=');
    while (!wantedKey.isEmpty() && isBlank(wantedKey.back())) {
        wantedKey.chop(1);
    }
    bool isIn = false;
    for (const QString& raw : linesOf(text)) {
        const QString line = trimmed(raw);
        if (line.startsWith(u'[')) {
            if (isIn) {
                return {}; // the first section of a name is the only one
            }
            isIn = isSame(trimmed(line.mid(1).section(u']', 0, 0)), wantedSection);
        } else if (isIn && !line.startsWith(u';')) {
            const qsizetype end = endOfKey(line, signs);
            if (end >= 0 && isSame(trimmed(line.left(end)), wantedKey)) {
                return limited(unquoted(trimmed(line.mid(end + 1))));
            }
        }
    }
    return {};
}

QString naiveWritten(const QString& value)
{
    return limited(unquoted(trimmed(oneLine(value))));
}

} // namespace orvanta::fuzz
