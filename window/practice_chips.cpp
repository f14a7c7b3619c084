#include "window/practice_chips.h"

#include "playback/practice_texts.h"
#include "window/skin.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kChipHeight = 24;

PracticeChips::PracticeChips(TextLanguage language, QWidget* parent)
    : QWidget(parent),
      Ring(new WaitRing(language, this)),
      m_language(language),
      m_row(new QHBoxLayout(this)),
      m_more(makeChip(u"+0"_s))
{
    setObjectName(u"Chips"_s);
    setFont(skin::interfaceFont(11)); // for what is in it
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(skin::kGrid);
    m_row->addWidget(Ring);
    m_row->addWidget(m_more);
    m_more->hide();
    connect(m_more, &QPushButton::clicked, this, &PracticeChips::morePressed);
}

QPushButton* PracticeChips::makeChip(const QString& text)
{
    auto* chip = new QPushButton(text, this);
    chip->setMinimumHeight(kChipHeight);
    chip->setCursor(Qt::PointingHandCursor);
    chip->setAccessibleName(text);
    return chip;
}

// A chip that is pressed must outlive its own click.
void PracticeChips::setValues(const Practice& practice)
{
    if (practice == m_values) {
        return;
    }
    m_values = practice;
    for (QPushButton* chip : m_chips) {
        chip->hide();
        m_row->removeWidget(chip);
        chip->deleteLater();
    }
    m_chips.clear();
    for (const PracticeChip& chip : practiceChips(practice, m_language)) {
        QPushButton* button = makeChip(chip.text);
        button->setToolTip(interfaceText(u"Practice", u"chip.tip", m_language).arg(chip.text));
        button->setAccessibleDescription(button->toolTip());
        connect(button, &QPushButton::clicked, this,
                [this, without = chip.without] { Q_EMIT chosen(without); });
        m_row->insertWidget(m_row->count() - 1, button);
        QWidget::setTabOrder(m_chips.empty() ? parentWidget() : m_chips.back(), button);
        m_chips.push_back(button);
        button->show();
    }
}

// What is as it was is left alone: each change asks for a layout, and a layout comes here again.
void PracticeChips::fitInto(int width)
{
    const int more = m_more->sizeHint().width() + skin::kGrid;
    int left = width - (Ring->isHidden() ? 0 : WaitRing::kSide + skin::kGrid);
    int hidden = 0;
    for (std::size_t i = 0; i < m_chips.size(); ++i) {
        const int needed = m_chips[i]->sizeHint().width() + skin::kGrid;
        const bool isLast = i + 1 == m_chips.size();
        const bool fits = hidden == 0 && needed <= left - (isLast ? 0 : more);
        m_chips[i]->setVisible(fits);
        left -= needed;
        hidden += fits ? 0 : 1;
    }
    showMore(hidden);
    m_row->activate();
}

void PracticeChips::showMore(int hidden)
{
    QStringList names;
    for (const QPushButton* chip : m_chips) {
        names += chip->isHidden() ? QStringList{chip->text()} : QStringList{};
    }
    m_more->setVisible(hidden > 0);
    if (const QString tip = names.join(u", "_s); tip != m_more->toolTip()) {
        m_more->setText(u"+%1"_s.arg(hidden));
        m_more->setToolTip(tip);
        m_more->setAccessibleName(tip);
    }
}

} // namespace orvanta
