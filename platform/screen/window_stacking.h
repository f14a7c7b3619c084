// Bringing windows to the front and keeping them on top, where the display system allows it.
#pragma once

#include <QString>

class QWindow;

namespace orvanta {

/// One activation request; never a loop. activationToken: from the launch that asks, may be empty.
void bringToFront(QWindow* window, const QString& activationToken = {});

/// The token with which the desktop started this process; empty when there is none. Ask before the
/// application object exists: it takes the token out of the environment.
[[nodiscard]] QString launchActivationToken();

/// Native always-on-top state, without re-creating the window. Logged where it does not exist.
void setAlwaysOnTop(QWindow* window, bool onTop);

/// Puts one window directly behind another, once.
void stackBehind(QWindow* window, QWindow* above);

} // namespace orvanta
