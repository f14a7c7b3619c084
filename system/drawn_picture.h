// A vector drawing that can be clicked.
#pragma once

#include <QAbstractButton>
#include <QIcon>

namespace orvanta {

/// An icon in every usual size. drawing: the resource of an SVG file.
[[nodiscard]] QIcon drawnIcon(const QString& drawing);

/// Fills itself with a drawing, whose shape is kept, crisp at every scale of the screen. Space and
/// Enter click it too. Assistive technology is told of a picture that can be pressed.
class DrawnPicture : public QAbstractButton
{
    Q_OBJECT

public:
    explicit DrawnPicture(QWidget* parent);

    /// drawing: the resource of an SVG file.
    void setDrawing(const QString& drawing);
    [[nodiscard]] QString drawing() const { return m_drawing; }
    /// The drawing's own size, logical pixels.
    [[nodiscard]] QSize ownSize() const;
    [[nodiscard]] QSize sizeHint() const override { return ownSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_drawing;
    QPixmap m_drawn; // for the present size and scale
};

} // namespace orvanta
