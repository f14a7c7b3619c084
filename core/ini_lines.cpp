#include "core/ini_lines.h"

#include <algorithm>

namespace orvanta {

static bool isIniBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\v';
}

/// Offset of the first line break at or behind the offset; the text's size without one. Byte by
/// byte: lines are short, and two calls of memchr for each cost six times as much.
static qsizetype lineBreakFrom(QByteArrayView text, qsizetype from)
{
    const auto* found = std::find_if(text.begin() + from, text.end(),
                                     [](char byte) { return byte == '\n' || byte == '\r'; });
    return found - text.begin();
}

static qsizetype behindLineBreak(QByteArrayView text, qsizetype at)
{
    if (at == text.size()) {
        return at;
    }
    const bool isPair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
    return at + (isPair ? 2 : 1);
}

IniLine iniLineAt(QByteArrayView text, qsizetype begin)
{
    const qsizetype end = lineBreakFrom(text, begin);
    return {begin, end, behindLineBreak(text, end)};
}

QByteArrayView iniTrimmed(QByteArrayView bytes)
{
    const auto* first = std::find_if_not(bytes.begin(), bytes.end(), isIniBlank);
    const auto* last = bytes.end();
    while (last != first && isIniBlank(last[-1])) {
        --last;
    }
    return {first, last - first};
}

IniLineKind iniLineKind(QByteArrayView trimmedLine)
{
    if (trimmedLine.isEmpty()) {
        return IniLineKind::Blank;
    }
    switch (trimmedLine[0]) {
    case ';':
        return IniLineKind::Comment;
    case '[':
        return IniLineKind::Header;
    default:
        return IniLineKind::Key;
    }
}

QByteArrayView iniSectionName(QByteArrayView trimmedLine)
{
    const QByteArrayView name = trimmedLine.sliced(1);
    const qsizetype bracket = name.indexOf(']');
    return iniTrimmed(bracket < 0 ? name : name.first(bracket));
}

qsizetype iniEqualsSign(QByteArrayView line, qsizetype signsBefore)
{
    qsizetype sign = line.indexOf('=');
    while (sign >= 0 && signsBefore > 0) {
        sign = line.indexOf('=', sign + 1);
        --signsBefore;
    }
    return sign;
}

QByteArrayView iniUnquoted(QByteArrayView value)
{
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                          (value.front() == '"' || value.front() == '\'');
    return isQuoted ? value.sliced(1, value.size() - 2) : value;
}

} // namespace orvanta
