// The window of the add-in Import.
#pragma once

#include "companions/exchange/importing.h"
#include "companions/exchange_windows/companion_window.h"
#include "platform/media/background_job.h"

#include <functional>

class QLineEdit;
class QTreeWidget;

namespace orvanta {

/// What the window asks its surroundings for.
struct ImportServices
{
    /// Files to import; empty: none chosen.
    std::function<QStringList(QWidget& parent, const QString& title, const QString& folder)>
        pickFiles;
    std::function<QString(QWidget& parent, const QString& title, const QString& folder)> pickClip;
    /// Where to save; empty: nowhere.
    std::function<QString(QWidget& parent, const QString& title, const QString& proposed)>
        pickTarget;
    /// Opens a lesson in the player; false when there is none.
    std::function<bool(const QString& lesson)> open;
};

// SourceText     the files that are imported
// ChooseSource   chooses them
// ClipText       the clip that marks are in, when their file does not say it
// ChooseClip     chooses it
// Preview        what comes in: time, text and clip, packet by packet
// Summary        how much that is
// SaveAndOpen    writes the lesson and opens it in the player
class ImportWindow : public CompanionWindow
{
    Q_OBJECT

public:
    ImportWindow(TextLanguage language, ImportServices services);

    QLineEdit* SourceText;     // the files that are imported
    QPushButton* ChooseSource; // chooses them
    QLineEdit* ClipText;       // the clip of marks that do not say theirs
    QPushButton* ChooseClip;   // chooses it
    QTreeWidget* Preview;      // packets with times, texts and clips
    QLabel* Summary;           // how many there are
    QPushButton* SaveAndOpen;  // writes, and opens in the player

    /// Looks at these files, whatever it had before.
    void take(const QStringList& files);
    [[nodiscard]] bool isReading() const { return m_isReading; }

Q_SIGNALS:
    /// The files have been read, and are shown.
    void ready();

protected:
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    void connectHandlers();
    void ImportWindow_ChooseSource_Click();
    void ImportWindow_ChooseClip_Click();
    void ImportWindow_SaveAndOpen_Click();
    void read();
    void showLesson(ImportedLesson imported);
    void showSummary();
    void takeDropped(const QStringList& files);
    [[nodiscard]] QString folder() const;

    ImportServices m_services;
    ImportOrder m_order;
    ImportedLesson m_imported;
    BackgroundJob m_job;
    bool m_isReading = false;
};

} // namespace orvanta
