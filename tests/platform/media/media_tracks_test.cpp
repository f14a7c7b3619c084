// Sound tracks and subtitles of the real media control.
#include "platform/media/picture_source.h"
#include "platform/media/subtitle_file.h"
#include "tests/support/played_sound.h"
#include "tests/support/recorded_player.h"

#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTemporaryDir>

#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

const QByteArray kSubRip = "1\n00:00:00,000 --> 00:00:05,000\nMMMMMMMM\n";
const QByteArray kWebVtt = "WEBVTT\n\n00:00.000 --> 00:05.000\nMMMMMMMM\n";

QByteArray ass(const QByteArray& more = {})
{
    return "[Script Info]\nScriptType: v4.00+\nPlayResX: 320\nPlayResY: 240\n\n"
           "[V4+ Styles]\nFormat: Name, Fontname, Fontsize, PrimaryColour, Alignment\n"
           "Style: Default,Sans,30,&H00FFFFFF,2\n\n" +
           more +
           "[Events]\nFormat: Layer, Start, End, Style, Text\n"
           "Dialogue: 0,0:00:00.00,0:00:05.00,Default,MMMMMMMM\n";
}

/// The brightest pixel of the lowest third, 0 to 255.
int brightestBelow(const QImage& frame)
{
    int brightest = 0;
    for (int y = frame.height() * 2 / 3; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x) {
            brightest = std::max(brightest, qGray(frame.pixel(x, y)));
        }
    }
    return brightest;
}

class Tracks : public testing::Test
{
protected:
    void openLanguages()
    {
        player.control.picture()->setTargetSize({320, 240});
        ASSERT_TRUE(player.open(u"languages.mkv"_s));
        ASSERT_TRUE(comesTrue([&] { return !player.control.picture()->frame().isNull(); }));
    }

    [[nodiscard]] bool showsText()
    {
        return comesTrue([&] { return brightestBelow(player.control.picture()->frame()) > 150; });
    }
    [[nodiscard]] bool showsNoText()
    {
        return comesTrue([&] { return brightestBelow(player.control.picture()->frame()) < 60; });
    }

    /// Chosen while the clip runs, and shown when it is paused.
    [[nodiscard]] bool showsSubtitles(int id)
    {
        player.control.chooseSubtitles(id);
        player.control.Run();
        const bool shown = comesTrue([&] { return !ink().isEmpty(); });
        player.control.Pause();
        return shown;
    }

    /// Where the frame of a black clip is bright.
    [[nodiscard]] QRect ink() const
    {
        const QImage frame = player.control.picture()->frame();
        QRect bright;
        for (int y = 0; y < frame.height(); ++y) {
            for (int x = 0; x < frame.width(); ++x) {
                bright |= qGray(frame.pixel(x, y)) > 150 ? QRect(x, y, 1, 1) : QRect();
            }
        }
        return bright;
    }

    QString write(const QString& name, const QByteArray& bytes)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    [[nodiscard]] std::vector<MediaTrack> subtitles() const
    {
        std::vector<MediaTrack> tracks = player.control.tracks();
        std::erase_if(tracks, [](const auto& t) { return t.kind != MediaTrack::Subtitles; });
        return tracks;
    }

    [[nodiscard]] bool isAdded(const QString& file, const QString& language = {})
    {
        const std::size_t before = subtitles().size();
        player.control.addSubtitleFile(file, language);
        return comesTrue([&] { return subtitles().size() > before; });
    }

    RecordedPlayer player;
    QTemporaryDir folder;
};

/// What this process has open, by name.
std::set<QString> openFiles()
{
    std::set<QString> names;
    const QDir folder(u"/proc/self/fd"_s);
    for (const QString& number :
         folder.entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)) {
        names.insert(QFile::symLinkTarget(folder.filePath(number)));
    }
    return names;
}

} // namespace

