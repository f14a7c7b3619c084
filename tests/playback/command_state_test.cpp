// Which commands can do something, and the table that they stand in.
#include "model/texts.h"
#include "playback/command_state.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

TEST(CommandStates, NothingOpenLeavesOnlyWhatOpensAndEnds)
{
    const CommandFacts nothing;
    for (const CommandRow& row : commands()) {
        if (row.group != MenuGroup::None) {
            const bool always =
                row.group == MenuGroup::Opening || row.group == MenuGroup::Program ||
                row.command == Command::AlwaysOnTop || row.command == Command::NextTextLevel ||
                (row.group == MenuGroup::Practice && row.command != Command::NormalSpeed);
            EXPECT_EQ(stateOf(row.command, nothing).enabled, always)
                << qPrintable(row.name.toString());
        }
    }
}

TEST(CommandStates, FollowWhatTheyNeed)
{
    struct Row
    {
        Command command;
        CommandFacts facts;
        CommandState state;
    };
    const Row rows[] = {
        {Command::PlayLine, {.lineStarts = true}, {true, false}},
        {Command::EditMode, {.hasEntries = true}, {true, false}},
        {Command::EditMode, {.editing = true}, {true, true}},
        {Command::Mark, {.editing = true, .canMark = true}, {true, false}},
        {Command::Mark, {.canMark = true}, {false, false}},
        {Command::EditText, {.lineHasText = true}, {true, false}},
        {Command::Later, {.lineIsBrake = true}, {true, false}},
        {Command::RemoveLines, {.lineHasBox = true, .editing = true}, {true, false}},
        {Command::Undo, {.canUndo = true}, {true, false}},
        {Command::Redo, {.canRedo = true}, {true, false}},
        {Command::Save, {.changed = true}, {true, false}},
        {Command::SaveAs, {.editing = true}, {true, false}},
        {Command::CheckLine, {.lineHasBox = true}, {true, false}},
        {Command::CheckLine, {.lineHasBox = true, .lineChecked = true}, {true, true}},
        {Command::TogglePlay, {.hasEntries = true}, {true, false}},
        {Command::TogglePlay, {.loaded = true}, {true, false}},
        {Command::Stop, {.hasEntries = true}, {false, false}},
        {Command::Stop, {.loaded = true}, {false, false}},
        {Command::Stop, {.loaded = true, .canStop = true}, {true, false}},
        {Command::NextClip, {.hasEntries = true}, {true, false}},
        {Command::PreviousClip, {.hasEntries = true}, {true, false}},
        {Command::SetBookmark, {.loaded = true}, {false, false}},
        {Command::SetBookmark, {.loaded = true, .hasPlace = true}, {true, false}},
        {Command::GoToBookmark, {.loaded = true}, {false, false}},
        {Command::GoToBookmark, {.hasBookmark = true}, {false, false}},
        {Command::GoToBookmark, {.loaded = true, .hasBookmark = true}, {true, false}},
        {Command::ToggleFullScreen, {.loaded = true}, {true, false}},
        {Command::ToggleFullScreen, {.fullScreen = true}, {true, true}},
        {Command::AlwaysOnTop, {.alwaysOnTop = true}, {true, true}},
        {Command::AlwaysOnTop, {.canStayOnTop = false}, {false, false}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(stateOf(row.command, row.facts), row.state)
            << qPrintable(rowOf(row.command).name.toString());
    }
}

TEST(CommandTable, ShowsTheFirstKeyAndTheLetterAsItStandsOnTheKey)
{
    EXPECT_EQ(shownKey(rowOf(Command::OpenFile)), u"Ctrl+O"_s);
    EXPECT_EQ(shownKey(rowOf(Command::OpenClips)), u"Ctrl+Shift+O"_s);
    EXPECT_EQ(shownKey(rowOf(Command::TogglePlay)), u"Space"_s);
    EXPECT_EQ(shownKey(rowOf(Command::PlayLine)), u"Enter"_s);
    EXPECT_EQ(shownKey(rowOf(Command::SetBookmark)), u"K"_s);
    EXPECT_EQ(shownKey(rowOf(Command::NextClip)), QString()); // a media key alone
}

TEST(CommandTable, HasATextForEachCommandAndNoOther)
{
    QStringList named;
    for (const CommandRow& row : commands()) {
        named.append(row.name.toString());
    }
    QStringList told;
    for (const InterfaceText& text : interfaceTexts()) {
        if (text.window == u"Command") {
            told.append(text.control.toString());
        }
    }
    named.sort();
    told.sort();
    EXPECT_EQ(named, told);
}

TEST(CommandTable, KeepsTheEntriesOfAGroupTogether)
{
    std::vector<MenuGroup> groups;
    for (const CommandRow& row : commands()) {
        if (row.group != MenuGroup::None && (groups.empty() || groups.back() != row.group)) {
            groups.push_back(row.group);
        }
    }
    const auto before = groups;
    std::ranges::sort(groups);
    EXPECT_EQ(std::ranges::adjacent_find(groups), groups.end());
    EXPECT_EQ(before, groups);
}

} // namespace
} // namespace orvanta
