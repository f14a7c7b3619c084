// Saving what is open after it was edited: packets to their files, a group with its members.
#pragma once

#include "model/module1.h"

#include <QString>

#include <vector>

namespace orvanta {

/// The two ends of a document's name that saving tells apart.
[[nodiscard]] bool isGroupPath(const QString& path);

/// A path of a document in this folder, so that it means the same in a document elsewhere; as it
/// is where it does already, or there is no folder.
[[nodiscard]] QString absolutePathText(const QString& path, const QString& folder);

/// Whether two entries say the same of their clips and brakes.
[[nodiscard]] bool isSamePacket(const PlaylistEntry& a, const PlaylistEntry& b);

/// Interface thread only.
class LessonSaving
{
public:
    explicit LessonSaving(PlaylistState& playlist, std::vector<PlaylistEntry> saved = {});

    /// No file holds what is open.
    void forget() { m_saved.clear(); }
    /// What is open now is what its files hold.
    void begin();

    /// Whether saving needs to be told where to: there is no document, or it is a packet and there
    /// are several now.
    [[nodiscard]] bool needsTarget() const;
    /// Whether what is open fits into one packet file; else it takes a group.
    [[nodiscard]] bool fitsPacket() const { return m_playlist.PlaylistCount == 1; }

    /// Writes what has changed. In a group, packets that have no file get one beside it. Elsewhere
    /// than where it came from, the files it came from stay as they are, and relative paths become
    /// absolute ones. Raises 75 where a file cannot be written: what was written before it is
    /// saved, the rest is not; elsewhere, what is open stays with the files it came from. 5 where
    /// several packets are to go into one packet file.
    void save(const QString& target);

    /// What its files held when it was opened or saved last.
    [[nodiscard]] const std::vector<PlaylistEntry>& saved() const { return m_saved; }

private:
    void write(const QString& target);
    void saveOnePacket(PlaylistEntry& packet, const QString& target);
    void saveGroupTo(const QString& target);
    [[nodiscard]] bool isAsSaved(const PlaylistEntry& packet) const;
    [[nodiscard]] QString fileFor(const PlaylistEntry& packet, const QString& group) const;

    PlaylistState& m_playlist;
    std::vector<PlaylistEntry> m_saved;
};

} // namespace orvanta
