// How fast a box comes to be, in numbers and words.

#include "companions/cdcreate/box_texts.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(BoxSpeeds, AreThoseOfTheLastSeconds)
{
    BoxSpeed speed;
    const BoxSpeed::Moment begin;
    EXPECT_FALSE(speed.speed().has_value());
    for (int second = 0; second <= 20; ++second) { // 100 bytes a second, then 10
        const qint64 done = second <= 10 ? second * 100 : 1000 + (second - 10) * 10;
        speed.take({BoxStep::Writing, done, 1200}, begin + second * 1s);
    }
    EXPECT_DOUBLE_EQ(*speed.speed(), 10);
    EXPECT_EQ(*speed.left(), 10s);
    speed.take({BoxStep::Checking, 0, 1200}, begin + 21s);
    EXPECT_FALSE(speed.speed().has_value()) << "another step has another speed";
    EXPECT_FALSE(speed.left().has_value());
}

TEST(BoxSpeeds, AreSaidInBothLanguages)
{
    BoxSpeed speed;
    const BoxSpeed::Moment begin;
    speed.take({BoxStep::Writing, 0, 4'000'000'000}, begin);
    const BoxState state = {BoxStep::Writing, 100'000'000, 4'000'000'000};
    speed.take(state, begin + 2s);
    EXPECT_EQ(progressText(state, speed, TextLanguage::English),
              u"Writing: 100 MB of 4.0 GB, 50.0 MB/s, 1:18 left");
    EXPECT_EQ(progressText(state, speed, TextLanguage::Russian),
              u"Записываем: 100 МБ из 4,0 ГБ, 50,0 МБ/с, осталось 1:18");
    EXPECT_EQ(progressText({BoxStep::Gathering, 0, 0}, BoxSpeed(), TextLanguage::English),
              u"Gathering:");
    EXPECT_EQ(sizeText(999, TextLanguage::English), u"999 bytes");
    EXPECT_EQ(sizeText(0, TextLanguage::Russian), u"0 байт");
}

TEST(BoxFailures, AreSaidWithWhatTheyAreAbout)
{
    EXPECT_EQ(failureText(BoxFailure(BoxProblem::NoRoom, u"/media/stick"_s), TextLanguage::English),
              u"There is not enough room: /media/stick");
    for (int problem = 0; problem <= static_cast<int>(BoxProblem::NoDrive); ++problem) {
        const BoxFailure failure(static_cast<BoxProblem>(problem));
        EXPECT_NE(failureText(failure, TextLanguage::English),
                  failureText(failure, TextLanguage::Russian));
    }
}

} // namespace orvanta::test
