#include "window/form1_splash.h"

#include "playback/control_rows.h"
#include "window/picture_sign.h"
#include "window/skin.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <chrono>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr QSize kArtwork(480, 272);
// Where the artwork has its English line.
constexpr QRect kRussianPicture(30, 170, 118, 36);

Form1::Form1(Int16 language)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      Image1(new PictureSign(
          [](qreal ratio) {
              return skin::artwork(u"splash_russian"_s, kRussianPicture.size(), ratio);
          },
          kRussianPicture.size(), this))
{
    const ControlRows controls = {{this, u"Form1"}, {Image1, u"Image1"}};
    nameControls(controls);
    applyTexts(controls, TextLanguage::English);
    setWindowIcon(skin::applicationIcon());
    setFixedSize(kArtwork);
    Image1->move(kRussianPicture.topLeft());
    Image1->setVisible(language == Int16(2));
    m_expiry.setTimerType(Qt::PreciseTimer);
    m_expiry.setSingleShot(true);
    m_expiry.setInterval(std::chrono::seconds(3));
    connect(&m_expiry, &QTimer::timeout, this, &QWidget::close);
    centreOnScreen();
}

void Form1::centreOnScreen()
{
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        move(screen->availableGeometry().center() - rect().center());
    }
}

void Form1::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).drawPixmap(0, 0, skin::artwork(u"splash"_s, kArtwork, devicePixelRatioF()));
}

void Form1::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_expiry.start();
}

// Nobody should have to wait for a picture.
void Form1::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    close();
}

} // namespace orvanta
