// The files that a drag source names.
#include "model/dropped_files.h"
#include "tests/support/log_capture.h"

#include <QSysInfo>

#include <gtest/gtest.h>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

TEST(DroppedFiles, AreTheFilesOfTheListAndTheRestIsLogged)
{
    struct Row
    {
        const char* rule;
        QByteArray list;
        QStringList files;
        QString logged;
    };
    const Row rows[] = {
        {"in the source's order",
         "file:///m/b.avi\r\nfile:///m/a.avi\r\n",
         {u"/m/b.avi"_s, u"/m/a.avi"_s},
         {}},
        {"names with blanks, Cyrillic letters and percent signs come through",
         "file:///my%20clips/%D1%83%D1%80%D0%BE%D0%BA.avi\r\nfile:///100%25.avi\r\n"
         "file:///a%2520b.avi",
         {u"/my clips/урок.avi"_s, u"/100%.avi"_s, u"/a%20b.avi"_s},
         {}},
        {"comments and blank lines are no files",
         "# from a file manager\r\n\r\nfile:///a.avi\n",
         {u"/a.avi"_s},
         {}},
        {"an empty list has none", "", {}, {}},
        {"a name whose bytes are no text is refused",
         "file:///a%FF.avi\r\nfile:///b.avi",
         {u"/b.avi"_s},
         u"file:///a%FF.avi"_s},
        {"a name with a NUL is refused", "file:///a%00.avi", {}, {}},
        {"addresses that are no files are refused",
         "http://example.org/a.avi\r\nfile:relative.avi\r\nrubbish",
         {},
         u"http://example.org/a.avi"_s},
        {"a file of another machine is refused",
         "file://elsewhere.example/m/a.avi",
         {},
         u"elsewhere.example"_s},
    };
    for (const Row& row : rows) {
        const LogCapture log("orvanta.playlist");
        EXPECT_EQ(filesOfUriList(row.list), row.files) << row.rule;
        EXPECT_TRUE(log.lines().join(u' ').contains(row.logged)) << row.rule;
    }
}

TEST(DroppedFiles, AnAddressWithTheNameOfThisMachineIsAFileHere)
{
    const QByteArray here = "file://" + QSysInfo::machineHostName().toUtf8() + "/m/a.avi\r\n";
    EXPECT_EQ(filesOfUriList(here + "file://localhost/m/b%20b.avi"),
              (QStringList{u"/m/a.avi"_s, u"/m/b b.avi"_s}));
}

} // namespace
