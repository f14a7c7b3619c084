#include "platform/media/mpv_player.h"

#include "platform/media/retired_player.h"
#include "platform/media/software_renderer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace orvanta {

constexpr int kLookMilliseconds = 40;
constexpr int kSeekGuardMilliseconds = 5000;
constexpr std::chrono::milliseconds kNoPatience(0);
constexpr int kSilence = -10000; // hundredths of a decibel
// By the measure of broadcasting, with a limiter behind it: no peak above -1.5 dB. The filter works
// at 192 kHz, which no device needs, and a tenth of a second at a time: the library knows the time
// of slowed-down sound only to a piece's length, so the pieces are made a hundredth long.
constexpr char kEvenLoudness[] =
    "lavfi=[loudnorm=I=-18:TP=-1.5:LRA=7,aresample=48000,asetnsamples=n=480:p=0]";

static QByteArray mirrorFilter(bool isMirrored)
{
    return isMirrored ? "hflip" : "";
}

static QByteArray loudnessFilter(bool isEven)
{
    return isEven ? kEvenLoudness : "";
}

static std::unique_ptr<MpvHandle> startPlayer(const MpvOptionList& extra)
{
    auto mpv = std::make_unique<MpvHandle>();
    applyMpvOptions(*mpv, extra);
    mpv->initialize();
    return mpv;
}

static bool isSaid(const MpvOptionList& options, const char* name)
{
    return std::ranges::any_of(options, [&](const auto& option) { return option.first == name; });
}

MpvPlayer::MpvPlayer(MpvOptionList extraOptions, std::optional<RendererChoice> choice)
    : m_extraOptions(std::move(extraOptions)),
      m_choice(std::move(choice)),
      m_mayDecodeByGraphics(!isSaid(m_extraOptions, "hwdec") && hardwareDecoding() != "no"),
      m_mpv(startPlayer(m_extraOptions)),
      m_sound([this] { m_mpv->command({"ao-reload"}, idOf(Unasked, 0)); }, m_extraOptions)
{
    drawBySoftware();
    connect(&m_picture, &MpvPictureSource::failed, this,
            [this](const QString& reason) { leaveOpenGl(reason); });
    m_look.setInterval(kLookMilliseconds);
    m_pauseSoon.setInterval(0);
    m_pauseSoon.setSingleShot(true);
    m_seekGuard.setInterval(kSeekGuardMilliseconds);
    m_seekGuard.setSingleShot(true);
    m_patience.setSingleShot(true);
    m_nextLook.setSingleShot(true);
    m_nextLook.setTimerType(Qt::PreciseTimer);
    connect(&m_look, &QTimer::timeout, this, [this] { lookForEnd(); });
    connect(&m_pauseSoon, &QTimer::timeout, this, [this] { setPaused(true); });
    connect(&m_seekGuard, &QTimer::timeout, this, [this] { seekSettled(); });
    connect(&m_patience, &QTimer::timeout, this, [this] { patienceIsOver(); });
    connect(&m_nextLook, &QTimer::timeout, this, [this] { lookAhead(); });
    connect(&m_cover, &CoverReader::done, this, &MediaControl::coverRead);
    listen();
}

MpvPlayer::~MpvPlayer()
{
    retire({m_mpv->giveAway(), m_picture.exchange()}, kPatienceAtEnd);
}

void MpvPlayer::listen()
{
    connect(m_mpv.get(), &MpvHandle::eventsWaiting, this, [this] { serveEvents(); });
    observeProperties();
}

/// One that hangs goes its own way; what is kept from clip to clip stays.
void MpvPlayer::takeFreshPlayer()
{
    auto mpv = startPlayer(m_extraOptions);
    auto renderer = std::make_unique<SoftwareRenderer>(mpv->get());
    m_mpv.swap(mpv);
    retire({mpv->giveAway(), m_picture.exchange()}, kNoPatience);
    (void)m_picture.start(std::move(renderer));
    m_driver.reset(); // OpenGL is chosen anew for the next file
    m_pictureIsOff = false;
    mpv.release()->deleteLater(); // what is being served may be its event
    m_isFresh = true;
    m_entry = -1;
    m_startedEntry = -1;
    m_factsAsked = false;
    m_lookAsked = false;
    listen();
    tellSettings();
}

