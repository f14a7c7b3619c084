// Form9, the About window: what the program is, where its problems go, where its handbook lies.
//
//   Image1    the program's picture; a click shows it enlarged in Form3
//   Label1    the program about itself: version, licence, libraries, how to report a problem
//   Label2    caption of label6        label6   where to tell what is wrong
//   Label7    the note about the handbook
//   Image8    the handbook's picture   Text1    the handbook's title
//   Command1  closes the window
#pragma once

#include "model/module1.h"
#include "platform/media/media_control.h"
#include "playback/control_rows.h"

#include <QWidget>

#include <functional>
#include <memory>

class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace orvanta {

class DrawnPicture;
class Form3;

class Form9 : public QWidget
{
    Q_OBJECT

public:
    /// picture: how pictures are drawn and decoded now.
    explicit Form9(
        const Module1& module,
        std::function<PictureFacts()> picture = [] { return PictureFacts(); },
        QWidget* parent = nullptr);
    ~Form9() override;

    /// Loads the window, in the language that is stored by then, and shows it; one that is open
    /// comes to the front as it is.
    void showAbout();

    DrawnPicture* Image1;  // the program's picture
    QLabel* Label1;        // a few sentences about the program
    QLabel* Label2;        // caption of label6
    QLabel* label6;        // where to tell what is wrong
    QLabel* Label7;        // the note about the handbook
    DrawnPicture* Image8;  // the handbook's picture; not in Russian, where the note names it
    QLineEdit* Text1;      // the handbook's title, read only
    QPushButton* Command1; // closes the window

    /// The enlarged picture; null until it was asked for.
    [[nodiscard]] Form3* pictureWindow() const { return m_pictureWindow.get(); }

private:
    [[nodiscard]] ControlRows controls();
    void layOut();
    [[nodiscard]] QBoxLayout* textColumn();
    void connectHandlers();

    void Form9_Form_Load();
    void Form9_Image1_Click();
    void Form9_Command1_Click();

    const Module1& m_module;
    std::function<PictureFacts()> m_picture;
    std::unique_ptr<Form3> m_pictureWindow;
};

} // namespace orvanta
