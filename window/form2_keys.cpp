// The main window's keys, and files dropped on its playlist.
#include "core/paths.h"
#include "model/drop.h"
#include "model/loaders.h"
#include "model/texts.h"
#include "platform/screen/display_system.h"
#include "platform/screen/window_stacking.h"
#include "playback/lesson_controls.h"
#include "playback/typed_key.h"
#include "window/clip_line.h"
#include "window/editing_mode.h"
#include "window/form2_main_window.h"
#include "window/missing_clips.h"
#include "window/playlist_list.h"
#include "window/skin_button.h"
#include "window/start_page.h"
#include "window/text_zoom.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

namespace orvanta {

/// What the focused control did not want. Always on top, the pickers and the find box are this
/// window's own affair.
void Form2::keyPressEvent(QKeyEvent* event)
{
    bool served = false;
    m_services.boundary([&] {
        const auto editing =
            m_editing->isOn() ? namedCommand(*event, KeyPlace::Editing) : std::nullopt;
        if (editing) {
            served = true;
            carryOut(*editing);
        } else if (const auto command = namedCommand(*event)) {
            served = true;
            carryOut(*command);
        } else {
            served = Form2_Form_KeyPress(typedCharacter(*event));
        }
    })();
    event->setAccepted(served);
}

// The handbook's key belongs to every window of the program, dialogs too: the filter hears it
// before any of them. Windows of the system get each key as well, before their widgets do.
bool Form2::eventFilter(QObject* watched, QEvent* event)
{
    noteInput(*watched, *event);
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
        return QWidget::eventFilter(watched, event);
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (namedCommand(key) == Command::Help) {
        m_services.boundary([this] { Form2_doc_Click(); })();
        return true;
    }
    // For the box itself it would be one Return more.
    if (watched == Text1 && namedCommand(key, KeyPlace::FindBox) == Command::PlayLine) {
        m_services.boundary([this] { Form2_Text1_CtrlReturn(); })();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool Form2::Form2_Form_KeyPress(QChar typed)
{
    const auto command = mainWindowLetter(typed);
    if (command) {
        carryOut(*command);
    }
    return command.has_value();
}

void Form2::toggleAlwaysOnTop()
{
    if (!canKeepOnTop()) {
        return sayNothingStaysOnTop();
    }
    m_alwaysOnTop = !m_alwaysOnTop;
    setAlwaysOnTop(windowHandle(), m_alwaysOnTop);
}

void Form2::sayNothingStaysOnTop()
{
    if (std::exchange(m_saidOnTop, true)) {
        return;
    }
    const TextLanguage language =
        textLanguage(m_services.module.Language.value(), TextLanguage::Russian);
    Text2->sayForAMoment(interfaceText(u"Form2", u"Text2.notOnTop", language));
    setAlwaysOnTop(windowHandle(), true); // the log says it, too
}

/// As the Menu key does: of what has the keys, the list or the page in its place.
void Form2::askForMenu()
{
    if (List1->hasFocus()) {
        List1->askForMenu();
    } else if (StartPage->hasFocus()) {
        StartPage->askForMenu();
    }
}

void Form2::carryOut(Command command)
{
    switch (command) {
    case Command::PlayLine:
        return Form2_List1_DblClick();
    case Command::CheckLine:
        return List1->toggleLine(List1->cursorLine());
    case Command::ShowMenu:
        return askForMenu();
    case Command::Help:
        return Form2_doc_Click();
    case Command::NextTextLevel:
        return m_services.nextTextLevel();
    case Command::TextsLarger:
        return zoomTo(largerZoom(zoom()));
    case Command::TextsSmaller:
        return zoomTo(smallerZoom(zoom()));
    case Command::TextsNormal:
        return zoomTo(kNormalZoom);
    case Command::AlwaysOnTop:
        return toggleAlwaysOnTop();
    case Command::OpenFile:
        return Form2_Image14_Click();
    case Command::OpenClips:
        return Form2_Image8_Click();
    case Command::Find:
        m_commands->show(); // while the lesson is edited it is away
        Text1->setFocus(Qt::ShortcutFocusReason);
        return Text1->selectAll();
    case Command::FindAgain:
        return Form2_Image2_Click();
    default:
        if (!m_editing->carryOut(command) && !m_keys.press(command)) {
            carryOutInPlayer(m_services.engine, command);
        }
    }
}

// Nothing is trapped here: a packet that is none ends the program.
void Form2::Form2_List1_OLEDragDrop(const QStringList& files)
{
    Module1& module = m_services.module;
    openFolderOf(module.playlist, files.front());
    module.playlist.OpenedFromExplorer = false;
    m_services.engine.lesson().leave();
    DropResult result;
    runBusy([&] { result = applyDrop(module.playlist, files, module.TypePattern); });
    List1->growTo(treeLines(module.playlist));
    showStartPage();
    m_editing->playlistGrown();
    m_missingClips->playlistShown();
    m_services.engine.playlistExtended(result);
}

} // namespace orvanta
