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
    QString target;            // absolute
    bool skipsMissing = false; // makes a box although something is missing
    bool replaces = false;     // an earlier box at the target
    MakeExtras extras = {};    // null: nothing but the lesson
};

/// Writes the box, reads it back and puts it in its place: whole, or not at all. Raises BoxFailure;
/// the lesson's own files are only read.
void writeBox(BoxPlan plan, const BoxOrder& order, BoxWork& work);

} // namespace orvanta
