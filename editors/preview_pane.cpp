#include "editors/preview_pane.h"

#include "platform/media/video_surface.h"

#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace orvanta {

// Exact seeks take up to a tenth of a second and more: many of them in a row would show nothing.
constexpr int kRestMilliseconds = 120;

PreviewPane::PreviewPane(Factory factory, std::function<int()> volume, QWidget* parent)
    : QWidget(parent),
      m_factory(std::move(factory)),
      m_volume(std::move(volume)),
      m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    setMinimumSize(120, 67); // the whole editor fits 683 by 336
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRestMilliseconds);
    connect(&m_rest, &QTimer::timeout, this, &PreviewPane::showExactly);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

PreviewPane::~PreviewPane()
{
    if (m_control != nullptr) {
        m_control->disconnect(this);
    }
    // The surface takes its pictures from the control.
    delete m_surface;
}

void PreviewPane::makeControl()
{
    m_control = m_factory();
    m_surface = new VideoSurface(m_control->picture(), this);
    m_surface->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_layout->addWidget(m_surface);
    connect(m_control.get(), &MediaControl::openComplete, this,
            [this] { Q_EMIT opened(m_control->Duration()); });
    connect(m_control.get(), &MediaControl::openFailed, this, &PreviewPane::closed);
    connect(m_control.get(), &MediaControl::durationChange, this, &PreviewPane::durationChanged);
    connect(m_control.get(), &MediaControl::stateChange, this, &PreviewPane::stateChanged);
    connect(m_control.get(), &MediaControl::position, this,
            [this] { Q_EMIT positionChanged(m_control->CurrentPosition()); });
}

void PreviewPane::openFile(const QString& path)
{
    if (m_control == nullptr) {
        makeControl();
    }
    m_rest.stop();
    m_control->setVolume(m_volume());
    m_control->setFileName(path);
    if (path.isEmpty()) {
        Q_EMIT closed();
    }
}

bool PreviewPane::isOpen() const
{
    return m_control != nullptr && m_control->isReady();
}

void PreviewPane::previewAt(double seconds)
{
    if (isOpen()) {
        m_control->Pause();
        m_control->previewPosition(seconds);
        m_heldSeconds = seconds;
        m_rest.start();
    }
}

void PreviewPane::showExactly()
{
    if (isOpen()) {
        m_control->setCurrentPosition(m_heldSeconds);
    }
}

void PreviewPane::runFrom(double seconds)
{
    m_rest.stop();
    if (isOpen()) {
        m_control->Stop();
        m_control->setCurrentPosition(seconds);
        run();
    }
}

void PreviewPane::run()
{
    Q_EMIT runs();
    m_control->Run();
}

bool PreviewPane::isRunning() const
{
    return isOpen() && m_control->CurrentState() == MediaControl::Running;
}

void PreviewPane::toggle()
{
    if (isRunning()) {
        m_control->Pause();
    } else if (isOpen()) {
        run();
    }
}

void PreviewPane::mousePressEvent(QMouseEvent* /*event*/)
{
    toggle();
}

void PreviewPane::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace orvanta
