// Lines of subtitles, without files.
#include "platform/media/subtitle_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

TEST(EventText, HasNoMarkup)
{
    EXPECT_EQ(textOfEvent(u"0,0,Default,,0,0,0,,Good day"_s), u"Good day");
    EXPECT_EQ(textOfEvent(u"3,0,Default,Ann,0,0,0,fx,{\\i1}Good{\\i0}, very\\Ngood\\hday"_s),
              u"Good, very good day");
    EXPECT_EQ(textOfEvent(u"0,0,Default,,0,0,0,,{\\pos(1,2)\\an8} What? "_s), u"What?");
    EXPECT_EQ(textOfEvent(u"0,0,Default,,0,0,0,,{\\p1}m 0 0 l 1 1{\\p0}And text"_s), u"And text");
    EXPECT_EQ(textOfEvent(u"0,0,Default,,0,0,0,,An {open brace"_s), u"An {open brace");
    EXPECT_EQ(textOfEvent(u"0,0,Default,,0,0,0,,"_s), QString());
    EXPECT_EQ(textOfEvent(u"nothing"_s), QString());
}

TEST(Lines, AreInOrderAndSaidOnce)
{
    EXPECT_THAT(orderedLines({{2, 3, u"b"_s}, {1, 2, u"a"_s}, {2, 3, u"b"_s}, {4, 5, u"b"_s}}),
                ElementsAre(SubtitleLine{1, 2, u"a"_s}, SubtitleLine{2, 3, u"b"_s},
                            SubtitleLine{4, 5, u"b"_s}));
}

TEST(Sentences, GoOnUntilTheyEnd)
{
    EXPECT_THAT(joinedToSentences({{1, 2, u"I"_s},
                                   {2.1, 3, u"am."_s},
                                   {3, 4, u"“Are you?”"_s},
                                   {4, 5, u"Well…"_s},
                                   {5, 6, u"he said"_s}}),
                ElementsAre(SubtitleLine{1, 3, u"I am."_s}, SubtitleLine{3, 4, u"“Are you?”"_s},
                            SubtitleLine{4, 5, u"Well…"_s}, SubtitleLine{5, 6, u"he said"_s}));
}

TEST(Sentences, DoNotGoOnAfterAPause)
{
    EXPECT_THAT(joinedToSentences({{1, 2, u"one"_s}, {3.5, 4, u"two"_s}, {5.6, 6, u"three"_s}}),
                ElementsAre(SubtitleLine{1, 4, u"one two"_s}, SubtitleLine{5.6, 6, u"three"_s}));
}

TEST(Lines, AreMarksWhereTheyStart)
{
    EXPECT_THAT(marksOfLines({{1.5, 2, u"one"_s}, {3, 4, u"two"_s}}),
                ElementsAre(SuggestedMark{1.5, u"one"_s}, SuggestedMark{3, u"two"_s}));
}

} // namespace orvanta::test
