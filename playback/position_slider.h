// The position slider and the time labels: display, preview, seek.
#pragma once

#include "playback/engine_context.h"
#include "playback/position.h"

#include <optional>

namespace orvanta {

/// In a brake packet the slider spans the current brake, else the whole clip.
class PositionSlider
{
public:
    explicit PositionSlider(EngineContext& context);

    /// The tick's display step, while nobody holds the slider.
    void display();
    /// Stores the value, limited to 0 to 100, and moves the slider.
    void SetValue(Int16 value);
    /// Slider to 0.
    void reset();

    /// The user moves the slider: the target time is shown, nothing is sought yet. Raises nothing.
    void moved(double value);
    /// The user's change is final: seeks once, unless another start came meanwhile. Raises nothing.
    void committed();
    /// A seek by key or bookmark, seconds. Raises nothing.
    void seekTo(double seconds);
    /// The player was stopped and stands at 0: the brake there becomes current, none where the
    /// first lies later. After the end of a lesson none is current already.
    void followStop();

private:
    [[nodiscard]] BrakeSpan span() const;
    [[nodiscard]] double durationSeconds() const;
    void showTime(double seconds);
    void commit();
    void showPolled();
    void showPlace(double seconds);
    void followSeek(double seconds);
    void makeBrakeCurrent(Int16 brake);
    [[nodiscard]] double reachedSeconds() const;
    void showReached();

    EngineContext& m_context;
    std::optional<quint64> m_dragBegan; // in this generation, while the user moves the slider
};

} // namespace orvanta
