#include "system/mpris_service.h"

#include "core/log.h"
#include "playback/practice_controls.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QTimer>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr auto kService = "org.mpris.MediaPlayer2.orvanta"_L1;
constexpr auto kObject = "/org/mpris/MediaPlayer2"_L1;

static QVariantMap changesBetween(const QVariantMap& before, const QVariantMap& now)
{
    QVariantMap changes;
    for (auto property = now.begin(); property != now.end(); ++property) {
        if (before.value(property.key()) != property.value()) {
            changes.insert(property.key(), property.value());
        }
    }
    return changes;
}

MprisService::MprisService(MprisPorts ports, QDBusConnection bus, QObject* parent)
    : QObject(parent),
      m_ports(std::move(ports)),
      m_bus(std::move(bus)),
      m_root(this, m_ports),
      m_player(this, m_ports, [this] { announceSoon(); }),
      m_trackList(this, m_ports)
{
    if (!m_bus.isConnected()) {
        qCInfo(logDesktop, "no session bus: the desktop's media controls cannot be served");
        return;
    }
    registerService();
    connectSources();
    m_announcedPlayer = m_player.announcedProperties();
}

MprisService::~MprisService()
{
    if (isRegistered()) {
        m_bus.unregisterService(m_serviceName);
        m_bus.unregisterObject(kObject);
    }
}

void MprisService::registerService()
{
    m_bus.registerObject(kObject, this, QDBusConnection::ExportAdaptors);
    // Another program folder may run its own instance: the interface asks for a name of its own.
    const QString own = kService + u".instance%1"_s.arg(QCoreApplication::applicationPid());
    for (const QString& name : {QString(kService), own}) {
        if (m_bus.registerService(name)) {
            m_serviceName = name;
            return;
        }
    }
    qCInfo(logDesktop, "the desktop's media controls refused the service name");
}

void MprisService::connectSources()
{
    connect(&m_ports.control, &MediaControl::stateChange, this, &MprisService::announceSoon);
    connect(&m_ports.control, &MediaControl::durationChange, this, &MprisService::announceSoon);
    connect(&m_ports.engine, &PlaybackEngine::cursorChanged, this, &MprisService::announceSoon);
    connect(&m_ports.engine, &PlaybackEngine::volumeChanged, this, &MprisService::announceSoon);
    const PracticeControls& practice = m_ports.engine.practice();
    connect(&practice, &PracticeControls::changed, this, &MprisService::announceSoon);
    connect(&practice, &PracticeControls::againBegan, this, &MprisService::announceSoon);
    connect(&m_ports.control, &MediaControl::positionChange, this,
            [this](double, double now) { Q_EMIT m_player.Seeked(microseconds(now)); });
}

void MprisService::announceSoon()
{
    if (m_announcementQueued) {
        return;
    }
    m_announcementQueued = true;
    QTimer::singleShot(0, this, &MprisService::announceChanges);
}

void MprisService::announceChanges()
{
    m_announcementQueued = false;
    const QVariantMap now = m_player.announcedProperties();
    announceProperties(u"org.mpris.MediaPlayer2.Player"_s, changesBetween(m_announcedPlayer, now));
    m_announcedPlayer = now;
    if (const bool fullscreen = m_root.fullscreen(); fullscreen != m_announcedFullscreen) {
        m_announcedFullscreen = fullscreen;
        announceProperties(u"org.mpris.MediaPlayer2"_s, {{u"Fullscreen"_s, fullscreen}});
    }
    if (m_trackList.announceIfReplaced()) {
        // Of this one the interface wants the name alone: its value may be long.
        announceProperties(u"org.mpris.MediaPlayer2.TrackList"_s, {}, {u"Tracks"_s});
    }
}

void MprisService::announceProperties(const QString& interface, const QVariantMap& changed,
                                      const QStringList& invalidated)
{
    if (changed.isEmpty() && invalidated.isEmpty()) {
        return;
    }
    QDBusMessage signal = QDBusMessage::createSignal(kObject, u"org.freedesktop.DBus.Properties"_s,
                                                     u"PropertiesChanged"_s);
    signal << interface << changed << invalidated;
    m_bus.send(signal);
}

} // namespace orvanta
