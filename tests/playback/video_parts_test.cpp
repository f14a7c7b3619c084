// The parts around the video window: its place, its surface, the bookmark sign.
#include "platform/media/picture_source.h"
#include "platform/media/video_surface.h"
#include "playback/form4_bookmark_sign.h"
#include "playback/picture_reading.h"
#include "playback/video_layout.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

class PlainSource : public PictureSource
{
public:
    void setTargetSize(QSize pixels) override { target = pixels; }
    void setBlended(bool isBlended) override { blended = isBlended; }
    [[nodiscard]] QImage frame() const override { return image; }
    [[nodiscard]] bool hasPicture() const override { return !image.isNull(); }
    void give(QSize size, QColor colour)
    {
        image = QImage(size, QImage::Format_RGB32);
        image.fill(colour);
        Q_EMIT frameChanged();
    }

    QSize target;
    std::optional<bool> blended;
    QImage image;
};

QColor colourAt(QWidget& widget, int x, int y)
{
    return widget.grab().toImage().pixelColor(x, y);
}

} // namespace

TEST(VideoLayout, APictureShrinksToTheRoomWithItsShapeKept)
{
    struct Row
    {
        QSize picture, room, wanted;
    };
    const Row rows[] = {
        {{320, 240}, {800, 600}, {320, 240}},  {{1600, 1200}, {800, 600}, {800, 600}},
        {{1600, 400}, {800, 600}, {800, 200}}, {{100, 1200}, {800, 600}, {50, 600}},
        {{90000, 10}, {800, 600}, {800, 1}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(shrunkToFit(row.picture, row.room), row.wanted) << row.picture.width();
    }
}

TEST(VideoLayout, TheWindowGoesToTheFirstFreeSide)
{
    constexpr QRect kScreen(0, 0, 1000, 800);
    constexpr QSize kWindow(300, 200);
    EXPECT_EQ(placeBeside({0, 0, 400, 300}, kWindow, kScreen), QPoint(408, 0));
    EXPECT_EQ(placeBeside({600, 0, 400, 300}, kWindow, kScreen), QPoint(292, 0));
    EXPECT_EQ(placeBeside({200, 0, 600, 300}, kWindow, kScreen), QPoint(200, 308));
    EXPECT_EQ(placeBeside({200, 500, 600, 300}, kWindow, kScreen), QPoint(200, 292));
    EXPECT_EQ(placeBeside({0, 0, 1000, 800}, kWindow, kScreen), QPoint(700, 0));
}

TEST(VideoLayout, APictureShrinksToTheRoomBesideTheNeighbourButNotTooFar)
{
    struct Row
    {
        const char* says;
        QRect neighbour;
        QSize picture, wanted;
    };
    constexpr QRect kScreen(0, 0, 1366, 768);
    constexpr QSize kAround(2, 20);
    const Row rows[] = {
        {"it fits at the right", {99, 164, 520, 440}, {640, 480}, {640, 480}},
        {"it fits at the left", {840, 100, 520, 440}, {800, 600}, {800, 600}},
        {"it fits exactly", {99, 164, 520, 440}, {737, 480}, {737, 480}},
        {"smaller at the right", {99, 164, 520, 440}, {1280, 720}, {729, 410}},
        {"smaller at the left", {846, 100, 520, 440}, {1280, 640}, {828, 414}},
        {"too low for 320", {0, 500, 520, 200}, {640, 640}, {640, 640}},
        {"as high as there is room", {0, 400, 520, 200}, {640, 640}, {340, 340}},
        {"320 is the least", {0, 0, 1028, 440}, {640, 480}, {320, 240}},
        {"no room for 320", {0, 0, 1029, 440}, {640, 480}, {640, 480}},
        {"a small one is not made larger", {0, 0, 1300, 440}, {160, 120}, {160, 120}},
        {"the neighbour fills the screen", {0, 0, 1366, 768}, {640, 480}, {640, 480}},
        {"the neighbour hangs out below", {0, 760, 520, 440}, {640, 480}, {640, 480}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(shrunkToFitBeside(row.neighbour, row.picture, kAround, kScreen), row.wanted)
            << row.says;
    }
}

TEST(VideoLayout, AWindowIsBroughtInsideTheScreen)
{
    constexpr QRect kScreen(100, 50, 1000, 800);
    EXPECT_EQ(insideScreen({0, 0}, {300, 200}, kScreen), QPoint(100, 50));
    EXPECT_EQ(insideScreen({2000, 2000}, {300, 200}, kScreen), QPoint(800, 650));
    EXPECT_EQ(insideScreen({500, 500}, {3000, 200}, kScreen), QPoint(100, 500));
}

TEST(VideoLayout, FifteenTwipsAreAPixel)
{
    EXPECT_EQ(pixelsOfTwips({3100, 450}), QSize(207, 30));
}

TEST(VideoSurface, ASurfaceAsksForFramesInItsSizeWhileItShows)
{
    PlainSource source;
    VideoSurface surface(&source);
    surface.resize(120, 90);
    EXPECT_EQ(source.target, QSize());
    surface.show();
    EXPECT_EQ(source.target, QSize(120, 90));
    surface.resize(60, 50);
    EXPECT_EQ(source.target, QSize(60, 50));
    surface.hide();
    EXPECT_TRUE(source.target.isEmpty());
}

TEST(VideoSurface, PixelsNeedBeOpaqueOnlyWhereTheirWindowHasAnOpacity)
{
    QWidget plain;
    QWidget translucent;
    translucent.setAttribute(Qt::WA_TranslucentBackground);
    const QWidget inPlain(&plain);
    const QWidget inTranslucent(&translucent);
    EXPECT_FALSE(blends(inPlain, u"xcb"_s));
    EXPECT_TRUE(blends(inTranslucent, u"xcb"_s));
    EXPECT_TRUE(blends(inPlain, u"wayland"_s));
    plain.winId();
    EXPECT_FALSE(blends(inPlain, u"xcb"_s));
    plain.windowHandle()->setSurfaceType(QSurface::OpenGLSurface);
    EXPECT_TRUE(blends(inPlain, u"xcb"_s));
}

TEST(VideoSurface, TheSourceIsToldOfItBeforeTheSize)
{
    PlainSource source;
    VideoSurface surface(&source);
    surface.show();
    EXPECT_EQ(source.blended, blends(surface, QGuiApplication::platformName()));
}

TEST(VideoSurface, AFrameWhoseOpacityIsAnythingShowsItsColoursAlone)
{
    PlainSource source;
    VideoSurface surface(&source);
    surface.resize(40, 30);
    surface.show();
    for (const QSize size : {QSize(40, 30), QSize(20, 15)}) {
        for (const quint32 opacity : {0U, 0x80000000U, 0xff000000U}) {
            source.give(size, Qt::black);
            std::fill_n(reinterpret_cast<quint32*>(source.image.bits()),
                        size.width() * size.height(), opacity | 0x2060a0U);
            EXPECT_EQ(colourAt(surface, 20, 15), QColor(0x20, 0x60, 0xa0)) << opacity;
        }
    }
}

TEST(VideoSurface, AFrameIsPaintedAsItIs)
{
    PlainSource source;
    VideoSurface surface(&source);
    surface.resize(40, 30);
    surface.show();
    EXPECT_EQ(colourAt(surface, 5, 5), QColor(Qt::black));
    source.give({40, 30}, Qt::green);
    EXPECT_EQ(colourAt(surface, 0, 0), QColor(Qt::green));
    EXPECT_EQ(colourAt(surface, 39, 29), QColor(Qt::green));
}

TEST(VideoSurface, AFrameOfAnotherSizeKeepsItsShapeWithBlackAround)
{
    PlainSource source;
    VideoSurface surface(&source);
    surface.resize(80, 40);
    surface.show();
    source.give({20, 20}, Qt::green);
    EXPECT_EQ(colourAt(surface, 40, 20), QColor(Qt::green));
    EXPECT_EQ(colourAt(surface, 5, 20), QColor(Qt::black));
    EXPECT_EQ(colourAt(surface, 75, 20), QColor(Qt::black));
}

TEST(VideoSurface, WithoutASourceItStaysBlack)
{
    VideoSurface surface(nullptr);
    surface.resize(20, 20);
    surface.show();
    EXPECT_EQ(colourAt(surface, 10, 10), QColor(Qt::black));
}

TEST(PictureReading, ShowsNothingForWhatIsNoPicture)
{
    PictureReading reading;
    for (const QString& file : {QString(), u"/missing.png"_s, u"/"_s}) {
        bool isShown = false;
        reading.read(file, {}, [&](const QImage& picture) {
            isShown = true;
            EXPECT_TRUE(picture.isNull());
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return isShown; }));
    }
}

TEST(PictureReading, ShowsAPictureOnceAndNotTheOneThatItGaveUp)
{
    const QTemporaryDir folder;
    QImage large(9000, 7000, QImage::Format_RGB32); // 63 megapixels: not there at once
    large.fill(Qt::red);
    const QString slow = folder.filePath(u"slow.png"_s);
    const QString quick = folder.filePath(u"quick.png"_s);
    ASSERT_TRUE(large.save(slow) && large.copy(0, 0, 20, 10).save(quick));
    PictureReading reading;
    QList<QSize> shown;
    const auto show = [&](const QImage& picture) { shown.append(picture.size()); };
    reading.read(slow, {}, show);
    shown.clear(); // a quick machine may have had it at once
    reading.read(quick, {}, show);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !shown.isEmpty(); }));
    reading.read(slow, {}, show);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown.size() > 1; }, 30000));
    EXPECT_EQ(shown, (QList<QSize>{{20, 10}, {9000, 7000}}));
}

