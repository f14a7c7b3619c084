// Where the keyboard is, also in a list without rows.
#pragma once

#include <QWidget>

namespace orvanta {

/// Gives every list and tree of the window a ring that shows while it has the focus: most styles
/// show the focus at a row alone. Called when every control is there.
void showFocusOfViews(QWidget& window);

/// A line around its view, over the frame. Never takes the mouse.
class FocusRing : public QWidget
{
    Q_OBJECT

public:
    explicit FocusRing(QWidget* view);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void lieAroundTheView();
};

} // namespace orvanta
