#include "core/log.h"

namespace orvanta {

Q_LOGGING_CATEGORY(logStartup, "orvanta.startup", QtCriticalMsg)
Q_LOGGING_CATEGORY(logPlaylist, "orvanta.playlist", QtCriticalMsg)
Q_LOGGING_CATEGORY(logPlayback, "orvanta.playback", QtCriticalMsg)
Q_LOGGING_CATEGORY(logErrors, "orvanta.errors", QtCriticalMsg)
Q_LOGGING_CATEGORY(logDesktop, "orvanta.desktop", QtCriticalMsg)

} // namespace orvanta
