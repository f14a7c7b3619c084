// Names of files in a box: every system that a box may be read on takes them.
#pragma once

#include <QSet>
#include <QString>

namespace orvanta {

/// The longest name of a file, UTF-16 units with its ending: what Joliet holds.
inline constexpr int kLongestBoxName = 64;

/// A file's name as Windows, Joliet and Linux all take it, as like the wanted one as can be: no
/// signs that mean something there, no name of a device, no blank or dot at its end. The ending is
/// kept when the name has to be cut.
[[nodiscard]] QString safeName(const QString& wanted);

/// Gives each name once, whatever the case of its letters.
class BoxNames
{
public:
    /// A free name like the wanted one, with its folder in front: "media/clip.mp4". An empty folder
    /// is the box itself.
    [[nodiscard]] QString take(const QString& folder, const QString& wanted);

private:
    QSet<QString> m_taken; // whole names, folded
};

} // namespace orvanta
