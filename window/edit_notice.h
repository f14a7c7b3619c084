// One line above the playlist that says what happened to changes, with what can be done about it.
#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace orvanta {

/// Blocks nothing: it stays until it is answered or something else is said.
class EditNotice : public QWidget
{
    Q_OBJECT

public:
    explicit EditNotice(QWidget* parent);

    struct Answer
    {
        QString caption;
        std::function<void()> action; // the line goes before it runs
    };
    void say(const QString& text, std::vector<Answer> answers);
    void clear();
    [[nodiscard]] QString text() const;
    [[nodiscard]] const std::vector<QPushButton*>& buttons() const { return m_buttons; }

private:
    void answer(const std::function<void()>& action);

    QHBoxLayout* m_row;
    QLabel* m_label;
    std::vector<QPushButton*> m_buttons;
};

} // namespace orvanta
