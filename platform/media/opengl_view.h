// Shows a source's frames by OpenGL.
#pragma once

#include <QOpenGLWidget>

namespace orvanta {

struct OpenGlFrame;
class PictureSource;

/// Fills its parent; the mouse passes through it.
class OpenGlView : public QOpenGLWidget
{
    Q_OBJECT

public:
    OpenGlView(PictureSource& source, QWidget* parent);
    ~OpenGlView() override;

protected:
    void paintGL() override;

private:
    void showFrame();
    void draw(const OpenGlFrame& frame);

    PictureSource& m_source;
    std::shared_ptr<const OpenGlFrame> m_shown; // not drawn into as long as it may be read
};

} // namespace orvanta
