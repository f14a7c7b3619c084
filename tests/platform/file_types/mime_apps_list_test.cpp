// Changing one's own entries in a file that belongs to everybody.

#include "platform/file_types/mime_apps_list.h"
#include "tests/support/desktop_room.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta {

namespace {

constexpr const char* kAvi = "video/x-msvideo";
constexpr const char* kMine = "mine.desktop";

struct MimeAppsListTest : testing::Test
{
    DesktopRoom room;

    [[nodiscard]] MimeAppsList list() const { return MimeAppsList(room.path(u"list")); }

    QByteArray afterPutting(const QByteArray& content)
    {
        room.write(u"list", content);
        MimeAppsList changed = list();
        changed.putFirst(kDefaultApplications, kAvi, kMine);
        changed.save();
        return room.bytes(u"list");
    }

    QByteArray afterPuttingAndTakingOut(const QByteArray& content)
    {
        (void)afterPutting(content);
        MimeAppsList changed = list();
        changed.takeOut(kDefaultApplications, kAvi, kMine);
        changed.save();
        return room.bytes(u"list");
    }
};

} // namespace

TEST_F(MimeAppsListTest, ANewFileGetsSectionAndLine)
{
    MimeAppsList changed = list();
    changed.putFirst(kDefaultApplications, kAvi, kMine);
    changed.save();
    EXPECT_EQ(room.bytes(u"list"), "[Default Applications]\nvideo/x-msvideo=mine.desktop\n");
}

TEST_F(MimeAppsListTest, ANewLineStandsAtTheEndOfItsSection)
{
    EXPECT_EQ(
        afterPutting("[Default Applications]\na/b=c.desktop\n\n[Added Associations]\nd/e=f\n"),
        "[Default Applications]\na/b=c.desktop\nvideo/x-msvideo=mine.desktop\n\n"
        "[Added Associations]\nd/e=f\n");
}

TEST_F(MimeAppsListTest, AMissingSectionIsAddedAtTheEnd)
{
    EXPECT_EQ(
        afterPutting("[Added Associations]\nd/e=f"),
        "[Added Associations]\nd/e=f\n[Default Applications]\nvideo/x-msvideo=mine.desktop\n");
}

TEST_F(MimeAppsListTest, TheEarlierProgramsStayBehindTheNewFirst)
{
    EXPECT_EQ(afterPutting("[Default Applications]\nvideo/x-msvideo=a.desktop;b.desktop;\n"),
              "[Default Applications]\nvideo/x-msvideo=mine.desktop;a.desktop;b.desktop;\n");
}

TEST_F(MimeAppsListTest, AProgramThatIsThereMovesToTheFront)
{
    EXPECT_EQ(afterPutting("[Default Applications]\nvideo/x-msvideo=a.desktop;mine.desktop\n"),
              "[Default Applications]\nvideo/x-msvideo=mine.desktop;a.desktop\n");
}

TEST_F(MimeAppsListTest, WhatWasPutIsTakenOutByteForByte)
{
    for (const QByteArray& content : {
             QByteArray("# mine\r\n[Default Applications]\r\nvideo/x-msvideo = a.desktop ; b\r\n"),
             QByteArray("[Default Applications]\nvideo/x-msvideo=a.desktop\n"),
             QByteArray("[Default Applications]\nvideo/x-msvideo=a.desktop;"),
             QByteArray("[Default Applications]\nvideo/x-msvideo=;\n\n\n[Other]\nx=y\n"),
             QByteArray("junk\n[Default Applications]\n\nother/type=x.desktop;\n\n"),
             QByteArray("[Default Applications]\nvideo/x-msvideo=a\nvideo/x-msvideo=b\n"),
         }) {
        EXPECT_NE(afterPutting(content), content);
        EXPECT_EQ(afterPuttingAndTakingOut(content), content);
    }
}

TEST_F(MimeAppsListTest, TheSameKeyOfAnotherSectionStays)
{
    const QByteArray content = "[Removed Associations]\nvideo/x-msvideo=mine.desktop;\n";
    EXPECT_EQ(afterPuttingAndTakingOut(content + "[Default Applications]\n"),
              content + "[Default Applications]\n");
}

TEST_F(MimeAppsListTest, AFileThatNeedsNoChangeIsNotWritten)
{
    room.write(u"list", "[Default Applications]\nvideo/x-msvideo=mine.desktop\n");
    const QDateTime before = QFileInfo(room.path(u"list")).lastModified();
    MimeAppsList same = list();
    same.putFirst(kDefaultApplications, kAvi, kMine);
    same.takeOut(kDefaultApplications, "a/b", kMine);
    same.save();
    EXPECT_EQ(QFileInfo(room.path(u"list")).lastModified(), before);
}