TEST_F(Tracks, AreToldWithLanguageAndTitleWhenTheClipOpens)
{
    ASSERT_TRUE(player.open(u"languages.mkv"_s));
    const std::vector<MediaTrack> expected = {
        {.kind = MediaTrack::Sound, .id = 1, .language = u"eng"_s, .chosen = true},
        {.kind = MediaTrack::Sound, .id = 2, .language = u"rus"_s, .title = u"Commentary"_s},
        {.kind = MediaTrack::Subtitles, .id = 1, .language = u"rus"_s}};
    EXPECT_EQ(player.control.tracks(), expected);
    player.control.setFileName(QString());
    EXPECT_TRUE(player.control.tracks().empty());
}

TEST_F(Tracks, TheFirstSoundIsHeardUntilAnotherIsChosen)
{
    const PlayedSound first(u"languages.mkv"_s, [](MediaControl&) {});
    EXPECT_NEAR(frequencyOf(first.samples()), 440, 5);
}

// By their lengths: a sound that is written to a file cannot be changed while it is open.
TEST_F(Tracks, TheChosenSoundIsPlayed)
{
    const auto reached = [](int sound) {
        RecordedPlayer heard;
        double furthest = 0;
        QObject::connect(&heard.control, &MediaControl::position, &heard.control,
                         [&] { furthest = std::max(furthest, heard.control.CurrentPosition()); });
        EXPECT_TRUE(heard.open(u"lengths.mka"_s));
        heard.control.chooseSound(sound);
        heard.control.Run();
        EXPECT_TRUE(heard.endsOnceMore());
        return furthest;
    };
    EXPECT_NEAR(reached(1), 0.8, 0.3);
    EXPECT_NEAR(reached(2), 2.4, 0.3);
}

TEST_F(Tracks, SubtitlesAreOffUntilChosenAndGoAgain)
{
    openLanguages();
    EXPECT_TRUE(showsNoText());
    player.control.chooseSubtitles(1);
    EXPECT_TRUE(subtitles().front().chosen);
    EXPECT_TRUE(showsText());
    player.control.chooseSubtitles(0);
    EXPECT_FALSE(subtitles().front().chosen);
    EXPECT_TRUE(showsNoText());
}

TEST_F(Tracks, EachClipOpensAsItSays)
{
    openLanguages();
    player.control.chooseSound(2);
    player.control.chooseSubtitles(1);
    ASSERT_TRUE(showsText());
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    EXPECT_TRUE(player.control.tracks().front().chosen);
    openLanguages();
    EXPECT_TRUE(player.control.tracks().front().chosen);
    EXPECT_FALSE(subtitles().front().chosen);
    EXPECT_TRUE(showsNoText());
}

TEST_F(Tracks, TextsStandAboveWhatIsKeptFreeForOthers)
{
    openLanguages();
    ASSERT_TRUE(showsSubtitles(1));
    const QRect usual = ink();
    EXPECT_GT(usual.bottom(), 200);
    player.control.raiseSubtitles(0.4);
    EXPECT_TRUE(comesTrue([&] { return !ink().isEmpty() && ink().bottom() < 144; }));
    EXPECT_EQ(ink().width(), usual.width());
    EXPECT_GT(ink().bottom(), 120); // and not farther away than it must
    player.control.raiseSubtitles(0);
    EXPECT_TRUE(comesTrue([&] { return ink() == usual; }));
}

TEST_F(Tracks, TextsStandAboveItInAWindowOfAnotherShapeToo)
{
    openLanguages();
    player.control.picture()->setTargetSize({320, 480});
    ASSERT_TRUE(showsSubtitles(1));
    player.control.raiseSubtitles(0.4);
    EXPECT_TRUE(comesTrue([&] {
        return player.control.picture()->frame().height() == 480 && !ink().isEmpty() &&
               ink().bottom() < 288;
    }));
}

