// A program of the build folder, run as a process of its own.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

namespace orvanta {

inline QString builtProgram(const char* name)
{
    return QStringLiteral(ORVANTA_BUILD_DIR "/") + QString::fromUtf8(name);
}

/// Puts a built library in front of the real ones.
inline void preload(QProcessEnvironment& variables, const char* library)
{
    variables.insert(QStringLiteral("LD_PRELOAD"), builtProgram(library));
    // The address sanitizer wants to be the first library, and needs not be.
    const QString options = variables.value(QStringLiteral("ASAN_OPTIONS"));
    variables.insert(QStringLiteral("ASAN_OPTIONS"),
                     options + QStringLiteral(":verify_asan_link_order=0"));
}

/// Puts a player library that cannot be used in front of the real one. how: "old", "none".
inline void preloadUnusablePlayer(QProcessEnvironment& variables, const QString& how)
{
    preload(variables, "unusable_player.so");
    variables.insert(QStringLiteral("UNUSABLE_PLAYER"), how);
}

/// Ends the process with the test, whatever happens.
class Probe : public QProcess
{
public:
    ~Probe() override
    {
        if (state() != NotRunning) {
            kill();
            waitForFinished();
        }
    }

    void startProgram(const char* name, const QStringList& arguments)
    {
        start(builtProgram(name), arguments);
        if (!waitForStarted()) {
            qFatal("%s cannot be started", name);
        }
    }

    /// Waits for the next whole line on standard output; empty when none comes in time.
    QByteArray nextLine(int timeoutMs = 20000)
    {
        while (!canReadLine() && waitForReadyRead(timeoutMs)) {
        }
        return readLine().trimmed();
    }
};

} // namespace orvanta
