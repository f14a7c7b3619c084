// What comes out of the real media control, for tests that hear it.
#pragma once

#include "tests/support/recorded_player.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace orvanta {

inline constexpr int kRate = 48000;

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

    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("sound.raw")); }

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
        ffmpeg.start(QStringLiteral("ffmpeg"),
                     {QStringLiteral("-nostdin"), QStringLiteral("-hide_banner"),
                      QStringLiteral("-f"), QStringLiteral("f32le"), QStringLiteral("-ar"),
                      QString::number(kRate), QStringLiteral("-ac"), QStringLiteral("1"),
                      QStringLiteral("-i"), path(), QStringLiteral("-af"),
                      QStringLiteral("ebur128=peak=sample"), QStringLiteral("-f"),
                      QStringLiteral("null"), QStringLiteral("-")});
        EXPECT_TRUE(ffmpeg.waitForFinished());
        const QString text = QString::fromUtf8(ffmpeg.readAllStandardError());
        const QString summary = text.mid(text.lastIndexOf(QStringLiteral("Summary:")));
        const auto match =
            QRegularExpression(pattern + QStringLiteral("\\s+(-?[\\d.]+)")).match(summary);
        EXPECT_TRUE(match.hasMatch()) << qPrintable(text.right(800));
        return match.captured(1).toDouble();
    }
    [[nodiscard]] double loudness() const { return measured(QStringLiteral("I:")); }
    [[nodiscard]] double peak() const { return measured(QStringLiteral("Peak:")); }

private:
    QTemporaryDir m_folder;
};

/// Of a sine, by counting its waves over the middle half of what was heard.
inline double frequencyOf(const std::vector<float>& samples)
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

} // namespace orvanta
