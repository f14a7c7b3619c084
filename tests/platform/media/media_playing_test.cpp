// Running, pausing, seeking and volume of the real media control.
#include "platform/media/mpv_handle.h"
#include "platform/media/mpv_options.h"
#include "platform/media/mpv_seek.h"
#include "platform/media/picture_source.h"
#include "tests/support/recorded_player.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstShade = 20; // of picture 0 in shades.mp4; each next one is 3 lighter
constexpr double kRate = 25;

/// The number of the picture that shows, read off its shade; -1 before any.
int pictureShown(PictureSource& source)
{
    const QImage frame = source.frame();
    if (frame.isNull()) {
        return -1;
    }
    const int grey = qGreen(frame.pixel(frame.width() / 2, frame.height() / 2));
    return static_cast<int>(std::lround((grey - kFirstShade) / 3.0));
}

bool shows(RecordedPlayer& player, int number)
{
    return comesTrue([&] { return pictureShown(*player.control.picture()) == number; });
}

/// The loudness of a clip as it comes out, as the root of its mean square.
double loudnessAt(int hundredthsOfDecibel)
{
    const QTemporaryDir folder;
    const QString out = folder.filePath(u"out.raw"_s);
    {
        RecordedPlayer player(
            {{"ao", "pcm"}, {"ao-pcm-waveheader", "no"}, {"ao-pcm-file", QFile::encodeName(out)}});
        player.control.setVolume(hundredthsOfDecibel);
        EXPECT_EQ(player.control.Volume(), hundredthsOfDecibel);
        EXPECT_TRUE(player.open(u"level.wav"_s));
        player.control.Run();
        EXPECT_TRUE(player.endsOnceMore());
    }
    QFile file(out);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    double sum = 0;
    const qsizetype count = bytes.size() / static_cast<qsizetype>(sizeof(float));
    EXPECT_GT(count, 20000);
    for (qsizetype i = 0; i < count; ++i) {
        float sample = 0;
        std::memcpy(&sample, bytes.constData() + i * static_cast<qsizetype>(sizeof sample),
                    sizeof sample);
        sum += static_cast<double>(sample) * static_cast<double>(sample);
    }
    return std::sqrt(sum / static_cast<double>(count));
}

} // namespace

TEST(MediaPlaying, TheLibraryKnowsEveryOption)
{
    MpvHandle mpv;
    EXPECT_TRUE(applyMpvOptions(mpv));
    EXPECT_FALSE(applyMpvOptions(mpv, {{"no-such-option", "1"}}));
}

TEST(MediaPlaying, TheLibraryCheckPasses)
{
    EXPECT_NO_THROW(checkMediaLibrary());
}

TEST(MediaPlaying, RunPauseAndStopGoThroughTheStates)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"three.mkv"_s));
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.2));
    player.control.Pause();
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.4));
    player.control.Stop();
    using enum MediaControl::State;
    EXPECT_EQ(player.states, (std::vector<int>{Stopped, Running, Paused, Running, Stopped}));
}

TEST(MediaPlaying, APausedClipStaysWhereItIs)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"three.mkv"_s));
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.3));
    player.control.Pause();
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Paused);
    const double place = player.control.CurrentPosition();
    // One more picture at most was already under way when the pause came; then nothing moves.
    int positions = -1;
    ASSERT_TRUE(comesTrue([&] {
        const bool still = positions == player.positions;
        positions = player.positions;
        QTest::qWait(100);
        return still;
    }));
    EXPECT_NEAR(player.control.CurrentPosition(), place, 0.2);
}

TEST(MediaPlaying, PositionsAreReportedWhileItRuns)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    player.positions = 0;
    player.control.Run();
    ASSERT_TRUE(player.reaches(1.0));
    EXPECT_GE(player.positions, 5);
}

TEST(MediaPlaying, PositionsStayInsideTheDuration)
{
    RecordedPlayer player;
    double largest = 0;
    QObject::connect(&player.control, &MediaControl::position, &player.control,
                     [&] { largest = std::max(largest, player.control.CurrentPosition()); });
    for (const auto* name : {"short.mp4", "broken.avi", "stream.ts", "one.mp3"}) {
        largest = 0;
        ASSERT_TRUE(player.open(QString::fromLatin1(name)));
        player.control.Run();
        ASSERT_TRUE(player.endsOnceMore()) << name;
        EXPECT_LE(largest, player.control.Duration()) << name;
    }
}

TEST(MediaPlaying, TheDurationIsReported)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    ASSERT_FALSE(player.durations.empty());
    EXPECT_NEAR(player.durations.back(), 2.0, 0.05);
}

