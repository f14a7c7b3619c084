// The fixture of the tests that steer a long clip: keys, full screen, tray, media controls.
#pragma once

#include "tests/e2e/support/end_to_end.h"
#include "tests/e2e/support/mpris_client.h"

namespace orvanta::e2e {

/// Places of keys on the keyboard, by the letters that they have on a Latin one. X11 key codes.
enum class Key
{
    Minus = 20,
    Plus = 21, // with shift
    Q = 24,
    R = 27,
    T = 28,
    O = 32,
    P = 33,
    S = 39,
    F = 41,
    K = 45,
    L = 46,
    B = 56,
    N = 57,
    M = 58,
};

class Steered : public EndToEnd
{
protected:
    using EndToEnd::EndToEnd;

    static constexpr double kLength = 200; // seconds of the clip
    const QString kMainWindow = QStringLiteral("!Orvanta!");
    const QString kVideoWindow = QStringLiteral("video200"); // called as its clip

    /// Plays one packet of the long clip, called "Lesson", until its picture is in sight.
    void playLesson();
    void press(Key key, bool shift = false) { desktop.pressPlace(static_cast<int>(key), shift); }
    void pressUpper(Key key) { press(key, true); }

    [[nodiscard]] bool becomes(const QString& status);
    [[nodiscard]] bool isPlaying() { return controls.status() == QStringLiteral("Playing"); }
    /// Waits until the position lies in these seconds.
    [[nodiscard]] bool comesBetween(double from, double to);
    [[nodiscard]] bool volumeBecomes(int percent);
    /// Makes the clip stand still at these seconds, then run again from there.
    void goTo(double seconds);
    /// Where a window's contents are, in sight.
    [[nodiscard]] QRect videoPlace() { return desktop.placeOf(kVideoWindow); }
    [[nodiscard]] bool videoFillsScreen();
    [[nodiscard]] bool videoIsInWindow();

    MprisClient controls{desktop};
};

} // namespace orvanta::e2e
