// What a box holds beside the lesson's own files: a page for browsers, for instance.
#pragma once

#include "companions/cdcreate/box_plan.h"
#include "companions/cdcreate/box_work.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace orvanta {

/// A file that is made for the box.
struct BoxExtra
{
    QString nameInBox;          // from BoxPlan::names
    QByteArray content = {};    // unless there is a file
    QString file = {};          // absolute; copied. Empty: content is what goes into the box
    std::shared_ptr<void> keep; // whatever removes the file once the box is written
};

/// Asked once, before anything is written, on the thread that works. Takes names from plan.names.
/// May begin BoxStep::Converting, and raises BoxFailure when it cannot do what was asked.
using MakeExtras = std::function<std::vector<BoxExtra>(BoxPlan& plan, BoxWork& work)>;

} // namespace orvanta
