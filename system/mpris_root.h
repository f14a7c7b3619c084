// org.mpris.MediaPlayer2: the program itself, for the desktop's media controls.
#pragma once

#include "system/mpris_session.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>

namespace orvanta {

class MprisRoot : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ canQuit)
    Q_PROPERTY(bool Fullscreen READ fullscreen WRITE setFullscreen)
    Q_PROPERTY(bool CanSetFullscreen READ canSetFullscreen)
    Q_PROPERTY(bool CanRaise READ canRaise)
    Q_PROPERTY(bool HasTrackList READ hasTrackList)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ supportedUriSchemes)
    Q_PROPERTY(QStringList SupportedMimeTypes READ supportedMimeTypes)

public:
    MprisRoot(QObject* object, MprisPorts& ports);

    [[nodiscard]] bool canQuit() const { return true; }
    [[nodiscard]] bool fullscreen() const;
    void setFullscreen(bool on);
    [[nodiscard]] bool canSetFullscreen() const { return true; }
    [[nodiscard]] bool canRaise() const { return true; }
    [[nodiscard]] bool hasTrackList() const { return true; }
    [[nodiscard]] QString identity() const;
    [[nodiscard]] QString desktopEntry() const;
    [[nodiscard]] QStringList supportedUriSchemes() const;
    [[nodiscard]] QStringList supportedMimeTypes() const;

public Q_SLOTS:
    void Raise();
    void Quit();

private:
    MprisPorts& m_ports;
};

} // namespace orvanta
