// The main window's part in practising: the button, its panel, the chips, the ring of a wait.
#include "playback/practice_controls.h"
#include "window/clip_line.h"
#include "window/form2_main_window.h"
#include "window/practice_chips.h"
#include "window/practice_panel.h"
#include "window/skin_button.h"

namespace orvanta {

void Form2::connectPractice()
{
    const PracticeControls& practice = m_services.engine.practice();
    const auto choose =
        m_services.boundary([this](const Practice& chosen) { Form2_Panel_Chosen(chosen); });
    // Not clicked: assistive technology switches the button without a click.
    connect(PracticeButton, &SkinButton::toggled, this, m_services.boundary([this](bool open) {
        if (open != Panel->isVisible()) {
            Form2_PracticeButton_Click();
        }
    }));
    connect(Panel, &PracticePanel::chosen, this, choose);
    connect(Chips, &PracticeChips::chosen, this, choose);
    connect(Chips, &PracticeChips::morePressed, this,
            m_services.boundary([this] { Form2_PracticeButton_Click(); }));
    connect(Panel, &PracticePanel::closed, this, [this] { PracticeButton->setChecked(false); });
    connect(&practice, &PracticeControls::changed, this, [this] { showPractice(); });
    connect(&practice, &PracticeControls::waitBegan, Chips->Ring, &WaitRing::begin);
    connect(&practice, &PracticeControls::waitOver, Chips->Ring, &WaitRing::end);
    connect(Chips->Ring, &WaitRing::pressed, this,
            m_services.boundary([this] { m_services.engine.practice().goOn(); }));
    showPractice();
}

void Form2::Form2_PracticeButton_Click()
{
    if (Panel->isVisible()) {
        Panel->hide();
        return;
    }
    showPractice();
    Panel->openAbove(*PracticeButton);
    PracticeButton->setChecked(true);
}

void Form2::Form2_Panel_Chosen(const Practice& practice)
{
    m_services.engine.practice().set(practice);
}

void Form2::showPractice()
{
    const Practice practice = m_services.engine.practice().values();
    Panel->setValues(practice);
    Chips->setValues(practice);
    Text2->placeChild();
}

} // namespace orvanta
