#include "playback/command_state.h"

namespace orvanta {

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
        return {true, facts.alwaysOnTop};
    default:
        return {};
    }
}

} // namespace orvanta
