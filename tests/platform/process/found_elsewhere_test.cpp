#include "core/ini.h"
#include "core/packet_file.h"
#include "platform/process/folder_search.h"
#include "platform/process/known_places.h"
#include "platform/process/media_locator.h"
#include "tests/support/log_capture.h"
#include "tests/support/settings_folder.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStringEncoder>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct FoundElsewhere : testing::Test
{
    FoundElsewhere() { beginSearches(); }
    ~FoundElsewhere() override
    {
        setPlacesFile({});
        setLegacyCodePage({});
        beginSearches();
    }

    /// A file below the test's folder, with the folders above it. Returns its path.
    [[nodiscard]] QString put(const QString& name, int secondsAgo = 0) const
    {
        QDir(home.path()).mkpath(QFileInfo(name).path());
        QFile file(home.write(name, "x"));
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo),
                         QFileDevice::FileModificationTime);
        return file.fileName();
    }
    [[nodiscard]] FoundFile find(const QString& text, const QString& packet = u"packet"_s,
                                 const QString& group = {}) const
    {
        const QString groupFolder = group.isEmpty() ? QString() : home.file(group);
        return findMediaFile(text, {home.file(packet), groupFolder}, SearchDepth::Patient);
    }

    SettingsFolder home{QByteArray()};
};

/// A packet as another system wrote it, and what lies where it was copied to.
struct Case
{
    const char* rule;
    QString packetFolder; // where the packet lies, below the test's folder
    QStringList files;    // what else is there; the newest first
    QString text;         // the clip's path in the packet
    QString file;         // what a person would say it means; empty: nothing
};

} // namespace

static std::vector<Case> movedLessons()
{
    return {
        {"the folder was copied with its clips",
         u"Уроки"_s,
         {u"Уроки/a.avi"_s},
         u"C:\\Lessons\\a.avi"_s,
         u"Уроки/a.avi"_s},
        {"clips in a folder beside the packet",
         u"new"_s,
         {u"new/clips/a.avi"_s},
         u"D:\\Lessons\\clips\\a.avi"_s,
         u"new/clips/a.avi"_s},
        {"letter case of every part",
         u"new"_s,
         {u"new/Clips/Урок 1.AVI"_s},
         u"clips\\УРОК 1.avi"_s,
         u"new/Clips/Урок 1.AVI"_s},
        {"a stick whose drive has no name here",
         u"STICK/Lessons/3"_s,
         {u"STICK/Lessons/3/a.avi"_s, u"STICK/Lessons/3/x/a.avi"_s},
         u"E:\\Lessons\\3\\x\\a.avi"_s,
         u"STICK/Lessons/3/x/a.avi"_s},
        {"beside the packet's own folder on that stick",
         u"STICK/Lessons/3"_s,
         {u"STICK/Lessons/common/a.avi"_s},
         u"E:\\Lessons\\Common\\a.avi"_s,
         u"STICK/Lessons/common/a.avi"_s},
        {"a share of a network",
         u"new"_s,
         {u"new/1/a.avi"_s},
         u"\\\\server\\lessons\\1\\a.avi"_s,
         u"new/1/a.avi"_s},
        {"a folder of Linux that has moved",
         u"new"_s,
         {u"new/1/a.avi"_s},
         u"/home/teacher/lessons/1/a.avi"_s,
         u"new/1/a.avi"_s},
        {"deep below, where nothing else tells",
         u"new"_s,
         {u"new/x/y/z/a.avi"_s},
         u"C:\\Old\\a.avi"_s,
         u"new/x/y/z/a.avi"_s},
        {"of two below, the one whose path ends like the text",
         u"new"_s,
         {u"new/x/1/a.avi"_s, u"new/x/2/a.avi"_s},
         u"C:\\Old\\2\\a.avi"_s,
         u"new/x/2/a.avi"_s},
        {"of two that are as good the newest",
         u"new"_s,
         {u"new/x/2/a.avi"_s, u"new/x/1/a.avi"_s},
         u"C:\\Old\\a.avi"_s,
         u"new/x/2/a.avi"_s},
        {"a name with a decimal comma and blanks",
         u"new"_s,
         {u"new/12,5 Hz (1).avi"_s},
         u"C:\\Old\\12,5 hz (1).avi"_s,
         u"new/12,5 Hz (1).avi"_s},
        {"what is beside the folder is not searched",
         u"new"_s,
         {u"other/a.avi"_s},
         u"C:\\Old\\a.avi"_s,
         {}},
        {"another name is another clip", u"new"_s, {u"new/b.avi"_s}, u"C:\\Old\\a.avi"_s, {}},
    };
}

