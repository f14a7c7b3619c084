// That what lies over the picture can be read, however light the picture is: measured in the
// picture that is painted.
#include "playback/overlay_bar.h"
#include "playback/overlay_picture.h"
#include "playback/overlay_track.h"
#include "playback/picture_look.h"
#include "playback/picture_text.h"
#include "playback/sign_picture.h"
#include "tests/support/contrast.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int kFine = 4; // pixels of the picture for a logical one
constexpr QColor kPictures[] = {{0xff, 0xff, 0xff}, {0x80, 0x80, 0x80}, {0, 0, 0}};

QImage laidOn(const QColor& colour, const QPixmap& overlay)
{
    QImage picture(overlay.size(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(kFine);
    picture.fill(colour);
    QPainter(&picture).drawPixmap(0, 0, overlay);
    return picture;
}

/// A window that is one colour, with the bar over it.
class ColouredWindow : public QWidget
{
public:
    explicit ColouredWindow(const QColor& colour)
        : bar(this)
    {
        QPalette palette = this->palette();
        palette.setColor(QPalette::Window, colour);
        setPalette(palette);
        resize(900, 500);
        bar.setTips(TextLanguage::English);
        bar.showTime(83, 200);
        bar.repeatText->setText(u"3 of 5"_s);
        bar.speed->setText(u"0.75 ×"_s);
        bar.fitInto(size());
        bar.show();
        show();
    }

    /// The whole, as painted.
    QImage fine()
    {
        QImage picture(size() * kFine, QImage::Format_RGB32);
        picture.setDevicePixelRatio(kFine);
        render(&picture);
        return picture;
    }
    double contrastIn(const QWidget& part, const QMargins& beside)
    {
        const QRect place = part.rect().marginsRemoved(beside);
        return textContrast(fine(), {part.mapTo(this, place.topLeft()), place.size()});
    }

    PictureBar bar;
};

class OverPicture : public testing::TestWithParam<QColor>
{};

std::string nameOf(const testing::TestParamInfo<QColor>& colour)
{
    return colour.param.name().mid(1).toStdString();
}

INSTANTIATE_TEST_SUITE_P(EachPicture, OverPicture, testing::ValuesIn(kPictures), nameOf);

TEST_P(OverPicture, TheBarsTextsCanBeRead)
{
    ColouredWindow window(GetParam());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    for (const QWidget* label : {window.bar.position, window.bar.length, window.bar.repeatText}) {
        EXPECT_GE(window.contrastIn(*label, {}), kReadable) << qPrintable(label->objectName());
    }
    EXPECT_GE(window.contrastIn(*window.bar.speed, {10, 3, 10, 3}), kReadable);
}

TEST_P(OverPicture, TheBubblesTextsCanBeRead)
{
    ColouredWindow window(GetParam());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    BarTrack& track = *window.bar.track;
    track.setMarks({{.seconds = 100, .text = u"Three beats"_s, .isEnd = false}});
    Q_EMIT track.hovered(track.placeOf(100));
    const OverlayPicture& bubble = *window.bar.bubble;
    const int lead = QFontMetrics(QApplication::font()).height() * 2;
    const int width = bubble.width();
    ASSERT_TRUE(QTest::qWaitFor([&] { // it fades in
        return window.contrastIn(bubble, {lead * 2, 4, 12, 4}) >= kReadable &&
               window.contrastIn(bubble, {10, 4, width - 40, 4}) >= kReadable;
    })) << window.contrastIn(bubble, {lead * 2, 4, 12, 4})
        << ' ' << window.contrastIn(bubble, {10, 4, width - 40, 4});
}

TEST_P(OverPicture, ASignsTextsCanBeRead)
{
    const TextShape shape{.fontSize = 16, .width = 600, .devicePixelRatio = kFine};
    const auto contrast = [&](const QString& lead, const QString& text) {
        const QPixmap sign = pictureOfSign(lead, text, shape);
        const QSize size = sign.deviceIndependentSize().toSize();
        return textContrast(laidOn(GetParam(), sign),
                            QRect(QPoint(), size).adjusted(12, 6, -12, -6));
    };
    EXPECT_GE(contrast({}, u"Volume 80"_s), kReadable);
    EXPECT_GE(contrast(u"3 of 8"_s, {}), kReadable);
}

TEST_P(OverPicture, TheLessonsTextStandsOutAgainstItsOutline)
{
    for (const int size : {14, 24, 60}) {
        const QPixmap text = pictureOfText(
            u"She has been there"_s, {.fontSize = size, .width = 1000, .devicePixelRatio = kFine});
        const int half = std::max(2, size * kFine / 24); // of the outline
        EXPECT_GE(outlineContrast(text.toImage(), GetParam(), half), kReadable) << size;
    }
}

} // namespace
