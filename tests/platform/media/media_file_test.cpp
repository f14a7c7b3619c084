// What the media control opens: regular files that hold media, and nothing else.
#include "platform/media/picture_source.h"
#include "tests/support/child_process.h"
#include "tests/support/recorded_player.h"

#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QtEndian>

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

/// Tells whether a file was opened by anybody since.
class OpenWatch
{
public:
    explicit OpenWatch(const QString& file)
        : m_watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        EXPECT_GE(inotify_add_watch(m_watch, QFile::encodeName(file).constData(), IN_OPEN), 0);
    }
    ~OpenWatch() { close(m_watch); }
    Q_DISABLE_COPY_MOVE(OpenWatch)

    [[nodiscard]] bool wasOpened() const
    {
        char events[4096];
        return read(m_watch, events, sizeof events) > 0;
    }

private:
    int m_watch;
};

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, 0);
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray padded(const QByteArray& text, qsizetype length)
{
    return text + QByteArray(length - text.size(), 0);
}

/// An alias record that names a file beside the movie, as movies with outside media carry it.
QByteArray aliasTo(const QByteArray& name)
{
    const auto pascal = [](const QByteArray& text, qsizetype length) {
        return padded(QByteArray(1, static_cast<char>(text.size())) + text, length);
    };
    QByteArray alias = QByteArray(4, 0) + QByteArray("\x00\x96\x00\x02\x00\x00", 6);
    alias += pascal("disk", 28) + QByteArray(12, 0) + pascal(name, 64) + QByteArray(16, 0);
    alias += QByteArray("\x00\x01\x00\x01", 4) + QByteArray(16, 0);
    alias += QByteArray("\x00\x02", 2) + QByteArray("\x00\x06", 2) + padded(name, 6);
    alias += QByteArray("\xff\xff\x00\x00", 4);
    return bigEndian(static_cast<quint32>(alias.size() + 12)) + "alis" + QByteArray(4, 0) + alias;
}

/// Makes every track of a movie name outside media in place of its own. The index comes after the
/// media, so nothing else moves.
QByteArray withOutsideMedia(QByteArray movie, const QByteArray& name)
{
    const QByteArray own = bigEndian(12) + "url " + QByteArray("\x00\x00\x00\x01", 4);
    const QByteArray outside = aliasTo(name);
    const auto grow = static_cast<quint32>(outside.size() - own.size());
    qsizetype at = 0;
    while ((at = movie.indexOf(own, at)) >= 0) {
        movie.replace(at, own.size(), outside);
        for (const char* box : {"moov", "trak", "mdia", "minf", "dinf", "dref"}) {
            const qsizetype size = movie.lastIndexOf(box, at) - 4;
            const quint32 old = qFromBigEndian<quint32>(movie.constData() + size);
            movie.replace(size, 4, bigEndian(old + grow));
        }
        at += outside.size();
    }
    return movie;
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace

class MediaFile : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString& name) const { return folder.filePath(name); }

    RecordedPlayer player;
    QTemporaryDir folder;
};

TEST_F(MediaFile, AClipWithAPictureTellsItsSize)
{
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    EXPECT_EQ(player.picture, QSize(64, 64));
    EXPECT_TRUE(player.control.isReady());
    EXPECT_FALSE(player.control.isOpening());
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    EXPECT_NEAR(player.control.Duration(), 2.0, 0.05);
}

TEST_F(MediaFile, ASoundOnlyClipHasNoPicture)
{
    ASSERT_TRUE(player.open(u"one.mp3"_s));
    EXPECT_TRUE(player.picture.isEmpty());
}

TEST_F(MediaFile, WhatIsNoMediaFailsToOpen)
{
    for (const auto* name : {"missing.mp4", "empty.mp4", "noise.mp4", "text.mp4", "headonly.mp4"}) {
        EXPECT_TRUE(player.refuses(testClip(QString::fromLatin1(name)))) << name;
        EXPECT_EQ(player.control.CurrentState(), MediaControl::NotLoaded) << name;
        EXPECT_EQ(player.control.FileName(), QString()) << name;
        EXPECT_FALSE(player.control.isOpening()) << name;
    }
    EXPECT_TRUE(player.open(u"short.mp4"_s));
}

TEST_F(MediaFile, WhatIsNoRegularFileFailsToOpen)
{
    const QString fifo = path(u"pipe.mp4"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    for (const QString& name :
         {folder.path(), fifo, u"/dev/zero"_s, u"/dev/null"_s, u"/"_s, u"-"_s, u"two.mp4"_s}) {
        EXPECT_TRUE(player.refuses(name)) << name.toStdString();
    }
}

TEST_F(MediaFile, ARelativePathFailsEvenWhenItExists)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(testClip(QString())));
    EXPECT_TRUE(player.refuses(u"two.mp4"_s));
    EXPECT_TRUE(player.refuses(u"./two.mp4"_s));
    QDir::setCurrent(before);
}

