// The box in which a line of the playlist is edited in place.
#pragma once

#include <QLineEdit>

namespace orvanta {

class PlaylistList;

/// Lies over the line's text or its time. Return and losing the focus take what was typed, Escape
/// gives it up, Tab goes to the line's other field. A mark can be set from within: its key is the
/// window's.
class LineEditor : public QLineEdit
{
    Q_OBJECT

public:
    enum class Field
    {
        Text,
        Time,
    };

    explicit LineEditor(PlaylistList* list);

    /// Opens over a line, with this text, all of it selected.
    void edit(int line, Field field, const QString& text);
    [[nodiscard]] bool isOpen() const { return m_line >= 0; }
    [[nodiscard]] int line() const { return m_line; }
    [[nodiscard]] Field field() const { return m_field; }
    /// Takes what was typed and closes.
    void finish();
    /// Closes without it.
    void giveUp();
    /// The list has been laid out anew.
    void place();

Q_SIGNALS:
    /// The text of a line's field as typed.
    void typed(int line, orvanta::LineEditor::Field field, const QString& text);
    /// Tab: the other field of the line is wanted, once what was typed is taken.
    void otherFieldAsked(int line, orvanta::LineEditor::Field field);
    void markAsked();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void close();

    PlaylistList* m_list;
    int m_line = -1;
    Field m_field = Field::Text;
};

} // namespace orvanta
