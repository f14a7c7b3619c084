#include "platform/process/path_text.h"

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

TEST(PathText, IsTakenApartByTheRulesOfWhereItWasWritten)
{
    struct Row
    {
        QString text;
        PathRoot root;
        QStringList parts;
    };
    const Row rows[] = {
        {u"/m/AC\\DC.mp3"_s, PathRoot::Linux, {u"m"_s, u"AC\\DC.mp3"_s}},
        {u"C:\\Clips\\a.avi"_s, PathRoot::Drive, {u"Clips"_s, u"a.avi"_s}},
        {u"c:/Clips\\a.avi"_s, PathRoot::Drive, {u"Clips"_s, u"a.avi"_s}},
        {u"\\\\server\\share\\a.avi"_s, PathRoot::Network, {u"server"_s, u"share"_s, u"a.avi"_s}},
        {u"sub\\.\\x\\..\\a.avi"_s, PathRoot::Folder, {u"sub"_s, u"a.avi"_s}},
        {u"A: intro.mp3"_s, PathRoot::Folder, {u"A: intro.mp3"_s}},
        {u""_s, PathRoot::Folder, {}},
    };
    for (const Row& row : rows) {
        const PathText path = pathTextOf(row.text);
        EXPECT_EQ(path.root, row.root) << row.text.toStdString();
        EXPECT_EQ(path.parts, row.parts) << row.text.toStdString();
        EXPECT_FALSE(path.escapes) << row.text.toStdString();
    }
    EXPECT_EQ(pathTextOf(u"E:\\a.avi"_s).drive, u'e');
}

TEST(PathText, WhatLeadsAboveItsBeginningIsKnown)
{
    EXPECT_TRUE(pathTextOf(u"..\\a.avi"_s).escapes);
    EXPECT_TRUE(pathTextOf(u"a/../../b.avi"_s).escapes);
    EXPECT_FALSE(pathTextOf(u"a/../b.avi"_s).escapes);
}

TEST(PathText, NamesAreTheSameInAnyCaseAndHoweverTheirAccentsAreBuilt)
{
    EXPECT_TRUE(isSameName(u"A.AVI"_s, u"a.avi"_s));
    EXPECT_TRUE(isSameName(u"УРОК.avi"_s, u"Урок.AVI"_s));
    EXPECT_TRUE(isSameName(u"caf\u00e9.avi"_s, u"cafe\u0301.avi"_s));
    EXPECT_FALSE(isSameName(u"a.avi"_s, u"b.avi"_s));
    EXPECT_EQ(commonTail({u"x"_s, u"B"_s, u"c"_s}, {u"y"_s, u"b"_s, u"C"_s}), 2);
    EXPECT_EQ(commonTail({u"c"_s}, {u"y"_s, u"c"_s}), 1);
    EXPECT_EQ(commonTail({}, {u"c"_s}), 0);
}

TEST(PathText, ATextReadByTheWrongCodePageHasTheRightSpellingAmongTheOthers)
{
    EXPECT_TRUE(otherSpellings(u"Óðîê.avi"_s).contains(u"Урок.avi"));
    EXPECT_TRUE(otherSpellings(u"“а®Є.avi"_s).contains(u"Урок.avi")); // of the older systems
    EXPECT_TRUE(otherSpellings(u"cafй.avi"_s).contains(u"café.avi"));
    EXPECT_TRUE(otherSpellings(u"plain.avi"_s).isEmpty());
    EXPECT_TRUE(otherSpellings(u"日本.avi"_s).isEmpty());
}

} // namespace orvanta
