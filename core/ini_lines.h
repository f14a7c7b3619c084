// The lines of an INI-structured text, as bytes. All sign bytes of the format are ASCII.
#pragma once

#include <QByteArrayView>

namespace orvanta {

/// Offsets of one line: its first byte, its line break, the first byte behind its line break.
struct IniLine
{
    qsizetype begin = 0;
    qsizetype end = 0;
    qsizetype next = 0;
};

enum class IniLineKind
{
    Blank,
    Comment,
    Header,
    Key, // also a line without "=", which has no name
};

/// The line that begins at the offset; empty at the end of the text. Line breaks are CRLF, LF, CR.
[[nodiscard]] IniLine iniLineAt(QByteArrayView text, qsizetype begin);

/// Without outer blanks, tabs and vertical tabs.
[[nodiscard]] QByteArrayView iniTrimmed(QByteArrayView bytes);

/// The argument is trimmed.
[[nodiscard]] IniLineKind iniLineKind(QByteArrayView trimmedLine);

/// The name in a trimmed header line: up to the first "]", which may be missing.
[[nodiscard]] QByteArrayView iniSectionName(QByteArrayView trimmedLine);

/// Offset of the "=" in front of which so many others stand; -1 when there is none.
[[nodiscard]] qsizetype iniEqualsSign(QByteArrayView line, qsizetype signsBefore);

/// Without one pair of equal outer quotes.
[[nodiscard]] QByteArrayView iniUnquoted(QByteArrayView value);

} // namespace orvanta
