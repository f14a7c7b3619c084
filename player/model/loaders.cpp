#include "player/model/loaders.h"

#include "core/group_file.h"
#include "core/log.h"
#include "core/packet_file.h"
#include "core/paths.h"
#include "platform/media_locator.h"
#include "player/model/tree_lines.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>
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
}

enum class Placing
{
    Replace,
    Append,
};

static void place(PlaylistState& playlist, std::vector<PlaylistEntry>&& packets, Placing placing)
{
    if (placing == Placing::Replace) {
        clearPlaylist(playlist);
    }
    appendPackets(playlist, std::move(packets));
}

/// A group without a readable count changes nothing; after that, what was read stays.
static void loadGroup(PlaylistState& playlist, const QString& path, Placing placing)
{
    const QString folder = folderOfPath(path);
    const auto find = [&](const QString& pathText) { return locateFile(pathText, folder); };
    std::vector<PlaylistEntry> packets;
    try {
        readGroupInto(packets, path, find);
    } catch (const RuntimeError&) {
        if (!packets.empty()) {
            place(playlist, std::move(packets), placing);
            playlist.PacketFolder = folder;
        }
        throw;
    }
    place(playlist, std::move(packets), placing);
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
    appendPackets(playlist, std::move(packets));
    return playlist.PlaylistCount;
}

void appendPacket(PlaylistState& playlist, const QString& path)
{
    PlaylistEntry& entry = playlist.packet(appendEmptyPacket(playlist));
    entry.Folder = folderOfPath(path);
    playlist.PacketFolder = entry.Folder;
    readPacketInto(entry, path);
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

/// Null for a name that no text can hold.
static QString textOfName(const std::string& bytes)
{
    const QByteArray raw = QByteArray::fromStdString(bytes);
    QString text = QFile::decodeName(raw);
    if (QFile::encodeName(text) == raw) {
        return text;
    }
    qCInfo(logErrors) << "a file name that is no text is left out:" << raw;
    return {};
}

using Patterns = std::vector<QRegularExpression>;

static Patterns patternsOf(const QString& list)
{
    Patterns patterns;
    for (const QString& pattern : list.split(u';', Qt::SkipEmptyParts)) {
        patterns.push_back(QRegularExpression::fromWildcard(pattern, Qt::CaseInsensitive));
    }
    return patterns;
}

static bool matchesAny(const Patterns& patterns, const QString& name)
{
    return std::any_of(patterns.begin(), patterns.end(), [&](const QRegularExpression& pattern) {
        return pattern.match(name).hasMatch();
    });
}

static bool isListed(const std::filesystem::directory_entry& entry, const QString& name,
                     const Patterns& patterns)
{
    std::error_code ignored;
    return !name.isNull() && !name.startsWith(u'.') && entry.is_regular_file(ignored) &&
           matchesAny(patterns, name);
}

static bool comesBefore(const QString& a, const QString& b)
{
    const int order = QString::compare(a, b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
}

QStringList filesOfFolder(const QString& folder, const QString& pattern)
{
    const Patterns patterns = patternsOf(pattern);
    QStringList files;
    std::error_code error;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const QString name = textOfName(entry->path().filename().string());
        if (isListed(*entry, name, patterns)) {
            files.append(joinPath(folder, name));
        }
    }
    std::sort(files.begin(), files.end(), comesBefore);
    return files;
}

void logLoaded(const PlaylistState& playlist)
{
    qCInfo(logPlaylist, "loaded %d packets, %lld entries", playlist.PlaylistCount.value(),
           static_cast<long long>(playlist.entryCount()));
}

} // namespace orvanta