TEST_F(MediaFile, AddressesFailAndNothingIsFetched)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    int connections = 0;
    QObject::connect(&server, &QTcpServer::newConnection, [&] { ++connections; });
    const QString host = u"127.0.0.1:%1/a.mp4"_s.arg(server.serverPort());
    for (const QString& address :
         {u"http://"_s + host, u"tcp://"_s + host, u"lavf://http://"_s + host,
          u"file://"_s + testClip(u"two.mp4"_s), u"lavf://"_s + testClip(u"two.mp4"_s),
          u"av://lavfi:testsrc"_s, u"archive://"_s + testClip(u"two.mp4"_s),
          u"concat:"_s + testClip(u"two.mp4"_s), u"memory://abc"_s, u"fd://0"_s,
          u"edl://"_s + testClip(u"two.mp4"_s), u"appending://"_s + testClip(u"two.mp4"_s)}) {
        EXPECT_TRUE(player.refuses(address)) << address.toStdString();
    }
    EXPECT_EQ(connections, 0);
}

TEST_F(MediaFile, AListOfOtherFilesOpensNone)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    int connections = 0;
    QObject::connect(&server, &QTcpServer::newConnection, [&] { ++connections; });
    const QString clip = path(u"clip.ts"_s);
    ASSERT_TRUE(QFile::copy(testClip(u"stream.ts"_s), clip));
    const QByteArray address =
        "http://127.0.0.1:" + QByteArray::number(server.serverPort()) + "/a.ts\n";
    const OpenWatch watch(clip);
    struct Row
    {
        const char* name;
        QByteArray text;
    };
    const Row rows[] = {
        {"list.m3u", "#EXTM3U\n" + clip.toUtf8() + "\n"},
        {"plain.m3u", clip.toUtf8() + "\n" + address},
        {"stream.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\nclip.ts\n#EXTINF:2,\n" +
                            address + "#EXT-X-ENDLIST\n"},
        {"list.pls", "[playlist]\nFile1=" + clip.toUtf8() + "\nNumberOfEntries=1\n"},
        {"list.cue", "FILE \"clip.ts\" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"},
        {"list.edl", "# mpv EDL v0\nclip.ts,0,1\n"},
        {"list.ffconcat", "ffconcat version 1.0\nfile clip.ts\n"},
        {"list.asx", "<asx><entry><ref href=\"clip.ts\"/></entry></asx>"},
        {"talk.sdp",
         "v=0\no=- 0 0 IN IP4 127.0.0.1\nc=IN IP4 127.0.0.1\nm=video 5004 RTP/AVP 96\n"},
    };
    for (const Row& row : rows) {
        const QString list = path(QString::fromLatin1(row.name));
        write(list, row.text);
        EXPECT_TRUE(player.refuses(list)) << row.name;
    }
    EXPECT_FALSE(watch.wasOpened());
    EXPECT_EQ(connections, 0);
}

TEST_F(MediaFile, AMovieWhoseMediaLiesInAnotherFileDoesNotOpenIt)
{
    const QByteArray plain = contentsOf(testClip(u"plain.mov"_s));
    const QByteArray movie = withOutsideMedia(plain, "b.mov");
    ASSERT_GT(movie.size(), plain.size());
    write(path(u"a.mov"_s), movie);
    write(path(u"b.mov"_s), plain);
    const OpenWatch watch(path(u"b.mov"_s));
    player.control.setFileName(path(u"a.mov"_s));
    ASSERT_TRUE(comesTrue([&] { return player.failures > 0 || !player.opened.isEmpty(); }));
    player.control.Run();
    ASSERT_TRUE(player.failures > 0 || player.endsOnceMore());
    EXPECT_FALSE(watch.wasOpened());
}

TEST_F(MediaFile, NothingBesideTheFileIsOpened)
{
    const QString clip = path(u"clip.mp4"_s);
    ASSERT_TRUE(QFile::copy(testClip(u"short.mp4"_s), clip));
    for (const auto* name :
         {"clip.srt", "clip.mp3", "clip.ass", "cover.jpg", "clip.jpg", "clip.mp4.conf"}) {
        write(path(QString::fromLatin1(name)), "1\n00:00:00,000 --> 00:00:01,000\ntext\n");
    }
    const OpenWatch subtitles(path(u"clip.srt"_s));
    const OpenWatch sound(path(u"clip.mp3"_s));
    const OpenWatch cover(path(u"cover.jpg"_s));
    const OpenWatch settings(path(u"clip.mp4.conf"_s));
    player.control.setFileName(clip);
    ASSERT_TRUE(comesTrue([&] { return !player.opened.isEmpty(); }));
    for (const OpenWatch* watch : {&subtitles, &sound, &cover, &settings}) {
        EXPECT_FALSE(watch->wasOpened());
    }
}

