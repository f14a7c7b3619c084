#include "core/paths.h"

#include <gtest/gtest.h>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

struct PathRow
{
    QString path;
    QString folder;
    QString fileName;
    QString clipName;
};

TEST(Paths, AreTakenApartAtTheirLastSeparator)
{
    const std::vector<PathRow> rows = {
        {u"/home/a/b.avi"_s, u"/home/a/"_s, u"b.avi"_s, u"b"_s},
        {u"/m/AC\\DC.mp3"_s, u"/m/"_s, u"AC\\DC.mp3"_s, u"AC\\DC"_s},
        {u"C:\\Clips\\intro.avi"_s, u"C:\\Clips\\"_s, u"intro.avi"_s, u"intro"_s},
        {u"d:/media\\x/intro.part.avi"_s, u"d:/media\\x/"_s, u"intro.part.avi"_s, u"intro.part"_s},
        {u"clips/README"_s, u"clips/"_s, u"README"_s, u""_s},
        {u"d:\\media.old\\README"_s, u"d:\\media.old\\"_s, u"README"_s, u""_s},
        {u"intro.avi"_s, u""_s, u"intro.avi"_s, u""_s},
        {u"/m/.avi"_s, u"/m/"_s, u".avi"_s, u""_s},
        {u""_s, u""_s, u""_s, u""_s}};
    for (const PathRow& row : rows) {
        EXPECT_EQ(folderOfPath(row.path), row.folder) << row.path.toStdString();
        EXPECT_EQ(fileNameOfPath(row.path), row.fileName) << row.path.toStdString();
        EXPECT_EQ(clipNameOfPath(row.path), row.clipName) << row.path.toStdString();
    }
}

TEST(Paths, AreJoinedWithTheFoldersOwnSeparator)
{
    EXPECT_EQ(joinPath(u"/home/a"_s, u"b.avi"_s), u"/home/a/b.avi"_s);
    EXPECT_EQ(joinPath(u"/"_s, u"b.avi"_s), u"/b.avi"_s);
    EXPECT_EQ(joinPath(u"C:\\Clips"_s, u"b.avi"_s), u"C:\\Clips\\b.avi"_s);
    EXPECT_EQ(joinPath(u"C:\\"_s, u"b.avi"_s), u"C:\\b.avi"_s);
    EXPECT_EQ(joinPath(u"clips"_s, u"b.avi"_s), u"clips/b.avi"_s);
    EXPECT_EQ(joinPath(u"/m/AC\\"_s, u"b.avi"_s), u"/m/AC\\/b.avi"_s);
}

TEST(Paths, ANameInNoFolderStaysRelative)
{
    EXPECT_EQ(joinPath(u""_s, u"b.avi"_s), u"b.avi"_s);
}

TEST(Paths, KindIsTheLastThreeCharactersInCapitals)
{
    EXPECT_EQ(kindOfPath(u"/a/Lesson.vxl"_s), u"VXL"_s);
    EXPECT_EQ(kindOfPath(u"/a/Week.VxG"_s), u"VXG"_s);
    EXPECT_EQ(kindOfPath(u"/a/sound.flac"_s), u"LAC"_s);
    EXPECT_EQ(kindOfPath(u"x"_s), u"X"_s);
}

TEST(Paths, ANameThatBeginsWithABackslashLiesBelowTheProgramsFolder)
{
    EXPECT_EQ(programFile(u"/home/a/orvanta"_s, u"\\orvanta.ini"_s),
              u"/home/a/orvanta/orvanta.ini"_s);
    EXPECT_EQ(programFile(u"/home/a/orvanta/"_s, u"\\icons\\avi.ico"_s),
              u"/home/a/orvanta/icons/avi.ico"_s);
    EXPECT_EQ(programFile(u"/"_s, u"\\icons\\"_s), u"/icons/"_s);
}

} // namespace orvanta
