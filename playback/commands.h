// What a person can ask of the program while watching: one table, by which keys, menus, tool tips
// and the handbook go.
#pragma once

#include <QChar>
#include <QString>
#include <Qt>

#include <array>
#include <optional>
#include <span>

namespace orvanta {

enum class Command
{
    PlayLine,
    CheckLine,
    TogglePlay,
    Play,
    Pause,
    Stop,         // at once, in a packet of brakes too
    StopButton,   // as the button does it: back to the brake, there
    NextLine,     // checked or not
    PreviousLine, // checked or not
    LineAgain,
    NextClip,     // checked
    PreviousClip, // checked
    RepeatLine,
    Slower,
    Faster,
    NormalSpeed,
    NextWait,
    StepBack,
    StepForward,
    MinuteBack,
    MinuteForward,
    VolumeUp,
    VolumeDown,
    SetBookmark,
    GoToBookmark,
    FillScreen,  // while a clip runs
    LeaveScreen, // while a clip runs
    ToggleFullScreen,
    LeaveFullScreen,
    NextTextLevel,
    AlwaysOnTop,
    EditMode,
    Mark,
    EditText,
    EarlierSlightly, // the selected brake's time
    LaterSlightly,
    Earlier,
    Later,
    RemoveLines,
    LinesUp,
    LinesDown,
    Undo,
    Redo,
    Save,
    SaveAs,
    OpenFile,
    OpenClips,
    Find,
    FindAgain,
    TextsLarger,  // of the main window
    TextsSmaller, // of the main window
    TextsNormal,  // of the main window
    Help,
    ShowMenu,
    Quit,
};

/// Who reads a key.
enum class KeyPlace
{
    Windows, // the main window and the video window, whatever has the focus in them
    List,    // the playlist, itself
    Editing, // the playlist while it is edited
    FindBox, // the find box, itself
};

/// A key with a name, or a letter with Ctrl. What types a character is a letter below.
struct NamedKey
{
    Qt::Key key{};
    Qt::KeyboardModifiers modifiers{};
    KeyPlace place = KeyPlace::Windows;
};

/// Entries of one group stand together in a menu; a line divides it from the next.
enum class MenuGroup
{
    None, // in no menu
    Line, // of the list
    Playing,
    Practice,
    Bookmark,
    Window,
    Editing, // a submenu, while the playlist is edited
    Opening,
    Program,
};

/// The windows' menus that offer a command.
enum class MenuPlace
{
    List = 1,
    VideoWindow = 2,
    Both = List | VideoWindow,
};

struct CommandRow
{
    static constexpr std::size_t kMostKeys = 4;

    Command command;
    QStringView name; // its text in the table of texts, under the window "Command"
    std::array<NamedKey, kMostKeys> keys = {}; // the first is the one that is shown
    char16_t letter = 0;                       // lower case; 0: none
    bool letterInVideoWindow = true;
    MenuGroup group = MenuGroup::None;
    MenuPlace menus = MenuPlace::Both; // of a command with a group
    bool isSwitch = false;             // its entry bears a check mark
    QStringView control = {};          // of the main window; its tool tip names the key

    /// The keys without the places that are not taken.
    [[nodiscard]] std::span<const NamedKey> namedKeys() const;
};

/// The whole table, in the order of the menus.
[[nodiscard]] std::span<const CommandRow> commands();
[[nodiscard]] const CommandRow& rowOf(Command command);

/// The key that is shown for a command, as a tool tip or a menu writes it: "Ctrl+O", "K". Empty
/// for a command without one.
[[nodiscard]] QString shownKey(const CommandRow& row);

/// The main window's reading of a typed character: upper case acts like lower case.
[[nodiscard]] std::optional<Command> mainWindowLetter(QChar typed);
/// The video window's reading: lower case only, and no always-on-top.
[[nodiscard]] std::optional<Command> videoWindowLetter(QChar typed);

} // namespace orvanta
