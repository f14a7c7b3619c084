// One INI-structured file on the disk, locked between processes.
#pragma once

#include "core/descriptor.h"

#include <QByteArray>

#include <compare>
#include <optional>

namespace orvanta {

/// What tells one state of a file from another.
struct FileState
{
    dev_t device = 0;
    ino_t inode = 0;
    qint64 size = -1;
    qint64 modifiedNs = 0;
    qint64 changedNs = 0;
    /// No further change can have this same state. False when the file was changed so recently
    /// that the clock of its time stamps may not have moved since.
    bool isFinal = false;

    [[nodiscard]] bool isSameAs(const struct stat& status) const;
};

/// The state of a file whose bytes are read now, or were read since this moment.
[[nodiscard]] FileState stateWhenRead(const struct stat& status);

class IniFile
{
public:
    enum class Access
    {
        Read,
        Change, // creates a missing file
    };
    enum class Kind
    {
        Unknown, // looked at before it is opened: opening a device can have effects
        Regular, // as far as the caller knows
    };
    /// Opens and locks the file; when another process replaced it meanwhile, the new one. Nothing
    /// when that fails or it is no regular file; errno says why.
    [[nodiscard]] static std::optional<IniFile> open(const QByteArray& path, Access access,
                                                     Kind kind = Kind::Unknown);

    /// As it was when the lock had been taken.
    [[nodiscard]] const struct stat& status() const { return m_status; }

    struct Content
    {
        QByteArray bytes;
        FileState state;
    };
    /// Nothing when reading fails or the file is too large to be held.
    [[nodiscard]] std::optional<Content> read() const;

    /// Writes bytes behind the present ones. A kill leaves whole lines only.
    [[nodiscard]] bool append(qint64 size, QByteArrayView bytes) const;
    /// Puts a new file in the place of this one, owner, mode and symbolic links kept.
    [[nodiscard]] bool replaceWith(QByteArrayView bytes);
    /// The state after our own writing; nothing when it cannot be told from a later one.
    [[nodiscard]] std::optional<FileState> stateAfterWriting() const;

private:
    IniFile(QByteArray path, Descriptor file);

    [[nodiscard]] bool isAtItsPath();
    [[nodiscard]] bool appendLines(qint64 offset, QByteArrayView bytes) const;

    QByteArray m_path;
    Descriptor m_file;
    struct stat m_status = {};
};

} // namespace orvanta
