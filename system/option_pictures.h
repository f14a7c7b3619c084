// Pictures of the Options dialog's buttons, which follow the desktop's colours.
#pragma once

#include <QIcon>

namespace orvanta {

/// A drawing of resources/icons/options by its name: "playing", "program", "files", "ok",
/// "cancel". Crisp at any size; follows the palette of the application, also when it changes.
[[nodiscard]] QIcon optionPicture(const QString& name);

} // namespace orvanta
