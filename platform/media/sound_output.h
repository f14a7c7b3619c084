// Getting the sound back after the sound server went away.
#pragma once

#include "platform/media/mpv_options.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace orvanta {

/// When its server goes, the library plays on into an output that nobody hears, and keeps that from
/// clip to clip. While a clip runs into it the real one is asked for again: at once when the clip
/// begins to run, and every few seconds, ever more rarely. Not where there never was a real one.
class SoundOutput : public QObject
{
public:
    /// askAgain: lets the player ask for the real one. extra: an output named there is what is
    /// wanted.
    SoundOutput(std::function<void()> askAgain, const MpvOptionList& extra);

    /// The name of the output in use, as the library reports it; empty for none.
    void outputIs(const QByteArray& name);
    void setRunning(bool running);

private:
    void watch();

    std::function<void()> m_askAgain;
    QTimer m_retry;
    bool m_isNullWanted = false;
    bool m_isSilent = false; // the output is the one that nobody hears
    bool m_hadSound = false; // there was a real one
    bool m_isRunning = false;
    std::chrono::milliseconds m_pause;
};

} // namespace orvanta
