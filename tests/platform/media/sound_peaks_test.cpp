// Where the peaks of real clips stand, and what has none.
#include "platform/media/sound_peaks.h"
#include "tests/platform/media/peak_waiter.h"
#include "tests/support/log_capture.h"
#include "tests/support/played_sound.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

namespace {

constexpr double kExact = 0.0101; // seconds: one pair
constexpr double kQuiet = 0.25;   // of the loudest; a codec smears a little before a burst

MATCHER_P(NearBy, most, "")
{
    return std::abs(std::get<0>(arg) - std::get<1>(arg)) <= most;
}

/// Where sound begins, seconds: what is loud after half a second and more of quiet.
template <typename Level>
std::vector<double> beginnings(std::size_t count, double rate, Level level)
{
    std::vector<double> found;
    double lastLoud = -1;
    for (std::size_t i = 0; i < count; ++i) {
        const double at = static_cast<double>(i) / rate;
        if (level(i) > kQuiet) {
            if (at - lastLoud > 0.3) {
                found.push_back(at);
            }
            lastLoud = at;
        }
    }
    return found;
}

std::vector<double> beginnings(const Peaks& peaks)
{
    return beginnings(peaks.size(), kPeaksPerSecond,
                      [&](std::size_t i) { return peaks[i].high / 127.0; });
}

/// What the player lets one hear of a clip that sounds from its second 0 on.
std::vector<double> heardBeginnings(const QString& clip)
{
    const std::vector<float> samples = PlayedSound(clip, [](MediaControl&) {}).samples();
    return beginnings(samples.size(), kRate, [&](std::size_t i) { return samples[i]; });
}

QString written(const QTemporaryDir& folder, const QString& name, const QByteArray& bytes)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return path;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace

class Bursts : public testing::TestWithParam<const char*>
{};

TEST_P(Bursts, StandWhereThePlayerLetsThemBeHeard)
{
    const QString clip = QString::fromLatin1(GetParam());
    const std::vector<double> heard = heardBeginnings(clip);
    ASSERT_EQ(heard.size(), 3U);
    PeakWaiter waiter;
    EXPECT_THAT(beginnings(waiter.of(testClip(clip))), Pointwise(NearBy(kExact), heard));
    EXPECT_THAT(heard.front(), DoubleNear(0.5, 0.03));
}

INSTANTIATE_TEST_SUITE_P(Containers, Bursts,
                         testing::Values("bursts.wav", "bursts.mp3", "bursts.mp4", "bursts.mkv",
                                         "bursts.opus", "bursts.webm", "bursts.ogg", "bursts.flac",
                                         "bursts.ac3", "surround.mp4", "bursts_u8.wav",
                                         "bursts_s24le.wav", "bursts_s32le.wav", "bursts_f32le.wav",
                                         "bursts_f64le.wav"));

struct Shifted
{
    const char* clip;
    double first; // where its first burst is by the player's clock, seconds
};

class ShiftedBursts : public testing::TestWithParam<Shifted>
{};

/// The player counts these from where their container's time begins, or from its first packet.
TEST_P(ShiftedBursts, StandByThePlayersClock)
{
    const double first = GetParam().first;
    PeakWaiter waiter;
    EXPECT_THAT(beginnings(waiter.of(testClip(QString::fromLatin1(GetParam().clip)))),
                ElementsAre(DoubleNear(first, kExact), DoubleNear(first + 0.75, kExact),
                            DoubleNear(first + 1.5, kExact)));
}

INSTANTIATE_TEST_SUITE_P(Containers, ShiftedBursts,
                         testing::Values(Shifted{"late.mkv", 1}, Shifted{"late.mp4", 1},
                                         Shifted{"offset.mkv", 10.5}, Shifted{"offset.mp4", 10.5},
                                         Shifted{"cut.mp4", 0.3}, Shifted{"bursts.ts", 0.5213}),
                         [](const auto& one) {
                             return QFileInfo(QString::fromLatin1(one.param.clip))
                                 .fileName()
                                 .replace(u'.', u'_')
                                 .toStdString();
                         });

TEST(Peaks, AreTheExtremesOfEachHundredthSecond)
{
    PeakWaiter waiter;
    const Peaks& peaks = waiter.of(testClip(u"bursts.wav"_s));
    ASSERT_EQ(peaks.size(), 250U);
    EXPECT_EQ(peaks[10], PeakPair());
    EXPECT_NEAR(peaks[55].high, 0.8 * 127, 1);
    EXPECT_NEAR(peaks[55].low, -0.8 * 127, 1);
}

TEST(Peaks, AreNotThereWithoutSound)
{
    const LogCapture log("orvanta.errors");
    PeakWaiter waiter;
    EXPECT_TRUE(waiter.of(testClip(u"silent.mp4"_s)).empty());
    EXPECT_EQ(waiter.ends, 1);
    EXPECT_EQ(waiter.news, 0);
    EXPECT_EQ(LogCapture::lines(), QStringList());
}

TEST(Peaks, OfAnotherClipReplaceTheFormer)
{
    PeakWaiter waiter;
    waiter.sound.read(testClip(u"loud.wav"_s));
    EXPECT_TRUE(waiter.sound.isReading());
    EXPECT_EQ(waiter.of(testClip(u"bursts.wav"_s)).size(), 250U);
    EXPECT_EQ(waiter.ends, 1);
    waiter.sound.cancel();
    EXPECT_TRUE(waiter.sound.peaks().empty());
}

TEST(Peaks, AreToldWhileTheyGrow)
{
    QTemporaryDir folder;
    // Two hours of silence, hardly any of it on the disk.
    const QString path = written(folder, u"long.wav"_s, contentOf(testClip(u"bursts.wav"_s)));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const qint64 bytes = qint64{2} * 3600 * 48000 * 2;
    ASSERT_TRUE(file.resize(bytes));
    QByteArray head = file.read(128);
    const qsizetype data = head.indexOf("data") + 4;
    const auto size = static_cast<quint32>(bytes - data - 4);
    ASSERT_TRUE(file.seek(data));
    file.write(QByteArray(reinterpret_cast<const char*>(&size), 4));
    file.close();
    PeakWaiter waiter;
    std::size_t first = 0;
    QObject::connect(&waiter.sound, &SoundPeaks::grown, &waiter.sound, [&] {
        first = waiter.news == 1 ? waiter.sound.peaks().size() : first;
        EXPECT_TRUE(waiter.sound.isReading());
    });
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(waiter.of(path).size(), 720000U);
    EXPECT_GT(first, 0U);
    EXPECT_LT(first, 720000U);
    EXPECT_LE(waiter.news, clock.elapsed() / 100 + 2); // the last one does not wait
}

TEST(HostileClips, HaveNoPeaksAndOneLineInTheLog)
{
    for (const char16_t* name : {u"empty.mp4", u"noise.mp4", u"text.mp4", u"nowhere.mp4"}) {
        const LogCapture log("orvanta.errors");
        PeakWaiter waiter;
        EXPECT_TRUE(waiter.of(testClip(QString::fromUtf16(name))).empty());
        EXPECT_EQ(LogCapture::lines().size(), 1) << qPrintable(LogCapture::lines().join(u'\n'));
    }
}

TEST(HostileClips, ThatBreakOffKeepWhatTheyHave)
{
    PeakWaiter waiter;
    for (const char16_t* name : {u"broken.mkv", u"broken.avi", u"broken.wav", u"broken.ts"}) {
        EXPECT_GT(waiter.of(testClip(QString::fromUtf16(name))).size(), 20U)
            << qPrintable(QString::fromUtf16(name));
    }
}

class References : public testing::TestWithParam<std::pair<const char*, const char*>>
{};

/// Each names a clip with sound beside it.
TEST_P(References, ToOtherFilesAreNotFollowed)
{
    const QTemporaryDir folder;
    written(folder, u"bursts.wav"_s, contentOf(testClip(u"bursts.wav"_s)));
    const auto& [name, text] = GetParam();
    const QByteArray list = QByteArray(text).replace("%", QFile::encodeName(folder.path()));
    const LogCapture log("orvanta.errors");
    PeakWaiter waiter;
    EXPECT_TRUE(waiter.of(written(folder, QString::fromLatin1(name), list)).empty());
    EXPECT_EQ(LogCapture::lines().size(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, References,
    testing::Values(std::pair("list.ffconcat", "ffconcat version 1.0\nfile bursts.wav\n"),
                    std::pair("list.mp4", "ffconcat version 1.0\nfile %/bursts.wav\n"),
                    std::pair("list.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n"
                                           "%/bursts.wav\n#EXT-X-ENDLIST\n"),
                    std::pair("list.sdp", "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=a\nc=IN IP4 127.0.0.1\n"
                                          "t=0 0\nm=audio 5004 RTP/AVP 0\n"),
                    std::pair("list.mpd", "<?xml version=\"1.0\"?><MPD><Period><AdaptationSet>"
                                          "<Representation><BaseURL>bursts.wav</BaseURL>"
                                          "</Representation></AdaptationSet></Period></MPD>")));

TEST(HostileClips, AreOfTheContainersThatThePlayerOpensOrNotRead)
{
    const LogCapture log("orvanta.errors");
    PeakWaiter waiter;
    EXPECT_TRUE(waiter.of(testClip(u"bursts.sox"_s)).empty());
    EXPECT_EQ(LogCapture::lines().size(), 1);
    RecordedPlayer player;
    EXPECT_TRUE(player.refuses(testClip(u"bursts.sox"_s)));
}

TEST(HostileClips, AreRegularFilesOrNotRead)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.wav"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    PeakWaiter waiter;
    for (const QString& path : {pipe, folder.path(), u"/dev/zero"_s, u"bursts.wav"_s,
                                u"file:"_s + testClip(u"bursts.wav"_s), QString()}) {
        const LogCapture log("orvanta.errors");
        EXPECT_TRUE(waiter.of(path).empty()) << qPrintable(path);
        EXPECT_EQ(LogCapture::lines().size(), 1);
    }
}

/// Every clip with bytes that mean something else: all ends, whatever it gives.
TEST(HostileClips, WithChangedBytesEnd)
{
    const QTemporaryDir folder;
    PeakWaiter waiter;
    quint32 dice = 12345;
    const auto thrown = [&dice](qsizetype below) {
        dice = dice * 1664525 + 1013904223;
        return static_cast<qsizetype>(dice >> 8) % below;
    };
    for (const char16_t* name : {u"bursts.mp4", u"bursts.mkv", u"bursts.mp3", u"bursts.opus",
                                 u"bursts.flac", u"bursts.wav", u"short.avi", u"stream.ts"}) {
        const QByteArray sound = contentOf(testClip(QString::fromUtf16(name)));
        for (int round = 0; round < 20; ++round) {
            QByteArray spoilt = sound;
            for (int change = 0; change < 30; ++change) {
                const bool early = change % 3 != 0; // what leads the reader lies there
                const qsizetype end =
                    early ? std::min<qsizetype>(2000, spoilt.size()) : spoilt.size();
                spoilt[thrown(end)] = static_cast<char>(thrown(256));
            }
            const Peaks& peaks = waiter.of(written(folder, QString::fromUtf16(name), spoilt));
            EXPECT_LE(peaks.size(), std::size_t{kMostPeaks});
        }
    }
}

} // namespace orvanta::test
