#include "model/missing_files.h"

#include "core/paths.h"
#include "platform/process/path_text.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace orvanta {

// Between two questions whether to go on.
constexpr int kPatienceMs = 50;
// More than so many folders have not moved: their texts only happen to end alike.
constexpr std::size_t kMostFolders = 20;

/// A packet that its group names, and that the group's reading has not found.
static bool isOfGroup(const PlaylistEntry& packet)
{
    return packet.Origin && !packet.Origin->member.isEmpty();
}

static void addFiles(std::vector<NamedFile>& files, const PlaylistEntry& packet, int number,
                     const LessonFolders& folders)
{
    if (isOfGroup(packet)) {
        files.push_back({number, 0, packet.Origin->file, {.packet = packet.PictureFolder}, true});
    }
    if (packet.HasBrakes) {
        files.push_back({number, 0, packet.MediaFile, folders, false});
        return;
    }
    int clip = 0;
    for (const ClipEntry& entry : packet.Clips) {
        files.push_back({number, ++clip, entry.Path, folders, false});
    }
}

std::vector<NamedFile> namedFiles(const PlaylistState& playlist)
{
    std::vector<NamedFile> files;
    files.reserve(static_cast<std::size_t>(playlist.entryCount()));
    int number = 0;
    for (const PlaylistEntry& packet : playlist.Playlist) {
        const bool loose = packet.Folder.isEmpty();
        addFiles(files, packet, ++number,
                 {loose ? playlist.PacketFolder : packet.Folder, packet.PictureFolder});
    }
    return files;
}

/// With a look through the folders if need be, which ends when it is not wanted any more.
static FoundFile foundPatiently(const NamedFile& file, const GoOn& goesOn)
{
    FoundFile found = findMediaFile(file.text, file.folders);
    if (found.finding != Finding::Nowhere) {
        return found;
    }
    while (goesOn() && mayBeFoundLater(file.text, file.folders, kPatienceMs)) {
    }
    return findMediaFile(file.text, file.folders);
}

std::vector<MissingFile> missingFiles(const std::vector<NamedFile>& files, const GoOn& goesOn)
{
    std::vector<MissingFile> missing;
    for (const NamedFile& file : files) {
        if (!goesOn()) {
            break;
        }
        if (const FoundFile found = foundPatiently(file, goesOn); found.file.isEmpty()) {
            missing.push_back({file, found.finding == Finding::Refused});
        }
    }
    return missing;
}

/// The folder of a text without as many parts at its end; a relative text is meant below its
/// document's.
static QString cutText(const NamedFile& file, qsizetype parts)
{
    QString text = file.text;
    if (pathTextOf(text).root == PathRoot::Folder) {
        text = QDir(file.folders.packet).absoluteFilePath(pathTextOf(text).parts.join(u'/'));
    }
    for (; parts > 0; --parts) {
        text = folderOfPath(text);
        const bool isDrive = text.size() == 3 && hasDriveLetter(text);
        if (text.size() > 1 && !isDrive) {
            text.chop(1);
        }
    }
    return text;
}

/// What the text and the file have in common at their ends has not changed.
static MovedFolder movedFolder(const NamedFile& named, const QString& file)
{
    const QStringList there = pathTextOf(file).parts;
    const qsizetype tail = commonTail(pathTextOf(named.text).parts, there);
    return {cutText(named, tail), u'/' + there.mid(0, there.size() - tail).join(u'/')};
}

static void addOnce(std::vector<MovedFolder>& folders, const MovedFolder& folder)
{
    const bool isKnown = std::any_of(folders.begin(), folders.end(), [&](const MovedFolder& known) {
        return known.from == folder.from && known.to == folder.to;
    });
    const bool isRoot = folder.from.isEmpty() || folder.from == u"/";
    if (!isKnown && !isRoot && folders.size() < kMostFolders) {
        folders.push_back(folder);
    }
}

std::vector<MovedFolder> foldersMovedTo(const QString& folder,
                                        const std::vector<MissingFile>& missing, const GoOn& goesOn)
{
    std::vector<MovedFolder> folders;
    for (const MissingFile& one : missing) {
        if (!goesOn()) {
            break;
        }
        const NamedFile there = {
            one.file.packet, one.file.clip, one.file.text, {.packet = folder}, false};
        if (const FoundFile found = foundPatiently(there, goesOn); !found.file.isEmpty()) {
            addOnce(folders, movedFolder(one.file, found.file));
        }
    }
    return folders;
}

} // namespace orvanta
