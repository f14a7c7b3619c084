// Which process is first, and how a later one raises it.
#pragma once

#include <QByteArrayList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QLocalServer;
class QLocalSocket;

namespace orvanta {

class FileLock;

/// Decides by a lock on a file in the application folder. The lock lives as long as the object.
/// Where no lock can be had at all, every process is the first.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(const QString& applicationFolder, QObject* parent = nullptr);
    ~SingleInstance() override;

    [[nodiscard]] bool isFirst() const { return m_lock != nullptr; }
    /// The first instance: takes later ones' calls from now on. goesOn is asked at each call: one
    /// that is ending leaves the call without an answer, and the launch takes its place.
    void listen(std::function<bool()> goesOn = [] { return true; });
    /// A later instance: asks the first to show its window, with the launch's activation token,
    /// and hands it lines that could not be queued. Waits some seconds at most for a first that is
    /// busy. False when the first does not answer (it may be starting or ending).
    [[nodiscard]] bool raiseFirst(const QString& activationToken = {},
                                  const QStringList& lines = {}) const;
    /// Gives the lock up (before an error report that may stay on the screen for long).
    void release();

Q_SIGNALS:
    /// activationToken: from the launch that asks; may be empty.
    void raiseRequested(const QString& activationToken);
    /// Comes before the raise of the same launch.
    void linesHandedOver(const QStringList& lines);

private:
    void takeCall();
    void readCall(QLocalSocket* call);
    void handOver(const QByteArrayList& calls);

    QString m_folder;
    std::function<bool()> m_goesOn;
    std::unique_ptr<FileLock> m_lock; // null: somebody else is first
    QLocalServer* m_server = nullptr;
};

} // namespace orvanta
