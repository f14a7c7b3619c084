// The seek under way. Seeks are asynchronous: until the player has got there, the position of the
// clip is the seek's target.
#pragma once

#include <QtGlobal>

#include <optional>

namespace orvanta {

/// Follows one seek from its request to its end. A newer seek takes the place of the one before.
class MpvSeek
{
public:
    enum Kind
    {
        Exact,
        KeyFrame,
    };

    /// Begins a seek (seconds); returns its id.
    quint64 begin(double target, Kind kind);
    /// Nothing is under way any more; answers that still come belong to nobody.
    void cancel();

    [[nodiscard]] bool isUnderWay() const { return m_target.has_value(); }
    [[nodiscard]] bool isUnderWay(double target, Kind kind) const;
    [[nodiscard]] double target() const { return *m_target; }
    [[nodiscard]] bool isNewest(quint64 id) const { return isUnderWay() && id == m_id; }

    // What the player reports, in this order. The middle one belongs to this seek only after the
    // first, since a seek before it may still be running.
    void accepted(quint64 id);
    void started();
    /// Returns whether this ends the seek.
    [[nodiscard]] bool playing();

private:
    std::optional<double> m_target;
    Kind m_kind = Exact;
    quint64 m_id = 0;
    bool m_accepted = false;
    bool m_started = false;
};

} // namespace orvanta