TEST(MediaPlaying, ADurationThatChangesWhilePlayingIsReported)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"raw.h264"_s)); // nothing in it tells its length
    const double before = player.control.Duration();
    player.control.Run();
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_GT(player.control.Duration(), before);
    EXPECT_EQ(player.durations.back(), player.control.Duration());
}

TEST(MediaPlaying, ASeeksTargetIsThePositionAtOnce)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"three.mkv"_s));
    for (const double target : {2.0, 0.5, 1.25}) {
        player.control.setCurrentPosition(target);
        EXPECT_EQ(player.control.CurrentPosition(), target);
    }
    double smallest = 10;
    double largest = 0;
    QObject::connect(&player.control, &MediaControl::position, &player.control, [&] {
        smallest = std::min(smallest, player.control.CurrentPosition());
        largest = std::max(largest, player.control.CurrentPosition());
    });
    player.control.setCurrentPosition(2.0);
    player.control.Run();
    ASSERT_TRUE(player.reaches(2.3));
    EXPECT_GT(smallest, 1.95); // no stale position in between
    EXPECT_LT(largest, 3.1);
}

TEST(MediaPlaying, SeeksAreClampedToTheClip)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    player.control.setCurrentPosition(500);
    EXPECT_EQ(player.control.CurrentPosition(), player.control.Duration());
    player.control.setCurrentPosition(-5);
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    player.control.setCurrentPosition(std::nan(""));
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
}

TEST(MediaPlaying, ASeekDuringOpeningIsMadeWhenTheFileIsOpen)
{
    RecordedPlayer player;
    player.control.setFileName(testClip(u"three.mkv"_s));
    player.control.setCurrentPosition(1.5);
    EXPECT_EQ(player.control.CurrentPosition(), 1.5);
    ASSERT_TRUE(comesTrue([&] { return player.control.isReady(); }));
    EXPECT_EQ(player.control.CurrentPosition(), 1.5);
    player.control.Run();
    ASSERT_TRUE(player.reaches(1.7));
}

TEST(MediaPlaying, AnExactSeekShowsExactlyThatPicture)
{
    for (const auto* name : {"shades.mp4", "shades.ts", "shades.mpg"}) {
        RecordedPlayer player;
        player.control.picture()->setTargetSize(QSize(64, 64));
        ASSERT_TRUE(player.open(QString::fromLatin1(name)));
        for (const int number : {37, 5, 70, 51, 12, 13}) {
            player.control.setCurrentPosition(number / kRate);
            EXPECT_TRUE(shows(player, number))
                << name << ": picture " << number << " wanted, "
                << pictureShown(*player.control.picture()) << " shown";
        }
    }
}

TEST(MediaPlaying, APreviewSeekGoesToAKeyPictureNearby)
{
    RecordedPlayer player;
    player.control.picture()->setTargetSize(QSize(64, 64));
    ASSERT_TRUE(player.open(u"shades.mp4"_s)); // its only key picture is the first
    player.control.setCurrentPosition(2);
    ASSERT_TRUE(shows(player, 50));
    player.control.previewPosition(1);
    EXPECT_EQ(player.control.CurrentPosition(), 1.0);
    EXPECT_TRUE(shows(player, 0)) << pictureShown(*player.control.picture()) << " shown";
    player.control.setCurrentPosition(1);
    EXPECT_TRUE(shows(player, 25));
}

TEST(MediaPlaying, AStoppedClipShowsItsFirstPicture)
{
    RecordedPlayer player;
    player.control.picture()->setTargetSize(QSize(64, 64));
    ASSERT_TRUE(player.open(u"shades.mp4"_s));
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.5));
    player.control.Stop();
    EXPECT_TRUE(shows(player, 0)) << pictureShown(*player.control.picture()) << " shown";
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
}

TEST(MediaPlaying, FramesComeInTheSizeTheSurfaceWants)
{
    RecordedPlayer player;
    PictureSource& source = *player.control.picture();
    source.setTargetSize(QSize(100, 80));
    ASSERT_TRUE(player.open(u"shades.mp4"_s));
    ASSERT_TRUE(comesTrue([&] { return source.frame().size() == QSize(100, 80); }));
    EXPECT_EQ(qGreen(source.frame().pixel(2, 40)), 0); // 80 by 80 in the middle, black beside it
    source.setTargetSize(QSize(33, 47));               // while it stands still
    EXPECT_TRUE(comesTrue([&] { return source.frame().size() == QSize(33, 47); }));
}

