#include "platform/process/media_locator.h"
#include "tests/support/settings_folder.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct LocateFile : testing::Test
{
    LocateFile()
    {
        QDir(folder.path()).mkpath(u"packet/sub"_s);
        packet = folder.file(u"packet/"_s);
    }

    SettingsFolder folder{QByteArray()};
    QString packet;
};

} // namespace

TEST_F(LocateFile, PathsAreAbsoluteOrBelowThePacketsFolder)
{
    struct Row
    {
        const char* rule;
        QString file;
        QString text;
    };
    const Row rows[] = {
        {"an absolute path is taken as written", u"a.avi"_s, folder.file(u"a.avi"_s)},
        {"a backslash in it is a letter", u"AC\\DC.mp3"_s, folder.file(u"AC\\DC.mp3"_s)},
        {"a relative one is below the folder", u"packet/sub/a.avi"_s, u"sub/a.avi"_s},
        {"also with a backslash", u"packet/sub/a.avi"_s, u"sub\\a.avi"_s},
        {"a name that holds a backslash comes first", u"packet/sub\\a.avi"_s, u"sub\\a.avi"_s},
        {"a letter and a colon are no drive", u"packet/A: intro.mp3"_s, u"A: intro.mp3"_s},
        {"blanks and other alphabets", u"packet/Мой клип 1.avi"_s, u"Мой клип 1.avi"_s},
    };
    for (const Row& row : rows) {
        const QString clip = folder.write(row.file, "x");
        EXPECT_EQ(locateFile(row.text, packet), clip) << row.rule;
        EXPECT_EQ(locateFile(row.text, folder.file(u"packet"_s)), clip) << row.rule;
    }
}

TEST_F(LocateFile, ARelativePathMayLeadUpwards)
{
    const QString clip = folder.write(u"a.avi"_s, "x");
    const QString found = locateFile(u"..\\a.avi"_s, packet);
    EXPECT_TRUE(QDir::isAbsolutePath(found));
    EXPECT_EQ(QFileInfo(found).canonicalFilePath(), QFileInfo(clip).canonicalFilePath());
}

TEST_F(LocateFile, TheProgramsCurrentFolderPlaysNoPartForAPacketsClip)
{
    const QString before = QDir::currentPath();
    folder.write(u"a.avi"_s, "x");
    QDir::setCurrent(folder.path());
    EXPECT_EQ(locateFile(u"a.avi"_s, packet), QString());
    EXPECT_EQ(locateFile(u"a.avi"_s, {}), folder.file(u"a.avi"_s));
    QDir::setCurrent(before);
}

TEST_F(LocateFile, ASymbolicLinkToAFileIsAFile)
{
    const QString clip = folder.write(u"a.avi"_s, "x");
    ASSERT_TRUE(QFile::link(clip, folder.file(u"packet/b.avi"_s)));
    EXPECT_EQ(locateFile(u"b.avi"_s, packet), folder.file(u"packet/b.avi"_s));
}

TEST_F(LocateFile, WhatIsNotThereIsNotFound)
{
    for (const QString& text : {QString(), u"a.avi"_s, u"/no/such/file"_s, u"C:\\Clips\\a.avi"_s}) {
        EXPECT_EQ(locateFile(text, packet), QString()) << text.toStdString();
    }
}

TEST_F(LocateFile, AddressesAreNeverFiles)
{
    QDir(folder.path()).mkpath(u"packet/http:/host"_s);
    folder.write(u"packet/http:/host/a.avi"_s, "x");
    const QString clip = folder.write(u"a.avi"_s, "x");
    for (const QString& text : {u"http://host/a.avi"_s, u"http:/host/a.avi"_s, u"file://"_s + clip,
                                u"lavf://"_s + clip, u"archive://"_s + clip}) {
        EXPECT_EQ(locateFile(text, packet), QString()) << text.toStdString();
    }
}

TEST_F(LocateFile, FoldersDevicesPipesAndSocketsAreNeverFiles)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(packet + u"pipe"_s).constData(), 0600), 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(packet + u"socket"_s);
    ASSERT_LT(static_cast<std::size_t>(name.size()), sizeof address.sun_path);
    std::copy(name.begin(), name.end(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    for (const QString& text : {u"pipe"_s, u"socket"_s, u"sub"_s, u"/dev/null"_s, u"/dev/tty"_s}) {
        EXPECT_EQ(locateFile(text, packet), QString()) << text.toStdString();
    }
    ::close(socket);
}

TEST_F(LocateFile, ATextWithANulIsNotCutThere)
{
    const QString clip = folder.write(u"a.avi"_s, "x");
    EXPECT_EQ(locateFile(clip + QChar(u'\0') + u"b"_s, packet), QString());
}

TEST(DriveA, IsRecognisedByTheFirstThreeCharactersInAnyCase)
{
    EXPECT_TRUE(isOnDriveA(u"a:\\x.avi"_s));
    EXPECT_TRUE(isOnDriveA(u"A:\\x.avi"_s));
    EXPECT_FALSE(isOnDriveA(u"b:\\x.avi"_s));
    EXPECT_FALSE(isOnDriveA(u"a:x.avi"_s));
    EXPECT_FALSE(isOnDriveA(u"/a:\\x.avi"_s));
}

} // namespace orvanta
