// Whether the files that packets and groups name are there, and writing down where they are.
#pragma once

#include "core/document_saving.h"
#include "platform/process/media_locator.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace orvanta {

/// What a path text of a document stands for.
enum class CheckedPart
{
    Clip,    // also the one media file of a packet with brakes
    Packet,  // of a group
    Picture, // of a packet in a group
};

struct CheckedText
{
    CheckedPart part = CheckedPart::Clip;
    int number = 0; // of the line, from 1
    QString text;   // as the document has it
    FoundFile found;
};

/// The worst that is to be said of a document. The numbers are exit statuses.
enum class CheckResult
{
    AllFound = 0,
    SomeMissing = 1,
    NotChecked = 2, // it could not be read, or not be written
    NoDocument = 3, // no packet and no group
};

struct CheckedDocument
{
    QString document;
    CheckResult result = CheckResult::AllFound;
    bool isWritten = false; // anew, with what was found
    std::vector<CheckedText> texts;
};

struct CheckWishes
{
    bool fixes = false;         // paths of files found elsewhere are written into the documents
    bool makesRelative = false; // the paths of all that is below a document's folder, too
};

/// Checks packets, groups with their packets, and all of them below folders; each document once.
/// Takes its time: not on the interface thread.
[[nodiscard]] std::vector<CheckedDocument> checkDocuments(const QStringList& filesAndFolders,
                                                          const CheckWishes& wishes);

/// Whether the file is a packet or a group that can be read. Looks at its kind before opening it.
[[nodiscard]] bool isLessonDocument(const QString& file);

/// A group's members without their packets: these are read one by one, so that one that is spoilt
/// spoils no other. Raises 13 or 6.
[[nodiscard]] std::vector<GroupMember> groupMembers(const QString& file);

/// The text by which a document in this folder can name a file below it without naming the folder;
/// empty for a file elsewhere, and where a reader would take the text for another file.
[[nodiscard]] QString relativePathText(const QString& folder, const QString& file);

/// The worst of all; with none at all there was no document.
[[nodiscard]] CheckResult worstOf(const std::vector<CheckedDocument>& documents);

} // namespace orvanta
