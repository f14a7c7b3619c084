// Which parts of a text are emoji.
#pragma once

#include <QList>
#include <QStringView>

namespace orvanta {

/// UTF-16 units of a text, from 0.
struct TextRange
{
    int begin = 0;
    int length = 0;

    bool operator==(const TextRange&) const = default;
};

/// The emoji that are shown as pictures, those beside each other as one range, since several may
/// make one picture. Signs that are emoji only on demand ("❤" and U+FE0F) are when that follows.
[[nodiscard]] QList<TextRange> emojiIn(QStringView text);

} // namespace orvanta
