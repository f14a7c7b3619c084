// The services that keep a desktop awake, as a desktop would offer them.
#pragma once

#include <QDBusObjectPath>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace orvanta::test {

using namespace Qt::StringLiterals;

/// The desktop's screen saver service.
class ScreenSaver : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    QStringList calls;

public Q_SLOTS:
    Q_SCRIPTABLE uint Inhibit(const QString& program, const QString& reason)
    {
        calls += u"Inhibit %1"_s.arg(program);
        return reason.isEmpty() ? 0 : 77;
    }
    Q_SCRIPTABLE void UnInhibit(uint cookie) { calls += u"UnInhibit %1"_s.arg(cookie); }
};

/// The portal; a request object takes the Close.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public:
    QStringList calls;

public Q_SLOTS:
    Q_SCRIPTABLE QDBusObjectPath Inhibit(const QString& window, uint flags,
                                         const QVariantMap& options)
    {
        calls += u"Inhibit %1 %2 %3"_s.arg(window).arg(flags).arg(options.contains(u"reason"_s));
        return QDBusObjectPath(u"/request/1"_s);
    }
};

class PortalRequest : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    int closed = 0;

public Q_SLOTS:
    Q_SCRIPTABLE void Close() { ++closed; }
};

} // namespace orvanta::test
