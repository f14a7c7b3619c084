// The row in which marks are looked for in a clip's silences.
//
//   LevelBox   below which loudness it is silent    LengthBox  how long at least
//   FoundLabel how many marks that gives            TakeButton sets them
//   CloseButton  closes the row
#pragma once

#include "playback/control_rows.h"

#include <QWidget>

class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace orvanta {

class SilenceRow : public QWidget
{
    Q_OBJECT

public:
    SilenceRow(TextLanguage language, QWidget* parent);

    QLabel* LevelLabel;        // of LevelBox
    QSpinBox* LevelBox;        // below which loudness it is silent, decibels
    QLabel* LengthLabel;       // of LengthBox
    QDoubleSpinBox* LengthBox; // how long at least, seconds
    QLabel* FoundLabel;        // how many marks that gives
    QPushButton* TakeButton;   // sets them
    QPushButton* CloseButton;  // closes the row

    void open();
    void setFound(int marks);
    [[nodiscard]] double decibels() const;
    [[nodiscard]] double seconds() const;

Q_SIGNALS:
    void changed();
    void taken();
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] ControlRows controls();
    void layOut();

    TextLanguage m_language;
};

} // namespace orvanta
