// Where a box comes to be: a hidden folder beside its place, in which it is made.
#pragma once

#include "core/descriptor.h"

#include <QString>

namespace orvanta {

/// Nothing stands under the box's name before the box is whole. The folder goes with its owner;
/// what a killed one has left is removed by the next at the same place.
class BoxPlace
{
public:
    /// target: absolute. Raises Unwritable and NoRoom.
    explicit BoxPlace(const QString& target);
    ~BoxPlace();
    BoxPlace(const BoxPlace&) = delete;
    BoxPlace& operator=(const BoxPlace&) = delete;

    /// Below the hidden folder. "box" is what takes the target's place.
    [[nodiscard]] QString file(const QString& name) const { return m_folder + u'/' + name; }
    [[nodiscard]] QString box() const { return file(QStringLiteral("box")); }

    /// Brings to the disk all that was written on it. Raises Unwritable and NoRoom.
    void sync() const;
    /// Lets the box take its place. replaces: also where there is one; see mayReplace. Raises
    /// Exists, Unwritable.
    void putInPlace(bool replaces);

private:
    void removeLeftOvers() const;
    void create();

    QString m_target;
    QString m_folder;
    Descriptor m_lock;
};

/// Whether a box may be made there at all: nothing is there, or an empty folder; with replaces also
/// an earlier box, or a file where a file is to be. Never a folder that holds anything else.
[[nodiscard]] bool mayReplace(const QString& target, bool isFolder, bool replaces);

} // namespace orvanta
