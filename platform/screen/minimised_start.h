// Starting a program minimised, where the display system lets somebody else do that.
#pragma once

#include <QtGlobal>

namespace orvanta {

/// Minimises the first window that a program started by startCompanion shows, or one of its own
/// children; gives up after ten seconds. companion: its process id. Only under X11 can a program do
/// that with another's window; elsewhere the window comes as it is.
void minimiseFirstWindow(qint64 companion);

} // namespace orvanta
