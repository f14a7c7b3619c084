#include "window/skin_button.h"

#include "window/skin.h"

#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace orvanta {

SkinButton::SkinButton(Face face, int side, SkinPicture picture, QWidget* parent)
    : QToolButton(parent),
      m_face(face),
      m_side(side),
      m_picture(std::move(picture))
{
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setFixedSize(side, side);
}

void SkinButton::setPicture(const SkinPicture& picture)
{
    m_picture = picture;
    update();
}

QSize SkinButton::sizeHint() const
{
    return {m_side, m_side};
}

void SkinButton::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
        event->ignore(); // the window's keys; the base class would move the focus
        break;
    default:
        QToolButton::keyPressEvent(event);
    }
}

void SkinButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFace(painter);
    paintPicture(painter);
    if (hasFocus()) {
        paintFocus(painter);
    }
}

QColor SkinButton::flatFaceColour(const QColor& hover) const
{
    if (!isEnabled() || !underMouse()) {
        return Qt::transparent;
    }
    return isDown() ? hover.darker(120) : hover;
}

QColor SkinButton::accentFaceColour(bool over) const
{
    if (!isEnabled()) {
        return skin::kAccentFaint;
    }
    return isDown() ? skin::kAccentDown : over ? skin::kAccentHover : skin::kAccent;
}

QColor SkinButton::faceColour() const
{
    const bool over = underMouse() && isEnabled();
    switch (m_face) {
    case Face::Flat:
        return flatFaceColour(skin::kRaisedHover);
    case Face::Warning:
        return flatFaceColour(skin::kWarning);
    case Face::Accent:
        return accentFaceColour(over);
    case Face::Raised:
        break;
    }
    if (!isEnabled()) {
        return skin::kRaisedDown;
    }
    if (isChecked()) { // what it opens, or switches on, is there
        return over ? skin::kAccentDeep : skin::kAccentFaint;
    }
    return isDown() ? skin::kRaisedDown : over ? skin::kRaisedHover : skin::kRaised;
}

qreal SkinButton::radius() const
{
    return m_face == Face::Accent ? m_side / 2.0 : skin::kControlRadius;
}

void SkinButton::paintFace(QPainter& painter) const
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(faceColour());
    painter.drawRoundedRect(rect(), radius(), radius());
}

void SkinButton::paintFocus(QPainter& painter) const
{
    const QColor ring = m_face == Face::Accent && isEnabled() ? skin::kText : skin::kAccent;
    painter.setPen(QPen(ring, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius() - 1, radius() - 1);
}

void SkinButton::paintPicture(QPainter& painter) const
{
    const int side = m_face == Face::Accent ? 24 : 16;
    const QColor colour =
        m_face == Face::Warning && underMouse() ? QColor(skin::kText) : m_picture.colour;
    const QPoint place((width() - side) / 2, (height() - side) / 2 + (isDown() ? 1 : 0));
    painter.drawPixmap(place, skin::picture(m_picture.name, colour, side, devicePixelRatioF()));
}

PictureHolder::PictureHolder(SkinPicture picture, QWidget* parent)
    : QWidget(parent),
      m_picture(std::move(picture))
{
    hide();
}

void exchangePictures(SkinButton& button, PictureHolder& other, PictureHolder& scratch)
{
    scratch.setPicture(button.picture());
    button.setPicture(other.picture());
    other.setPicture(scratch.picture());
}

} // namespace orvanta
