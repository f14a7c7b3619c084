// The notification area of a test's desktop: a watcher with a host, as a desktop's panel provides
// it. Runs until it is ended; prints "ready" when programs can register.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QStringList>

#include <cstdio>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

class TrayWatcher : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    TrayWatcher()
    {
        m_owners.setConnection(QDBusConnection::sessionBus());
        m_owners.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
        connect(&m_owners, &QDBusServiceWatcher::serviceUnregistered, this, &TrayWatcher::forget);
    }

    [[nodiscard]] QStringList items() const { return m_items; }
    [[nodiscard]] bool hasHost() const { return true; }
    [[nodiscard]] int protocolVersion() const { return 0; }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& serviceOrPath)
    {
        const QString service =
            serviceOrPath.startsWith(u'/') ? message().service() : serviceOrPath;
        m_owners.addWatchedService(service);
        m_items.append(service);
        Q_EMIT StatusNotifierItemRegistered(service);
    }
    void RegisterStatusNotifierHost(const QString& /*service*/)
    {
        Q_EMIT StatusNotifierHostRegistered();
    }

Q_SIGNALS:
    void StatusNotifierItemRegistered(const QString& service);
    void StatusNotifierItemUnregistered(const QString& service);
    void StatusNotifierHostRegistered();

private:
    void forget(const QString& service)
    {
        m_owners.removeWatchedService(service);
        m_items.removeAll(service);
        Q_EMIT StatusNotifierItemUnregistered(service);
    }

    QStringList m_items;
    QDBusServiceWatcher m_owners;
};

} // namespace orvanta::e2e

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    orvanta::e2e::TrayWatcher watcher;
    QDBusConnection bus = QDBusConnection::sessionBus();
    const bool served = bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), &watcher,
                                           QDBusConnection::ExportAllContents) &&
                        bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
    if (!served) {
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

#include "tray_watcher.moc"
