#include "window/form2_main_window.h"

#include "core/heap.h"
#include "playback/command_menu.h"
#include "window/clip_line.h"
#include "window/editing_mode.h"
#include "window/playlist_list.h"
#include "window/practice_panel.h"
#include "window/skin.h"
#include "window/skin_slider.h"
#include "window/window_frame.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

Form2::Form2(Form2Services services, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint |
                          Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint),
      m_services(std::move(services)),
      m_keys(m_services.module, m_services.engine, *this, m_services.videoKeys)
{
    // An alpha channel costs nothing where nobody composes: opaque pixels show as they are.
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowIcon(skin::applicationIcon());
    buildControls();
    // After the controls have their names, by which the sheet finds them and their parts. On the
    // surface, since the window's dialogs have controls of the same names.
    m_surface->setStyleSheet(skin::styleSheet());
    layOut();
    new WindowFrame(this);
    connectHandlers();
    qApp->installEventFilter(this);
    Form2_Form_Load();
}

// The panel closes with the window, when what hears of it is gone already.
Form2::~Form2()
{
    Panel->disconnect(this);
}

/// A tip names the key behind it; the name that is read out stays the tip alone.
static void nameKeysInTips(const ControlRows& controls)
{
    for (const CommandRow& command : commands()) {
        const auto row = std::ranges::find(controls, command.control, &ControlRow::name);
        if (!command.control.isEmpty() && row != controls.end()) {
            auto* widget = qobject_cast<QWidget*>(row->control);
            setTipWithKey(*widget, widget->toolTip(), shownKey(command));
        }
    }
}

// Each step that fails is passed over: whoever loads this window ignores errors.
void Form2::Form2_Form_Load()
{
    const TextLanguage language =
        textLanguage(m_services.module.Language.value(), TextLanguage::Russian);
    applyTexts(controls(), language);
    List1->setWords({.packet = interfaceText(u"Form2", u"List1.packet", language),
                     .playing = interfaceText(u"Form2", u"List1.playing", language),
                     .paused = interfaceText(u"Form2", u"List1.paused", language)});
    Text1->setPlaceholderText(Text1->toolTip());
    nameKeysInTips(controls());
    ListMenu->setLanguage(language);
    resumeNext("main window load, add-ins", [&] { buildAddInsMenu(language); });
    m_services.engine.attachView(*this);
    resumeNext("main window load, volume",
               [&] { Slider2->setValue(m_services.engine.applyStoredVolume().value()); });
    resumeNext("main window load, balance",
               [&] { Slider3->setValue(m_services.engine.storedBalance().value()); });
    showStartPage();
    m_editing->offerDrafts();
    m_tickRest = std::make_unique<TickRest>(Timer1, m_services.module.IniPath, giveFreeMemoryBack);
    Timer1.start();
}

// The first entry takes the first add-in's caption even when there is none, and is empty then.
void Form2::buildAddInsMenu(TextLanguage language)
{
    const Settings settings = m_services.module.settings();
    add.front()->setText(settings.addInCaption(1, language));
    const Int16 count = settings.addInCount();
    for (int i = 2; i <= count.value(); ++i) {
        QAction* entry = ai->addAction(settings.addInCaption(i, language));
        entry->setObjectName(add.front()->objectName());
        add.push_back(entry);
    }
}

} // namespace orvanta
