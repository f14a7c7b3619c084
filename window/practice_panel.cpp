#include "window/practice_panel.h"

#include "playback/practice_texts.h"
#include "window/skin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

// A wait of seconds is kept in a box as this much above the percents.
constexpr int kSecondsInBox = 10000;

static int waitInBox(const Practice& practice)
{
    return practice.wait == Practice::kWaitForSeconds ? kSecondsInBox + practice.seconds
                                                      : practice.wait;
}

static QString waitInBoxText(int value, TextLanguage language)
{
    return value > kSecondsInBox
               ? waitText(Practice::kWaitForSeconds, value - kSecondsInBox, language)
               : waitText(value, 0, language);
}

static void select(QComboBox& box, int value, const QString& otherwise)
{
    const QSignalBlocker silent(box);
    if (box.findData(value) < 0) {
        box.addItem(otherwise, value); // set by a key or by hand between two choices
    }
    box.setCurrentIndex(box.findData(value));
}

PracticePanel::PracticePanel(TextLanguage language, QWidget* parent)
    : QFrame(parent),
      m_language(language)
{
    hide();
    setFont(skin::interfaceFont(12)); // for what is in it
    buildControls();
    nameControls(controls());
    applyTexts(controls(), language);
    fillBoxes();
    layOut();
    orderTabs(controls());
    setValues({});
    connectHandlers();
}

void PracticePanel::buildControls()
{
    const auto box = [this](QLabel*& label) {
        label = new QLabel(this);
        auto* made = new QComboBox(this);
        made->setMaxVisibleItems(12);
        label->setBuddy(made);
        return made;
    };
    SpeedBox = box(SpeedLabel);
    TimesBox = box(TimesLabel);
    WaitBox = box(WaitLabel);
    FromBox = box(FromLabel);
    StepBox = box(StepLabel);
    MirrorBox = new QCheckBox(this);
    EvenBox = new QCheckBox(this);
    NormalButton = new QPushButton(this);
    NormalButton->setFlat(true);
    NormalButton->setCursor(Qt::PointingHandCursor);
}

void PracticePanel::fillBoxes()
{
    for (int speed = Practice::kSlowest; speed < Practice::kFastest; speed = fasterThan(speed)) {
        SpeedBox->addItem(speedText(speed), speed);
    }
    SpeedBox->addItem(speedText(Practice::kFastest), Practice::kFastest);
    for (int times = 1; times <= Practice::kMostTimes; ++times) {
        TimesBox->addItem(timesText(times, m_language), times);
    }
    TimesBox->addItem(timesText(Practice::kEndless, m_language), Practice::kEndless);
    for (const int wait : {Practice::kNoWait, Practice::kWaitForKey, 50, 100, 150, 200, 300}) {
        WaitBox->addItem(waitInBoxText(wait, m_language), wait);
    }
    for (const int seconds : {2, 3, 5, 10, 20, 30, 60}) {
        WaitBox->addItem(waitInBoxText(kSecondsInBox + seconds, m_language),
                         kSecondsInBox + seconds);
    }
    FromBox->addItem(interfaceText(u"Practice", u"from.normal", m_language), 100);
    for (int from = 90; from >= 30; from -= 10) {
        FromBox->addItem(interfaceText(u"Practice", u"from", m_language).arg(from), from);
    }
    for (const int step : {0, 5, 10, 15, 20, 25}) {
        StepBox->addItem(interfaceText(u"Practice", u"step", m_language).arg(step), step);
    }
}

void PracticePanel::layOut()
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(skin::kMargin, skin::kMargin, skin::kMargin, skin::kMargin);
    grid->setHorizontalSpacing(skin::kMargin);
    grid->setVerticalSpacing(skin::kGrid / 2);
    int row = 0;
    for (const auto& [label, box] : {std::pair{SpeedLabel, SpeedBox},
                                     {TimesLabel, TimesBox},
                                     {WaitLabel, WaitBox},
                                     {FromLabel, FromBox},
                                     {StepLabel, StepBox}}) {
        grid->addWidget(label, row, 0);
        grid->addWidget(box, row++, 1);
    }
    grid->setRowMinimumHeight(row++, skin::kGrid / 2);
    grid->addWidget(MirrorBox, row, 0);
    grid->addWidget(EvenBox, row++, 1);
    grid->addWidget(NormalButton, row, 1, Qt::AlignRight);
    grid->setColumnStretch(1, 1);
}

