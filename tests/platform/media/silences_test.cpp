// Silences, without clips and in one.
#include "platform/media/silences.h"
#include "tests/platform/media/peak_waiter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

namespace {

/// Spans of one loudness each: hundredths of a second, and the level.
Peaks levels(std::initializer_list<std::pair<int, int>> spans)
{
    Peaks peaks;
    for (const auto& [count, level] : spans) {
        const PeakPair pair = {static_cast<qint8>(-level), static_cast<qint8>(level / 2)};
        peaks.insert(peaks.end(), static_cast<std::size_t>(count), pair);
    }
    return peaks;
}

} // namespace

TEST(Silences, AreQuietForLongEnough)
{
    const Peaks peaks = levels({{30, 3}, {100, 100}, {29, 3}, {100, 100}, {50, 4}, {10, 100}});
    EXPECT_THAT(silencesIn(peaks, -30, 0.3),
                ElementsAre(SilentSpan{0, 0.3}, SilentSpan{2.59, 3.09}));
}

TEST(Silences, AreWhatIsBelowTheThreshold)
{
    const Peaks peaks = levels({{50, 0}, {50, 100}, {50, 12}, {50, 100}});
    EXPECT_THAT(silencesIn(peaks, -60, 0.2), ElementsAre(SilentSpan{0, 0.5}));
    EXPECT_THAT(silencesIn(peaks, -20, 0.2), ElementsAre(SilentSpan{0, 0.5}, SilentSpan{1, 1.5}));
    EXPECT_THAT(silencesIn(peaks, 0, 0.2), ElementsAre(SilentSpan{0, 2}));
    EXPECT_THAT(silencesIn({}, -20, 0.2), IsEmpty());
}

TEST(Silences, HaveAMarkWhereSoundBeginsAgain)
{
    EXPECT_THAT(marksAfter({{0, 0.5}, {1, 2}, {8, 9.95}}, 10),
                ElementsAre(SuggestedMark{0.5, {}}, SuggestedMark{2, {}}));
}

class SilencesOf : public testing::TestWithParam<const char*>
{};

TEST_P(SilencesOf, AClipWithBurstsEndWithEachBurst)
{
    PeakWaiter waiter;
    const Peaks& peaks = waiter.of(testClip(QString::fromLatin1(GetParam())));
    const auto at = [](double seconds) {
        return Field(&SuggestedMark::seconds, DoubleNear(seconds, 0.05));
    };
    EXPECT_THAT(marksAfter(silencesIn(peaks, -30, 0.3), 2.5),
                ElementsAre(at(0.5), at(1.25), at(2)));
}

INSTANTIATE_TEST_SUITE_P(Containers, SilencesOf,
                         testing::Values("bursts.wav", "bursts.mp3", "bursts.mp4", "bursts.opus"));

} // namespace orvanta::test