static QByteArray packetBytes(const QString& text, const char* encoding)
{
    const QString packet =
        u"[main]\r\nfiles=1\r\nlength=12,5\r\n[file1]\r\npath="_s + text + u"\r\ntext=Раз\r\n"_s;
    if (qstrcmp(encoding, "UTF-8") == 0) {
        return packet.toUtf8();
    }
    QByteArray bytes; // of the page that the packets' own system had
    for (const QChar c : packet) {
        const char16_t code = c.unicode();
        bytes.append(static_cast<char>(code < 0x80                      ? code
                                       : code >= 0x410 && code <= 0x44f ? code - 0x410 + 0xc0
                                                                        : '?'));
    }
    return bytes;
}

static QString pathInPacket(const QString& packet)
{
    PlaylistEntry entry;
    readPacketInto(entry, packet);
    return entry.clip(1).Path;
}

TEST_F(FoundElsewhere, LessonsThatHaveMovedAreUnderstoodAsAPersonWould)
{
    struct Reading
    {
        const char* written;
        QString readBy;
    };
    const Reading readings[] = {{"UTF-8", u"windows-1251"_s},
                                {"windows-1251", u"windows-1251"_s},
                                {"windows-1251", u"windows-1252"_s}}; // the wrong one
    for (const Case& one : movedLessons()) {
        for (const Reading& reading : readings) {
            const SettingsFolder lesson{QByteArray()};
            int age = 0;
            for (const QString& name : one.files) {
                QDir(lesson.path()).mkpath(QFileInfo(name).path());
                QFile file(lesson.write(name, "x"));
                ASSERT_TRUE(file.open(QIODevice::ReadWrite));
                file.setFileTime(QDateTime::currentDateTime().addSecs(-60 * ++age),
                                 QFileDevice::FileModificationTime);
            }
            QDir(lesson.path()).mkpath(one.packetFolder);
            setLegacyCodePage(reading.readBy);
            const QString packet = lesson.write(one.packetFolder + u"/p.vxl"_s,
                                                packetBytes(one.text, reading.written));
            const FoundFile found = findMediaFile(
                pathInPacket(packet), {lesson.file(one.packetFolder), {}}, SearchDepth::Patient);
            EXPECT_EQ(found.file, one.file.isEmpty() ? QString() : lesson.file(one.file))
                << one.rule << ", " << reading.written << " read by "
                << reading.readBy.toStdString();
            EXPECT_EQ(found.finding, one.file.isEmpty() ? Finding::Nowhere : Finding::Elsewhere)
                << one.rule;
        }
    }
}

TEST_F(FoundElsewhere, LessonsOfTheWesternPageAreUnderstoodWhicheverPageReadsThem)
{
    const QString clip = put(u"packet/Übung 2/Façade à Köln.avi"_s);
    const QByteArray packet = u"[main]\r\nfiles=1\r\n[file1]\r\n"
                              "path=C:\\Kurse\\ÜBUNG 2\\façade à köln.AVI\r\n"_s.toLatin1();
    for (const QString& page : {u"windows-1252"_s, u"windows-1251"_s}) {
        setLegacyCodePage(page);
        const FoundFile found = find(pathInPacket(home.write(u"packet/p.vxl"_s, packet)));
        EXPECT_EQ(found.file, clip) << page.toStdString();
    }
}

TEST_F(FoundElsewhere, TheDriveTableComesBeforeAllGuesses)
{
    const QString clip = put(u"windows/Lessons/a.avi"_s);
    (void)put(u"packet/a.avi"_s);
    home.write(u"platform.ini"_s, "[drives]\nc=" + home.file(u"windows"_s).toUtf8() + "\n");
    setPlacesFile(home.file(u"platform.ini"_s));
    const FoundFile found = find(u"C:\\Lessons\\a.avi"_s);
    EXPECT_EQ(found.file, clip);
    EXPECT_EQ(found.finding, Finding::AsWritten);
    EXPECT_EQ(find(u"c:\\LESSONS\\A.avi"_s).file, clip); // in any case
}

TEST_F(FoundElsewhere, ADriveThatAPacketsPlaceHasShownHoldsForOtherTextsToo)
{
    const QString other = put(u"STICK/Other/b.avi"_s);
    const QString clip = put(u"STICK/Lessons/3/a.avi"_s);
    EXPECT_EQ(find(u"E:\\Other\\b.avi"_s, u"STICK/Lessons/3"_s).file, QString());
    EXPECT_EQ(find(u"E:\\Lessons\\3\\a.avi"_s, u"STICK/Lessons/3"_s).file, clip);
    EXPECT_EQ(find(u"E:\\Other\\b.avi"_s, u"STICK/Lessons/3"_s).file, other);
}

