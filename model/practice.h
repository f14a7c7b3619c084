// How a lesson is practised: tempo, repeats, waiting. Normal values change nothing.
#pragma once

namespace orvanta {

/// As the settings' section "practice" holds it. A value outside its range counts as the nearest
/// one inside it.
struct Practice
{
    static constexpr int kEndless = 0;           // times
    static constexpr int kNoWait = 0;            // wait
    static constexpr int kWaitForKey = -1;       // wait
    static constexpr int kWaitForSeconds = -2;   // wait: as long as seconds says
    static constexpr int kSlowest = 25;          // percent
    static constexpr int kFastest = 200;         // percent
    static constexpr int kMostTimes = 10;        // but for kEndless
    static constexpr int kShortestWait = 50;     // percent of the line's length
    static constexpr int kLongestWait = 300;     // percent of the line's length
    static constexpr int kMostSeconds = 600;     // of a wait
    static constexpr int kSlowestBeginning = 10; // percent of the speed

    int speed = 100;     // percent, 25 to 200
    int times = 1;       // each line is played so often, 1 to 10; 0 endlessly
    int wait = kNoWait;  // after each line: see above, else percent of the line's length, 50 to 300
    int seconds = 5;     // how long a wait of seconds lasts, 1 to 600
    int from = 100;      // the first round's tempo, percent of the speed, 10 to 100
    int step = 0;        // each round's tempo above the one before, percent of the speed, 0 to 100
    bool mirror = false; // the picture, left to right
    bool even = false;   // loudness, from clip to clip

    friend bool operator==(const Practice&, const Practice&) = default;

    /// All values in their ranges.
    [[nodiscard]] Practice inRange() const;
    [[nodiscard]] bool isEndless() const { return times == kEndless; }
};

/// The next slower or faster speed, percent: steps of 5 up to 100, of 10 above.
[[nodiscard]] int slowerThan(int speed);
[[nodiscard]] int fasterThan(int speed);

} // namespace orvanta
