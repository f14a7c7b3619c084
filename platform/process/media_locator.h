// Turns the path text of a clip, packet or picture into a file that exists.
#pragma once

#include <QString>

namespace orvanta {

/// Where a text belongs: absolute folders, with or without the separator at their end.
struct LessonFolders
{
    QString packet = {}; // of the document that names the file
    QString group = {};  // of the group that names the packet; empty: none
};

/// How a text and a file came together.
enum class Finding
{
    Nowhere,
    AsWritten, // also by the drive table
    Elsewhere, // by letter case, by its name, or by where the packet lies
    Refused,   // what it names is there and is no file that could be played, or is an address
};

struct FoundFile
{
    QString file; // absolute; empty unless it was found
    Finding finding = Finding::Nowhere;
};

/// How much time the search for a file may take.
enum class SearchDepth
{
    AtOnce,  // what lies deep below the folders counts once it has been looked through
    Patient, // the folders are looked through if need be: not on the interface thread
};

/// Looks for the file that a path text means; what is stored never changes. Found are regular files
/// alone: URLs, devices, FIFOs, sockets and folders never. In this order: as written; by the drive
/// table and by where the packet lies; by folders that have moved; the same in any letter case; a
/// file of that name in the packet's folder; the longest matching end of the path below the
/// packet's and the group's folder. Of several the newest one. A file found elsewhere is logged.
/// Any thread.
[[nodiscard]] FoundFile findMediaFile(const QString& pathText, const LessonFolders& folders,
                                      SearchDepth depth = SearchDepth::AtOnce);

/// The file alone, at once; empty when there is none.
[[nodiscard]] QString locateFile(const QString& pathText, const QString& packetFolder);

/// Something is opened: what was found out about folders and drives is found out anew.
void beginSearches();

/// Whether looking through the folders might still find a text that was not found at once; begins
/// that, and waits for it so many milliseconds at most. When it is not so, looking again at once
/// says all there is to say.
[[nodiscard]] bool mayBeFoundLater(const QString& pathText, const LessonFolders& folders,
                                   int milliseconds = 0);

/// Whether the text lies on drive A, or the file below the folder that the drive table has for it.
[[nodiscard]] bool isOnDriveA(const QString& pathText);

} // namespace orvanta