TEST_F(Tracks, SubtitlesThatArePicturesStandAboveItToo)
{
    openLanguages();
    player.control.raiseSubtitles(0.4);
    ASSERT_TRUE(player.open(u"pictures.mkv"_s));
    ASSERT_EQ(subtitles().size(), 1U);
    ASSERT_TRUE(showsSubtitles(1));
    EXPECT_LT(ink().bottom(), 144);
    player.control.raiseSubtitles(0);
    EXPECT_TRUE(comesTrue([&] { return ink().bottom() > 210; }));
    EXPECT_NEAR(ink().width(), 160, 4);
}

TEST_F(Tracks, WhatSaysItsOwnPlaceStaysThere)
{
    openLanguages();
    const QByteArray placed = "Dialogue: 0,0:00:00.00,0:00:05.00,Default,{\\pos(160,60)}MMMMMMMM\n";
    ASSERT_TRUE(isAdded(write(u"clip.ass"_s, ass() + placed)));
    ASSERT_TRUE(showsSubtitles(2));
    const QRect usual = ink();
    EXPECT_LT(usual.top(), 60);
    EXPECT_GT(usual.bottom(), 200);
    player.control.raiseSubtitles(0.4);
    EXPECT_TRUE(comesTrue([&] { return ink().bottom() < 144; }));
    EXPECT_EQ(ink().top(), usual.top());
}

TEST_F(Tracks, WhatIsNotThereIsNotChosen)
{
    openLanguages();
    const std::vector<MediaTrack> before = player.control.tracks();
    for (const int id : {-1, 0, 3, 99}) {
        player.control.chooseSound(id);
    }
    player.control.chooseSubtitles(7);
    EXPECT_EQ(player.control.tracks(), before);
}

TEST_F(Tracks, AFileOfEachKindIsAddedAndShown)
{
    openLanguages();
    const QList<std::pair<QString, QByteArray>> files = {
        {u"clip.srt"_s, kSubRip},
        {u"clip.en.srt"_s, "\xef\xbb\xbf" + QByteArray(kSubRip).replace("\n", "\r\n")},
        {u"clip.vtt"_s, kWebVtt},
        {u"clip.ass"_s, ass()}};
    for (const auto& [name, bytes] : files) {
        player.control.chooseSubtitles(0);
        ASSERT_TRUE(showsNoText());
        ASSERT_TRUE(isAdded(write(name, bytes), u"en"_s)) << qPrintable(name);
        EXPECT_EQ(subtitles().back().title, name);
        EXPECT_EQ(subtitles().back().language, u"en"_s);
        EXPECT_TRUE(subtitles().back().added && subtitles().back().chosen);
        EXPECT_TRUE(showsText()) << qPrintable(name);
    }
}

TEST_F(Tracks, AnAddedFileGoesWithItsClip)
{
    openLanguages();
    ASSERT_TRUE(isAdded(write(u"clip.srt"_s, kSubRip)));
    openLanguages();
    EXPECT_EQ(subtitles().size(), 1U);
    EXPECT_TRUE(showsNoText());
}

