// Says in the log when a window has really been shown.
#pragma once

#include <QObject>

class QWidget;

namespace orvanta {

/// "orvanta.startup: main window shown" at the first painting after the window was hidden.
class ShownWatch : public QObject
{
    Q_OBJECT

public:
    explicit ShownWatch(QWidget& window);

protected:
    bool eventFilter(QObject* window, QEvent* event) override;

private:
    bool m_shown = false;
};

} // namespace orvanta
