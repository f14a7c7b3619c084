// Small files that belong to the desktop: read whole, replaced whole.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace orvanta {

enum class FileMode
{
    Plain,
    Executable, // scripts
};

/// The whole content; empty when there is no such file; nothing when there is one that cannot be
/// read, which nobody may then replace as if it had been empty.
[[nodiscard]] std::optional<QByteArray> readWhole(const QString& file);

/// The same where an unreadable file is as good as none.
[[nodiscard]] QByteArray contentOf(const QString& file);

/// Whether the file now has this content. Creates missing folders; one that already has the
/// content stays untouched; a symbolic link stays one; readers see the old file or the new one.
bool replaceFile(const QString& file, const QByteArray& content, FileMode mode = FileMode::Plain);

/// Whether there is no such file any more.
bool removeFile(const QString& file);

} // namespace orvanta