/// The lowest opacity of its pixels, 255 for a picture through which nothing is seen. Read from the
/// memory that goes to the display: the format's own look-ups pass over that byte.
static int lowestOpacity(const QImage& frame)
{
    quint32 lowest = 255;
    for (int y = 0; y < frame.height(); ++y) {
        const auto* line = reinterpret_cast<const quint32*>(frame.constScanLine(y));
        for (int x = 0; x < frame.width(); ++x) {
            lowest = std::min(lowest, line[x] >> 24);
        }
    }
    return static_cast<int>(lowest);
}

TEST(MediaPlaying, TheWholePictureIsOpaqueWithItsBlackBars)
{
    RecordedPlayer player;
    PictureSource& source = *player.control.picture();
    for (const QSize size : {QSize(100, 80), QSize(81, 64), QSize(64, 301)}) {
        source.setTargetSize(size);
        if (player.control.FileName().isEmpty()) {
            ASSERT_TRUE(player.open(u"shades.mp4"_s));
        }
        ASSERT_TRUE(comesTrue([&] { return source.frame().size() == size; }));
        EXPECT_EQ(lowestOpacity(source.frame()), 255) << size.width() << " wide";
    }
}

TEST(MediaPlaying, WithoutASurfaceAClipWithAPicturePlaysAllTheSame)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"short.mp4"_s));
    EXPECT_TRUE(player.control.picture()->frame().isNull());
    player.control.Run();
    EXPECT_TRUE(player.endsOnceMore());
}

/// Whether the library looks for a decoder outside the processor.
static bool looksForGraphics(const MpvOptionList& more)
{
    const QTemporaryDir folder;
    const QString log = folder.filePath(u"log"_s);
    MpvOptionList options = {{"ao", "null"}, {"log-file", QFile::encodeName(log)}};
    options.insert(options.end(), more.begin(), more.end());
    RecordedPlayer player(options);
    EXPECT_TRUE(player.open(u"two.mp4"_s));
    QFile file(log);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().contains("Looking at hwdec h264-");
}

TEST(MediaPlaying, AGraphicsProcessorIsLookedForUnlessItIsNotWanted)
{
    EXPECT_TRUE(looksForGraphics({{"hwdec", "auto-copy-safe"}}));
    EXPECT_FALSE(looksForGraphics({{"hwdec", "no"}}));
}

TEST(MediaPlaying, AGraphicsProcessorIsUsedWhereThereIsADeviceOfOne)
{
    const QTemporaryDir devices;
    EXPECT_EQ(hardwareDecoding(devices.path()), "no");
    ASSERT_TRUE(QDir(devices.path()).mkpath(u"dri"_s));
    QFile screen(devices.filePath(u"dri/card0"_s)); // a screen alone decodes nothing
    ASSERT_TRUE(screen.open(QIODevice::WriteOnly));
    EXPECT_EQ(hardwareDecoding(devices.path()), "no");
    QFile node(devices.filePath(u"dri/renderD128"_s));
    ASSERT_TRUE(node.open(QIODevice::WriteOnly));
    EXPECT_EQ(hardwareDecoding(devices.path()), "auto-copy-safe");
    const QTemporaryDir others;
    QFile other(others.filePath(u"nvidiactl"_s));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    EXPECT_EQ(hardwareDecoding(others.path()), "auto-copy-safe");
}

TEST(MediaPlaying, ABareStreamGoesBackToItsStartWhenStopped)
{
    for (const auto* name : {"raw.h264", "raw.hevc", "raw.m4v", "raw.m2v", "raw.aac", "raw.loas",
                             "raw.ac3", "raw.eac3", "raw.dts", "raw.mp3"}) {
        RecordedPlayer player;
        ASSERT_TRUE(player.open(QString::fromLatin1(name)));
        player.control.Run();
        ASSERT_TRUE(player.reaches(0.3)) << name;
        player.control.Stop();
        EXPECT_EQ(player.control.CurrentPosition(), 0.0);
        player.control.Run();
        ASSERT_TRUE(comesTrue([&] { return player.control.CurrentPosition() > 0.05; })) << name;
        EXPECT_LT(player.control.CurrentPosition(), 0.3) << name;
        ASSERT_TRUE(player.endsOnceMore()) << name;
        EXPECT_EQ(player.ends, 1) << name;
        EXPECT_EQ(player.opened.size(), 1) << name;
    }
}

