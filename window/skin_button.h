// A picture button of the skin, and the hidden holder of a button's other picture.
#pragma once

#include <QColor>
#include <QToolButton>
#include <QWidget>

namespace orvanta {

/// One of a button's looks: a drawing and its colour.
struct SkinPicture
{
    QString name; // a drawing of the skin's family, for example "play"
    QColor colour;

    friend bool operator==(const SkinPicture&, const SkinPicture&) = default;
};

/// A button that is a picture. Reached by Tab, pressed by Space or Return; the mouse leaves the
/// keyboard focus where it is. Left and Right pass on to the window. Its accessible name is its
/// tool tip unless it is given one.
class SkinButton : public QToolButton
{
    Q_OBJECT

public:
    enum class Face
    {
        Raised,  // a rounded square
        Flat,    // no face of its own until the pointer is over it
        Warning, // flat, and red under the pointer
        Accent,  // the round one
    };

    /// side: of the square that the button fills, logical pixels.
    SkinButton(Face face, int side, SkinPicture picture, QWidget* parent);

    [[nodiscard]] const SkinPicture& picture() const { return m_picture; }
    void setPicture(const SkinPicture& picture);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QColor faceColour() const;
    [[nodiscard]] QColor accentFaceColour(bool over) const;
    [[nodiscard]] QColor flatFaceColour(const QColor& hover) const;
    [[nodiscard]] qreal radius() const;
    void paintFace(QPainter& painter) const;
    void paintFocus(QPainter& painter) const;
    void paintPicture(QPainter& painter) const;

    Face m_face;
    int m_side;
    SkinPicture m_picture;
};

/// Holds a picture and is never shown.
class PictureHolder : public QWidget
{
    Q_OBJECT

public:
    PictureHolder(SkinPicture picture, QWidget* parent);

    [[nodiscard]] const SkinPicture& picture() const { return m_picture; }
    void setPicture(const SkinPicture& picture) { m_picture = picture; }

private:
    SkinPicture m_picture;
};

/// Exchanges the pictures of a button and its holder, by way of a scratch holder.
void exchangePictures(SkinButton& button, PictureHolder& other, PictureHolder& scratch);

} // namespace orvanta
