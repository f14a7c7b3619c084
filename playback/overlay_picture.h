// A small picture that lies over another one and comes and goes softly.
#pragma once

#include <QElapsedTimer>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

namespace orvanta {

/// As large as its picture and invisible to the mouse. Nothing is drawn anew while it lies there:
/// what moves below it costs one copy of the picture. Interface thread only.
class OverlayPicture : public QWidget
{
    Q_OBJECT

public:
    explicit OverlayPicture(QWidget* parent);

    /// A picture that shows already is replaced at once; otherwise this one fades in. A null one
    /// fades out what shows.
    void showPicture(const QPixmap& picture);
    void fadeOut();
    /// Takes it away without a fade.
    void vanish();
    /// Whether it is there to stay, faded in or on its way.
    [[nodiscard]] bool isShown() const { return m_isShown; }
    /// 0 to 1.
    [[nodiscard]] qreal strength() const { return m_strength; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void beginFade(bool in);
    void step();

    QPixmap m_picture;
    QTimer m_frames;
    QElapsedTimer m_begun;
    qreal m_strength = 0;
    bool m_isShown = false;
};

} // namespace orvanta
