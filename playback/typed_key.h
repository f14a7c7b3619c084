// From key events to the keys of the table, whatever the keyboard's layout.
#pragma once

#include "playback/commands.h"

#include <QChar>

#include <optional>

class QKeyEvent;

namespace orvanta {

/// Seconds by which StepBack and StepForward move.
inline constexpr double kKeyStep = 5.0;

/// The command of a named key at this place. Letters with Ctrl are those of the physical keys under
/// a layout without Latin letters. A switch that is held down counts once.
[[nodiscard]] std::optional<Command> namedCommand(const QKeyEvent& event,
                                                  KeyPlace place = KeyPlace::Windows);

/// The Latin letter on the physical key, for keyboard layouts that type no Latin letters: typed is
/// kept when it is ASCII; scanCode as X11 and Wayland count them (evdev + 8). It keeps the case of
/// the typed letter.
[[nodiscard]] QChar latinLetter(QChar typed, quint32 scanCode);

/// The character that a key types, as the table of commands reads it: the Latin letter of the
/// physical key under other layouts. Null for keys that type nothing or are held with Ctrl, Alt or
/// Meta.
[[nodiscard]] QChar typedCharacter(const QKeyEvent& event);

} // namespace orvanta
