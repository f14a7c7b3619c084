// Icons that can be told from the ground that they stand on.
#include "editors/legible_icons.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace orvanta::test {

static QIcon square(const QColor& colour)
{
    QPixmap picture(16, 16);
    picture.fill(Qt::transparent);
    QPainter(&picture).fillRect(4, 4, 8, 8, colour);
    return picture;
}

static QColor centreOf(const QIcon& icon)
{
    return icon.pixmap(QSize(16, 16), 1.0).toImage().pixelColor(8, 8);
}

static QPalette scheme(const QColor& ground, const QColor& text)
{
    QPalette palette;
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::Text, text);
    return palette;
}

const QPalette kDark = scheme(QColor(0x1b, 0x1e, 0x20), QColor(0xfc, 0xfc, 0xfc));
const QPalette kLight = scheme(Qt::white, Qt::black);
const QColor kDarkGrey(0x23, 0x26, 0x29);

TEST(LegibleIcons, OneOfDarkGreyTakesTheTextsColourOnADarkGround)
{
    const QIcon icon = legibleIcon(square(kDarkGrey), kDark);
    EXPECT_EQ(centreOf(icon), kDark.color(QPalette::Text));
    EXPECT_EQ(icon.pixmap(QSize(16, 16), 1.0).toImage().pixelColor(1, 1).alpha(), 0);
}

TEST(LegibleIcons, OnALightGroundItStaysAsItIs)
{
    EXPECT_EQ(centreOf(legibleIcon(square(kDarkGrey), kLight)), kDarkGrey);
}

TEST(LegibleIcons, OneOfLightGreyTakesTheTextsColourOnALightGround)
{
    EXPECT_EQ(centreOf(legibleIcon(square(QColor(0xfc, 0xfc, 0xfc)), kLight)), QColor(Qt::black));
}

TEST(LegibleIcons, OneWithColoursKeepsThem)
{
    const QColor blue(0x10, 0x30, 0x80);
    EXPECT_EQ(centreOf(legibleIcon(square(blue), kDark)), blue);
}

TEST(LegibleIcons, NoneStaysNone)
{
    EXPECT_TRUE(legibleIcon(QIcon(), kDark).isNull());
}

} // namespace orvanta::test
