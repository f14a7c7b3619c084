// Log categories. All are off by default; QT_LOGGING_RULES="orvanta.*=true" turns them on.
#pragma once

#include <QLoggingCategory>

namespace orvanta {

Q_DECLARE_LOGGING_CATEGORY(logStartup)  // orvanta.startup
Q_DECLARE_LOGGING_CATEGORY(logPlaylist) // orvanta.playlist
Q_DECLARE_LOGGING_CATEGORY(logPlayback) // orvanta.playback
Q_DECLARE_LOGGING_CATEGORY(logErrors)   // orvanta.errors: every swallowed error
Q_DECLARE_LOGGING_CATEGORY(logDesktop)  // orvanta.desktop: what the desktop does not provide

} // namespace orvanta