TEST(BookmarkSign, StandsAtTheTopLeftAndUnloadsItself)
{
    const QPointer<Form4> sign = new Form4;
    sign->show();
    EXPECT_EQ(sign->objectName(), u"Form4"_s);
    EXPECT_EQ(sign->size(), QSize(32, 32));
    EXPECT_EQ(sign->pos(), QGuiApplication::primaryScreen()->geometry().topLeft());
    EXPECT_EQ(sign->Timer1.interval(), 1000);
    EXPECT_TRUE(sign->Timer1.isActive());
    EXPECT_TRUE(QTest::qWaitFor([&] { return sign.isNull(); }));
}

TEST(BookmarkSign, IsFramelessOnTopAndTakesNoFocus)
{
    const auto sign = std::make_unique<Form4>();
    EXPECT_TRUE(sign->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(sign->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(sign->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(sign->testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST(BookmarkSign, ShowsAReadableRibbon)
{
    Form4 sign;
    const QImage picture = sign.grab().toImage();
    EXPECT_NE(picture.pixelColor(16, 10), picture.pixelColor(4, 10));
    EXPECT_EQ(picture.pixelColor(4, 10), picture.pixelColor(16, 30));
}

namespace {

const QScreen& lastScreen()
{
    return *QGuiApplication::screens().constLast();
}

} // namespace

TEST(BookmarkSign, IsShownByOneCallAtTheTopLeftOfTheScreen)
{
    showBookmarkSign(lastScreen());
    const auto shown = [] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (qobject_cast<Form4*>(widget) != nullptr && widget->isVisible()) {
                return widget->pos() == lastScreen().geometry().topLeft();
            }
        }
        return false;
    };
    EXPECT_TRUE(shown());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !shown(); }));
}
