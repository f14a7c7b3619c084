// The main window's keys, and files dropped on its playlist.
#include "core/paths.h"
#include "model/drop.h"
#include "model/loaders.h"
#include "platform/screen/window_stacking.h"
#include "playback/typed_key.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"
#include "window/skin_button.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace orvanta {

/// What the focused control did not want. Always on top, the pickers and the find box are this
/// window's own affair.
void Form2::keyPressEvent(QKeyEvent* event)
{
    bool served = false;
    m_services.boundary([&] {
        if (const auto key = commonKey(*event)) {
            served = true;
            pressCommonKey(*key);
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
    if (event->type() == QEvent::KeyPress && watched->isWidgetType() &&
        commonKey(static_cast<const QKeyEvent&>(*event)) == CommonKey::Help) {
        m_services.boundary([this] { Form2_doc_Click(); })();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool Form2::Form2_Form_KeyPress(QChar typed)
{
    const auto key = mainWindowKey(typed);
    if (key && !m_keys.press(*key)) {
        toggleAlwaysOnTop();
    }
    return key.has_value();
}

void Form2::toggleAlwaysOnTop()
{
    m_alwaysOnTop = !m_alwaysOnTop;
    setAlwaysOnTop(windowHandle(), m_alwaysOnTop);
}

void Form2::pressCommonKey(CommonKey key)
{
    switch (key) {
    case CommonKey::TogglePlay:
        return m_keys.togglePlay();
    case CommonKey::StepBack:
        return m_keys.seekBy(-kKeyStep);
    case CommonKey::StepForward:
        return m_keys.seekBy(kKeyStep);
    case CommonKey::ToggleFullScreen:
        return m_services.videoKeys.toggleFullScreen();
    case CommonKey::LeaveFullScreen:
        return m_services.videoKeys.leaveFullScreen();
    case CommonKey::OpenFile:
        return Form2_Image14_Click();
    case CommonKey::OpenClips:
        return Form2_Image8_Click();
    case CommonKey::Find:
        Text1->setFocus(Qt::ShortcutFocusReason);
        return Text1->selectAll();
    case CommonKey::FindAgain:
        return Form2_Image2_Click();
    default:
        pressPlayerKey(m_services.engine, key);
    }
}

// Nothing is trapped here: a packet that is none ends the program.
void Form2::Form2_List1_OLEDragDrop(const QStringList& files)
{
    Module1& module = m_services.module;
    openFolderOf(module.playlist, files.front());
    module.playlist.OpenedFromExplorer = false;
    DropResult result;
    runBusy([&] { result = applyDrop(module.playlist, files, module.TypePattern); });
    List1->growTo(treeLines(module.playlist));
    m_services.engine.playlistExtended(result);
}

} // namespace orvanta
