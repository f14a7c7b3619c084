#include "window/waveform_flags.h"

#include "playback/picture_look.h"
#include "window/skin.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace orvanta {

// Logical pixels.
constexpr double kFlagTop = 2;
constexpr double kFlagHeight = 14;
constexpr double kLeastFlagWidth = 16;
constexpr double kFlagPadding = 4;
constexpr double kFlagGap = 1;
constexpr double kNearBrake = 4; // so near, the pointer means the line
constexpr int kNumberSize = 10;

static double flagWidth(const WaveformBrake& brake, int index, const QFontMetricsF& metrics)
{
    if (brake.isEnd) {
        return kLeastFlagWidth;
    }
    const double number = metrics.horizontalAdvance(QString::number(index + 1));
    return std::max(kLeastFlagWidth, std::ceil(number) + 2 * kFlagPadding);
}

/// To the right of its line, but that of the end, and what has no room there, to the left.
static QRectF flagBeside(double x, double wide, bool isEnd, double width)
{
    const bool isLeft = isEnd || x + wide > width;
    return {isLeft ? std::max(x - wide, 0.0) : x, kFlagTop, wide, kFlagHeight};
}

static bool hasRoom(const QRectF& flag, const std::vector<QRectF>& taken)
{
    const QRectF room = flag.adjusted(-kFlagGap, 0, kFlagGap, 0);
    return std::none_of(taken.begin(), taken.end(),
                        [&](const QRectF& other) { return other.intersects(room); });
}

/// Takes the flags of those that would lie over another.
static void thinOut(std::vector<WaveformFlag>& flags, std::vector<QRectF> taken,
                    const std::function<bool(int)>& mustStay)
{
    taken.emplace_back(); // the last one before: they come from left to right
    for (WaveformFlag& flag : flags) {
        if (mustStay(flag.index)) {
            continue;
        }
        if (hasRoom(flag.flag, taken)) {
            taken.back() = flag.flag;
        } else {
            flag.flag = {};
        }
    }
}

std::vector<WaveformFlag> flagsOf(const std::vector<WaveformBrake>& brakes, const StripScale& scale,
                                  int selected, double width)
{
    const auto brakeOf = [&](int index) { return brakes[static_cast<std::size_t>(index)]; };
    // Those of the end mark and of the selected brake, whatever else stands there.
    const auto mustStay = [&](int index) { return brakeOf(index).isEnd || index == selected; };
    const QFontMetricsF metrics(skin::interfaceFont(kNumberSize));
    std::vector<WaveformFlag> flags;
    std::vector<QRectF> firsts;
    double taken = -1; // the place of the last line that was kept
    for (int i = 0; i < static_cast<int>(brakes.size()); ++i) {
        const double seconds = std::min(brakeOf(i).seconds, scale.length());
        if (!scale.shows(seconds)) {
            continue;
        }
        const double x = std::round(scale.placeOf(seconds));
        if (x == taken && !mustStay(i)) {
            continue; // neither to be seen nor to be pressed
        }
        taken = x;
        const double wide = flagWidth(brakeOf(i), i, metrics);
        flags.push_back({i, x, flagBeside(x, wide, brakeOf(i).isEnd, width)});
        if (mustStay(i)) {
            firsts.push_back(flags.back().flag);
        }
    }
    thinOut(flags, std::move(firsts), mustStay);
    return flags;
}

int brakeAt(const std::vector<WaveformFlag>& flags, int selected, const QPointF& pointer)
{
    int found = -1;
    double nearest = kNearBrake;
    for (const WaveformFlag& flag : flags) {
        const double away = std::abs(flag.x - pointer.x());
        if (away < nearest || (away == nearest && (found < 0 || flag.index == selected))) {
            found = flag.index;
            nearest = away;
        }
    }
    for (const WaveformFlag& flag : flags) {
        if (found < 0 && flag.flag.contains(pointer)) {
            found = flag.index;
        }
    }
    return found;
}

static void paintEndSign(QPainter& painter, const QRectF& flag)
{
    constexpr double kSquare = 6;
    QRectF square(0, 0, kSquare, kSquare);
    square.moveCenter(flag.center());
    painter.fillRect(square, skin::kText);
}

static QColor flagColour(const WaveformBrake& brake, bool isSelected)
{
    return brake.isEnd ? skin::kWarning : isSelected ? skin::kAccent : skin::kText;
}

// Lines that stand too close for flags hide less of the sound.
static void paintLine(QPainter& painter, const WaveformFlag& flag, const WaveformBrake& brake,
                      bool isSelected, double height)
{
    const double wide = brake.isEnd || isSelected ? 2 : 1;
    const double left = brake.isEnd ? flag.x - wide : flag.x;
    painter.fillRect(QRectF(left, kFlagTop, wide, height - 2 * kFlagTop),
                     flag.flag.isEmpty() ? skin::kTextMuted : flagColour(brake, isSelected));
}

static void paintFlag(QPainter& painter, const WaveformFlag& flag, const WaveformBrake& brake,
                      bool isSelected)
{
    if (flag.flag.isEmpty()) {
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(flagColour(brake, isSelected));
    painter.drawRoundedRect(flag.flag, 2, 2);
    if (!brake.isEnd) {
        painter.setPen(isSelected ? look::kOnAccent : skin::kSurface);
        painter.drawText(flag.flag, Qt::AlignCenter, QString::number(flag.index + 1));
        return;
    }
    paintEndSign(painter, flag.flag);
    if (isSelected) {
        painter.setPen(skin::kAccent);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(flag.flag.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    }
}

void paintFlags(QPainter& painter, const std::vector<WaveformFlag>& flags,
                const std::vector<WaveformBrake>& brakes, int selected, double height)
{
    const auto each = [&](bool isSelected, const auto& paint) {
        for (const WaveformFlag& flag : flags) {
            if ((flag.index == selected) == isSelected) {
                paint(flag, brakes[static_cast<std::size_t>(flag.index)]);
            }
        }
    };
    painter.setFont(skin::interfaceFont(kNumberSize));
    for (const bool isSelected : {false, true}) {
        each(isSelected, [&](const WaveformFlag& flag, const WaveformBrake& brake) {
            paintLine(painter, flag, brake, isSelected, height);
        });
        each(isSelected, [&](const WaveformFlag& flag, const WaveformBrake& brake) {
            paintFlag(painter, flag, brake, isSelected);
        });
    }
}

} // namespace orvanta
