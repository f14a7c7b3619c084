// The panel of the practice button: tempo, repeats, waiting.
//
//   SpeedBox    the speed                   TimesBox    how often each line is played
//   WaitBox     the wait after each line    FromBox     the first round's tempo
//   StepBox     how much faster each further round is
//   MirrorBox   the picture, left to right  EvenBox     even loudness
//   NormalButton  all as usual
#pragma once

#include "model/practice.h"
#include "playback/control_rows.h"

#include <QFrame>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace orvanta {

/// Lies above the window's other controls and is not modal: Escape, or the button that has opened
/// it, closes it.
class PracticePanel : public QFrame
{
    Q_OBJECT

public:
    PracticePanel(TextLanguage language, QWidget* parent);

    QLabel* SpeedLabel;        // of SpeedBox
    QComboBox* SpeedBox;       // the speed, 0.25 to 2
    QLabel* TimesLabel;        // of TimesBox
    QComboBox* TimesBox;       // how often each line is played
    QLabel* WaitLabel;         // of WaitBox
    QComboBox* WaitBox;        // what comes after each line
    QLabel* FromLabel;         // of FromBox
    QComboBox* FromBox;        // the first round's tempo
    QLabel* StepLabel;         // of StepBox
    QComboBox* StepBox;        // how much faster each further round is
    QCheckBox* MirrorBox;      // the picture, left to right
    QCheckBox* EvenBox;        // loud and quiet clips at one level
    QPushButton* NormalButton; // all as usual

    /// Shows these values; says nothing.
    void setValues(const Practice& practice);
    /// Shows itself above a button of its parent, with the focus on its first box.
    void openAbove(const QWidget& button);

Q_SIGNALS:
    /// A person has chosen.
    void chosen(const orvanta::Practice& practice);
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void buildControls();
    void fillBoxes();
    void layOut();
    void connectHandlers();
    [[nodiscard]] ControlRows controls();
    void choose();

    TextLanguage m_language;
    Practice m_values;
};

} // namespace orvanta
