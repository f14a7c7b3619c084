#include "playback/form4_bookmark_sign.h"

#include "playback/control_rows.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace orvanta {

constexpr int kSide = 32; // pixels
constexpr int kShownMilliseconds = 1000;
constexpr QColor kGround(0x1e, 0x22, 0x2a);
constexpr QColor kRibbon(0xf2, 0xa6, 0x3b);

/// A ribbon that hangs from the top edge, with a notch at its lower end.
static QPainterPath ribbon()
{
    QPainterPath path(QPointF(9, 0));
    path.lineTo(23, 0);
    path.lineTo(23, 27);
    path.lineTo(16, 20.5);
    path.lineTo(9, 27);
    path.closeSubpath();
    return path;
}

Form4::Form4(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput)
{
    nameControls({{this, u"Form4"}, {&Timer1, u"Timer1"}});
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusPolicy(Qt::NoFocus);
    setFixedSize(kSide, kSide);
    move(QGuiApplication::primaryScreen()->geometry().topLeft());
    Timer1.setInterval(kShownMilliseconds);
    connect(&Timer1, &QTimer::timeout, this, [this] { Form4_Timer1_Timer(); });
}

void Form4::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), kGround);
    painter.fillPath(ribbon(), kRibbon);
}

void Form4::showEvent(QShowEvent* /*event*/)
{
    Timer1.start();
}

void Form4::Form4_Timer1_Timer()
{
    Timer1.stop();
    close();
}

void showBookmarkSign(const QScreen& screen)
{
    auto* sign = new Form4;
    sign->move(screen.geometry().topLeft());
    sign->show();
}

} // namespace orvanta
