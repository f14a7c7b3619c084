// What of the open lessons cannot be found: signs in the list, a line above it, and looking for it.
#pragma once

#include "core/error_boundary.h"
#include "model/missing_files.h"
#include "model/texts.h"
#include "platform/media/background_job.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

namespace orvanta {

class EditNotice;
class PlaylistList;

/// All of it outlives the object.
struct MissingClipsPorts
{
    Module1& module;
    PlaylistList& list;
    EditNotice& notice;
    HandlerBoundary boundary;
    TextLanguage language;
    std::function<QString()> askFolder;              // empty: nothing was chosen
    std::function<void(const QString& path)> reopen; // a document whose packets were missing
};

/// Interface thread only; disks are looked at on another one.
class MissingClips : public QObject
{
    Q_OBJECT

public:
    MissingClips(MissingClipsPorts ports, QObject* parent);

    /// Something else is open now, or more: what is missing of it is said above the list, too.
    void playlistShown();
    /// Whether what is open is being checked, or looked for.
    [[nodiscard]] bool isBusy() const { return m_busy; }
    [[nodiscard]] const std::vector<MissingFile>& missing() const { return m_missing; }

Q_SIGNALS:
    /// What is missing is known now.
    void checked();

private:
    void check();
    void take(int revision, std::vector<MissingFile> missing);
    void showInList();
    void say();
    void look();
    void lookBelow(const QString& folder);
    void takeMoved(const std::vector<MovedFolder>& moved);
    [[nodiscard]] QString summary() const;
    [[nodiscard]] QString reasonOf(const MissingFile& file) const;
    [[nodiscard]] QString text(QStringView name) const;

    MissingClipsPorts m_ports;
    std::vector<MissingFile> m_missing;
    bool m_busy = false;
    bool m_saysIt = false; // above the list, when it is known
    QString m_said;        // what it says there
    QTimer m_soon;
    BackgroundJob m_job;
};

} // namespace orvanta
