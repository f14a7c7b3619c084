// What the speakers of a private desktop are given.
#pragma once

#include "tests/e2e/support/desktop.h"

#include <QByteArray>

#include <vector>

namespace orvanta::e2e {

/// Records from its making on. The desktop must have sound.
class HeardSound
{
public:
    explicit HeardSound(const Desktop& desktop);

    /// Whether the recorder is at work. Waits for it.
    [[nodiscard]] bool begins();

    /// How long each sound was that is followed by a silence of 0.2 s and holds none that is longer
    /// than this. Seconds.
    [[nodiscard]] std::vector<double> lengths(double longestSilence);

private:
    OwnedProcess m_recorder;
    QByteArray m_heard;
};

} // namespace orvanta::e2e
