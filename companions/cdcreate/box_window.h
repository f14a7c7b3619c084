// The window of "CD Create": which lessons, what belongs to them, what is made of them and where.
//
//   LessonList   the packets and groups         AddButton     takes more of them
//   RemoveButton takes off what is selected     SummaryLabel  how much it is
//   MissingLabel how much is missing            MissingList   what, one a line
//   SkipBox      goes on without that           FormBox       what is made: FolderOption,
//   TargetEdit   where the box comes                          ImageOption, ZipOption
//   TargetButton chooses that                   BrowserBox    adds the page for browsers
//   ReplaceBox   in place of an earlier box     ProgressBar   of what is being done
//   ProgressLabel the same in words             ResultLabel   what became of it
//   OpenButton   opens the folder of the box    StartButton   begins
//   CloseButton  stops, or closes the window
#pragma once

#include "companions/cdcreate/box_extra.h"
#include "companions/cdcreate/box_plan.h"
#include "companions/cdcreate/box_speed.h"
#include "companions/cdcreate/box_task.h"
#include "model/texts.h"
#include "playback/control_rows.h"

#include <QStringList>
#include <QWidget>

#include <memory>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace orvanta {

/// An ordinary window of the desktop.
class BoxWindow : public QWidget
{
    Q_OBJECT

public:
    /// makePage: null when no page for browsers can be made; the tick is not there then.
    BoxWindow(TextLanguage language, MakeExtras makePage);
    ~BoxWindow() override;

    QLabel* LessonLabel;        // caption of LessonList
    QListWidget* LessonList;    // the packets and groups
    QPushButton* AddButton;     // takes more of them
    QPushButton* RemoveButton;  // takes off what is selected
    QLabel* SummaryLabel;       // how much it is
    QLabel* MissingLabel;       // caption of MissingList, with a number
    QListWidget* MissingList;   // what is missing
    QCheckBox* SkipBox;         // goes on without what is missing
    QGroupBox* FormBox;         // what is made
    QRadioButton* FolderOption; // a folder
    QRadioButton* ImageOption;  // an image of a disc
    QRadioButton* ZipOption;    // a ZIP archive
    QLabel* TargetLabel;        // caption of TargetEdit
    QLineEdit* TargetEdit;      // the box's whole path
    QPushButton* TargetButton;  // chooses it
    QCheckBox* BrowserBox;      // adds the page for browsers
    QCheckBox* ReplaceBox;      // in place of an earlier box
    QProgressBar* ProgressBar;  // of the present step
    QLabel* ProgressLabel;      // the same in words
    QLabel* ResultLabel;        // what became of it
    QPushButton* OpenButton;    // opens the folder of the box
    QPushButton* StartButton;   // begins
    QPushButton* CloseButton;   // stops what runs, else closes the window

    /// Those that are no packet and no group are named and left out.
    void addLessons(const QStringList& files);
    [[nodiscard]] QStringList lessons() const;
    /// Closes the window once what runs has been taken back.
    void closeSoon();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Phase
    {
        Idle,
        Gathering,
        Making,
    };

    [[nodiscard]] ControlRows controls();
    void layOut();
    [[nodiscard]] QWidget* lessonPart();
    [[nodiscard]] QWidget* targetPart();
    [[nodiscard]] QWidget* endPart();
    void connectHandlers();

    void chooseLessons();
    void removeLessons();
    void gather();
    void showPlan();
    void showMissing();
    void proposeTarget();
    void chooseTarget();
    void start();
    void stopOrClose();
    void showProgress(const BoxState& state);
    void end(const BoxFailure* failure);
    void showResult(const BoxFailure* failure);
    void showState();
    void openMade();
    void forgetResult();

    [[nodiscard]] QString text(QStringView what) const;    // what is said of boxes
    [[nodiscard]] QString caption(QStringView what) const; // of this window
    [[nodiscard]] QString ending() const;
    [[nodiscard]] QString target() const;
    [[nodiscard]] bool canStart() const;

    TextLanguage m_language;
    MakeExtras m_makePage;
    Phase m_phase = Phase::Idle;
    bool m_gathersAgain = false; // what is gathered is no longer what is wanted
    bool m_closes = false;
    std::shared_ptr<BoxPlan> m_plan; // null: nothing is gathered; never touched while work has it
    QString m_made;                  // the box that was made last
    BoxSpeed m_speed;
    BoxTask m_task; // goes first
};

} // namespace orvanta
