#include "companions/page/page_keys.h"

#include "playback/commands.h"

#include <QJsonObject>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// A key as a browser calls it.
struct BrowserKey
{
    Qt::Key key;
    QStringView name;
};

} // namespace

// F5 is missing on purpose: it loads the page again, and whoever needs that needs nothing else.
constexpr std::array kBrowserKeys{
    BrowserKey{Qt::Key_Space, u" "},
    BrowserKey{Qt::Key_Return, u"Enter"},
    BrowserKey{Qt::Key_PageDown, u"PageDown"},
    BrowserKey{Qt::Key_PageUp, u"PageUp"},
    BrowserKey{Qt::Key_Backspace, u"Backspace"},
    BrowserKey{Qt::Key_Left, u"ArrowLeft"},
    BrowserKey{Qt::Key_Right, u"ArrowRight"},
    BrowserKey{Qt::Key_Escape, u"Escape"},
    BrowserKey{Qt::Key_F, u"f"},
    BrowserKey{Qt::Key_F1, u"F1"},
    BrowserKey{Qt::Key_F3, u"F3"},
    BrowserKey{Qt::Key_F6, u"F6"},
    BrowserKey{Qt::Key_F7, u"F7"},
    BrowserKey{Qt::Key_F8, u"F8"},
    BrowserKey{Qt::Key_F9, u"F9"},
    BrowserKey{Qt::Key_F11, u"F11"},
    BrowserKey{Qt::Key_MediaPlay, u"MediaPlay"},
    BrowserKey{Qt::Key_MediaTogglePlayPause, u"MediaPlayPause"},
    BrowserKey{Qt::Key_MediaPause, u"MediaPause"},
    BrowserKey{Qt::Key_MediaStop, u"MediaStop"},
    BrowserKey{Qt::Key_MediaNext, u"MediaTrackNext"},
    BrowserKey{Qt::Key_MediaPrevious, u"MediaTrackPrevious"},
};

// What opens, edits or belongs to a window of its own has no place in a page.
constexpr std::array kPageCommands{
    Command::PlayLine,        Command::CheckLine,  Command::TogglePlay,  Command::Play,
    Command::Pause,           Command::Stop,       Command::StopButton,  Command::NextLine,
    Command::PreviousLine,    Command::LineAgain,  Command::NextClip,    Command::PreviousClip,
    Command::RepeatLine,      Command::Slower,     Command::Faster,      Command::NormalSpeed,
    Command::NextWait,        Command::StepBack,   Command::StepForward, Command::MinuteBack,
    Command::MinuteForward,   Command::VolumeUp,   Command::VolumeDown,  Command::SetBookmark,
    Command::GoToBookmark,    Command::FillScreen, Command::LeaveScreen, Command::ToggleFullScreen,
    Command::LeaveFullScreen, Command::Find,       Command::FindAgain,   Command::Help,
};

static bool isOnPage(const CommandRow& row)
{
    return std::ranges::find(kPageCommands, row.command) != kPageCommands.end();
}

static QStringView browserName(Qt::Key key)
{
    const auto row = std::ranges::find(kBrowserKeys, key, &BrowserKey::key);
    return row == kBrowserKeys.end() ? QStringView() : row->name;
}

static QJsonArray keysOf(const CommandRow& row)
{
    QJsonArray keys;
    for (const NamedKey& key : row.namedKeys()) {
        const QStringView name = browserName(key.key);
        if (!name.isEmpty()) {
            keys.append(QJsonObject{{u"key"_s, name.toString()},
                                    {u"ctrl"_s, key.modifiers.testFlag(Qt::ControlModifier)},
                                    {u"shift"_s, key.modifiers.testFlag(Qt::ShiftModifier)},
                                    {u"alt"_s, key.modifiers.testFlag(Qt::AltModifier)},
                                    {u"list"_s, key.place == KeyPlace::List}});
        }
    }
    return keys;
}

QStringList pageCommands()
{
    QStringList names;
    for (const CommandRow& row : commands()) {
        if (isOnPage(row)) {
            names.append(row.name.toString());
        }
    }
    return names;
}

QJsonArray pageKeys()
{
    QJsonArray keys;
    for (const CommandRow& row : commands()) {
        if (isOnPage(row)) {
            keys.append(
                QJsonObject{{u"command"_s, row.name.toString()},
                            {u"keys"_s, keysOf(row)},
                            {u"letter"_s, row.letter == 0 ? QString() : QString(row.letter)}});
        }
    }
    return keys;
}

} // namespace orvanta
