// What import and export say, in the language of the interface.
#pragma once

#include "companions/exchange/importing.h"
#include "model/texts.h"

namespace orvanta {

[[nodiscard]] QString exchangeText(QStringView control, TextLanguage language);

/// "list.m3u: line 3: an address, nothing is fetched: http://…".
[[nodiscard]] QString remarkText(const FileRemark& remark, TextLanguage language);

} // namespace orvanta
