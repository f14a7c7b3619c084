// Which files of what is open cannot be found, and where those of a folder that has moved lie now.
#pragma once

#include "model/module1.h"
#include "platform/process/known_places.h"
#include "platform/process/media_locator.h"

#include <functional>
#include <vector>

namespace orvanta {

/// One file of what is open.
struct NamedFile
{
    int packet = 0; // from 1
    int clip = 0;   // from 1; 0: the packet's own file, or the one that its brakes are in
    QString text;   // as written
    LessonFolders folders;
    bool isPacket = false; // a packet of a group: without its file it has no lines
};

/// Every file that what is open names, in its order: the clips, of a packet with brakes its one
/// file, of a group its packets. Looks at no disk.
[[nodiscard]] std::vector<NamedFile> namedFiles(const PlaylistState& playlist);

/// One that was not found.
struct MissingFile
{
    NamedFile file;
    bool isRefused = false; // it is there and is no file that could be played, or an address
};

/// Asks whether to go on; called often.
using GoOn = std::function<bool()>;

/// Those that cannot be found. A folder is looked through only for what is not where it should be.
/// Any thread; takes its time when much is missing.
[[nodiscard]] std::vector<MissingFile> missingFiles(const std::vector<NamedFile>& files,
                                                    const GoOn& goesOn);

/// Looks for files below a folder that somebody has named. Returns the folders that have moved
/// there, as the texts write them, each once; empty when nothing is there. Any thread.
[[nodiscard]] std::vector<MovedFolder>
foldersMovedTo(const QString& folder, const std::vector<MissingFile>& missing, const GoOn& goesOn);

} // namespace orvanta
