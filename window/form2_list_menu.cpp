// The main window's commands that are asked for by menu: the playlist's own, and what the video
// window hands on.
#include "platform/screen/display_system.h"
#include "playback/command_menu.h"
#include "playback/practice_controls.h"
#include "window/editing_mode.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"

namespace orvanta {

void Form2::Form2_List1_Menu(QPoint place)
{
    ListMenu->open(place, commandFacts());
}

CommandFacts Form2::commandFacts() const
{
    PlaybackOperations& operations = m_services.engine.operations();
    operations.look();
    const PlayerSnapshot& player = operations.player();
    const PlaylistState& playlist = m_services.module.playlist;
    CommandFacts facts{
        .hasEntries = playlist.entryCount() > 0,
        .loaded = player.isLoaded(),
        .canStop = player.isRunning() ||
                   m_services.engine.practice().isWaiting(), // a paused clip keeps its place
        .hasPlace = playlist.CurrentPacket >= 1 && playlist.CurrentClip >= 1,
        .fullScreen = m_services.videoKeys.isFullScreen(),
        .alwaysOnTop = m_alwaysOnTop,
        .canStayOnTop = canKeepOnTop(),
        .lineStarts = cursorPlace().clip >= 1,
        .lineHasBox = List1->cursorLine() >= 1,
        .lineChecked = List1->isLineChecked(List1->cursorLine()),
    };
    const Practice practice = m_services.engine.practice().values();
    facts.repeatsLine = practice.isEndless();
    facts.speedIsNormal = practice.speed == Practice().speed;
    resumeNext("bookmark of the current clip",
               [&] { facts.hasBookmark = facts.hasPlace && !m_keys.savedPosition().isEmpty(); });
    m_editing->addFacts(facts);
    return facts;
}

// The picture would hide what they open.
bool Form2::carryOutForVideoWindow(Command command)
{
    switch (command) {
    case Command::OpenFile:
    case Command::OpenClips:
        m_services.videoKeys.leaveFullScreen();
        break;
    case Command::Find:
    case Command::EditMode:
        m_services.videoKeys.leaveFullScreen();
        showMainWindow();
        bringMainWindowToFront();
        break;
    case Command::Mark: // without leaving the picture
    case Command::Help:
    case Command::TextsLarger:
    case Command::TextsSmaller:
    case Command::TextsNormal:
        break;
    default:
        return false;
    }
    carryOut(command);
    return true;
}

} // namespace orvanta
