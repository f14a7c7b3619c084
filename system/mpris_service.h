// The program on the desktop's media controls (org.mpris.MediaPlayer2.orvanta).
#pragma once

#include "system/mpris_player.h"
#include "system/mpris_root.h"
#include "system/mpris_track_list.h"

#include <QDBusConnection>
#include <QObject>

namespace orvanta {

/// Registers the service and announces changes. Without a session bus it says so in the log and
/// the program runs all the same.
class MprisService : public QObject
{
    Q_OBJECT

public:
    MprisService(MprisPorts ports, QDBusConnection bus, QObject* parent = nullptr);
    ~MprisService() override;

    [[nodiscard]] bool isRegistered() const { return !m_serviceName.isEmpty(); }

    /// Announces what has changed since the last call. Cheap when nothing has.
    void announceChanges();

private:
    void registerService();
    void connectSources();
    void announceProperties(const QString& interface, const QVariantMap& changed,
                            const QStringList& invalidated = {});
    void announceSoon();

    MprisPorts m_ports;
    QDBusConnection m_bus;
    MprisRoot m_root;
    MprisPlayer m_player;
    MprisTrackList m_trackList;
    QString m_serviceName; // empty: not registered
    QVariantMap m_announcedPlayer;
    bool m_announcedFullscreen = false;
    bool m_announcementQueued = false;
};

} // namespace orvanta
