// A session bus of the test's own.
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>

#include <gtest/gtest.h>

namespace orvanta::test {

class PrivateBus
{
public:
    PrivateBus()
    {
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--print-address=1")});
        while (m_address.isEmpty() && m_daemon.waitForReadyRead(10000)) {
            m_address = QString::fromLatin1(m_daemon.readLine()).trimmed();
        }
        EXPECT_FALSE(m_address.isEmpty());
    }

    ~PrivateBus()
    {
        for (const QString& name : m_names) {
            QDBusConnection::disconnectFromBus(name);
        }
        m_daemon.terminate();
        m_daemon.waitForFinished(10000);
    }

    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    QDBusConnection connection(const QString& name)
    {
        m_names.append(name);
        return QDBusConnection::connectToBus(m_address, name);
    }

    [[nodiscard]] QString address() const { return m_address; }

private:
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

} // namespace orvanta::test
