// A new file beside an earlier one, which takes its place when it is complete.
#pragma once

#include "core/descriptor.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace orvanta {

/// The hidden sibling of a file has one name, so that what a killed writer left is removed by the
/// next one. It is locked as long as it is open: one writer at a time.
class SiblingFile
{
public:
    /// target: a path without symbolic links in its last part. Nothing when the sibling cannot be
    /// created or another writer is at it; errno says why.
    [[nodiscard]] static std::optional<SiblingFile> create(const QByteArray& target);

    [[nodiscard]] bool writeAt(qint64 offset, QByteArrayView bytes) const
    {
        return m_file.writeAt(offset, bytes);
    }
    /// Cuts it at this size.
    [[nodiscard]] bool cutAt(qint64 size) const;

    /// Gives it owner and mode of the earlier file, as far as the user may. Before that it has the
    /// mode of any new file, so nothing private may be in it yet.
    void takeOwnership(const struct stat& earlier) const;
    /// Brings the content to the disk.
    [[nodiscard]] bool sync() const;
    /// Takes the target's place. The descriptor stays open and locked.
    [[nodiscard]] bool replaceTarget();
    /// Brings the folder's entries to the disk.
    void syncFolder() const;
    void remove();

    /// The descriptor, for going on with the file after it has taken the target's place.
    [[nodiscard]] Descriptor takeDescriptor() { return std::move(m_file); }

private:
    SiblingFile(QByteArray target, QByteArray path, Descriptor file);

    [[nodiscard]] bool isAtItsPath() const;

    QByteArray m_target;
    QByteArray m_path;
    Descriptor m_file;
};

/// The file's path with symbolic links followed; the path itself where there is no file yet.
[[nodiscard]] QByteArray realPath(const QByteArray& path);

} // namespace orvanta
