#include "editors/window_parts.h"

#include "editors/entry_list.h"

#include <QApplication>
#include <QIconEngine>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>

#include <limits>

namespace orvanta {

using namespace Qt::StringLiterals;

TextLanguage editorLanguage(const Module1& module)
{
    return textLanguage(module.Language.value(), TextLanguage::English);
}

QList<QKeySequence> undoKeys()
{
    return {Qt::CTRL | Qt::Key_Z};
}

QList<QKeySequence> redoKeys()
{
    return {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y};
}

LineBox::LineBox(QWidget* parent)
    : QLineEdit(parent)
{
    setMaxLength(std::numeric_limits<int>::max());
    connect(this, &QLineEdit::textChanged, this, &LineBox::takeChange);
}

static bool isOneOf(const QList<QKeySequence>& keys, const QKeyEvent& event)
{
    return keys.contains(QKeySequence(event.keyCombination()));
}

// A box takes the keys of undo for its own even where there is nothing that it could undo, and does
// not know all of them.
bool LineBox::event(QEvent* event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (!isOverride && event->type() != QEvent::KeyPress) {
        return QLineEdit::event(event);
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool isUndo = isOneOf(undoKeys(), key);
    if (!isUndo && !isOneOf(redoKeys(), key)) {
        return QLineEdit::event(event);
    }
    const bool isOwn = isUndo ? isUndoAvailable() : isRedoAvailable();
    event->setAccepted(isOwn);
    if (isOwn && !isOverride) {
        isUndo ? undo() : redo();
    }
    return isOwn;
}

// Assistive technology sets the text itself, which is the user's doing like any other.
void LineBox::takeChange()
{
    const QString line = onOneLine(text());
    if (line != text()) {
        const int cursor = cursorPosition();
        setText(line); // comes here again
        setCursorPosition(cursor);
    } else if (!m_isShowing) {
        Q_EMIT edited();
    }
}

void LineBox::show(const QString& text)
{
    const QScopedValueRollback showing(m_isShowing, true);
    setText(text);
    setCursorPosition(0);
}

namespace {

/// Draws on a square of 16 in the palette's colours, whatever size is asked for.
class PictureEngine : public QIconEngine
{
public:
    explicit PictureEngine(ButtonPicture picture)
        : m_picture(picture)
    {}

    [[nodiscard]] QIconEngine* clone() const override { return new PictureEngine(*this); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QPalette palette = QApplication::palette();
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        QColor stroke = palette.color(group, QPalette::ButtonText);
        if (m_picture == ButtonPicture::Create) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(palette.color(group, QPalette::Highlight));
            painter->drawEllipse(QRectF(0.5, 0.5, 15, 15));
            stroke = palette.color(group, QPalette::HighlightedText);
        }
        paintSign(*painter, stroke);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect({}, size), mode, state);
        return pixmap;
    }

private:
    void paintSign(QPainter& painter, const QColor& colour) const
    {
        if (m_picture == ButtonPicture::Play) {
            QPainterPath triangle(QPointF(4.5, 3));
            triangle.lineTo(13, 8);
            triangle.lineTo(4.5, 13);
            triangle.closeSubpath();
            painter.fillPath(triangle, colour);
        } else if (m_picture == ButtonPicture::Pause) {
            painter.fillRect(QRectF(4, 3, 3, 10), colour);
            painter.fillRect(QRectF(9, 3, 3, 10), colour);
        } else {
            paintCheck(painter, colour);
        }
    }

    static void paintCheck(QPainter& painter, const QColor& colour)
    {
        QPainterPath check(QPointF(4, 8.4));
        check.lineTo(6.9, 11.2);
        check.lineTo(12, 5.2);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(check);
    }

    ButtonPicture m_picture;
};

} // namespace

QIcon buttonPicture(ButtonPicture picture)
{
    return QIcon(new PictureEngine(picture));
}

QPushButton* captionButton(QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setAutoDefault(false);
    return button;
}

QPushButton* pictureButton(ButtonPicture picture, QWidget* parent)
{
    QPushButton* button = captionButton(parent);
    button->setIcon(buttonPicture(picture));
    button->setIconSize({20, 20});
    button->setMinimumWidth(64);
    return button;
}

void giveRoomAtTheSides(QWidget& window)
{
    constexpr int kRoomAtTheSides = 16; // some styles leave next to none
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
        if (button->icon().isNull()) {
            button->setMinimumWidth(button->sizeHint().width() + kRoomAtTheSides);
        }
    }
}

QLabel* boxLabel(const QString& caption, QWidget* box)
{
    auto* label = new QLabel(caption, box->parentWidget());
    label->setBuddy(box);
    return label;
}

QSplitter* chooserOf(QWidget* tree, QWidget* files)
{
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(tree);
    splitter->addWidget(files);
    splitter->setChildrenCollapsible(false);
    return splitter;
}

} // namespace orvanta
