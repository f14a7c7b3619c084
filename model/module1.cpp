#include "model/module1.h"

#include <utility>

namespace orvanta {

PlaylistEntry& PlaylistState::packet(Int16 p)
{
    return const_cast<PlaylistEntry&>(std::as_const(*this).packet(p));
}

const PlaylistEntry& PlaylistState::packet(Int16 p) const
{
    if (p < 1 || p.index() > Playlist.size()) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return Playlist[p.index() - 1];
}

QStringList PlaylistState::documents() const
{
    if (!Document.isEmpty()) {
        return {Document};
    }
    QStringList files;
    for (const PlaylistEntry& entry : Playlist) {
        if (entry.Origin && !entry.Origin->file.isEmpty()) {
            files.append(entry.Origin->file);
        }
    }
    files.removeDuplicates();
    return files;
}

qsizetype PlaylistState::entryCount() const
{
    qsizetype count = 0;
    for (const PlaylistEntry& entry : Playlist) {
        count += entry.ClipCount.value();
    }
    return count;
}

} // namespace orvanta
