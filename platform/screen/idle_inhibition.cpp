#include "platform/screen/idle_inhibition.h"

#include "core/log.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr auto kReason = "Orvanta plays a clip"_L1;

static QDBusMessage screenSaverCall(const QString& method)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.ScreenSaver"_s,
                                          u"/org/freedesktop/ScreenSaver"_s,
                                          u"org.freedesktop.ScreenSaver"_s, method);
}

static QDBusMessage portalCall()
{
    constexpr uint kIdle = 8;
    QDBusMessage call = QDBusMessage::createMethodCall(
        u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
        u"org.freedesktop.portal.Inhibit"_s, u"Inhibit"_s);
    call << QString() << kIdle << QVariantMap{{u"reason"_s, QString(kReason)}};
    return call;
}

static QDBusMessage closeCall(const QString& request)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, request,
                                          u"org.freedesktop.portal.Request"_s, u"Close"_s);
}

IdleInhibition::IdleInhibition(QDBusConnection bus, QObject* parent)
    : QObject(parent),
      m_bus(std::move(bus))
{}

IdleInhibition::~IdleInhibition()
{
    release();
}

void IdleInhibition::hold(bool awake)
{
    if (m_wanted == awake) {
        return;
    }
    m_wanted = awake;
    if (awake && !m_bus.isConnected()) {
        m_compositor.hold(true);
        qCInfo(logDesktop, "no session bus: no service of the desktop keeps it awake");
    } else if (awake) {
        ask();
    } else {
        release();
    }
}

void IdleInhibition::ask()
{
    if (m_asking) { // the answer that is on the way will do; the compositor gives none
        if (m_isAtPortal) {
            askCompositor();
        }
        return;
    }
    m_asking = true;
    const QDBusMessage call = screenSaverCall(u"Inhibit"_s) << u"orvanta"_s << QString(kReason);
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<quint32> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError()) {
            askCompositor();
            askPortal();
        } else {
            noteCookie(reply.value());
        }
    });
}

// The clip may have ended before the answer came.
void IdleInhibition::askCompositor()
{
    m_compositor.hold(m_wanted);
}

void IdleInhibition::askPortal()
{
    m_isAtPortal = true;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(portalCall()), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
        watcher->deleteLater();
        m_asking = false;
        m_isAtPortal = false;
        if (reply.isError()) {
            qCInfo(logDesktop, "no service here keeps the desktop awake: %s",
                   qUtf8Printable(reply.error().message()));
        } else {
            noteRequest(reply.value().path());
        }
    });
}

// The clip may have ended before the answer came.
void IdleInhibition::noteCookie(quint32 cookie)
{
    m_asking = false;
    m_cookie = cookie;
    m_hasCookie = true;
    if (!m_wanted) {
        release();
    }
}

void IdleInhibition::noteRequest(const QString& path)
{
    m_request = path;
    if (!m_wanted) {
        release();
    }
}

void IdleInhibition::release()
{
    m_compositor.hold(false);
    if (std::exchange(m_hasCookie, false)) {
        m_bus.send(screenSaverCall(u"UnInhibit"_s) << m_cookie);
    }
    if (const QString request = std::exchange(m_request, QString()); !request.isEmpty()) {
        m_bus.send(closeCall(request));
    }
}

} // namespace orvanta
