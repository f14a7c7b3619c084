// What the text of a path says, whatever system it was written on. Looks at no disk.
#pragma once

#include <QString>
#include <QStringList>

namespace orvanta {

/// Where a path text begins.
enum class PathRoot
{
    Folder,  // nowhere: it is meant below the folder of its document
    Linux,   // "/home/a.avi"
    Drive,   // "C:\Clips\a.avi"
    Network, // "\\server\share\a.avi", or "\Clips\a.avi" of no certain drive
};

struct PathText
{
    PathRoot root = PathRoot::Folder;
    QChar drive;          // in lower case; null for other roots
    QStringList parts;    // folders and the file's name, without "." and with ".." carried out
    bool escapes = false; // ".." leads above where it begins
};

/// Takes a text apart. One that begins with "/" is separated by "/" alone.
[[nodiscard]] PathText pathTextOf(const QString& text);

/// False for what is empty or holds a NUL, and for addresses like "http://host/a.avi".
[[nodiscard]] bool canNameAFile(const QString& pathText);

/// "C:\Clips\a.avi"; but "A: intro.mp3" is a name.
[[nodiscard]] bool hasDriveLetter(const QString& pathText);

/// For comparing names without regard to letter case and to how accents are put together.
[[nodiscard]] QString foldedName(const QString& name);

/// Whether two names are the same in any case.
[[nodiscard]] bool isSameName(const QString& one, const QString& other);

/// How many parts at the end are the same in both, in any case.
[[nodiscard]] qsizetype commonTail(const QStringList& one, const QStringList& other);

/// The text as it would be had its document been read by another of the usual 8-bit code pages,
/// the likeliest first. Empty for plain letters, and where no page has them.
[[nodiscard]] QStringList otherSpellings(const QString& text);

} // namespace orvanta
