// The desktop's media controls as a client sees them.
#pragma once

#include "tests/e2e/support/desktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace orvanta::e2e {

/// Asks the program over the session bus of its desktop. An absent program gives empty answers.
class MprisClient
{
public:
    explicit MprisClient(const Desktop& desktop);
    ~MprisClient();
    MprisClient(const MprisClient&) = delete;
    MprisClient& operator=(const MprisClient&) = delete;

    [[nodiscard]] bool isThere();
    [[nodiscard]] QString status(); // "Playing", "Paused", "Stopped"
    [[nodiscard]] double seconds(); // the position
    [[nodiscard]] double length();  // of the current clip, seconds; 0 while unknown
    [[nodiscard]] int volume();     // 0 to 100
    [[nodiscard]] double rate();
    [[nodiscard]] QString loop(); // "None", "Track", "Playlist"
    [[nodiscard]] bool isFullScreen();
    [[nodiscard]] QString title();
    [[nodiscard]] QVariantMap metadata();

    QDBusMessage call(const QString& method, const QVariantList& arguments = {});     // Player
    QDBusMessage callRoot(const QString& method, const QVariantList& arguments = {}); // program
    void seekTo(double seconds);
    void setRate(double rate);
    void setLoop(const QString& status);
    void setFullScreen(bool on);

private:
    QVariant property(const QString& interface, const QString& name);
    void setProperty(const QString& interface, const QString& name, const QVariant& value);
    QDBusMessage send(const QString& interface, const QString& method,
                      const QVariantList& arguments);

    QString m_busName;
    QDBusConnection m_bus;
};

} // namespace orvanta::e2e
