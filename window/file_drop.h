// Files dragged onto the main window's lists.
#pragma once

#include <QStringList>

class QDropEvent;

namespace orvanta {

/// Anything that names files is welcome; they are only read.
void welcomeFiles(QDropEvent& drag);

/// Takes what is dropped: the files' paths.
[[nodiscard]] QStringList takeFiles(QDropEvent& drop);

} // namespace orvanta