TEST_F(FoundElsewhere, ADriveThatWasShownHoldsForLaterLessonsAndIsNotStored)
{
    setPlacesFile(home.file(u"platform.ini"_s));
    const QString other = put(u"STICK/Other/b.avi"_s);
    const QString clip = put(u"STICK/Lessons/3/a.avi"_s);
    EXPECT_EQ(find(u"E:\\Lessons\\3\\a.avi"_s, u"STICK/Lessons/3"_s).file, clip);
    beginSearches();
    EXPECT_EQ(find(u"e:\\other\\b.avi"_s, u"packet"_s).file, other);
    // A stick is elsewhere tomorrow, and opening changes nothing that is stored.
    EXPECT_FALSE(QFile::exists(home.file(u"platform.ini"_s)));
}

TEST_F(FoundElsewhere, ADriveNeverReachesAboveItsFolder)
{
    (void)put(u"secret.avi"_s);
    QDir(home.path()).mkpath(u"windows"_s);
    home.write(u"platform.ini"_s, "[drives]\nc=" + home.file(u"windows"_s).toUtf8() + "\n");
    setPlacesFile(home.file(u"platform.ini"_s));
    EXPECT_EQ(find(u"C:\\..\\secret.avi"_s).file, QString());
}

TEST_F(FoundElsewhere, AFolderThatHasMovedIsRememberedAndItsFilesAreFoundAtOnce)
{
    const QString clip = put(u"new/3/a.avi"_s);
    setPlacesFile(home.file(u"platform.ini"_s));
    ASSERT_TRUE(rememberMoved({u"C:\\Lessons"_s, home.file(u"new"_s)}));
    ASSERT_TRUE(rememberMoved({home.file(u"old"_s), home.file(u"new"_s)}));
    for (const QString& text :
         {u"C:\\Lessons\\3\\a.avi"_s, u"c:\\LESSONS\\3\\A.AVI"_s, home.file(u"old/3/a.avi"_s)}) {
        EXPECT_EQ(locateFile(text, home.file(u"packet"_s)), clip) << text.toStdString();
    }
    EXPECT_EQ(locateFile(u"3\\a.avi"_s, home.file(u"old"_s)), clip);
    EXPECT_EQ(locateFile(u"D:\\Lessons\\3\\a.avi"_s, home.file(u"packet"_s)), QString());
}

TEST_F(FoundElsewhere, TheGroupsFolderIsSearchedAfterThePacketsOwn)
{
    const QString below = put(u"group/clips/a.avi"_s);
    EXPECT_EQ(find(u"C:\\Old\\a.avi"_s, u"group/packet"_s, u"group"_s).file, below);
    const QString nearer = put(u"group/packet/x/a.avi"_s);
    beginSearches();
    EXPECT_EQ(find(u"C:\\Old\\a.avi"_s, u"group/packet"_s, u"group"_s).file, nearer);
}

TEST_F(FoundElsewhere, WhatLeadsOutOfTheFolderIsNeverSearchedThere)
{
    (void)put(u"outside/SECRET.avi"_s);
    (void)put(u"packet/b.avi"_s);
    EXPECT_EQ(find(u"..\\outside\\secret.avi"_s).file, QString());
    const QString inside = put(u"packet/sub/secret.avi"_s);
    beginSearches();
    EXPECT_EQ(find(u"..\\outside\\secret.avi"_s).file, inside);
}

TEST_F(FoundElsewhere, LinksToFoldersAndHiddenFoldersAreNotLookedThrough)
{
    (void)put(u"outside/a.avi"_s);
    (void)put(u"packet/.trash/b.avi"_s);
    ASSERT_TRUE(QFile::link(home.file(u"outside"_s), home.file(u"packet/link"_s)));
    ASSERT_TRUE(QFile::link(home.file(u"packet"_s), home.file(u"packet/circle"_s)));
    EXPECT_EQ(find(u"C:\\Old\\a.avi"_s).file, QString());
    EXPECT_EQ(find(u"C:\\Old\\b.avi"_s).file, QString());
}

