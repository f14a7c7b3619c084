// Form3, the picture window: one picture, enlarged; a click closes it.
//
//   Image1   the picture
#pragma once

#include <QWidget>

namespace orvanta {

class DrawnPicture;

class Form3 : public QWidget
{
    Q_OBJECT

public:
    /// title: of the window, since a picture alone says nothing in a list of windows.
    explicit Form3(const QString& title, QWidget* parent = nullptr);

    void setTitle(const QString& title);

    DrawnPicture* Image1; // the picture; a click on it closes the window

    /// Shows a drawing in its own size, framed by 100 twips in all. An open window takes the new
    /// drawing and size and comes to the front.
    void showPicture(const QString& drawing);

private:
    void Form3_Image1_Click();
};

} // namespace orvanta
