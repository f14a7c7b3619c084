// The line that shows the current clip's text.
#pragma once

#include <QLineEdit>

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

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] QRect textRect() const;
    [[nodiscard]] bool mustElide() const;
};

} // namespace orvanta