void MpvPlayer::tellSettings()
{
    setVolume(m_volume);
    setPaused(m_state != Running);
    m_mpv->set("speed", m_speed);
    m_mpv->command({"vf", "set", mirrorFilter(m_mirrored)}, idOf(Unasked, 0));
    m_mpv->command({"af", "set", loudnessFilter(m_even)}, idOf(Unasked, 0));
    m_mpv->set("sub-pos", QByteArray::number(100 - m_raised));
}

void MpvPlayer::Run()
{
    if (m_state == NotLoaded || m_state == Running) {
        return;
    }
    if (m_next.stage == NextClip::Heard) {
        dropNext();
    }
    m_atStart = false;
    setPaused(false);
    changeState(Running);
}

// Not at once: where it runs on within this turn of the event loop, as around a switch to full
// screen, the library must not notice, or the sound has a hole.
void MpvPlayer::Pause()
{
    if (m_state == NotLoaded || m_state == Paused) {
        return;
    }
    ++m_pauseSerial;
    m_pauseSoon.start();
    changeState(Paused);
}

void MpvPlayer::Stop()
{
    if (m_state == NotLoaded || (m_state == Stopped && m_atStart)) {
        return;
    }
    const double old = CurrentPosition();
    setPaused(true);
    rewind();
    changeState(Stopped);
    reportJump(old);
}

void MpvPlayer::seek(double seconds, MpvSeek::Kind kind)
{
    if (m_phase == Empty || !std::isfinite(seconds)) {
        return;
    }
    const double target = clamped(seconds);
    if (!canGoTo(target)) {
        Q_EMIT position(); // whoever already shows the target is told where the player is
        return;
    }
    if (m_phase == Opening || m_reloading) {
        m_seekWhenReady = target;
        Q_EMIT position();
        return;
    }
    if (m_seek.isUnderWay(target, kind)) {
        return;
    }
    const double old = CurrentPosition();
    goTo(target, kind);
    if (m_state == Running) {
        // The clip may have come to its end, and paused, before it heard of the seek.
        setPaused(false);
    }
    reportJump(old);
}

void MpvPlayer::setVolume(int hundredthsOfDecibel)
{
    m_volume = std::clamp(hundredthsOfDecibel, kSilence, 0);
    m_mpv->set("volume", mpvVolume(m_volume));
    m_mpv->set("mute", m_volume == kSilence);
}

void MpvPlayer::setSpeed(double speed)
{
    if (m_speed != speed) {
        m_speed = speed;
        m_mpv->set("speed", speed);
    }
}

void MpvPlayer::setMirrored(bool mirrored)
{
    if (m_mirrored != mirrored) {
        m_mirrored = mirrored;
        m_mpv->command({"vf", "set", mirrorFilter(mirrored)}, idOf(Unasked, 0));
    }
}

void MpvPlayer::setEvenLoudness(bool even)
{
    if (m_even != even) {
        m_even = even;
        m_mpv->command({"af", "set", loudnessFilter(even)}, idOf(Unasked, 0));
    }
}

void MpvPlayer::refreshPosition()
{
    if (!isAhead()) {
        m_mpv->ask("time-pos", MPV_FORMAT_DOUBLE, idOf(PositionNow, m_load));
    } else if (m_next.begun) {
        lookAhead();
    }
}

double MpvPlayer::CurrentPosition() const
{
    if (m_seekWhenReady) {
        return *m_seekWhenReady;
    }
    return m_seek.isUnderWay() ? m_seek.target() : m_position;
}

void MpvPlayer::changeState(State state)
{
    const State old = std::exchange(m_state, state);
    m_sound.setRunning(state == Running);
    if (old == state) {
        return;
    }
    if (state == Running) {
        m_look.start();
        if (isAhead()) {
            waitForNext();
        }
    } else {
        m_look.stop();
    }
    Q_EMIT stateChange(old, state);
}

