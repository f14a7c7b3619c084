#include "system/mpris_player.h"

#include "core/log.h"
#include "model/dropped_files.h"
#include "playback/practice_controls.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

MprisPlayer::MprisPlayer(QObject* object, MprisPorts& ports, std::function<void()> announce)
    : QDBusAbstractAdaptor(object),
      m_ports(ports),
      m_announce(std::move(announce))
{}

QString MprisPlayer::playbackStatus() const
{
    return orvanta::playbackStatus(m_ports.control.CurrentState());
}

void MprisPlayer::setRate(double rate)
{
    if (rate == 0.0) { // the interface asks that this acts like Pause
        Pause();
    } else if (rate > 0) {
        Practice practice = this->practice();
        practice.speed = static_cast<int>(std::lround(std::min(rate, maximumRate()) * 100));
        m_ports.engine.practice().set(practice);
    }
}

Practice MprisPlayer::practice() const
{
    return m_ports.engine.practice().values();
}

QString MprisPlayer::loopStatus() const
{
    if (practice().isEndless()) {
        return u"Track"_s;
    }
    return m_ports.module.optionIsOn(Option::Replay) ? u"Playlist"_s : u"None"_s;
}

void MprisPlayer::setLoopStatus(const QString& status)
{
    if (status != u"None" && status != u"Track" && status != u"Playlist") {
        return;
    }
    if (practice().isEndless() != (status == u"Track")) {
        m_ports.engine.practice().toggleRepeat();
    }
    if (status != u"Track") {
        m_ports.module.settings().storeOptions({{Option::Replay, status == u"Playlist"}});
    }
    m_announce();
}

QVariantMap MprisPlayer::metadata() const
{
    return trackMetadata(m_ports, current());
}

double MprisPlayer::volume() const
{
    return m_ports.module.playback.CachedVolume.value() / 100.0;
}

void MprisPlayer::setVolume(double volume)
{
    if (std::isnan(volume)) {
        return; // no place on any scale
    }
    const Int16 place = std::lround(std::clamp(volume, 0.0, 1.0) * 100.0);
    m_ports.view.setVolumeSlider(place);
    m_ports.engine.volumeMoved(place);
}

qlonglong MprisPlayer::position() const
{
    return microseconds(m_ports.control.CurrentPosition());
}

bool MprisPlayer::canGoNext() const
{
    return m_ports.module.playlist.entryCount() > 0;
}

bool MprisPlayer::canGoPrevious() const
{
    return canGoNext();
}

bool MprisPlayer::canPlay() const
{
    return canGoNext();
}

bool MprisPlayer::canSeek() const
{
    return isLoaded();
}

QVariantMap MprisPlayer::announcedProperties() const
{
    return {
        {u"PlaybackStatus"_s, playbackStatus()},
        {u"Rate"_s, rate()},
        {u"LoopStatus"_s, loopStatus()},
        {u"Metadata"_s, metadata()},
        {u"Volume"_s, volume()},
        {u"CanGoNext"_s, canGoNext()},
        {u"CanGoPrevious"_s, canGoPrevious()},
        {u"CanPlay"_s, canPlay()},
        {u"CanPause"_s, canPause()},
        {u"CanSeek"_s, canSeek()},
    };
}

void MprisPlayer::Next()
{
    m_ports.engine.nextChecked();
}

void MprisPlayer::Previous()
{
    m_ports.engine.previousChecked();
}

void MprisPlayer::Pause()
{
    if (m_ports.control.CurrentState() == MediaControl::Running) {
        m_ports.engine.pressPause();
    }
}

void MprisPlayer::PlayPause()
{
    if (m_ports.control.CurrentState() == MediaControl::Running) {
        Pause();
    } else {
        Play();
    }
}

void MprisPlayer::Stop()
{
    m_ports.engine.pressStop();
}

void MprisPlayer::Play()
{
    if (isLoaded()) {
        m_ports.engine.pressPlay();
    } else {
        m_ports.engine.startCurrent();
    }
}

void MprisPlayer::Seek(qlonglong offset)
{
    if (!isLoaded()) {
        return;
    }
    const double target = m_ports.control.CurrentPosition() + static_cast<double>(offset) / 1e6;
    if (target > m_ports.control.Duration()) {
        Next();
    } else {
        m_ports.engine.seekTo(std::max(target, 0.0));
    }
}

void MprisPlayer::SetPosition(const QDBusObjectPath& trackId, qlonglong position)
{
    const double target = static_cast<double>(position) / 1e6;
    const bool isCurrent = placeOfTrack(trackId.path()) == current();
    if (!isLoaded() || !isCurrent || target < 0 || target > m_ports.control.Duration()) {
        return;
    }
    m_ports.engine.seekTo(target);
}

/// What is not there leaves what is open. A path is no command line: nothing in it is a switch.
void MprisPlayer::OpenUri(const QString& uri)
{
    const QString file = fileOfAddress(QUrl(uri));
    if (QFileInfo::exists(file)) {
        m_ports.open(file);
    } else {
        qCInfo(logErrors, "nothing can be opened at %ls", qUtf16Printable(uri));
    }
}

bool MprisPlayer::isLoaded() const
{
    return m_ports.control.CurrentState() != MediaControl::NotLoaded;
}

Cursor MprisPlayer::current() const
{
    return {m_ports.module.playlist.CurrentPacket, m_ports.module.playlist.CurrentClip};
}

} // namespace orvanta