ControlRows PracticePanel::controls()
{
    return {{this, u"PracticePanel"},    {SpeedLabel, u"SpeedLabel"},    {SpeedBox, u"SpeedBox"},
            {TimesLabel, u"TimesLabel"}, {TimesBox, u"TimesBox"},        {WaitLabel, u"WaitLabel"},
            {WaitBox, u"WaitBox"},       {FromLabel, u"FromLabel"},      {FromBox, u"FromBox"},
            {StepLabel, u"StepLabel"},   {StepBox, u"StepBox"},          {MirrorBox, u"MirrorBox"},
            {EvenBox, u"EvenBox"},       {NormalButton, u"NormalButton"}};
}

void PracticePanel::connectHandlers()
{
    for (QComboBox* box : {SpeedBox, TimesBox, WaitBox, FromBox, StepBox}) {
        connect(box, &QComboBox::currentIndexChanged, this, [this] { choose(); });
    }
    for (QCheckBox* box : {MirrorBox, EvenBox}) {
        connect(box, &QCheckBox::toggled, this, [this] { choose(); });
    }
    connect(NormalButton, &QPushButton::clicked, this, [this] { Q_EMIT chosen({}); });
}

void PracticePanel::choose()
{
    Practice practice = m_values;
    practice.speed = SpeedBox->currentData().toInt();
    practice.times = TimesBox->currentData().toInt();
    const int wait = WaitBox->currentData().toInt();
    practice.wait = wait > kSecondsInBox ? Practice::kWaitForSeconds : wait;
    practice.seconds = wait > kSecondsInBox ? wait - kSecondsInBox : practice.seconds;
    practice.from = FromBox->currentData().toInt();
    practice.step = StepBox->currentData().toInt();
    practice.mirror = MirrorBox->isChecked();
    practice.even = EvenBox->isChecked();
    Q_EMIT chosen(practice);
}

void PracticePanel::setValues(const Practice& practice)
{
    m_values = practice;
    select(*SpeedBox, practice.speed, speedText(practice.speed));
    select(*TimesBox, practice.times, timesText(practice.times, m_language));
    select(*WaitBox, waitInBox(practice), waitInBoxText(waitInBox(practice), m_language));
    select(*FromBox, practice.from,
           interfaceText(u"Practice", u"from", m_language).arg(practice.from));
    select(*StepBox, practice.step,
           interfaceText(u"Practice", u"step", m_language).arg(practice.step));
    const QSignalBlocker silentMirror(MirrorBox);
    MirrorBox->setChecked(practice.mirror);
    const QSignalBlocker silentEven(EvenBox);
    EvenBox->setChecked(practice.even);
    StepBox->setEnabled(practice.from < 100);
    NormalButton->setEnabled(practice != Practice{});
}

void PracticePanel::openAbove(const QWidget& button)
{
    adjustSize();
    const QRect room = parentWidget()->rect().marginsRemoved({skin::kGrid, 0, skin::kGrid, 0});
    const QPoint above = button.mapTo(parentWidget(), QPoint(button.width() / 2, 0));
    const int left = std::clamp(above.x() - width() / 2, room.left(),
                                std::max(room.left(), room.right() - width()));
    // Clear of Play, too, which is taller than the button.
    move(left, std::max(0, above.y() - 2 * skin::kGrid - height()));
    show();
    raise();
    SpeedBox->setFocus(Qt::PopupFocusReason);
}

void PracticePanel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        hide();
    } else {
        QFrame::keyPressEvent(event);
    }
}

void PracticePanel::hideEvent(QHideEvent* /*event*/)
{
    Q_EMIT closed();
}

} // namespace orvanta
