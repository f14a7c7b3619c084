// From key events to the keys of the tables, whatever the keyboard's layout.
#pragma once

#include <QChar>
#include <Qt>

#include <optional>
#include <span>

class QKeyEvent;

namespace orvanta {

/// The keys that every player has, beside the table of letters.
enum class CommonKey
{
    TogglePlay,
    StepBack,
    StepForward,
    ToggleFullScreen,
    LeaveFullScreen,
    NextTextLevel,
    OpenFile,
    OpenClips,
    Find,
    FindAgain,
    Help,
    Quit,
    Stop,
    NextClip,
    PreviousClip,
};

/// Seconds by which StepBack and StepForward move.
inline constexpr double kKeyStep = 5.0;

struct CommonKeyRow
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    CommonKey what;
};

/// The whole table, for dispatch, help and tests.
[[nodiscard]] std::span<const CommonKeyRow> commonKeys();

/// Letters with Ctrl are those of the physical keys under a layout without Latin letters. A toggle
/// that is held down counts once.
[[nodiscard]] std::optional<CommonKey> commonKey(const QKeyEvent& event);

/// The Latin letter on the physical key, for keyboard layouts that type no Latin letters: typed is
/// kept when it is ASCII; scanCode as X11 and Wayland count them (evdev + 8). It keeps the case of
/// the typed letter.
[[nodiscard]] QChar latinLetter(QChar typed, quint32 scanCode);

/// The character that a key types, as the key tables read it: the Latin letter of the physical
/// key under other layouts. Null for keys that type nothing or are held with Ctrl, Alt or Meta.
[[nodiscard]] QChar typedCharacter(const QKeyEvent& event);

} // namespace orvanta
