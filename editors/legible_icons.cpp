#include "editors/legible_icons.h"

#include <QHash>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kSide = 16; // pixels, as in the lists

namespace {

/// What an icon looks like on the whole; 0 to 255.
struct Impression
{
    int lightness = 0;
    int colour = 0; // the strongest of its pixels' colours
};

} // namespace

static Impression impressionOf(const QImage& icon)
{
    Impression impression;
    int seen = 0;
    int light = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const QColor pixel = icon.pixelColor(x, y);
            constexpr int kHalf = 128;
            if (pixel.alpha() < kHalf) {
                continue;
            }
            const auto [least, most] = std::minmax({pixel.red(), pixel.green(), pixel.blue()});
            impression.colour = std::max(impression.colour, most - least);
            light += pixel.lightness();
            ++seen;
        }
    }
    impression.lightness = seen == 0 ? 0 : light / seen;
    return impression;
}

static QIcon inOneColour(const QIcon& icon, const QColor& colour)
{
    QIcon result;
    for (const int side : {kSide, 2 * kSide}) {
        QPixmap picture = icon.pixmap(QSize(side, side), 1.0);
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), colour);
        painter.end();
        result.addPixmap(picture);
    }
    return result;
}

QIcon legibleIcon(const QIcon& icon, const QPalette& palette)
{
    constexpr int kGrey = 40;  // of colour, at most
    constexpr int kApart = 80; // of lightness, at least
    const QImage picture = icon.pixmap(QSize(kSide, kSide), 1.0).toImage();
    const Impression impression = impressionOf(picture);
    const int ground = palette.color(QPalette::Base).lightness();
    const bool isSeen = std::abs(impression.lightness - ground) >= kApart;
    return picture.isNull() || isSeen || impression.colour > kGrey
               ? icon
               : inOneColour(icon, palette.color(QPalette::Text));
}

void LegibleIcons::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->icon.isNull()) {
        return;
    }
    // A row is painted often, an icon's pixels are to be looked at once.
    static QHash<QString, QIcon> known;
    const QString key = u"%1 %2 %3"_s.arg(option->icon.cacheKey())
                            .arg(option->palette.color(QPalette::Base).rgba())
                            .arg(option->palette.color(QPalette::Text).rgba());
    if (!known.contains(key)) {
        constexpr qsizetype kMost = 64;
        if (known.size() >= kMost) {
            known.clear();
        }
        known.insert(key, legibleIcon(option->icon, option->palette));
    }
    option->icon = known.value(key);
}

} // namespace orvanta
