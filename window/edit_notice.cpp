#include "window/edit_notice.h"

#include "window/skin.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

EditNotice::EditNotice(QWidget* parent)
    : QWidget(parent),
      m_row(new QHBoxLayout(this)),
      m_label(new QLabel(this))
{
    setObjectName(u"Notice"_s);
    setAttribute(Qt::WA_StyledBackground);
    // Below it the sheet keeps a distance to the list.
    m_row->setContentsMargins(skin::kGrid + skin::kGrid / 2, skin::kGrid / 2, skin::kGrid / 2,
                              skin::kGrid / 2 + skin::kGrid);
    m_row->setSpacing(skin::kGrid);
    m_row->addWidget(m_label, 1);
    m_label->setWordWrap(true);
    m_label->setTextFormat(Qt::PlainText);
    hide();
}

QString EditNotice::text() const
{
    return isHidden() ? QString() : m_label->text();
}

void EditNotice::clear()
{
    hide();
    for (QPushButton* button : std::exchange(m_buttons, {})) {
        m_row->removeWidget(button);
        button->hide();
        button->deleteLater(); // it may be the one that is pressed
    }
}

void EditNotice::say(const QString& text, std::vector<Answer> answers)
{
    clear();
    m_label->setText(text);
    for (Answer& given : answers) {
        auto* button = new QPushButton(given.caption, this);
        button->setAccessibleDescription(text);
        button->setCursor(Qt::PointingHandCursor);
        connect(button, &QPushButton::clicked, this,
                [this, action = std::move(given.action)] { answer(action); });
        m_row->addWidget(button);
        m_buttons.push_back(button);
    }
    show();
    m_label->setAccessibleName(text);
}

// The button that was pressed, and what it was told, must outlive the action.
void EditNotice::answer(const std::function<void()>& action)
{
    const std::function<void()> kept = action;
    clear();
    kept();
}

} // namespace orvanta
