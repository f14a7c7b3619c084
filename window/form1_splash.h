// Form1, the splash window.
//
//   Image1   the Russian picture, over the artwork's English line
#pragma once

#include "core/int16.h"

#include <QTimer>
#include <QWidget>

namespace orvanta {

class PictureSign;

/// Always on top. Shows its Russian picture only when language is 2. Closes itself 3 s after it is
/// shown, unless somebody did before. Bears the main window's caption.
class Form1 : public QWidget
{
    Q_OBJECT

public:
    explicit Form1(Int16 language);

    PictureSign* Image1; // the Russian picture

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void centreOnScreen();

    QTimer m_expiry;
};

} // namespace orvanta
