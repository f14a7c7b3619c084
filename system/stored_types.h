// The list of playable types in the settings, section "types".
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace orvanta {

/// "file0" to "file" + (num − 1). Raises 13 when "num" is no number.
[[nodiscard]] QStringList storedTypes(const QString& iniPath);

/// Adds a type behind the others. Raises 13 as storedTypes, 6 beyond 32,767 types.
void appendStoredType(const QString& iniPath, const QString& type);

/// One type less: these are left. The key of the last one before stays in the file. Raises 13 as
/// storedTypes.
void storeRemainingTypes(const QString& iniPath, const QStringList& types);

/// Saves the owners that rows of the dialog had before, under row + "reg". Rows count from 0.
void saveOwners(const QString& iniPath, const QMap<int, QString>& owners);
/// Empty when none was saved.
[[nodiscard]] QString savedOwner(const QString& iniPath, int row);

} // namespace orvanta
