// The widget that paints the running clip.
#pragma once

#include <QWidget>

namespace orvanta {

class OpenGlView;
class PictureSource;

/// Whether the fourth byte of a widget's pixels is taken for an opacity on this platform (Qt's
/// name). The widget's window need not be made yet.
[[nodiscard]] bool blends(const QWidget& widget, const QString& platform);

/// Shows a PictureSource's frames, aspect kept, black around: paints them, or has a child that
/// draws them by OpenGL, as the source wants it now. Null source: stays black. Hidden, it asks for
/// no frames.
class VideoSurface : public QWidget
{
    Q_OBJECT

public:
    explicit VideoSurface(PictureSource* source, QWidget* parent = nullptr);

    /// The last frame stays also when a clip without a picture opens, until this is hidden.
    void setKeepsLastFrame();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void chooseView();
    void announceSize();
    void announceBlending();
    [[nodiscard]] QSize deviceSize() const;

    PictureSource* m_source;
    OpenGlView* m_view = nullptr; // while the source is one of OpenGL
};

} // namespace orvanta
