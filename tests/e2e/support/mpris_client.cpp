#include "tests/e2e/support/mpris_client.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>

#include <cmath>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

namespace {

const QString kService = u"org.mpris.MediaPlayer2.orvanta"_s;
const QString kRoot = u"org.mpris.MediaPlayer2"_s;
const QString kPlayer = u"org.mpris.MediaPlayer2.Player"_s;
constexpr int kCallMs = 10000;
constexpr double kMicro = 1e6;

QString nextBusName()
{
    static int number = 0;
    return u"media controls %1"_s.arg(++number);
}

} // namespace

MprisClient::MprisClient(const Desktop& desktop)
    : m_busName(nextBusName()),
      m_bus(QDBusConnection::connectToBus(desktop.busAddress(), m_busName))
{}

MprisClient::~MprisClient()
{
    QDBusConnection::disconnectFromBus(m_busName);
}

bool MprisClient::isThere()
{
    return m_bus.interface()->isServiceRegistered(kService).value();
}

QDBusMessage MprisClient::send(const QString& interface, const QString& method,
                               const QVariantList& arguments)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(kService, u"/org/mpris/MediaPlayer2"_s, interface, method);
    message.setArguments(arguments);
    return m_bus.call(message, QDBus::Block, kCallMs);
}

QVariant MprisClient::property(const QString& interface, const QString& name)
{
    const QDBusMessage reply =
        send(u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {interface, name});
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QString MprisClient::status()
{
    return property(kPlayer, u"PlaybackStatus"_s).toString();
}

double MprisClient::seconds()
{
    return property(kPlayer, u"Position"_s).toDouble() / kMicro;
}

double MprisClient::length()
{
    return metadata().value(u"mpris:length"_s).toDouble() / kMicro;
}

int MprisClient::volume()
{
    return static_cast<int>(std::lround(property(kPlayer, u"Volume"_s).toDouble() * 100));
}

double MprisClient::rate()
{
    return property(kPlayer, u"Rate"_s).toDouble();
}

QString MprisClient::loop()
{
    return property(kPlayer, u"LoopStatus"_s).toString();
}

bool MprisClient::isFullScreen()
{
    return property(kRoot, u"Fullscreen"_s).toBool();
}

QString MprisClient::title()
{
    return metadata().value(u"xesam:title"_s).toString();
}

QVariantMap MprisClient::metadata()
{
    const QVariant value = property(kPlayer, u"Metadata"_s);
    QVariantMap map;
    if (value.canConvert<QDBusArgument>()) {
        value.value<QDBusArgument>() >> map;
    }
    return map;
}

QDBusMessage MprisClient::call(const QString& method, const QVariantList& arguments)
{
    return send(kPlayer, method, arguments);
}

QDBusMessage MprisClient::callRoot(const QString& method, const QVariantList& arguments)
{
    return send(kRoot, method, arguments);
}

void MprisClient::seekTo(double seconds)
{
    const auto track = metadata().value(u"mpris:trackid"_s);
    call(u"SetPosition"_s, {track, QVariant::fromValue(std::llround(seconds * kMicro))});
}

void MprisClient::setRate(double rate)
{
    setProperty(kPlayer, u"Rate"_s, rate);
}

void MprisClient::setLoop(const QString& status)
{
    setProperty(kPlayer, u"LoopStatus"_s, status);
}

void MprisClient::setFullScreen(bool on)
{
    setProperty(kRoot, u"Fullscreen"_s, on);
}

void MprisClient::setProperty(const QString& interface, const QString& name, const QVariant& value)
{
    send(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
         {interface, name, QVariant::fromValue(QDBusVariant(value))});
}

} // namespace orvanta::e2e
