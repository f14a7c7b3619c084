// Which commands can do something now: a pure rule, for the menus.
#pragma once

#include "playback/commands.h"

namespace orvanta {

/// What the answer depends on, as a window knows it when its menu opens.
struct CommandFacts
{
    bool hasEntries = false; // something is in the playlist
    bool loaded = false;     // a clip is in the player
    bool canStop = false;    // and Stop does something to it
    bool hasPlace = false;   // a clip or brake of the playlist is current
    bool hasBookmark = false;
    bool fullScreen = false;
    bool repeatsLine = false;
    bool speedIsNormal = true;
    bool alwaysOnTop = false;
    bool canStayOnTop = true; // the display system keeps windows on top
    bool lineStarts = false;  // the list's current line is a clip's or a brake's
    bool lineHasBox = false;
    bool lineChecked = false;
    bool editing = false;     // the playlist is edited
    bool canMark = false;     // and the clip that plays can be given a mark
    bool lineHasText = false; // of the list's current line, to be edited
    bool lineIsBrake = false;
    bool canUndo = false;
    bool canRedo = false;
    bool changed = false; // and not saved
};

struct CommandState
{
    bool enabled = true;
    bool checked = false; // of a switch
    friend bool operator==(const CommandState&, const CommandState&) = default;
};

[[nodiscard]] CommandState stateOf(Command command, const CommandFacts& facts);

} // namespace orvanta
