// The clip after the one that plays, opened ahead so that no gap is heard between them.
//
// The library goes on to it by itself as soon as the device has been given the last of the clip
// before, a third of a second before that is heard; it counts from below zero until then. So the
// end is told when it counts zero. Until then the clip that is heard is the one that is open:
// whatever is asked of it, but pause and run, brings it back.
#include "platform/media/mpv_player.h"

#include <QFile>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace orvanta {

constexpr std::chrono::milliseconds kLookAhead(40);
constexpr double kPatienceWithNext = 3;          // seconds
constexpr double kHeard = -0.002;                // seconds; what is nearer needs no look of its own
constexpr std::chrono::milliseconds kToLoad(20); // for those who are told of the end

// Tracks that were chosen would be chosen in the next clip, too.
bool MpvPlayer::mayGoOn() const
{
    return m_phase == Ready && m_state == Running && !m_reloading && !m_unseekable &&
           !m_tracksTouched && !m_pictureIsOff && !m_seek.isUnderWay();
}

void MpvPlayer::prepare(const QString& path)
{
    if (path == m_next.path) {
        return;
    }
    dropNext();
    if (path.isEmpty() || path == m_refusedNext || !mayGoOn()) {
        return;
    }
    m_next.path = path;
    m_nextProbe.look(path, [this](FileProbe::Answer answer) {
        if (answer == FileProbe::Ready && mayGoOn()) {
            appendNext();
        }
    });
}

void MpvPlayer::appendNext()
{
    m_next.stage = NextClip::Appended;
    m_mpv->command({"loadfile", QFile::encodeName(m_next.path), "append"},
                   idOf(NextFile, ++m_nextSerial));
}

/// Nothing is prepared any more; the clip that is open plays on as it is heard.
void MpvPlayer::dropNext()
{
    if (m_next.stage == NextClip::Heard) {
        setPaused(true);
    }
    if (isAhead() && m_phase == Ready) {
        backToClip(CurrentPosition());
    } else {
        withdrawNext();
    }
}

void MpvPlayer::withdrawNext()
{
    m_nextProbe.stop();
    if (std::exchange(m_next, {}).stage == NextClip::Appended) {
        m_withdrawing = true;
        m_mpv->command({"playlist-clear"}, idOf(NextWithdrawn, ++m_nextSerial));
    }
}

/// The library has left the clip that is open for the next one. A seek that had not reached it by
/// then went astray.
void MpvPlayer::goneOn()
{
    if (m_next.stage != NextClip::Appended || m_seek.isUnderWay()) {
        backToClip(CurrentPosition());
        return;
    }
    m_next.stage = NextClip::Playing;
    m_picture.hold(); // what comes is the next one's
    waitForNext();
}

void MpvPlayer::nextFailed()
{
    m_refusedNext = m_next.path;
    dropNext();
}

void MpvPlayer::lookAhead()
{
    if (m_next.stage != NextClip::Playing || m_state != Running) {
        return;
    }
    if (m_next.begun) {
        m_mpv->ask("time-pos", MPV_FORMAT_DOUBLE, idOf(NextPosition, m_nextSerial));
        return;
    }
    const double passed = double(m_next.looked.restart()) / 1000;
    m_next.waited += passed;
    if (m_next.waited > kPatienceWithNext) {
        nextFailed();
    } else {
        m_nextLook.start(kLookAhead);
        hearUpTo(m_position + passed * m_speed);
    }
}

/// The clip before it is heard meanwhile, and where the device has to be opened anew, the library
/// waits until it has been heard; nothing says where it is but the clock.
void MpvPlayer::waitForNext()
{
    m_next.looked.start();
    m_nextLook.start(kLookAhead);
}

/// Emits last.
void MpvPlayer::hearUpTo(double seconds)
{
    const double place = clamped(seconds);
    if (place > m_position) {
        m_position = place;
        Q_EMIT position();
    }
}

void MpvPlayer::takeNextPosition(std::optional<double> seconds)
{
    if (m_next.stage != NextClip::Playing) {
        return;
    }
    const double place = seconds.value_or(-1);
    if (place >= kHeard && m_state == Running) {
        reachEndAhead();
        return;
    }
    const auto rest = std::chrono::milliseconds(std::lround(std::ceil(-place / m_speed * 1000)));
    m_nextLook.start(std::min(rest, kLookAhead));
    if (seconds) {
        hearUpTo(m_duration + place);
    }
}

/// As at an end at which the library pauses, but that it plays on. It pauses when the next clip is
/// not loaded now.
void MpvPlayer::reachEndAhead()
{
    m_next.stage = NextClip::Heard;
    m_nextLook.stop();
    const double end = m_duration;
    m_position = 0;
    m_atStart = true;
    QTimer::singleShot(kToLoad, this, [this, serial = m_nextSerial] {
        if (m_next.stage == NextClip::Heard && serial == m_nextSerial) {
            dropNext();
        }
    });
    changeState(Stopped);
    Q_EMIT positionChange(end, 0);
    Q_EMIT position();
}

/// The next clip is loaded, as it plays already.
void MpvPlayer::adoptNext()
{
    const NextClip next = std::exchange(m_next, {});
    forgetClip();
    m_phase = Opening;
    m_fileName = next.path;
    m_entry = next.entry;
    m_isAdopted = true;
    m_patience.start(kPatienceToOpen);
    m_mpv->command({"playlist-clear"}, idOf(Unasked, 0)); // of what was played
    askFacts();
    changeState(NotLoaded);
}

/// Whoever loaded it may not have let it run.
void MpvPlayer::settleAdopted()
{
    QTimer::singleShot(0, this, [this, load = m_load] {
        if (load == m_load && m_state != Running) {
            setPaused(true);
            if (m_state == Stopped) {
                rewind();
            }
        }
    });
}

/// Opens the clip that is heard once more, at its place.
void MpvPlayer::backToClip(double seconds)
{
    m_next = {};
    m_nextLook.stop();
    m_seekWhenReady.reset();
    reload(seconds);
    m_position = seconds;
}

} // namespace orvanta
