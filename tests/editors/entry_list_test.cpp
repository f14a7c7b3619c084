#include "core/run_time_error.h"
#include "editors/brake_list.h"
#include "editors/clip_list.h"
#include "editors/entry_list.h"
#include "editors/member_list.h"

#include <QLocale>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static EntryList listOf(const QStringList& entries, int selected = -1)
{
    return {.entries = entries, .selected = selected};
}

static void rebuild(EntryList& list)
{
    rebuildSelected(list, u"new"_s);
}

TEST(EntryLists, ChangeAroundTheSelectedEntry)
{
    struct Row
    {
        const char* rule;
        void (*change)(EntryList&);
        EntryList before;
        EntryList after;
    };
    const QStringList ab = {u"a"_s, u"b"_s};
    const QStringList abc = {u"a"_s, u"b"_s, u"c"_s};
    const QStringList acb = {u"a"_s, u"c"_s, u"b"_s};
    const Row rows[] = {
        {"room in an empty list is its first entry", makeRoom, {}, listOf({u""_s}, 0)},
        {"with nothing selected room is made at the end and the first entry selected", makeRoom,
         listOf(ab), listOf(ab + QStringList(u""_s), 0)},
        {"room is made right after the selected entry", makeRoom, listOf(ab, 0),
         listOf({u"a"_s, u""_s, u"b"_s}, 1)},
        {"room is made after the last entry", makeRoom, listOf(ab, 1),
         listOf(ab + QStringList(u""_s), 2)},
        {"with nothing selected a rebuilt entry is appended and selected", rebuild,
         listOf({u"a"_s}), listOf({u"a"_s, u"new"_s}, 1)},
        {"the selected entry is rebuilt", rebuild, listOf(ab, 0), listOf({u"new"_s, u"b"_s}, 0)},
        {"without a selection nothing is removed", removeSelected, listOf(ab), listOf(ab)},
        {"a removal leaves nothing selected", removeSelected, listOf(abc, 1),
         listOf({u"a"_s, u"c"_s})},
        {"the first entry stays", moveUp, listOf(ab, 0), listOf(ab, 0)},
        {"the last entry stays", moveDown, listOf(ab, 1), listOf(ab, 1)},
        {"an entry that goes up stays selected", moveUp, listOf(abc, 2), listOf(acb, 1)},
        {"an entry that goes down stays selected", moveDown, listOf(acb, 1), listOf(abc, 2)},
        {"without a selection nothing goes up", moveUp, listOf(ab), listOf(ab)},
        {"without a selection nothing goes down", moveDown, listOf(ab), listOf(ab)},
    };
    for (const Row& row : rows) {
        EntryList list = row.before;
        row.change(list);
        EXPECT_EQ(list, row.after) << row.rule;
    }
}

TEST(SplitAtLastMarker, TheLastMarkerDecides)
{
    const MarkerSplit split = splitAtLastMarker(u"path{}text{}more"_s);
    EXPECT_TRUE(split.found);
    EXPECT_EQ(split.before, u"path{}text"_s);
    EXPECT_EQ(split.after, u"more"_s);
    EXPECT_FALSE(splitAtLastMarker(u"no marker"_s).found);
}

TEST(NameWithoutExtension, EndsAtTheLastPoint)
{
    EXPECT_EQ(nameWithoutExtension(u"part.one.avi"_s), u"part.one"_s);
    EXPECT_EQ(nameWithoutExtension(u"nopoint"_s), u"nopoint"_s);
    EXPECT_EQ(nameWithoutExtension(u".avi"_s), u""_s);
}

TEST(OnOneLine, MakesEveryLineBreakOneBlank)
{
    EXPECT_EQ(onOneLine(u"a\r\nb\nc\rd\u2028e\u2029f"_s), u"a b c d e f"_s);
    EXPECT_EQ(onOneLine(u"tab\tstays"_s), u"tab\tstays"_s);
}

TEST(ClipList, AddsAFileWithItsNameAsText)
{
    EntryList list = listOf({u"x"_s}, 0);
    addClip(list, u"/clips/"_s, u"a.b.avi"_s);
    EXPECT_EQ(list, listOf({u"x"_s, u"/clips/a.b.avi{}a.b"_s}, 1));
}

TEST(ClipList, LoadingEndsAtAnErrorWithTheListEmptied)
{
    EntryList list = listOf({u"x"_s}, 0);
    EXPECT_THROW(loadClips(list, u"/nowhere/at/all.vxl"_s), RuntimeError);
    EXPECT_EQ(list, EntryList());
}

TEST(EntriesOfFiles, GiveOneEntryPerFileInOrder)
{
    EXPECT_EQ(entriesOfFiles(u"/c"_s, {u"a2.avi"_s, u"a10.avi"_s}),
              QStringList({u"/c/a2.avi{}a2"_s, u"/c/a10.avi{}a10"_s}));
}

TEST(BrakeList, WritesTheTimeWithTheUsersDecimalMark)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(brakeEntry(75.4, u"two"_s), u"000075.40{}two"_s);
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    EXPECT_EQ(brakeEntry(75.4, u"two"_s), u"000075,40{}two"_s);
    QLocale::setDefault(QLocale::system());
}

TEST(BrakeList, IsNeverSorted)
{
    EntryList list;
    addBrake(list, 20, u"late"_s);
    addBrake(list, 10, u"early"_s);
    ASSERT_EQ(list.entries.size(), 2);
    EXPECT_TRUE(list.entries.at(0).endsWith(u"late"_s));
    EXPECT_EQ(list.selected, -1);
}

TEST(BrakeList, WithNothingSelectedNothingIsRebuilt)
{
    EntryList list = listOf({u"000001.00{}a"_s});
    rebuildBrake(list, 9, u"b"_s);
    EXPECT_EQ(list, listOf({u"000001.00{}a"_s}));
}

TEST(BrakePassed, IsTheLatestOneReachedInAnUnsortedList)
{
    const auto times =
        brakeTimes({u"000020.00{}c"_s, u"000000.00{}a"_s, u"abc{}bad"_s, u"000010,50{}b"_s});
    EXPECT_EQ(brakePassed(times, 0), 1);
    EXPECT_EQ(brakePassed(times, 10.49), 1);
    EXPECT_EQ(brakePassed(times, 10.5), 3);
    EXPECT_EQ(brakePassed(times, 100), 0);
    EXPECT_EQ(brakePassed({}, 100), -1);
}

TEST(MemberList, AFreshMemberHasThreeFieldsAndNoPicture)
{
    EXPECT_EQ(memberEntry(fieldsOfFile(u"/p"_s, u"week1.vxl"_s)),
              u"/p/week1.vxl{}week1{}{No picture}"_s);
}

TEST(MemberList, AClickShowsWhatTheEntryHas)
{
    const MemberFields shown = {.path = u"p"_s, .text = u"t"_s, .picture = u"i"_s};
    const auto fields = [](const QString& path, const QString& text, const QString& picture) {
        return MemberFields{.path = path, .text = text, .picture = picture};
    };
    EXPECT_EQ(shownAfterClick(shown, u"q{}new text"_s), fields(u"q"_s, u"t"_s, u"i"_s))
        << "two fields change the path alone";
    EXPECT_EQ(shownAfterClick({}, u"q{}a{}b{}i.jpg"_s), fields(u"q"_s, u"a{}b"_s, u"i.jpg"_s))
        << "the last marker separates the picture";
    EXPECT_EQ(shownAfterClick(shown, QString()), shown) << "an empty entry changes nothing";
}

} // namespace orvanta::test
