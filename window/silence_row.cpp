#include "window/silence_row.h"

#include "window/skin.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kUsualLevel = -36;     // decibels: breath and room, but no words
constexpr double kUsualLength = 0.5; // seconds: between sentences

SilenceRow::SilenceRow(TextLanguage language, QWidget* parent)
    : QWidget(parent),
      LevelLabel(new QLabel(this)),
      LevelBox(new QSpinBox(this)),
      LengthLabel(new QLabel(this)),
      LengthBox(new QDoubleSpinBox(this)),
      FoundLabel(new QLabel(this)),
      TakeButton(new QPushButton(this)),
      CloseButton(new QPushButton(this)),
      m_language(language)
{
    nameControls(controls());
    applyTexts(controls(), language);
    LevelBox->setRange(-48, -6);
    LevelBox->setValue(kUsualLevel);
    LevelBox->setSuffix(interfaceText(u"Silence", u"LevelBox.decibels", language));
    LengthBox->setRange(0.1, 10);
    LengthBox->setSingleStep(0.1);
    LengthBox->setDecimals(1);
    LengthBox->setValue(kUsualLength);
    LengthBox->setSuffix(interfaceText(u"Silence", u"LengthBox.seconds", language));
    LevelLabel->setBuddy(LevelBox);
    LengthLabel->setBuddy(LengthBox);
    layOut();
    connect(LevelBox, &QSpinBox::valueChanged, this, &SilenceRow::changed);
    connect(LengthBox, &QDoubleSpinBox::valueChanged, this, &SilenceRow::changed);
    connect(TakeButton, &QPushButton::clicked, this, &SilenceRow::taken);
    connect(CloseButton, &QPushButton::clicked, this, &SilenceRow::closed);
}

ControlRows SilenceRow::controls()
{
    return {{this, u"Silence"},          {LevelLabel, u"LevelLabel"},
            {LevelBox, u"LevelBox"},     {LengthLabel, u"LengthLabel"},
            {LengthBox, u"LengthBox"},   {FoundLabel, u"FoundLabel"},
            {TakeButton, u"TakeButton"}, {CloseButton, u"CloseButton"}};
}

void SilenceRow::layOut()
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, skin::kGrid, 0, 0);
    row->setSpacing(skin::kGrid);
    row->addWidget(LevelLabel);
    row->addWidget(LevelBox);
    row->addWidget(LengthLabel);
    row->addWidget(LengthBox);
    row->addWidget(FoundLabel, 1);
    row->addWidget(TakeButton);
    row->addWidget(CloseButton);
}

void SilenceRow::open()
{
    show();
    LevelBox->setFocus();
}

void SilenceRow::setFound(int marks)
{
    FoundLabel->setText(interfaceText(u"Silence", u"FoundLabel.found", m_language).arg(marks));
    TakeButton->setEnabled(marks > 0);
}

double SilenceRow::decibels() const
{
    return LevelBox->value();
}

double SilenceRow::seconds() const
{
    return LengthBox->value();
}

void SilenceRow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT closed();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace orvanta