void MpvPlayer::setPaused(bool paused)
{
    m_pauseSoon.stop();
    ++m_pauseSerial;
    m_mpv->set("pause", paused);
}

void MpvPlayer::pauseIfWanted()
{
    if (m_pauseSoon.isActive()) {
        setPaused(true);
    }
}

void MpvPlayer::goTo(double target, MpvSeek::Kind kind)
{
    pauseIfWanted(); // it is to stand where it goes
    m_atStart = false;
    if (isAhead()) {
        backToClip(target);
        return;
    }
    m_position = target;
    if (m_rewindsByReload && target <= 0) {
        reload();
        return;
    }
    const quint64 serial = m_seek.begin(target, kind);
    m_seekGuard.start();
    m_mpv->command({"seek", QByteArray::number(target, 'f', 6),
                    kind == MpvSeek::Exact ? "absolute+exact" : "absolute+keyframes"},
                   idOf(Seek, serial));
}

/// The player is where it will be. Its place was passed over while the seek was under way.
void MpvPlayer::seekSettled()
{
    m_seek.cancel();
    m_seekGuard.stop();
    showPictureSoon();
    m_mpv->ask("time-pos", MPV_FORMAT_DOUBLE, idOf(PositionNow, m_load));
}

void MpvPlayer::rewind()
{
    goTo(0, MpvSeek::Exact);
    m_seekWhenReady.reset();
    m_atStart = true;
}

// At its natural end, and only there, the library pauses by itself. Neither the end of the data
// (which comes long before that of the sound) nor the property's change (which is not reported
// when "pause" goes off and on between two reports) tells it as surely as asking. The answer comes
// in turn with the program's own changes of "pause", so it cannot be older than the newest.
void MpvPlayer::lookForEnd()
{
    if (m_state == Running && !m_reloading && !m_lookAsked && !m_pictureIsOff && !isAhead()) {
        m_lookAsked = true;
        m_mpv->ask("pause", MPV_FORMAT_FLAG, idOf(PauseLook, m_pauseSerial));
    }
}

void MpvPlayer::takeLook(bool paused, quint64 serial)
{
    m_lookAsked = false;
    if (paused && serial == m_pauseSerial && m_state == Running && !isAhead()) {
        reachEnd();
    }
}

void MpvPlayer::reachEnd()
{
    if (m_duration <= 0) {
        takeDuration(m_largest);
    }
    const double end = m_duration;
    setPaused(true);
    m_picture.hold(); // the last picture stays, as another clip may follow
    rewind();
    changeState(Stopped);
    Q_EMIT positionChange(end, 0);
    Q_EMIT position();
}

/// A jump that the user made. It must not look like the end of the clip.
void MpvPlayer::reportJump(double oldSeconds)
{
    const double now = CurrentPosition();
    if (!looksLikeEnd(oldSeconds, now, m_duration)) {
        Q_EMIT positionChange(oldSeconds, now);
    }
    Q_EMIT position();
}

void MpvPlayer::moveTo(double seconds)
{
    if (m_phase != Ready || m_reloading || isAhead() || m_atStart || m_seek.isUnderWay()) {
        return;
    }
    m_largest = std::max(m_largest, seconds);
    if (m_state == Running) {
        m_look.start(); // a clip that moves has not ended: asking would only cost
    }
    const double place = clamped(seconds);
    if (place != m_position) {
        m_position = place;
        Q_EMIT position();
    }
}

void MpvPlayer::takeDuration(double seconds)
{
    if (seconds > 0 && seconds != m_duration) {
        m_duration = seconds;
        m_position = clamped(m_position);
        Q_EMIT durationChange(seconds);
    }
}

double MpvPlayer::clamped(double seconds) const
{
    const double atLeast = std::max(seconds, 0.0);
    return m_duration > 0 ? std::min(atLeast, m_duration) : atLeast;
}

} // namespace orvanta
