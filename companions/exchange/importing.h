// From files of other programs to a lesson.
#pragma once

#include "companions/exchange/lesson.h"

#include <QStringList>

namespace orvanta {

struct ImportOrder
{
    QStringList files;
    QString clip;    // for marks that do not say their clip; empty: the one of their file's name
    QString endText; // of end marks that nobody has given a text
};

/// About a place in a file.
struct FileRemark
{
    QString file;
    Remark remark;
};

struct ImportedLesson
{
    Lesson lesson; // paths are whole where there is such a file
    std::vector<FileRemark> leftOut;
    std::vector<FileRemark> failures; // files of which nothing came
    bool wantsClip = false;           // one of the failures is that a clip has to be chosen
};

/// Reads them all; their packets stand one after the other. Nothing of what lists name is opened
/// but the clip that marks are in, for its length. Any thread.
[[nodiscard]] ImportedLesson importFiles(const ImportOrder& order);

/// A packet with more entries than a document holds, as several; all others as they are.
[[nodiscard]] std::vector<LessonPacket> packetsThatFit(LessonPacket packet);

} // namespace orvanta
