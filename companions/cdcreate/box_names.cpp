#include "companions/cdcreate/box_names.h"

#include <QRegularExpression>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kLongestEnding = 16; // what is longer is no ending but a part of the name

/// Signs of paths and patterns; what cannot be seen; what Joliet has no place for.
static bool isUnfit(QChar c)
{
    static const QString signs = u"<>:\"/\\|?*;"_s;
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format: // turns the direction of what follows, for instance
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return signs.contains(c) || c == QChar::ReplacementCharacter;
    }
}

static QString withoutUnfit(const QString& wanted)
{
    QString name;
    for (const QChar c : wanted.normalized(QString::NormalizationForm_C)) {
        if (c.isLowSurrogate() && !name.isEmpty() && name.back() == u'_') {
            continue; // one sign for the pair
        }
        name.append(isUnfit(c) ? QChar(u'_') : c.isSpace() ? QChar(u' ') : c);
    }
    return name;
}

/// Where the ending begins, at its dot; the name's size without one.
static qsizetype endingAt(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    const bool isEnding = dot > 0 && name.size() - dot <= kLongestEnding;
    return isEnding ? dot : name.size();
}

static QString trimmedEnd(QString stem)
{
    while (stem.endsWith(u' ') || stem.endsWith(u'.')) {
        stem.chop(1);
    }
    return stem;
}

/// "CON", "aux.txt": no file can be called so on Windows, whatever the ending.
static bool isDevice(const QString& name)
{
    static const QRegularExpression devices(
        u"^(con|prn|aux|nul|conin\\$|conout\\$|(com|lpt)[0-9\u00b9\u00b2\u00b3])\\s*(\\.|$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    return devices.match(name).hasMatch();
}

static QString cutToFit(const QString& stem, const QString& rest)
{
    return trimmedEnd(stem.left(std::max<qsizetype>(kLongestBoxName - rest.size(), 1))) + rest;
}

QString safeName(const QString& wanted)
{
    const QString plain = trimmedEnd(withoutUnfit(wanted).trimmed());
    const qsizetype at = endingAt(plain);
    const QString ending = plain.mid(at);
    QString stem = trimmedEnd(plain.left(at));
    // A dot in front hides a file, a dash makes an option of it.
    if (stem.isEmpty() || stem.startsWith(u'.') || stem.startsWith(u'-') || isDevice(stem)) {
        stem.prepend(u'_');
    }
    return cutToFit(stem, ending);
}

QString BoxNames::take(const QString& folder, const QString& wanted)
{
    const QString safe = safeName(wanted);
    const qsizetype at = endingAt(safe);
    const QString before = folder.isEmpty() ? QString() : folder + u'/';
    QString name = before + safe;
    for (int number = 2; m_taken.contains(name.toCaseFolded()); ++number) {
        const QString mark = u" (%1)"_s.arg(number);
        name = before + cutToFit(safe.left(at), mark + safe.mid(at));
    }
    m_taken.insert(name.toCaseFolded());
    return name;
}

} // namespace orvanta
