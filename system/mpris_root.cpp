#include "system/mpris_root.h"

#include <QTimer>

namespace orvanta {

using namespace Qt::StringLiterals;

MprisRoot::MprisRoot(QObject* object, MprisPorts& ports)
    : QDBusAbstractAdaptor(object),
      m_ports(ports)
{}

bool MprisRoot::fullscreen() const
{
    return m_ports.screen.isFullScreen();
}

void MprisRoot::setFullscreen(bool on)
{
    m_ports.screen.setFullScreen(on);
}

QString MprisRoot::identity() const
{
    return u"Orvanta"_s;
}

QString MprisRoot::desktopEntry() const
{
    return u"orvanta"_s;
}

QStringList MprisRoot::supportedUriSchemes() const
{
    return {u"file"_s};
}

QStringList MprisRoot::supportedMimeTypes() const
{
    return {u"application/x-orvanta-packet"_s,
            u"application/x-orvanta-group"_s,
            u"audio/mpeg"_s,
            u"audio/ogg"_s,
            u"audio/flac"_s,
            u"audio/x-wav"_s,
            u"video/mp4"_s,
            u"video/webm"_s,
            u"video/x-matroska"_s,
            u"video/x-msvideo"_s,
            u"video/mpeg"_s,
            u"video/quicktime"_s,
            u"video/ogg"_s};
}

void MprisRoot::Raise()
{
    m_ports.view.showMainWindow();
    m_ports.view.bringMainWindowToFront();
}

void MprisRoot::Quit()
{
    // From the event loop: the caller's answer goes out before the program unloads.
    QTimer::singleShot(0, this, [this] { m_ports.quit(); });
}

} // namespace orvanta
