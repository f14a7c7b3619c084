// Types of content for extensions that the desktop does not know.
#pragma once

#include <QString>
#include <QStringList>

namespace orvanta {

/// The type that this program gives an extension of its own accord. Empty when the extension
/// cannot be part of a pattern: nothing in it, a separator, a wildcard or a control character.
[[nodiscard]] QString ownTypeOf(const QString& extension);
[[nodiscard]] bool isOwnType(const QString& type);

/// Writes the user's package of such types; without any, removes it. Whether it changed.
bool writeMimePackage(const QStringList& extensions);

} // namespace orvanta
