// The forms that a box may have, each written and read back.
#pragma once

#include "companions/cdcreate/box_place.h"
#include "companions/cdcreate/box_plan.h"
#include "companions/cdcreate/box_work.h"

#include <vector>

namespace orvanta {

/// All that goes into a box.
struct BoxContents
{
    QString title;
    std::vector<BoxFile> files;
    std::vector<BoxDocument> documents;

    [[nodiscard]] qint64 fileBytes() const
    {
        qint64 sum = 0;
        for (const BoxFile& file : files) {
            sum += file.size;
        }
        return sum;
    }
};

/// Each leaves place.box() whole, on the disk and read back, and raises BoxFailure.
void writeFolder(const BoxContents& contents, const BoxPlace& place, BoxWork& work);
void writeImage(const BoxContents& contents, const BoxPlace& place, BoxWork& work);
void writeZip(const BoxContents& contents, const BoxPlace& place, BoxWork& work);

/// Reads an image or a ZIP and compares all of it. Raises Different when anything lacks, differs or
/// is there besides.
void checkArchive(const BoxContents& contents, const QString& archive, BoxWork& work);

/// Whether both lie on one disk, where what was copied is remembered as it is there. On another one
/// it is read from that.
[[nodiscard]] bool isOnOneDisk(const BoxContents& contents, const QString& path);

} // namespace orvanta
