// The window of the add-in Export.
#pragma once

#include "companions/exchange/exporting.h"
#include "companions/exchange_windows/companion_window.h"
#include "platform/media/background_job.h"

#include <functional>
#include <memory>

class QComboBox;
class QGridLayout;
class QLineEdit;
class QProgressBar;

namespace orvanta {

class ChapterCopy;

/// What the window asks its surroundings for.
struct ExportServices
{
    /// A lesson; empty: none chosen.
    std::function<QString(QWidget& parent, const QString& title, const QString& folder)> pickLesson;
    /// Where to write; empty: nowhere.
    std::function<QString(QWidget& parent, const QString& title, const QString& proposed)>
        pickTarget;
    QStringList recentLessons; // the one used last comes first
};

// LessonBox      the lesson: those that were on last, and what was chosen
// ChooseLesson   chooses another one
// FormatBox      what it is written as
// TargetText     where it goes
// ChooseTarget   chooses the place
// Summary        what would be written, and what has been
// Progress       of copying a clip
// ExportNow      writes; while a clip is copied, ends that
class ExportWindow : public CompanionWindow
{
    Q_OBJECT

public:
    ExportWindow(TextLanguage language, ExportServices services);
    ~ExportWindow() override;

    QComboBox* LessonBox;      // the lesson
    QPushButton* ChooseLesson; // chooses another one
    QComboBox* FormatBox;      // what it is written as
    QLineEdit* TargetText;     // where it goes
    QPushButton* ChooseTarget; // chooses the place
    QLabel* Summary;           // what is, or was, written
    QProgressBar* Progress;    // of copying a clip
    QPushButton* ExportNow;    // writes; cancels copying

    void take(const QString& lesson);
    [[nodiscard]] bool isWriting() const { return m_copy != nullptr; }

Q_SIGNALS:
    /// All is written, or has failed.
    void finished();

private:
    void layOut();
    void addRows(QGridLayout& grid);
    void connectHandlers();
    void ExportWindow_ChooseLesson_Click();
    void ExportWindow_ChooseTarget_Click();
    void ExportWindow_ExportNow_Click();
    void proposeTarget();
    void begin(ExportPlan plan);
    void writeNext();
    void copyClip(const ExportPart& part);
    void takePart(const ExportPart& part, const char16_t* failure, const QString& detail);
    void end();
    void setBusy(bool isBusy);
    [[nodiscard]] ExportOrder order() const;

    ExportServices m_services;
    ExportPlan m_plan;
    ExportFormat m_format = ExportFormat::M3u8;
    std::size_t m_next = 0; // of the plan's parts
    QStringList m_written;
    std::unique_ptr<ChapterCopy> m_copy;
    BackgroundJob m_job;
    bool m_isBusy = false;
    bool m_isCancelled = false;
};

} // namespace orvanta
