// Still pictures in the old metafile format.
#include "platform/file_types/metafile.h"
#include "tests/support/metafile_bytes.h"

#include <QColor>
#include <QDataStream>
#include <QIODevice>
#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace orvanta;
using orvanta::test::redMetafile;
using orvanta::test::words;

namespace {

TEST(Metafile, IsKnownByItsFirstBytes)
{
    EXPECT_TRUE(looksLikeMetafile(redMetafile()));
    EXPECT_TRUE(looksLikeMetafile(redMetafile().mid(22)));
    EXPECT_FALSE(looksLikeMetafile("\x89PNG"));
    EXPECT_FALSE(looksLikeMetafile({}));
}

TEST(Metafile, IsDrawnInItsOwnSize)
{
    const QImage picture = readMetafile(redMetafile());
    ASSERT_FALSE(picture.isNull());
    EXPECT_NEAR(picture.width(), 192, 2);
    EXPECT_NEAR(picture.height(), 96, 2);
    EXPECT_EQ(picture.pixelColor(picture.rect().center()), QColor(Qt::red));
}

TEST(Metafile, ThatIsCutOffOrDamagedIsNoPictureAndNoCrash)
{
    const QByteArray whole = redMetafile();
    for (qsizetype length = 0; length < whole.size() - 6; ++length) {
        (void)readMetafile(whole.left(length));
    }
    QRandomGenerator random(7);
    for (int round = 0; round < 300; ++round) {
        QByteArray damaged = whole;
        damaged[static_cast<qsizetype>(random.bounded(whole.size()))] =
            static_cast<char>(random.bounded(256));
        (void)readMetafile(damaged);
    }
    EXPECT_TRUE(readMetafile("rubbish").isNull());
    EXPECT_TRUE(readMetafile(whole.left(30)).isNull());
}

} // namespace
