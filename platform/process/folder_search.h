// What lies in folders, by name in any case: listed once, and only when a file is not where it was
// said to be. Any thread.
#pragma once

#include <QString>
#include <QStringList>

namespace orvanta {

/// By stat alone: opening a FIFO or a device to see what it is could block or disturb it.
[[nodiscard]] bool isRegularFile(const QString& path);

/// Regular files at parts below a folder, each part in any case where the exact one is not there.
[[nodiscard]] QStringList filesInAnyCase(const QString& folder, const QStringList& parts);

/// Whether what lies below the folder has been looked through.
[[nodiscard]] bool isLookedThrough(const QString& folder);

/// Looks through what lies below a folder, on a thread of its own. Returns at once; nothing happens
/// when it was done or is being done. Folders whose names begin with a dot and links to folders are
/// left out.
void lookThrough(const QString& folder);

/// Waits until the folder is looked through, at most so long; -1: as long as it takes. Returns
/// whether it is.
bool waitForLook(const QString& folder, int milliseconds);

/// Paths of files of this name, in any case, anywhere below a folder; empty where it has not been
/// looked through.
[[nodiscard]] QStringList filesBelow(const QString& folder, const QString& name);

/// Folders are looked through anew from now on; what is being done ends.
void forgetFolders();

} // namespace orvanta
