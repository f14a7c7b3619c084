// Reads a clip's peaks and waits for them.
#pragma once

#include "platform/media/sound_peaks.h"
#include "tests/support/recorded_player.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orvanta::test {

class PeakWaiter
{
public:
    PeakWaiter()
        : PeakWaiter(QString())
    {}
    /// folder: of the cache; empty: one of its own.
    explicit PeakWaiter(const QString& folder)
        : sound(folder.isEmpty() ? m_own.path() : folder)
    {
        QObject::connect(&sound, &SoundPeaks::grown, &sound, [this] { ++news; });
        QObject::connect(&sound, &SoundPeaks::finished, &sound, [this] { ++ends; });
    }

    const Peaks& of(const QString& path)
    {
        const int before = ends;
        sound.read(path);
        EXPECT_TRUE(comesTrue([&] { return ends > before; })) << qPrintable(path);
        EXPECT_FALSE(sound.isReading());
        return sound.peaks();
    }

private:
    QTemporaryDir m_own;

public:
    SoundPeaks sound;
    int news = 0;
    int ends = 0;
};

} // namespace orvanta::test
