// The files that a drag source names.
#include "model/dropped_files.h"
#include "tests/support/log_capture.h"

#include <QSysInfo>

#include <gtest/gtest.h>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

TEST(DroppedFiles, AreTakenInTheSourcesOrder)
{
    EXPECT_EQ(filesOfUriList("file:///m/b.avi\r\nfile:///m/a.avi\r\n"),
              (QStringList{u"/m/b.avi"_s, u"/m/a.avi"_s}));
}

TEST(DroppedFiles, NamesWithBlanksCyrillicLettersAndPercentSignsComeThrough)
{
    EXPECT_EQ(filesOfUriList("file:///my%20clips/%D1%83%D1%80%D0%BE%D0%BA.avi\r\n"
                             "file:///100%25.avi\r\n"
                             "file:///a%2520b.avi"),
              (QStringList{u"/my clips/урок.avi"_s, u"/100%.avi"_s, u"/a%20b.avi"_s}));
}

TEST(DroppedFiles, CommentsAndBlankLinesAreNoFiles)
{
    EXPECT_EQ(filesOfUriList("# from a file manager\r\n\r\nfile:///a.avi\n"),
              QStringList{u"/a.avi"_s});
    EXPECT_TRUE(filesOfUriList("").isEmpty());
}

TEST(DroppedFiles, ANameWhoseBytesAreNoTextIsRefusedWithALogLine)
{
    const LogCapture log("orvanta.playlist");
    EXPECT_EQ(filesOfUriList("file:///a%FF.avi\r\nfile:///b.avi"), QStringList{u"/b.avi"_s});
    EXPECT_TRUE(log.lines().join(u' ').contains(u"file:///a%FF.avi"_s));
    EXPECT_TRUE(filesOfUriList("file:///a%00.avi").isEmpty());
}

TEST(DroppedFiles, AddressesThatAreNoFilesAreRefusedWithALogLine)
{
    const LogCapture log("orvanta.playlist");
    EXPECT_TRUE(
        filesOfUriList("http://example.org/a.avi\r\nfile:relative.avi\r\nrubbish").isEmpty());
    EXPECT_TRUE(log.lines().join(u' ').contains(u"http://example.org/a.avi"_s));
}

TEST(DroppedFiles, AnAddressWithTheNameOfThisMachineIsAFileHere)
{
    const QByteArray here = "file://" + QSysInfo::machineHostName().toUtf8() + "/m/a.avi\r\n";
    EXPECT_EQ(filesOfUriList(here + "file://localhost/m/b%20b.avi"),
              (QStringList{u"/m/a.avi"_s, u"/m/b b.avi"_s}));
}

TEST(DroppedFiles, AFileOfAnotherMachineIsRefusedWithALogLine)
{
    const LogCapture log("orvanta.playlist");
    EXPECT_TRUE(filesOfUriList("file://elsewhere.example/m/a.avi").isEmpty());
    EXPECT_TRUE(log.lines().join(u' ').contains(u"elsewhere.example"_s));
}

} // namespace
