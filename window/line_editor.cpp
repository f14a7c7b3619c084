#include "window/line_editor.h"

#include "playback/spoken_focus.h"
#include "playback/typed_key.h"
#include "window/playlist_list.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

LineEditor::LineEditor(PlaylistList* list)
    : QLineEdit(list->viewport()),
      m_list(list)
{
    setObjectName(u"LineBox"_s);
    setFrame(false);
    hide();
    connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { place(); });
}

void LineEditor::edit(int line, Field field, const QString& text)
{
    finish();
    m_line = line;
    m_field = field;
    setFont(m_list->font());
    tellFocusAlone(*this);
    setText(text);
    place();
    show();
    selectAll();
    setFocus(Qt::OtherFocusReason);
}

void LineEditor::place()
{
    if (isOpen()) {
        const bool isText = m_field == Field::Text;
        setGeometry(isText ? m_list->textArea(m_line) : m_list->timeArea(m_line));
    }
}

void LineEditor::close()
{
    m_line = -1;
    const bool hadFocus = hasFocus();
    hide();
    if (hadFocus) {
        m_list->setFocus(Qt::OtherFocusReason);
    }
}

void LineEditor::finish()
{
    if (!isOpen()) {
        return;
    }
    const int line = m_line;
    close();
    Q_EMIT typed(line, m_field, text());
}

void LineEditor::giveUp()
{
    if (isOpen()) {
        close();
    }
}

// Tab would leave the box before any key reaches it.
bool LineEditor::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (isOpen() && (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab)) {
            const int line = m_line;
            const Field other = m_field == Field::Text ? Field::Time : Field::Text;
            finish();
            Q_EMIT otherFieldAsked(line, other);
            return true;
        }
    }
    return QLineEdit::event(event);
}

void LineEditor::keyPressEvent(QKeyEvent* event)
{
    if (namedCommand(*event) == Command::Mark) {
        Q_EMIT markAsked();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return finish();
    case Qt::Key_Escape:
        return giveUp();
    case Qt::Key_Up:
    case Qt::Key_Down: // the list would go elsewhere under the open box
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

// A menu of its own leaves it open.
void LineEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        finish();
    }
}

} // namespace orvanta
