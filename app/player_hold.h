// Holds the player while the packet editor's preview runs.
#pragma once

#include <QString>

namespace orvanta {

class MediaControl;

/// Two clips must not sound at once. Interface thread only.
class PlayerHold
{
public:
    /// The control outlives this.
    explicit PlayerHold(MediaControl& control);

    /// Pauses a running player; says whether it was running.
    bool hold();
    /// Lets it go on, unless another clip has been loaded since, or someone has moved it on.
    void release();

private:
    MediaControl& m_control;
    QString m_heldFile;
};

} // namespace orvanta
