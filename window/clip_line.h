// The line that shows the current clip's text.
#pragma once

#include <QLineEdit>
#include <QTimer>

#include <functional>

namespace orvanta {

/// A read-only line. A text that is too long ends in an ellipsis; with the keyboard focus the line
/// scrolls, so that all of it can be read.
class ClipLine : public QLineEdit
{
    Q_OBJECT

public:
    explicit ClipLine(QWidget* parent);

    /// Shows a text from its beginning.
    void showText(const QString& text);
    /// Says something for the time that it takes to read it; then the text is back.
    void sayForAMoment(const QString& message);
    /// Keeps a child at the right end, in its own width; the text ends before it. fit: makes the
    /// child no wider than this.
    void keepAtRight(QWidget* child, std::function<void(int width)> fit);
    /// Also called when the child's wishes have changed.
    void placeChild();

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// The child's width changes with what it holds.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QRect textRect() const;
    [[nodiscard]] bool mustElide() const;
    void paintElided(const QString& shown, const QColor& colour);

    QTimer m_saying; // while it runs a message stands in the text's place
    QString m_textBelow;
    QWidget* m_child = nullptr;
    std::function<void(int width)> m_fit;
};

} // namespace orvanta
