// Measurements of windows that need no screen run where there is none, too.
#pragma once

#include <QByteArray>

namespace orvanta::bench {

/// Before the application is made.
inline void useNoDisplayWhereThereIsNone()
{
    const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
    if (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

} // namespace orvanta::bench