TEST(MediaPlaying, ASeekInAStreamThatCannotSeekLeavesThePlayerWhereItIs)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"long.h264"_s));
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.4));
    const double before = player.control.CurrentPosition();
    const int reported = player.positions;
    player.control.setCurrentPosition(2.5);
    EXPECT_EQ(player.control.CurrentPosition(), before);
    EXPECT_GT(player.positions, reported);
    player.control.previewPosition(2.0);
    EXPECT_EQ(player.control.CurrentPosition(), before);
    // It plays on through all the rest.
    ASSERT_TRUE(player.reaches(1.5));
    EXPECT_EQ(player.ends, 0);
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_GT(player.control.Duration(), 2.8);
}

TEST(MediaPlaying, ASeekWishedWhileAStreamThatCannotSeekOpensIsForgotten)
{
    RecordedPlayer player;
    player.control.setFileName(testClip(u"long.h264"_s));
    player.control.setCurrentPosition(2.0);
    ASSERT_TRUE(comesTrue([&] { return player.control.isReady(); }));
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.5));
    EXPECT_EQ(player.ends, 0);
}

TEST(MediaPlaying, SoundPlaysToItsEndWithoutASoundDevice)
{
    qputenv("ALSA_CONFIG_PATH", "/dev/null");
    RecordedPlayer player(MpvOptionList{{"ao", "alsa"}});
    ASSERT_TRUE(player.open(u"short.wav"_s));
    player.control.Run();
    EXPECT_TRUE(player.endsOnceMore());
    qunsetenv("ALSA_CONFIG_PATH");
}

TEST(MediaPlaying, VolumeIsGivenInHundredthsOfADecibel)
{
    struct Row
    {
        int hundredths;
        double percent;
    };
    for (const Row& row : {Row{0, 100}, Row{-1000, 68.1292}, Row{-8000, 4.64159}, Row{500, 100}}) {
        EXPECT_NEAR(mpvVolume(row.hundredths), row.percent, 0.001);
    }
    const double loudest = loudnessAt(0);
    EXPECT_NEAR(20 * std::log10(loudnessAt(-1000) / loudest), -10, 0.05);
    EXPECT_NEAR(20 * std::log10(loudnessAt(-8000) / loudest), -80, 0.1);
    EXPECT_EQ(loudnessAt(-10000), 0.0);
}

TEST(MediaPlaying, AControlMayGoAtAnyMoment)
{
    for (int round = 0; round < 4; ++round) {
        auto player = std::make_unique<RecordedPlayer>();
        player->control.picture()->setTargetSize(QSize(320, 240));
        player->control.setFileName(testClip(u"three.mkv"_s));
        if (round > 0) {
            ASSERT_TRUE(comesTrue([&] { return player->control.isReady(); }));
            player->control.Run();
        }
        if (round > 1) {
            ASSERT_TRUE(player->reaches(0.1 * round));
        }
        if (round > 2) {
            player->control.setCurrentPosition(2);
        }
        player.reset();
    }
    RecordedPlayer next; // the library is none the worse for it
    EXPECT_TRUE(next.open(u"short.mp4"_s));
}

TEST(MediaPlaying, AControlMayGoRightAfterAnEvent)
{
    auto player = std::make_unique<RecordedPlayer>();
    QObject::connect(
        &player->control, &MediaControl::positionChange, QCoreApplication::instance(),
        [&] { QTimer::singleShot(0, QCoreApplication::instance(), [&] { player.reset(); }); });
    ASSERT_TRUE(player->open(u"short.mp4"_s));
    player->control.Run();
    EXPECT_TRUE(comesTrue([&] { return player == nullptr; }));
}

TEST(MpvSeek, AnEarlierSeeksAnswersDoNotEndALaterOne)
{
    MpvSeek seek;
    const quint64 first = seek.begin(1, MpvSeek::Exact);
    const quint64 second = seek.begin(2, MpvSeek::Exact);
    seek.accepted(first);
    seek.started();
    EXPECT_FALSE(seek.playing());
    EXPECT_EQ(seek.target(), 2.0);
    seek.accepted(second);
    EXPECT_FALSE(seek.playing()); // the first one's arrival
    seek.started();
    EXPECT_TRUE(seek.playing());
    EXPECT_FALSE(seek.isUnderWay());
}

TEST(MpvSeek, EqualSeeksUnderWayAreOne)
{
    MpvSeek seek;
    seek.begin(1, MpvSeek::KeyFrame);
    EXPECT_TRUE(seek.isUnderWay(1, MpvSeek::KeyFrame));
    EXPECT_FALSE(seek.isUnderWay(1, MpvSeek::Exact));
    EXPECT_FALSE(seek.isUnderWay(1.5, MpvSeek::KeyFrame));
    seek.cancel();
    EXPECT_FALSE(seek.isUnderWay(1, MpvSeek::KeyFrame));
}