TEST_F(MimeAppsListTest, WhatOthersWriteBetweenReadingAndWritingStays)
{
    room.write(u"list", "[Default Applications]\nvideo/x-msvideo=a.desktop\nd/e=mine.desktop\n");
    MimeAppsList changed = list();
    changed.putFirst(kDefaultApplications, kAvi, kMine);
    changed.takeOut(kDefaultApplications, "d/e", kMine);
    room.write(u"list", "[Default Applications]\nvideo/x-msvideo=b.desktop\nf/g=c.desktop\n");
    changed.save();
    EXPECT_EQ(room.bytes(u"list"),
              "[Default Applications]\nvideo/x-msvideo=mine.desktop;b.desktop\nf/g=c.desktop\n");
    EXPECT_EQ(changed.programs(kDefaultApplications, "f/g"), QByteArrayList{"c.desktop"});
}

TEST_F(MimeAppsListTest, NewLinesEndAsThoseOfTheFileDo)
{
    EXPECT_EQ(afterPutting("[Added Associations]\r\nd/e=f"),
              "[Added Associations]\r\nd/e=f\r\n[Default Applications]\r\n"
              "video/x-msvideo=mine.desktop\r\n");
}

TEST_F(MimeAppsListTest, CommentsAndWhatNobodyUnderstandsStay)
{
    const QByteArray before = "# of the user\n\n[Default Applications]\n#video/x-msvideo=a\n"
                              "no line of anything\n=x\n[broken\n[]\nvideo/x-msvideo\n";
    const QByteArray own = "video/x-msvideo=mine.desktop\n";
    const QByteArray after = afterPutting(before);
    EXPECT_EQ(QByteArray(after).replace(own, ""), before);
    EXPECT_EQ(after.count(own), 1);
}

TEST_F(MimeAppsListTest, AFileThatCannotBeReadKeepsItsBytes)
{
    const QByteArray content = "[Default Applications]\na/b=c.desktop\n";
    room.write(u"list", content);
    const QByteArray file = QFile::encodeName(room.path(u"list"));
    ASSERT_EQ(::chmod(QFile::encodeName(room.path(u"")).constData(), 0777), 0);
    ASSERT_EQ(::chmod(file.constData(), 0), 0);
    const uid_t user = ::geteuid();
    constexpr uid_t kNobody = 65534;
    if (user == 0) { // the administrator can read every file
        ASSERT_EQ(::seteuid(kNobody), 0);
    }
    MimeAppsList changed = list();
    changed.putFirst(kDefaultApplications, kAvi, kMine);
    changed.save();
    ASSERT_EQ(::seteuid(user), 0);
    ASSERT_EQ(::chmod(file.constData(), 0600), 0);
    EXPECT_EQ(room.bytes(u"list"), content);
}

TEST_F(MimeAppsListTest, ADiskThatIsFullLeavesTheFileAsItWasAndNothingBesideIt)
{
    const QByteArray content = "[Default Applications]\na/b=c.desktop\n";
    room.write(u"list", content);
    MimeAppsList changed = list();
    changed.putFirst(kDefaultApplications, kAvi, kMine);
    struct rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const struct rlimit small = {8, before.rlim_max}; // bytes: less than there is to write
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    changed.save();
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(room.bytes(u"list"), content);
    const QStringList all =
        QDir(room.path(u"")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    EXPECT_EQ(all, (QStringList{QStringLiteral("list"), QStringLiteral("system")}));
}

TEST_F(MimeAppsListTest, APipeInItsPlaceIsNeitherReadNorReplaced)
{
    const QByteArray pipe = QFile::encodeName(room.path(u"list"));
    ASSERT_EQ(::mkfifo(pipe.constData(), 0600), 0);
    MimeAppsList changed = list(); // and comes back at once
    changed.putFirst(kDefaultApplications, kAvi, kMine);
    changed.save();
    struct stat status = {};
    ASSERT_EQ(::stat(pipe.constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST_F(MimeAppsListTest, ASymbolicLinkStaysOne)
{
    room.write(u"dotfiles/list", "[Default Applications]\n");
    ASSERT_TRUE(QFile::link(room.path(u"dotfiles/list"), room.path(u"list")));
    MimeAppsList changed = list();
    changed.putFirst(kDefaultApplications, kAvi, kMine);
    changed.save();
    EXPECT_TRUE(QFileInfo(room.path(u"list")).isSymLink());
    EXPECT_TRUE(room.bytes(u"dotfiles/list").contains(kMine));
}

} // namespace orvanta