TEST_F(Tracks, AFileThatIsNoneIsPassedOver)
{
    openLanguages();
    const QString fifo = folder.filePath(u"pipe.srt"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString link = folder.filePath(u"link.srt"_s);
    ASSERT_TRUE(QFile::link(fifo, link));
    const QString large = write(u"large.srt"_s, kSubRip + QByteArray(kMostSubtitleBytes, '\n'));
    const QString clip = write(u"clip.srt"_s, {});
    QFile::remove(clip);
    ASSERT_TRUE(QFile::copy(testClip(u"two.mp4"_s), clip));
    for (const QString& file :
         {fifo, link, large, clip, folder.path(), u"/dev/zero"_s, u"clip.srt"_s,
          write(u"empty.srt"_s, {}), write(u"text.srt"_s, "MMMM\n"),
          write(u"list.srt"_s, "#EXTM3U\n" + QFile::encodeName(testClip(u"two.mp4"_s))),
          folder.filePath(u"missing.srt"_s)}) {
        EXPECT_FALSE(copyOfSubtitles(file).isOpen()) << qPrintable(file);
        player.control.addSubtitleFile(file, QString());
    }
    ASSERT_TRUE(isAdded(write(u"good.srt"_s, kSubRip))); // comes after all of them
    EXPECT_EQ(subtitles().size(), 2U);
}

TEST_F(Tracks, AFileAsLargeAsMayBeIsTaken)
{
    const QByteArray filling(kMostSubtitleBytes - kSubRip.size(), '\n');
    EXPECT_TRUE(copyOfSubtitles(write(u"clip.srt"_s, kSubRip + filling)).isOpen());
    EXPECT_FALSE(copyOfSubtitles(write(u"clip.srt"_s, kSubRip + filling + '\n')).isOpen());
}

TEST_F(Tracks, WhatIsWrittenInUtf16IsRead)
{
    QByteArray bytes = "\xff\xfe";
    for (const QChar c : QString::fromLatin1(kSubRip)) {
        bytes += char(c.cell());
        bytes += char(c.row());
    }
    const Descriptor copy = copyOfSubtitles(write(u"clip.srt"_s, bytes));
    ASSERT_TRUE(copy.isOpen());
    EXPECT_EQ(copy.readAll(), kSubRip);
}

TEST_F(Tracks, ACopyIsOutOfReachOfItsFile)
{
    const QString file = write(u"clip.srt"_s, kSubRip);
    const Descriptor copy = copyOfSubtitles(file);
    write(u"clip.srt"_s, "changed");
    EXPECT_EQ(copy.readAll(), kSubRip);
    EXPECT_FALSE(copy.writeAt(0, "2"));
}

// A pipe tells: who opens it to read lets the writer's opening through.
TEST_F(Tracks, NothingThatAFileNamesIsOpened)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    int connections = 0;
    QObject::connect(&server, &QTcpServer::newConnection, [&] { ++connections; });
    const QByteArray address =
        "http://127.0.0.1:" + QByteArray::number(server.serverPort()) + "/a.vtt";
    const QString fifo = folder.filePath(u"named.ttf"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QByteArray pipe = QFile::encodeName(fifo);
    write(u"clip.idx"_s, "# VobSub index file, v7\n");
    write(u"clip.sub"_s, "x");
    openLanguages();
    const QList<std::pair<QString, QByteArray>> files = {
        {u"fonts.ass"_s,
         ass("[Fonts]\nfontname: " + pipe + "\n" + pipe + "\n\n").replace("Sans", pipe)},
        {u"address.vtt"_s, "WEBVTT\nX-TIMESTAMP-MAP=LOCAL:00:00:00.000,MPEGTS:0\n\nSTYLE\n"
                           "::cue { background: url(" +
                               address +
                               ") }\n\n"
                               "00:00.000 --> 00:05.000\n<c.x>MMMM " +
                               address + " " + pipe + "</c>\n"},
        {u"list.srt"_s, kSubRip + "\n#EXTM3U\n" + pipe + "\n" + address + "\n"},
        {u"clip.srt"_s, kSubRip}};
    for (const auto& [name, bytes] : files) {
        player.control.chooseSubtitles(0);
        ASSERT_TRUE(showsNoText());
        ASSERT_TRUE(isAdded(write(name, bytes))) << qPrintable(name);
        EXPECT_TRUE(showsText()) << qPrintable(name);
        const std::set<QString> open = openFiles();
        EXPECT_EQ(std::ranges::count_if(
                      open, [&](const QString& file) { return file.startsWith(folder.path()); }),
                  0);
        const Descriptor writer = Descriptor::open(pipe, O_WRONLY);
        EXPECT_FALSE(writer.isOpen()) << qPrintable(name);
    }
    EXPECT_EQ(connections, 0);
}

TEST_F(Tracks, ASubtitleFileIsNoClip)
{
    for (const auto& [name, bytes] : QList<std::pair<QString, QByteArray>>{
             {u"a.srt"_s, kSubRip}, {u"a.vtt"_s, kWebVtt}, {u"a.ass"_s, ass()}}) {
        EXPECT_TRUE(player.refuses(write(name, bytes))) << qPrintable(name);
    }
}