TEST_F(MediaFile, NamesWithBlanksQuotesAndCyrillicOpen)
{
    for (const QString& name : {u"a b.mp4"_s, u"-x.mp4"_s, u"тест \"1\".mp4"_s, u"50% #1?.mp4"_s,
                                u"a:b,c;d.mp4"_s, u"a\\b.mp4"_s}) {
        ASSERT_TRUE(QFile::copy(testClip(u"short.mp4"_s), path(name)));
        player.opened.clear();
        player.control.setFileName(path(name));
        EXPECT_TRUE(comesTrue([&] { return !player.opened.isEmpty(); })) << name.toStdString();
    }
    EXPECT_EQ(player.failures, 0);
}

TEST_F(MediaFile, RapidChangesReportOnlyTheNewest)
{
    for (int round = 0; round < 5; ++round) {
        for (const auto* name : {"two.mp4", "noise.mp4", "one.mp3", "missing.mp4", "three.mkv"}) {
            player.control.setFileName(testClip(QString::fromLatin1(name)));
            player.control.Run();
        }
        ASSERT_TRUE(comesTrue([&] { return player.opened.size() > round; }));
    }
    EXPECT_EQ(player.opened, QStringList(5, testClip(u"three.mkv"_s)));
    EXPECT_EQ(player.failures, 0);
    EXPECT_EQ(player.ends, 0);
    EXPECT_NEAR(player.control.Duration(), 3.0, 0.1);
}

TEST_F(MediaFile, AnotherFileWhileOneRunsReportsNoEnd)
{
    ASSERT_TRUE(player.open(u"short.mp4"_s));
    player.control.Run();
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    EXPECT_EQ(player.ends, 0);
}

/// Keeps whoever opens the file waiting, as a disk that is gone does, for as long as this process
/// lives (at most the kernel's lease-break-time).
static test::Child keepsWaiting(const QByteArray& file)
{
    return test::Child([&] {
        ::signal(SIGIO, SIG_IGN);
        const int held = ::open(file.constData(), O_RDWR | O_CLOEXEC);
        const bool isHeld = held >= 0 && ::fcntl(held, F_SETLEASE, F_WRLCK) == 0;
        QFile::rename(QFile::decodeName(file) + u".free"_s,
                      QFile::decodeName(file) + (isHeld ? u".held"_s : u".failed"_s));
        for (;;) {
            ::pause();
        }
    });
}

TEST_F(MediaFile, OneWhoseDiskNeverAnswersIsGivenUpAndTheNextOneOpens)
{
    const QTemporaryDir disks;
    const QString file = disks.filePath(u"gone.mp4"_s);
    ASSERT_TRUE(QFile::copy(testClip(u"two.mp4"_s), file));
    ASSERT_TRUE(QFile::copy(file, file + u".free"_s));
    const test::Child disk = keepsWaiting(QFile::encodeName(file));
    ASSERT_TRUE(comesTrue([&] { return QFile::exists(file + u".held"_s); }));
    EXPECT_TRUE(player.refuses(file));
    EXPECT_TRUE(player.open(u"two.mp4"_s));
}

TEST_F(MediaFile, TheEmptyNameUnloads)
{
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    player.control.Run();
    player.control.setFileName(QString());
    EXPECT_EQ(player.control.CurrentState(), MediaControl::NotLoaded);
    EXPECT_EQ(player.control.FileName(), QString());
    EXPECT_FALSE(player.control.isReady());
    EXPECT_EQ(player.control.Duration(), 0.0);
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    EXPECT_EQ(player.control.picture()->hasPicture(), false);
    ASSERT_TRUE(player.open(u"short.mp4"_s));
    EXPECT_EQ(player.ends, 0);
    EXPECT_EQ(player.failures, 0);
}

TEST_F(MediaFile, UnloadingWhileOpeningReportsNothing)
{
    player.control.setFileName(testClip(u"two.mp4"_s));
    player.control.setFileName(QString());
    ASSERT_TRUE(player.open(u"short.mp4"_s));
    EXPECT_EQ(player.opened.size(), 1);
    EXPECT_EQ(player.failures, 0);
}

TEST_F(MediaFile, WithoutAFileNothingRuns)
{
    player.control.Run();
    player.control.Pause();
    player.control.Stop();
    player.control.setCurrentPosition(5);
    EXPECT_EQ(player.control.CurrentState(), MediaControl::NotLoaded);
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    EXPECT_TRUE(player.states.empty());
}
