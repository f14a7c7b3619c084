// An empty check box is seen on dark colours, in a window and in a list.

#include "playback/outlined_indicators.h"

#include <QApplication>
#include <QCheckBox>
#include <QPainter>
#include <QRadioButton>
#include <QStyleOptionButton>

#include <algorithm>
#include <gtest/gtest.h>

namespace orvanta::test {

/// Lightness of the pixel that differs most from what is behind it, less that one's.
static int contrast(QStyle& style, QStyle::PrimitiveElement element, const QColor& window)
{
    constexpr int kSide = 14; // pixels
    QStyleOptionButton option;
    option.palette = QPalette(window);
    option.palette.setColor(QPalette::Base, window.darker(140)); // as a list's
    option.rect = QRect(0, 0, kSide, kSide);
    option.state = QStyle::State_Enabled | QStyle::State_Off;
    const QColor behind = option.palette.color(QPalette::Base);
    QImage picture(kSide, kSide, QImage::Format_RGB32);
    picture.fill(behind);
    QPainter painter(&picture);
    style.drawPrimitive(element, &option, &painter, nullptr);
    painter.end();
    int most = 0;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            most =
                std::max(most, std::abs(picture.pixelColor(x, y).lightness() - behind.lightness()));
        }
    }
    return most;
}

TEST(Indicators, AreOutlinedOnDarkColoursAndLeftAloneOnLightOnes)
{
    OutlinedIndicators outlined;
    const QColor dark(50, 50, 50);
    const QColor light(239, 239, 239);
    for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
        constexpr int kSeen = 90; // of 255
        EXPECT_GT(contrast(outlined, element, dark), kSeen);
        EXPECT_EQ(contrast(outlined, element, light),
                  contrast(*outlined.baseStyle(), element, light));
    }
}

} // namespace orvanta::test
