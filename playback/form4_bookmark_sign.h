// Form4, the bookmark sign: says for a second that a bookmark was set.
//
//   Timer1   1 s: the sign unloads itself
#pragma once

#include <QTimer>
#include <QWidget>

class QScreen;

namespace orvanta {

/// A 32 by 32 pixel window without a frame at the top left of the screen, above all others. It
/// takes neither focus nor clicks. Create it with new and show it: it deletes itself.
class Form4 : public QWidget
{
    Q_OBJECT

public:
    explicit Form4(QWidget* parent = nullptr);

    QTimer Timer1; // 1 s: unloads the window

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Form4_Timer1_Timer();
};

/// Shows the sign on the primary screen. A sign that still shows stays its own second.
void showBookmarkSign(const QScreen& screen);

} // namespace orvanta
