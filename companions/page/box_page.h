// The page for browsers of a lesson in a box, with clips converted for it.
#pragma once

#include "companions/cdcreate/box_extra.h"
#include "companions/page/lesson_page.h"

namespace orvanta {

/// Makes index.html, and beside each clip that browsers cannot play another one that they can; the
/// clip itself stays. A clip that cannot be converted is logged, and the page says so to who gets
/// there; so are all of them where ffmpeg is not installed. options: what the page begins with.
/// Raises BoxProblem::Stopped, and NoRoom when there is none for the conversion.
[[nodiscard]] MakeExtras boxPage(const PageOptions& options = {});

/// The page of what is in the box, clips as they are; for boxPage, and without it.
[[nodiscard]] PageLesson pageLesson(const BoxPlan& plan, const PageOptions& options);

} // namespace orvanta
