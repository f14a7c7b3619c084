// Form11, the language dialog of the first start.
//
//   Option1    English    Image1   its badge
//   Option2    Russian    Image2   its badge
//   Command1   confirms the choice
#pragma once

#include "playback/control_rows.h"

#include <QDialog>

class QPushButton;
class QRadioButton;

namespace orvanta {

class PictureSign;

/// To be shown modally. Its button writes "main"/"language" and closes it; closing it in any other
/// way writes nothing.
class Form11 : public QDialog
{
    Q_OBJECT

public:
    explicit Form11(QString iniPath);

    QRadioButton* Option1; // English; selected at first
    QRadioButton* Option2; // Russian
    PictureSign* Image1;   // badge of Option1
    PictureSign* Image2;   // badge of Option2
    QPushButton* Command1; // confirms

private:
    [[nodiscard]] ControlRows controls();
    void layOut();
    void connectHandlers();

    void Form11_Option1_Click();
    void Form11_Option2_Click();
    void Form11_Command1_Click();

    QString m_iniPath;
};

} // namespace orvanta
