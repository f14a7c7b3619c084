// Makes a box of a gathered lesson.
#pragma once

#include "companions/cdcreate/box_extra.h"
#include "companions/cdcreate/box_plan.h"
#include "companions/cdcreate/box_work.h"

#include <QString>

namespace orvanta {

enum class BoxKind
{
    Folder,
    Image,
    Zip,
};

/// By the target's ending: ".iso", ".zip", anything else is a folder.
[[nodiscard]] BoxKind boxKind(const QString& target);

struct BoxOrder
{
    QString target;            // absolute; of a disc any file beside which there is room for it
    QString drive = {};        // burns a disc in this drive, and keeps nothing at the target
    bool skipsMissing = false; // makes a box although something is missing
    bool replaces = false;     // an earlier box at the target
    MakeExtras extras = {};    // null: nothing but the lesson
};

/// Writes the box, reads it back and puts it in its place: whole, or not at all. A disc is read
/// back, too; what was burnt before a failure is burnt. Raises BoxFailure; the lesson's own files
/// are only read.
void writeBox(BoxPlan plan, const BoxOrder& order, BoxWork& work);

} // namespace orvanta
