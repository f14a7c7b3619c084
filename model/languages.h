// Languages of sound and subtitles: their codes and their names.
#pragma once

#include "model/texts.h"

#include <QString>

namespace orvanta {

/// For what names no language.
inline constexpr QStringView kNoLanguage = u"und";

/// One code for each language, of two letters where there is one: "en" for "en", "eng" and "en-GB".
/// kNoLanguage for itself; empty for what is no code of a language.
[[nodiscard]] QString languageCode(const QString& asWritten);

/// A code's name for people; what the table of texts lacks has the name that it gives itself.
[[nodiscard]] QString languageName(const QString& code, TextLanguage language);

} // namespace orvanta
