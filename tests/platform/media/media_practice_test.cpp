// Tempo, mirrored pictures and even loudness of the real media control.
#include "platform/media/picture_source.h"
#include "tests/support/recorded_player.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>

#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRate = 48000;

/// What comes out of the player while it plays a clip: one channel of floats in a file.
class PlayedSound
{
public:
    PlayedSound(const QString& clip, const std::function<void(MediaControl&)>& prepare)
    {
        RecordedPlayer player({{"ao", "pcm"},
                               {"ao-pcm-waveheader", "no"},
                               {"audio-channels", "mono"},
                               {"audio-samplerate", QByteArray::number(kRate)},
                               {"ao-pcm-file", QFile::encodeName(path())}});
        prepare(player.control);
        EXPECT_TRUE(player.open(clip));
        player.control.Run();
        EXPECT_TRUE(player.endsOnceMore());
    }

    [[nodiscard]] QString path() const { return m_folder.filePath(u"sound.raw"_s); }

    [[nodiscard]] std::vector<float> samples() const
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        std::vector<float> samples(static_cast<std::size_t>(bytes.size()) / sizeof(float));
        std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(float));
        return samples;
    }

    /// Integrated loudness, LUFS, and the highest sample, dBFS.
    [[nodiscard]] double measured(const QString& pattern) const
    {
        QProcess ffmpeg;
        ffmpeg.start(u"ffmpeg"_s, {u"-nostdin"_s, u"-hide_banner"_s, u"-f"_s, u"f32le"_s, u"-ar"_s,
                                   QString::number(kRate), u"-ac"_s, u"1"_s, u"-i"_s, path(),
                                   u"-af"_s, u"ebur128=peak=sample"_s, u"-f"_s, u"null"_s, u"-"_s});
        EXPECT_TRUE(ffmpeg.waitForFinished());
        const QString text = QString::fromUtf8(ffmpeg.readAllStandardError());
        const QString summary = text.mid(text.lastIndexOf(u"Summary:"_s));
        const auto match = QRegularExpression(pattern + u"\\s+(-?[\\d.]+)"_s).match(summary);
        EXPECT_TRUE(match.hasMatch()) << qPrintable(text.right(800));
        return match.captured(1).toDouble();
    }
    [[nodiscard]] double loudness() const { return measured(u"I:"_s); }
    [[nodiscard]] double peak() const { return measured(u"Peak:"_s); }

private:
    QTemporaryDir m_folder;
};

/// Of a sine, by counting its waves over the middle half of what was heard.
double frequencyOf(const std::vector<float>& samples)
{
    const std::size_t first = samples.size() / 4;
    const std::size_t last = samples.size() * 3 / 4;
    int waves = 0;
    std::size_t begin = 0;
    std::size_t end = 0;
    for (std::size_t i = first; i < last; ++i) {
        if (samples[i] < 0 && samples[i + 1] >= 0) {
            begin = begin == 0 ? i : begin;
            end = i;
            ++waves;
        }
    }
    return (waves - 1) * double(kRate) / double(end - begin);
}

bool leftIsBright(RecordedPlayer& player)
{
    const QImage frame = player.control.picture()->frame();
    return !frame.isNull() && qGreen(frame.pixel(frame.width() / 4, frame.height() / 2)) > 128 &&
           qGreen(frame.pixel(frame.width() * 3 / 4, frame.height() / 2)) < 128;
}

bool rightIsBright(RecordedPlayer& player)
{
    const QImage frame = player.control.picture()->frame();
    return !frame.isNull() && qGreen(frame.pixel(frame.width() / 4, frame.height() / 2)) < 128 &&
           qGreen(frame.pixel(frame.width() * 3 / 4, frame.height() / 2)) > 128;
}

} // namespace

class Tempo : public testing::TestWithParam<double>
{};

TEST_P(Tempo, ChangesTheLengthOfAToneAndKeepsItsPitch)
{
    const double speed = GetParam();
    const PlayedSound sound(u"tone.wav"_s, [&](MediaControl& player) { player.setSpeed(speed); });
    const std::vector<float> samples = sound.samples();
    EXPECT_NEAR(double(samples.size()) / kRate, 2 / speed, 0.1);
    EXPECT_NEAR(frequencyOf(samples), 440, 4.4);
}

INSTANTIATE_TEST_SUITE_P(Speeds, Tempo, testing::Values(0.5, 0.8, 1.0, 1.5));

TEST(EvenLoudness, BringsAQuietClipAndALoudOneToOneLevelWithoutClipping)
{
    const auto even = [](MediaControl& player) { player.setEvenLoudness(true); };
    const PlayedSound quiet(u"quiet.wav"_s, even);
    const PlayedSound loud(u"loud.wav"_s, even);
    EXPECT_NEAR(quiet.loudness(), loud.loudness(), 2);
    EXPECT_LT(quiet.peak(), -0.5);
    EXPECT_LT(loud.peak(), -0.5);
}

TEST(EvenLoudness, IsOffUntilAskedFor)
{
    const auto asItIs = [](MediaControl&) {};
    const PlayedSound quiet(u"quiet.wav"_s, asItIs);
    const PlayedSound loud(u"loud.wav"_s, asItIs);
    EXPECT_NEAR(loud.loudness() - quiet.loudness(), 26, 0.5);
}

TEST(EvenLoudness, LeavesAShortClipItsEnd)
{
    const PlayedSound sound(u"short.wav"_s,
                            [](MediaControl& player) { player.setEvenLoudness(true); });
    EXPECT_NEAR(double(sound.samples().size()) / kRate, 0.3, 0.05);
}

TEST(MirroredPicture, ShowsTheLeftAtTheRightAndTheSecondTimeAsItWas)
{
    RecordedPlayer player;
    player.control.picture()->setTargetSize({64, 64});
    ASSERT_TRUE(player.open(u"sides.mp4"_s));
    EXPECT_TRUE(comesTrue([&] { return leftIsBright(player); }));
    player.control.setMirrored(true);
    EXPECT_TRUE(comesTrue([&] { return rightIsBright(player); }));
    ASSERT_TRUE(player.open(u"sides.mp4"_s));
    EXPECT_TRUE(comesTrue([&] { return rightIsBright(player); }));
    player.control.setMirrored(false);
    EXPECT_TRUE(comesTrue([&] { return leftIsBright(player); }));
}

TEST(RefreshedPosition, OfAClipOfSoundAloneIsFinerThanItsReports)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"loud.wav"_s));
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.5));
    const int before = player.positions;
    ASSERT_TRUE(player.reaches(1.5));
    const int reported = player.positions - before;
    QTimer asking;
    QObject::connect(&asking, &QTimer::timeout, &player.control,
                     [&] { player.control.refreshPosition(); });
    asking.start(5);
    ASSERT_TRUE(player.reaches(2.5));
    EXPECT_GT(player.positions - before - reported, 2 * reported);
}
