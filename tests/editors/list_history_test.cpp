// Undo and redo of an editor's list, without windows.

#include "editors/list_history.h"

#include <gtest/gtest.h>
#include <random>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class ListHistoryTest : public testing::Test
{
protected:
    void change(const std::function<void(ListState&)>& operation, const void* run = nullptr)
    {
        const ListState before = state;
        operation(state);
        if (!haveSameContents(before, state)) {
            history.record(before, state, run);
        }
    }
    void type(const QString& entry, const void* run)
    {
        change([&](ListState& now) { rebuildSelected(now.list, entry); }, run);
    }
    [[nodiscard]] bool undo() { return history.undo(state); }
    [[nodiscard]] bool redo() { return history.redo(state); }

    ListState state;
    ListHistory history;
};

} // namespace

TEST_F(ListHistoryTest, HasNothingToTakeBackInTheBeginning)
{
    EXPECT_FALSE(undo());
    EXPECT_FALSE(redo());
}

TEST_F(ListHistoryTest, AThousandChangesAreAllTakenBackAndDoneAgain)
{
    std::mt19937 random(11);
    const auto upTo = [&](std::size_t most) { return static_cast<int>(random() % (most + 1)); };
    std::vector<QStringList> seen = {{}};
    while (seen.size() < 1000) {
        change([&](ListState& now) {
            EntryList& list = now.list;
            list.selected = upTo(static_cast<std::size_t>(list.entries.size())) - 1;
            const auto operations = {makeRoom, makeRoom, removeSelected, moveUp, moveDown};
            const int which = upTo(operations.size() + 1);
            if (which < static_cast<int>(operations.size())) {
                (*(operations.begin() + which))(list);
            } else if (upTo(40) == 0) {
                removeAll(list);
            } else {
                rebuildSelected(list, QString::number(upTo(3)));
            }
        });
        if (state.list.entries != seen.back()) {
            seen.push_back(state.list.entries);
        }
    }
    for (std::size_t at = seen.size() - 1; at > 0; --at) {
        ASSERT_EQ(state.list.entries, seen[at]) << at;
        ASSERT_TRUE(undo());
    }
    EXPECT_FALSE(undo());
    for (std::size_t at = 1; at < seen.size(); ++at) {
        ASSERT_TRUE(redo());
        ASSERT_EQ(state.list.entries, seen[at]) << at;
    }
    EXPECT_FALSE(redo());
}

TEST_F(ListHistoryTest, TheSelectionComesBackWithTheEntries)
{
    state.list = {.entries = {u"a"_s, u"b"_s}, .selected = 1};
    change([](ListState& now) { moveUp(now.list); });
    ASSERT_TRUE(undo());
    EXPECT_EQ(state.list, (EntryList{.entries = {u"a"_s, u"b"_s}, .selected = 1}));
    state.list.selected = -1; // the user's click beside the list
    ASSERT_TRUE(redo());
    EXPECT_EQ(state.list, (EntryList{.entries = {u"b"_s, u"a"_s}, .selected = 0}));
}

TEST_F(ListHistoryTest, ARunIsOneStepUntilSomethingElseEndsIt)
{
    const int box = 0;
    const int otherBox = 0;
    state.list = {.entries = {u"a"_s}, .selected = 0};
    type(u"ab"_s, &box);
    type(u"abc"_s, &box);
    type(u"abcd"_s, &otherBox);
    history.endRun();
    type(u"abcde"_s, &otherBox);
    for (const QString& before : {u"abcd"_s, u"abc"_s, u"a"_s}) {
        ASSERT_TRUE(undo());
        EXPECT_EQ(state.list.entries, QStringList(before));
    }
    EXPECT_FALSE(undo());
}

TEST_F(ListHistoryTest, ARunThatLeadsBackToItsStartIsNoStep)
{
    const int box = 0;
    state.list = {.entries = {u"a"_s}, .selected = 0};
    type(u"ab"_s, &box);
    type(u"a"_s, &box);
    EXPECT_FALSE(undo());
    type(u"ac"_s, &box);
    type(u"acd"_s, &box);
    ASSERT_TRUE(undo());
    EXPECT_EQ(state.list.entries, QStringList(u"a"_s));
}

TEST_F(ListHistoryTest, ANewChangeForgetsWhatWasTakenBack)
{
    change([](ListState& now) { now.list.entries.append(u"a"_s); });
    ASSERT_TRUE(undo());
    change([](ListState& now) { now.list.entries.append(u"b"_s); });
    EXPECT_FALSE(redo());
    EXPECT_EQ(state.list.entries, QStringList(u"b"_s));
}

TEST_F(ListHistoryTest, TheDocumentAndTheClipComeBackWithTheirList)
{
    state.document = {.file = u"/a/one.vxl"_s, .folder = u"/a/"_s};
    state.clip = {.path = u"one.avi"_s, .text = u"one"_s};
    change([](ListState& now) {
        now.list.entries = {u"x"_s};
        now.document = {.file = u"/b/two.vxl"_s, .folder = u"/b/"_s};
        now.clip = {.path = u"two.avi"_s, .text = u"two"_s};
    });
    ASSERT_TRUE(undo());
    EXPECT_EQ(state.document.file, u"/a/one.vxl"_s);
    EXPECT_EQ(state.clip.path, u"one.avi"_s);
    ASSERT_TRUE(redo());
    EXPECT_EQ(state.document.folder, u"/b/"_s);
    EXPECT_EQ(state.clip.text, u"two"_s);
}

TEST_F(ListHistoryTest, WhatWasSavedSinceStaysSaved)
{
    change([](ListState& now) { now.list.entries = {u"a"_s}; });
    change([](ListState& now) { now.clip.text = u"typed"_s; });
    EXPECT_TRUE(differsFromItsFile(state));
    setWritten(state, u"/a/one.vxl"_s);
    EXPECT_FALSE(differsFromItsFile(state));
    ASSERT_TRUE(undo());
    EXPECT_EQ(state.document.file, u"/a/one.vxl"_s);
    EXPECT_TRUE(differsFromItsFile(state));
    ASSERT_TRUE(redo());
    EXPECT_FALSE(differsFromItsFile(state));
}

TEST_F(ListHistoryTest, TypingIntoTheLongestListKeepsNoCopiesOfIt)
{
    QStringList many;
    for (int i = 0; i < 32767; ++i) {
        many.append(u"/clips/number %1.avi{}number"_s.arg(i));
    }
    change([&](ListState& now) { now.list = {.entries = many, .selected = 16000}; });
    constexpr int kSteps = 300;
    for (int step = 0; step < kSteps; ++step) {
        type(u"text %1"_s.arg(step), nullptr);
    }
    // Every copy of the list holds each of its texts once more.
    constexpr int kHolders = 5; // the lists of this test and of the last steps
    EXPECT_LE(many[5].data_ptr().d_ptr()->ref_.loadRelaxed(), kHolders);
    for (int step = 0; step < kSteps; ++step) {
        ASSERT_TRUE(undo());
    }
    EXPECT_EQ(state.list.entries, many);
}

} // namespace orvanta::test
