// The covers of sound clips.
#include "platform/media/picture_source.h"
#include "tests/support/recorded_player.h"

#include <gtest/gtest.h>
#include <optional>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

struct CoverPlayer : RecordedPlayer
{
    CoverPlayer()
    {
        QObject::connect(&control, &MediaControl::coverRead, &control,
                         [this](const QImage& read) { cover = read; });
    }

    std::optional<QImage> cover;
};

} // namespace

class Cover : public testing::TestWithParam<const char*>
{};

TEST_P(Cover, IsReadAndTheClipStaysOneOfSound)
{
    CoverPlayer player;
    ASSERT_TRUE(player.open(QString::fromLatin1(GetParam())));
    EXPECT_TRUE(player.picture.isEmpty());
    EXPECT_FALSE(player.control.picture()->hasPicture());
    ASSERT_TRUE(player.control.readCover());
    ASSERT_TRUE(comesTrue([&] { return player.cover.has_value(); }));
    EXPECT_EQ(player.cover->size(), QSize(300, 200));
    EXPECT_GT(player.cover->pixelColor(150, 100).red(), 200);
    EXPECT_LT(player.cover->pixelColor(150, 100).blue(), 50);
    player.control.Run();
    EXPECT_TRUE(player.endsOnceMore());
    EXPECT_FALSE(player.control.picture()->hasPicture());
}

INSTANTIATE_TEST_SUITE_P(Kinds, Cover,
                         testing::Values("covered.mp3", "covered.m4a", "covered.flac"));

TEST(CoverOfClip, IsNullWhereItIsTooLarge)
{
    CoverPlayer player;
    ASSERT_TRUE(player.open(u"large.mp3"_s));
    ASSERT_TRUE(player.control.readCover());
    ASSERT_TRUE(comesTrue([&] { return player.cover.has_value(); }));
    EXPECT_TRUE(player.cover->isNull());
    player.control.Run();
    EXPECT_TRUE(player.endsOnceMore());
}

TEST(CoverOfClip, IsThereForSoundAloneThatCarriesOne)
{
    CoverPlayer player;
    EXPECT_FALSE(player.control.readCover());
    ASSERT_TRUE(player.open(u"one.mp3"_s));
    EXPECT_FALSE(player.control.readCover());
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    EXPECT_FALSE(player.control.readCover());
}

TEST(CoverOfClip, OfAClipThatHasGoneIsForgotten)
{
    CoverPlayer player;
    ASSERT_TRUE(player.open(u"covered.mp3"_s));
    ASSERT_TRUE(player.control.readCover());
    ASSERT_TRUE(player.open(u"covered.flac"_s));
    player.control.Run();
    ASSERT_TRUE(player.endsOnceMore()); // a second: longer than reading takes
    EXPECT_FALSE(player.cover.has_value());
}
