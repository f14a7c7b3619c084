#include "model/loaders.h"

#include "core/folder_contents.h"
#include "core/group_file.h"
#include "core/log.h"
#include "core/packet_file.h"
#include "core/paths.h"
#include "model/tree_lines.h"
#include "platform/process/media_locator.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace orvanta {

/// Raises 6 before anything has changed.
static Int16 countAfter(Int16 count, std::size_t added)
{
    return count + Int16(static_cast<qint64>(added));
}

static void appendPackets(PlaylistState& playlist, std::vector<PlaylistEntry>&& packets)
{
    playlist.PlaylistCount = countAfter(playlist.PlaylistCount, packets.size());
    std::move(packets.begin(), packets.end(), std::back_inserter(playlist.Playlist));
    ++playlist.revision;
}

void clearPlaylist(PlaylistState& playlist)
{
    ++playlist.revision;
    playlist.Playlist.clear();
    playlist.PlaylistCount = 0;
    playlist.Document.clear();
    beginSearches();
}

/// What was opened into an empty playlist is all that is open; with anything more there is no one
/// document.
static QString documentOf(const PlaylistState& playlist, const QString& path)
{
    return playlist.PlaylistCount == 0 ? QFileInfo(path).absoluteFilePath() : QString();
}

void openFolderOf(PlaylistState& playlist, const QString& path)
{
    const QString folder = folderOfPath(path);
    if (!QFileInfo(folder).isDir()) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    playlist.PacketFolder = folder;
}

enum class Placing
{
    Replace,
    Append,
};

static void place(PlaylistState& playlist, std::vector<PlaylistEntry>&& packets, Placing placing,
                  const QString& path)
{
    if (placing == Placing::Replace) {
        clearPlaylist(playlist);
    }
    const QString document = documentOf(playlist, path);
    appendPackets(playlist, std::move(packets));
    playlist.Document = document;
}

namespace {

/// Finds the packets of a group. What is deep below the group's folder is waited for once, a moment
/// only: the windows stand still meanwhile.
class MemberSearch
{
public:
    explicit MemberSearch(const QString& folder)
        : m_folders{.packet = folder}
    {}

    [[nodiscard]] QString locate(const QString& pathText)
    {
        QString file = findMediaFile(pathText, m_folders).file;
        if (file.isEmpty() && !std::exchange(m_hasWaited, true) &&
            !mayBeFoundLater(pathText, m_folders, kPatienceMs)) {
            file = findMediaFile(pathText, m_folders).file;
        }
        return file;
    }

private:
    static constexpr int kPatienceMs = 500;

    LessonFolders m_folders;
    bool m_hasWaited = false;
};

} // namespace

/// How many entries may come to those that stay open.
static qsizetype roomFor(const PlaylistState& playlist, Placing placing)
{
    return placing == Placing::Replace ? kMostEntries : kMostEntries - playlist.entryCount();
}

/// A group without a readable count changes nothing, nor does one that is too large; after that,
/// what was read stays.
static void loadGroup(PlaylistState& playlist, const QString& path, Placing placing)
{
    const QString folder = folderOfPath(path);
    const auto find = [search = MemberSearch(folder)](const QString& pathText) mutable {
        return search.locate(pathText);
    };
    std::vector<PlaylistEntry> packets;
    try {
        readGroupInto(packets, path, find, roomFor(playlist, placing));
    } catch (const RuntimeError& error) {
        if (!packets.empty() && error.number() != ErrorNumber::OutOfMemory) {
            place(playlist, std::move(packets), placing, path);
            playlist.PacketFolder = folder;
        }
        throw;
    }
    place(playlist, std::move(packets), placing, path);
    playlist.PacketFolder = folder;
}

void appendGroup(PlaylistState& playlist, const QString& path)
{
    loadGroup(playlist, path, Placing::Append);
}

void OpenGroup(PlaylistState& playlist, const QString& path)
{
    loadGroup(playlist, path, Placing::Replace);
}

Int16 appendEmptyPacket(PlaylistState& playlist)
{
    std::vector<PlaylistEntry> packets(1);
    packets.front().Title = QStringView(kPacketTitle).toString();
    playlist.Document.clear();
    appendPackets(playlist, std::move(packets));
    return playlist.PlaylistCount;
}

void appendPacketRead(PlaylistState& playlist, const ReadPacket& read)
{
    const QString document = playlist.Document;
    const QString folder = playlist.PacketFolder;
    const qsizetype room = roomFor(playlist, Placing::Append);
    appendEmptyPacket(playlist);
    try {
        read(playlist.Playlist.back(), room);
    } catch (const RuntimeError& error) {
        if (error.number() == ErrorNumber::OutOfMemory) {
            playlist.Playlist.pop_back();
            playlist.PlaylistCount -= 1;
            playlist.Document = document;
            playlist.PacketFolder = folder;
        }
        throw;
    }
}

void appendPacket(PlaylistState& playlist, const QString& path)
{
    const QString document = documentOf(playlist, path);
    appendPacketRead(playlist, [&](PlaylistEntry& entry, qsizetype room) {
        playlist.Document = document;
        entry.Folder = folderOfPath(path);
        playlist.PacketFolder = entry.Folder;
        readPacketInto(entry, path, room);
    });
}

void OpenPacket(PlaylistState& playlist, const QString& path)
{
    clearPlaylist(playlist);
    appendPacket(playlist, path);
}

void appendClip(PlaylistState& playlist, Int16 p, const QString& path, const QString& text)
{
    PlaylistEntry& packet = playlist.packet(p);
    packet.ClipCount += 1;
    playlist.Document.clear();
    packet.Clips.push_back({.Time = {}, .Text = text, .Path = path});
    ++playlist.revision;
}

void OpenFiles(PlaylistState& playlist, const QStringList& paths)
{
    const Int16 count = countAfter(0, static_cast<std::size_t>(paths.size()));
    clearPlaylist(playlist);
    const Int16 p = appendEmptyPacket(playlist);
    playlist.packet(p).Clips.reserve(count.index());
    for (const QString& path : paths) {
        appendClip(playlist, p, path, clipNameOfPath(path));
    }
}

QStringList filesOfFolder(const QString& folder, const QString& pattern)
{
    QStringList files = namesOfFiles(folder, pattern);
    for (QString& name : files) {
        name = joinPath(folder, name);
    }
    return files;
}

void logLoaded(const PlaylistState& playlist)
{
    qCInfo(logPlaylist, "loaded %d packets, %lld entries", playlist.PlaylistCount.value(),
           static_cast<long long>(playlist.entryCount()));
}

} // namespace orvanta