TEST_F(FoundElsewhere, NothingButRegularFilesIsFoundByItsName)
{
    QDir(home.path()).mkpath(u"packet/deep/c.avi"_s);
    for (const char* const name : {"packet/a.avi", "packet/deep/b.avi"}) {
        ASSERT_EQ(::mkfifo(QFile::encodeName(home.file(QLatin1String(name))).constData(), 0600), 0);
    }
    for (const QString& text : {u"C:\\a.avi"_s, u"C:\\b.avi"_s, u"C:\\c.avi"_s}) {
        EXPECT_EQ(find(text).file, QString()) << text.toStdString();
    }
}

TEST_F(FoundElsewhere, WhatIsThereAndIsNoFileIsRefusedAndNotSearchedFor)
{
    (void)put(u"packet/null"_s);
    EXPECT_EQ(find(u"/dev/null"_s).finding, Finding::Refused);
    EXPECT_EQ(find(u"http://host/null"_s).finding, Finding::Refused);
    EXPECT_EQ(find(QString()).finding, Finding::Nowhere);
}

TEST_F(FoundElsewhere, AFileThatIsWhereItIsSaidToBeCausesNoLookAtAnyFolder)
{
    const QString clip = put(u"packet/a.avi"_s);
    EXPECT_EQ(find(u"a.avi"_s).file, clip);
    EXPECT_FALSE(isLookedThrough(home.file(u"packet"_s)));
    EXPECT_EQ(find(u"missing.avi"_s).file, QString());
    EXPECT_TRUE(isLookedThrough(home.file(u"packet"_s)));
}

TEST_F(FoundElsewhere, AtOnceNothingIsLookedThroughAndLaterItIsKnown)
{
    const QString clip = put(u"packet/x/y/a.avi"_s);
    const LessonFolders folders = {home.file(u"packet"_s), {}};
    const QString text = u"C:\\Old\\a.avi"_s;
    EXPECT_EQ(findMediaFile(text, folders).file, QString());
    EXPECT_FALSE(isLookedThrough(folders.packet));
    constexpr int kLong = 60'000;
    EXPECT_FALSE(mayBeFoundLater(text, folders, kLong));
    EXPECT_EQ(findMediaFile(text, folders).file, clip);
    EXPECT_FALSE(mayBeFoundLater(u"http://host/a.avi"_s, folders));
}

TEST_F(FoundElsewhere, AFolderIsLookedThroughOnceForEachOpening)
{
    const test::LogCapture log("orvanta.playlist");
    (void)put(u"packet/x/b.avi"_s);
    const auto looks = [] { return test::LogCapture::lines().filter(u"looked through"_s).size(); };
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(find(u"C:\\Old\\%1.avi"_s.arg(i)).file, QString());
    }
    EXPECT_EQ(looks(), 1);
    beginSearches();
    EXPECT_EQ(find(u"C:\\Old\\1.avi"_s).file, QString());
    EXPECT_EQ(looks(), 2);
}

TEST_F(FoundElsewhere, WhatWasFoundAndWhatWasDoubtfulIsSaidInTheLogOnce)
{
    const test::LogCapture log("orvanta.playlist");
    const QString newest = put(u"packet/x/1/a.avi"_s);
    (void)put(u"packet/x/2/a.avi"_s, 60);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(find(u"C:\\Old\\a.avi"_s).file, newest);
    }
    const QStringList lines = test::LogCapture::lines();
    EXPECT_EQ(lines.filter(u"found elsewhere: C:\\Old\\a.avi is "_s + newest).size(), 1);
    EXPECT_EQ(lines.filter(u"one of 2 files"_s).size(), 1);
}

TEST_F(FoundElsewhere, AFileThatArrivesLaterBesideThePacketIsFound)
{
    EXPECT_EQ(find(u"C:\\Old\\A.avi"_s).file, QString());
    const QString clip = put(u"packet/a.avi"_s);
    EXPECT_EQ(find(u"C:\\Old\\A.avi"_s).file, clip);
}

TEST_F(FoundElsewhere, DriveAIsAlsoTheFolderThatTheTableHasForIt)
{
    home.write(u"platform.ini"_s, "[drives]\na=/media/floppy\n");
    setPlacesFile(home.file(u"platform.ini"_s));
    EXPECT_TRUE(isOnDriveA(u"/media/floppy/x.avi"_s));
    EXPECT_FALSE(isOnDriveA(u"/media/floppy"_s));
    EXPECT_FALSE(isOnDriveA(u"/media/floppy2/x.avi"_s));
    EXPECT_TRUE(isOnDriveA(u"A:\\x.avi"_s));
}

} // namespace orvanta
