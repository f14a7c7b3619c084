// An X server of the test's own with a window manager.
#pragma once

#include <QProcess>
#include <QStandardPaths>

namespace orvanta {

class VirtualDisplay
{
public:
    /// bus: the address of the session bus that the manager uses; empty for none of its own.
    explicit VirtualDisplay(const QString& manager = QStringLiteral("openbox"),
                            const QString& bus = QString())
    {
        m_server.start(QStringLiteral("Xvfb"),
                       {QStringLiteral("-displayfd"), QStringLiteral("1"),
                        QStringLiteral("-screen"), QStringLiteral("0"),
                        QStringLiteral("1024x768x24"), QStringLiteral("-nolisten"),
                        QStringLiteral("tcp")});
        while (!m_server.canReadLine() && m_server.waitForReadyRead(20000)) {
        }
        m_name = QLatin1Char(':') + QString::fromLatin1(m_server.readLine().trimmed());
        QProcessEnvironment variables = environment();
        if (!bus.isEmpty()) {
            variables.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus);
            variables.insert(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
        }
        m_manager.setProcessEnvironment(variables);
        m_manager.start(manager, QStringList());
        m_manager.waitForStarted();
    }

    ~VirtualDisplay()
    {
        for (QProcess* process : {&m_manager, &m_server}) {
            process->kill();
            process->waitForFinished();
        }
    }

    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    [[nodiscard]] static bool isInstalled()
    {
        return !QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty() &&
               !QStandardPaths::findExecutable(QStringLiteral("openbox")).isEmpty();
    }

    [[nodiscard]] QProcessEnvironment environment() const
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.insert(QStringLiteral("DISPLAY"), m_name);
        variables.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        variables.remove(QStringLiteral("WAYLAND_DISPLAY"));
        return variables;
    }

private:
    QProcess m_server;
    QProcess m_manager;
    QString m_name;
};

} // namespace orvanta
