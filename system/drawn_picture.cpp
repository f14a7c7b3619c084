#include "system/drawn_picture.h"

#include "platform/file_types/drawing.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QStyleOptionFocusRect>

// A static library's resources are dropped by the linker unless somebody asks for them, and the
// macro works only outside of namespaces.
static void loadDrawings()
{
    Q_INIT_RESOURCE(system);
}

namespace orvanta {

QIcon drawnIcon(const QString& drawing)
{
    loadDrawings();
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64, 128}) {
        icon.addPixmap(drawingPixmap(drawing, {side, side}, 1));
    }
    return icon;
}

namespace {

/// Everything as a button, but for what it is said to be.
class AccessiblePicture : public QAccessibleWidget
{
public:
    explicit AccessiblePicture(DrawnPicture* picture)
        : QAccessibleWidget(picture, QAccessible::Graphic)
    {}

    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override
    {
        if (action == pressAction()) {
            static_cast<DrawnPicture*>(widget())->click();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }
};

} // namespace

static QAccessibleInterface* accessiblePicture(const QString& /*className*/, QObject* object)
{
    auto* picture = qobject_cast<DrawnPicture*>(object);
    return picture != nullptr ? new AccessiblePicture(picture) : nullptr;
}

DrawnPicture::DrawnPicture(QWidget* parent)
    : QAbstractButton(parent)
{
    QAccessible::installFactory(accessiblePicture); // once, however often it is called
    loadDrawings();
    setCursor(Qt::PointingHandCursor);
}

void DrawnPicture::setDrawing(const QString& drawing)
{
    m_drawing = drawing;
    m_drawn = {};
    updateGeometry();
    update();
}

QSize DrawnPicture::ownSize() const
{
    return m_drawing.isEmpty() ? QSize() : drawingSize(m_drawing);
}

void DrawnPicture::paintEvent(QPaintEvent* /*event*/)
{
    const QSizeF shown = m_drawn.deviceIndependentSize();
    if (shown.toSize() != size() || m_drawn.devicePixelRatio() != devicePixelRatioF()) {
        m_drawn = drawingPixmap(m_drawing, size(), devicePixelRatioF());
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_drawn);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void DrawnPicture::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace orvanta
