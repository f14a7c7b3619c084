#include "playback/command_state.h"

namespace orvanta {

static CommandState stateOfEditing(Command command, const CommandFacts& facts)
{
    switch (command) {
    case Command::Mark:
        return {facts.editing && facts.canMark};
    case Command::EditText:
        return {facts.lineHasText};
    case Command::EarlierSlightly:
    case Command::LaterSlightly:
    case Command::Earlier:
    case Command::Later:
        return {facts.lineIsBrake};
    case Command::RemoveLines:
    case Command::LinesUp:
    case Command::LinesDown:
        return {facts.lineHasBox};
    case Command::Undo:
        return {facts.canUndo};
    case Command::Redo:
        return {facts.canRedo};
    case Command::Save:
        return {facts.changed};
    case Command::SaveAs:
        return {facts.editing};
    default:
        return {};
    }
}

CommandState stateOf(Command command, const CommandFacts& facts)
{
    switch (command) {
    case Command::PlayLine:
        return {facts.lineStarts};
    case Command::CheckLine:
        return {facts.lineHasBox, facts.lineChecked};
    case Command::TogglePlay:
        return {facts.loaded || facts.hasEntries};
    case Command::Stop:
        return {facts.canStop};
    case Command::NextLine:
    case Command::PreviousLine:
    case Command::NextClip:
    case Command::PreviousClip:
        return {facts.hasEntries};
    case Command::LineAgain:
        return {facts.hasPlace};
    case Command::RepeatLine:
        return {true, facts.repeatsLine};
    case Command::NormalSpeed:
        return {!facts.speedIsNormal};
    case Command::SetBookmark:
        return {facts.loaded && facts.hasPlace};
    case Command::GoToBookmark:
        return {facts.loaded && facts.hasBookmark};
    case Command::ToggleFullScreen:
        return {facts.loaded || facts.fullScreen, facts.fullScreen};
    case Command::AlwaysOnTop:
        return {facts.canStayOnTop, facts.alwaysOnTop};
    case Command::EditMode:
        return {facts.hasEntries || facts.editing, facts.editing};
    default:
        return stateOfEditing(command, facts);
    }
}
} // namespace orvanta
