// What assistive technology is told of a waveform.
#pragma once

namespace orvanta {

/// Before the first one is made; further calls do nothing.
void announceWaveforms();

} // namespace orvanta
