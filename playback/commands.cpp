#include "playback/commands.h"

#include <QKeySequence>

#include <algorithm>

namespace orvanta {

constexpr Qt::KeyboardModifiers kCtrlShift = Qt::ControlModifier | Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers kAltShift = Qt::AltModifier | Qt::ShiftModifier;

constexpr std::array kCommands{
    // Of the two keys the menu shows Enter: so it is called everywhere in the handbook.
    CommandRow{.command = Command::PlayLine,
               .name = u"PlayLine",
               .keys = {NamedKey{Qt::Key_Enter, Qt::NoModifier, KeyPlace::List},
                        NamedKey{Qt::Key_Return, Qt::NoModifier, KeyPlace::List},
                        NamedKey{Qt::Key_Return, Qt::ControlModifier, KeyPlace::FindBox},
                        NamedKey{Qt::Key_Enter, Qt::ControlModifier, KeyPlace::FindBox}},
               .group = MenuGroup::Line,
               .menus = MenuPlace::List},
    CommandRow{.command = Command::CheckLine,
               .name = u"CheckLine",
               .keys = {NamedKey{Qt::Key_Space, Qt::ControlModifier, KeyPlace::List}},
               .group = MenuGroup::Line,
               .menus = MenuPlace::List,
               .isSwitch = true},
    // The media keys count where no desktop takes them for its own player controls.
    CommandRow{.command = Command::TogglePlay,
               .name = u"TogglePlay",
               .keys = {NamedKey{Qt::Key_Space}, NamedKey{Qt::Key_MediaPlay},
                        NamedKey{Qt::Key_MediaTogglePlayPause}, NamedKey{Qt::Key_MediaPause}},
               .group = MenuGroup::Playing},
    CommandRow{.command = Command::Play, .name = u"Play", .letter = u'r'},
    CommandRow{.command = Command::Pause, .name = u"Pause", .letter = u'p'},
    CommandRow{
        .command = Command::Stop, .name = u"Stop", .letter = u's', .group = MenuGroup::Playing},
    CommandRow{.command = Command::StopButton,
               .name = u"StopButton",
               .keys = {NamedKey{Qt::Key_MediaStop}}},
    // What a presenter's remote sends.
    CommandRow{.command = Command::NextLine,
               .name = u"NextLine",
               .keys = {NamedKey{Qt::Key_PageDown}},
               .group = MenuGroup::Playing},
    CommandRow{.command = Command::PreviousLine,
               .name = u"PreviousLine",
               .keys = {NamedKey{Qt::Key_PageUp}},
               .group = MenuGroup::Playing},
    CommandRow{.command = Command::LineAgain,
               .name = u"LineAgain",
               .keys = {NamedKey{Qt::Key_Backspace}},
               .group = MenuGroup::Playing},
    CommandRow{
        .command = Command::NextClip, .name = u"NextClip", .keys = {NamedKey{Qt::Key_MediaNext}}},
    CommandRow{.command = Command::PreviousClip,
               .name = u"PreviousClip",
               .keys = {NamedKey{Qt::Key_MediaPrevious}}},
    CommandRow{.command = Command::RepeatLine,
               .name = u"RepeatLine",
               .keys = {NamedKey{Qt::Key_F6}},
               .group = MenuGroup::Practice,
               .isSwitch = true},
    CommandRow{.command = Command::Slower,
               .name = u"Slower",
               .keys = {NamedKey{Qt::Key_F7}},
               .group = MenuGroup::Practice},
    CommandRow{.command = Command::Faster,
               .name = u"Faster",
               .keys = {NamedKey{Qt::Key_F8}},
               .group = MenuGroup::Practice},
    CommandRow{.command = Command::NormalSpeed,
               .name = u"NormalSpeed",
               .keys = {NamedKey{Qt::Key_F7, Qt::ShiftModifier}},
               .group = MenuGroup::Practice},
    CommandRow{.command = Command::NextWait,
               .name = u"NextWait",
               .keys = {NamedKey{Qt::Key_F9}},
               .group = MenuGroup::Practice},
    CommandRow{.command = Command::StepBack, .name = u"StepBack", .keys = {NamedKey{Qt::Key_Left}}},
    CommandRow{
        .command = Command::StepForward, .name = u"StepForward", .keys = {NamedKey{Qt::Key_Right}}},
    CommandRow{.command = Command::MinuteBack, .name = u"MinuteBack", .letter = u'b'},
    CommandRow{.command = Command::MinuteForward, .name = u"MinuteForward", .letter = u'm'},
    CommandRow{.command = Command::VolumeUp, .name = u"VolumeUp", .letter = u'+'},
    CommandRow{.command = Command::VolumeDown, .name = u"VolumeDown", .letter = u'-'},
    CommandRow{.command = Command::SetBookmark,
               .name = u"SetBookmark",
               .letter = u'k',
               .group = MenuGroup::Bookmark},
    CommandRow{.command = Command::GoToBookmark,
               .name = u"GoToBookmark",
               .letter = u'l',
               .group = MenuGroup::Bookmark},
    CommandRow{.command = Command::FillScreen, .name = u"FillScreen", .letter = u'f'},
    CommandRow{.command = Command::LeaveScreen, .name = u"LeaveScreen", .letter = u'n'},
    CommandRow{.command = Command::ToggleFullScreen,
               .name = u"ToggleFullScreen",
               .keys = {NamedKey{Qt::Key_F11}},
               .group = MenuGroup::Window,
               .isSwitch = true},
    CommandRow{.command = Command::LeaveFullScreen,
               .name = u"LeaveFullScreen",
               .keys = {NamedKey{Qt::Key_Escape}}},
    CommandRow{.command = Command::NextTextLevel,
               .name = u"NextTextLevel",
               .keys = {NamedKey{Qt::Key_F5}},
               .group = MenuGroup::Window},
    CommandRow{.command = Command::AlwaysOnTop,
               .name = u"AlwaysOnTop",
               .letter = u't',
               .letterInVideoWindow = false,
               .group = MenuGroup::Window,
               .menus = MenuPlace::List,
               .isSwitch = true},
    CommandRow{.command = Command::EditMode,
               .name = u"EditMode",
               .keys = {NamedKey{Qt::Key_F4}},
               .group = MenuGroup::Window,
               .isSwitch = true,
               .control = u"EditButton"},
    // Also from the video window, where its reader looks.
    CommandRow{.command = Command::Mark,
               .name = u"Mark",
               .keys = {NamedKey{Qt::Key_Insert}, NamedKey{Qt::Key_M, Qt::ControlModifier}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List,
               .control = u"MarkButton"},
    CommandRow{.command = Command::EditText,
               .name = u"EditText",
               .keys = {NamedKey{Qt::Key_F2, Qt::NoModifier, KeyPlace::Editing},
                        NamedKey{Qt::Key_Return, Qt::NoModifier, KeyPlace::Editing},
                        NamedKey{Qt::Key_Enter, Qt::NoModifier, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List},
    CommandRow{.command = Command::EarlierSlightly,
               .name = u"EarlierSlightly",
               .keys = {NamedKey{Qt::Key_Left, Qt::AltModifier, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List},
    CommandRow{.command = Command::LaterSlightly,
               .name = u"LaterSlightly",
               .keys = {NamedKey{Qt::Key_Right, Qt::AltModifier, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List},
    CommandRow{.command = Command::Earlier,
               .name = u"Earlier",
               .keys = {NamedKey{Qt::Key_Left, kAltShift, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List},
    CommandRow{.command = Command::Later,
               .name = u"Later",
               .keys = {NamedKey{Qt::Key_Right, kAltShift, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List},
    CommandRow{.command = Command::RemoveLines,
               .name = u"RemoveLines",
               .keys = {NamedKey{Qt::Key_Delete, Qt::NoModifier, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List,
               .control = u"RemoveButton"},
    CommandRow{.command = Command::LinesUp,
               .name = u"LinesUp",
               .keys = {NamedKey{Qt::Key_Up, Qt::AltModifier, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List,
               .control = u"UpButton"},
    CommandRow{.command = Command::LinesDown,
               .name = u"LinesDown",
               .keys = {NamedKey{Qt::Key_Down, Qt::AltModifier, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List,
               .control = u"DownButton"},
    CommandRow{.command = Command::Undo,
               .name = u"Undo",
               .keys = {NamedKey{Qt::Key_Z, Qt::ControlModifier, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List,
               .control = u"UndoButton"},
    CommandRow{.command = Command::Redo,
               .name = u"Redo",
               .keys = {NamedKey{Qt::Key_Z, kCtrlShift, KeyPlace::Editing},
                        NamedKey{Qt::Key_Y, Qt::ControlModifier, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List,
               .control = u"RedoButton"},
    CommandRow{.command = Command::Save,
               .name = u"Save",
               .keys = {NamedKey{Qt::Key_S, Qt::ControlModifier, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List,
               .control = u"SaveButton"},
    CommandRow{.command = Command::SaveAs,
               .name = u"SaveAs",
               .keys = {NamedKey{Qt::Key_S, kCtrlShift, KeyPlace::Editing}},
               .group = MenuGroup::Editing,
               .menus = MenuPlace::List},
    CommandRow{.command = Command::OpenFile,
               .name = u"OpenFile",
               .keys = {NamedKey{Qt::Key_O, Qt::ControlModifier}},
               .group = MenuGroup::Opening,
               .control = u"Image14"},
    CommandRow{.command = Command::OpenClips,
               .name = u"OpenClips",
               .keys = {NamedKey{Qt::Key_O, kCtrlShift}},
               .group = MenuGroup::Opening,
               .control = u"Image8"},
    CommandRow{.command = Command::Find,
               .name = u"Find",
               .keys = {NamedKey{Qt::Key_F, Qt::ControlModifier}},
               .group = MenuGroup::Opening,
               .control = u"Text1"},
    CommandRow{.command = Command::FindAgain,
               .name = u"FindAgain",
               .keys = {NamedKey{Qt::Key_F3}},
               .control = u"Image2"},
    // Plus is typed with Shift on many keyboards, and its key alone is the one of "=".
    CommandRow{.command = Command::TextsLarger,
               .name = u"TextsLarger",
               .keys = {NamedKey{Qt::Key_Plus, Qt::ControlModifier},
                        NamedKey{Qt::Key_Plus, kCtrlShift},
                        NamedKey{Qt::Key_Equal, Qt::ControlModifier}}},
    CommandRow{.command = Command::TextsSmaller,
               .name = u"TextsSmaller",
               .keys = {NamedKey{Qt::Key_Minus, Qt::ControlModifier}}},
    CommandRow{.command = Command::TextsNormal,
               .name = u"TextsNormal",
               .keys = {NamedKey{Qt::Key_0, Qt::ControlModifier}}},
    CommandRow{.command = Command::Help,
               .name = u"Help",
               .keys = {NamedKey{Qt::Key_F1}},
               .group = MenuGroup::Program},
    CommandRow{.command = Command::ShowMenu,
               .name = u"ShowMenu",
               .keys = {NamedKey{Qt::Key_Menu}, NamedKey{Qt::Key_F10, Qt::ShiftModifier}}},
    CommandRow{.command = Command::Quit,
               .name = u"Quit",
               .keys = {NamedKey{Qt::Key_Q, Qt::ControlModifier}},
               .group = MenuGroup::Program},
};

std::span<const NamedKey> CommandRow::namedKeys() const
{
    const auto end = std::ranges::find(keys, Qt::Key{}, &NamedKey::key);
    return {keys.begin(), end};
}

std::span<const CommandRow> commands()
{
    return kCommands;
}

const CommandRow& rowOf(Command command)
{
    return *std::ranges::find(kCommands, command, &CommandRow::command);
}

// A letter before a media key: not every keyboard has those.
QString shownKey(const CommandRow& row)
{
    if (row.letter != 0) {
        return QString(QChar(row.letter).toUpper());
    }
    const std::span<const NamedKey> keys = row.namedKeys();
    if (keys.empty() || keys.front().key >= Qt::Key_MediaPlay) {
        return {};
    }
    const QKeyCombination shown(keys.front().modifiers, keys.front().key);
    return QKeySequence(shown).toString(QKeySequence::NativeText);
}

static const CommandRow* rowOfLetter(char16_t letter)
{
    const auto row = std::ranges::find(kCommands, letter, &CommandRow::letter);
    return letter == 0 || row == kCommands.end() ? nullptr : &*row;
}

std::optional<Command> mainWindowLetter(QChar typed)
{
    const CommandRow* row = rowOfLetter(typed.toLower().unicode());
    return row == nullptr ? std::nullopt : std::optional(row->command);
}

std::optional<Command> videoWindowLetter(QChar typed)
{
    const CommandRow* row = rowOfLetter(typed.unicode());
    const bool known = row != nullptr && row->letterInVideoWindow;
    return known ? std::optional(row->command) : std::nullopt;
}

} // namespace orvanta
