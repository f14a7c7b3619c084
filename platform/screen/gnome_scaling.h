// What GNOME's shell does with the pictures of X11's programs.
#pragma once

#include <QDBusConnection>

namespace orvanta {

/// Whether the shell enlarges what X11's programs draw, so that it looks blurred: where sizes are
/// counted in units of a screen's scale, and a screen has another scale than 1. In its usual manner
/// it counts pixels, and such programs enlarge themselves. True as well where no shell answers
/// within half a second. Needs no application object.
[[nodiscard]] bool shellEnlargesX11(const QDBusConnection& session);

/// The same, asked on the session's own bus.
[[nodiscard]] bool shellEnlargesX11();

} // namespace orvanta
