#include "playback/picture_text.h"

#include "playback/emoji.h"
#include "playback/picture_look.h"

#include <QGuiApplication>
#include <QPainter>
#include <QTextCharFormat>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvanta {

// No screen has room for more in three lines; a spoilt packet may have a text of a megabyte.
constexpr int kLongestText = 1000; // UTF-16 units
constexpr int kSmallestFont = 8;   // logical pixels
constexpr int kOutlinePart = 12;   // the outline is this part of the font size
constexpr int kOutlineSteps = 16;  // directions in which the letters are stamped
constexpr QChar kEllipsis = u'\u2026';

int pictureTextSize(TextLevel level, int pictureHeight)
{
    const double part = level == TextLevel::Large ? 11.0 : 18.0;
    return std::max(kSmallestFont, static_cast<int>(std::lround(pictureHeight / part)));
}

static qreal outlineOf(const TextShape& shape)
{
    return std::max(1.0, double(shape.fontSize) / kOutlinePart);
}

/// Fonts of letters have some emoji as well, as lines without colour: an emoji font is asked first.
static QList<QTextLayout::FormatRange> formatsOf(const QString& text)
{
    QTextCharFormat pictures;
    pictures.setFontFamilies({QStringLiteral("Noto Color Emoji"), QStringLiteral("emoji")});
    QList<QTextLayout::FormatRange> formats;
    for (const TextRange& range : emojiIn(text)) {
        formats.append({.start = range.begin, .length = range.length, .format = pictures});
    }
    return formats;
}

static void prepare(QTextLayout& layout, const QString& text, const TextShape& shape)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(shape.fontSize);
    QTextOption option(Qt::AlignHCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    layout.setFont(font);
    layout.setTextOption(option);
    layout.setText(text);
    layout.setFormats(formatsOf(text));
}

/// Lays out no more lines than can be asked for: the number of lines, at most one too many.
static int layOut(QTextLayout& layout, int width)
{
    int count = 0;
    qreal y = 0;
    layout.beginLayout();
    for (; count <= kMostLines; ++count) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) {
            break;
        }
        line.setLineWidth(width);
        line.setPosition({0, y});
        y += line.height();
    }
    layout.endLayout();
    return count;
}

static bool fits(const QString& text, const TextShape& shape)
{
    QTextLayout layout;
    prepare(layout, text, shape);
    return layOut(layout, shape.width) <= kMostLines;
}

/// What stands in the first three lines.
static QString beginningOf(const QString& text, const TextShape& shape)
{
    QTextLayout layout;
    prepare(layout, text, shape);
    if (layOut(layout, shape.width) <= kMostLines) {
        return text;
    }
    const QTextLine last = layout.lineAt(kMostLines - 1);
    return text.left(last.textStart() + last.textLength());
}

/// Without its last word, or without its last character where it is one word.
static QString shortened(const QString& text)
{
    const qsizetype blank = text.lastIndexOf(u' ');
    if (blank > 0) {
        return text.left(blank);
    }
    QTextLayout letters(text);
    return text.left(letters.previousCursorPosition(static_cast<int>(text.size())));
}

QString textThatFits(const QString& text, const TextShape& shape)
{
    QString whole = text.simplified();
    QString part = beginningOf(whole.left(kLongestText), shape).trimmed();
    if (part == whole) {
        return whole;
    }
    while (!part.isEmpty() && !fits(part + kEllipsis, shape)) {
        part = shortened(part);
    }
    return part + kEllipsis;
}

/// Where the letters of all lines are, logical pixels.
static QRectF boundsOf(const QTextLayout& layout)
{
    QRectF bounds;
    for (int i = 0; i < layout.lineCount(); ++i) {
        bounds |= layout.lineAt(i).naturalTextRect();
    }
    return bounds;
}

static QImage emptyImage(QSizeF size, qreal devicePixelRatio)
{
    QImage image((size * devicePixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    return image;
}

static QImage lettersOf(const QTextLayout& layout, const QRectF& bounds, qreal margin, qreal ratio)
{
    QImage image = emptyImage(bounds.size() + QSizeF(2 * margin, 2 * margin), ratio);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    layout.draw(&painter, QPointF(margin, margin) - bounds.topLeft());
    return image;
}

static QImage silhouette(QImage letters)
{
    QPainter painter(&letters);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(), letters.deviceIndependentSize()), look::kGround);
    return letters;
}

/// Stamps the shape around its place: pictures in the text get an outline as letters do.
static void stampAround(QPainter& painter, const QImage& shape, qreal radius, qreal strength)
{
    painter.setOpacity(strength);
    for (int i = 0; i < kOutlineSteps; ++i) {
        const double angle = 2 * std::numbers::pi * i / kOutlineSteps;
        painter.drawImage(QPointF(radius * std::cos(angle), radius * std::sin(angle)), shape);
    }
}

QPixmap pictureOfText(const QString& text, const TextShape& shape)
{
    const QString fitting = textThatFits(text, shape);
    if (fitting.isEmpty() || shape.width <= 0) {
        return {};
    }
    QTextLayout layout;
    prepare(layout, fitting, shape);
    layOut(layout, shape.width);
    const qreal outline = outlineOf(shape);
    const QImage letters =
        lettersOf(layout, boundsOf(layout), std::ceil(outline * 2) + 1, shape.devicePixelRatio);
    const QImage dark = silhouette(letters);
    QImage picture = emptyImage(letters.deviceIndependentSize(), shape.devicePixelRatio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    stampAround(painter, dark, outline * 2, 0.06); // the soft edge
    stampAround(painter, dark, outline * 1.5, 0.1);
    stampAround(painter, dark, outline, 0.4);
    painter.setOpacity(1);
    painter.drawImage(QPointF(), letters);
    painter.end();
    return QPixmap::fromImage(picture);
}

} // namespace orvanta
