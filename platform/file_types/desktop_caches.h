// Bringing the desktop's caches up to date, in the background.
#pragma once

#include <QObject>
#include <QProcess>
#include <QThreadPool>
#include <QTimer>

#include <functional>

namespace orvanta {

/// Interface thread only. Requests that come close together are served once. Nobody waits for
/// anything but the destructor, which lets begun work come to its end. Missing tools are logged.
class DesktopCaches : public QObject
{
    Q_OBJECT

public:
    DesktopCaches();
    ~DesktopCaches() override;

    void refreshTypes();   // after a change of the user's type packages
    void refreshEntries(); // after a change of the user's desktop entries
    /// Runs work on files of the desktop in another thread, one after the other.
    void runLater(std::function<void()> work);

    [[nodiscard]] bool isBusy() const;

private:
    /// One tool; runs again when it was asked for while it ran.
    struct Tool
    {
        QString program;
        QString folder; // below the user's data folder
        bool isWanted = false;
        QProcess process;
    };

    void want(Tool& tool);
    void startWanted();
    void start(Tool& tool);

    Tool m_types;
    Tool m_entries;
    QTimer m_soon;
    QThreadPool m_worker;
};

} // namespace orvanta
