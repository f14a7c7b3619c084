// Gathers what a lesson consists of.
#pragma once

#include "companions/cdcreate/box_plan.h"
#include "companions/cdcreate/box_work.h"

#include <QStringList>

namespace orvanta {

/// Every packet, clip and picture of these packets and groups, each with a name in the box, the
/// same file once; and the documents as they are to be there: one group, and its packets. Looks at
/// files and opens none but documents. What is missing keeps its line in the documents: the file
/// can be put into the box later. Takes its time; raises BoxProblem::Stopped alone.
[[nodiscard]] BoxPlan gatherLesson(const QStringList& documents, BoxWork& work);

} // namespace orvanta
