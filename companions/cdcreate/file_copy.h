// Copying files and comparing them with what they were copied from.
#pragma once

#include "companions/cdcreate/box_plan.h"
#include "companions/cdcreate/box_work.h"
#include "core/descriptor.h"

#include <QByteArray>
#include <QString>

namespace orvanta {

/// Bytes that are read, written or compared at once.
inline constexpr qsizetype kCopyChunk = 1 << 18;

/// What is wrong with the target, by errno.
[[nodiscard]] BoxFailure targetFailure(const QString& target);

/// Opens a regular file of the expected size for reading; never waits for a pipe or a device.
/// Raises Unreadable.
[[nodiscard]] Descriptor openSource(const BoxFile& file);

/// Reads so many bytes from the offset, fewer only at the file's end. Raises Unreadable, named by
/// the file.
[[nodiscard]] qsizetype readAt(const Descriptor& file, const QString& name, qint64 offset, char* to,
                               qsizetype size);

/// How a copy came to be.
enum class CopyKind
{
    Shared, // source and copy have the same blocks on the disk
    Copied,
};

/// What counts as written.
enum class CopyPace
{
    AsRemembered, // by the system, which brings it to the disk when it likes
    AsWritten,    // on the disk, but for the last bytes: a slow one shows how far it is
};

/// Makes the file anew with the source's bytes and time: by sharing its blocks where the file
/// system can, else within the kernel, else by reading and writing. Adds its bytes to the work.
/// Raises Unreadable, NoRoom, TooLarge, Unwritable, Stopped.
CopyKind copyFile(const BoxFile& source, const QString& target, CopyPace pace, BoxWork& work);

/// Makes the file anew with these bytes. Raises the same.
void writeFile(const QByteArray& content, const QString& target);

/// Raises Different unless both are the same, byte for byte, and Unreadable. isRead is told how
/// many more bytes are compared and may raise what it likes. fromDisk: what the system remembers of
/// the copy is forgotten first.
void compareFiles(const BoxFile& source, const QString& copy, bool fromDisk,
                  const std::function<void(qint64)>& isRead);

} // namespace orvanta
