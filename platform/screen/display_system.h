// Which display system the program uses, where a session has two.
#pragma once

#include <QByteArray>
#include <QProcessEnvironment>

#include <functional>

namespace orvanta {

/// What QT_QPA_PLATFORM should say in this environment, several in their order; empty to leave the
/// choice to the toolkit, as the user's own choice does. Only in GNOME is the second one asked.
[[nodiscard]] QByteArray preferredPlatforms(const QProcessEnvironment& environment,
                                            const std::function<bool()>& shellEnlargesX11);

/// Whether a window that appears is given the keyboard, whatever it asks for.
[[nodiscard]] bool appearingTakesKeyboard();

/// Whether a program can keep a window above those of others.
[[nodiscard]] bool canKeepOnTop();

} // namespace orvanta
