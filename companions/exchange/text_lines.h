// The lines of a text from another program, by their numbers.
#pragma once

#include <QStringView>

#include <vector>

namespace orvanta {

/// Lines end with CR LF, LF or CR; what follows the last line end is a line when it is not empty.
/// The text has to outlive them.
[[nodiscard]] std::vector<QStringView> linesOfText(QStringView text);

/// Whether the view begins with the word, in any case.
[[nodiscard]] inline bool beginsWith(QStringView text, QStringView word)
{
    return text.startsWith(word, Qt::CaseInsensitive);
}

} // namespace orvanta
