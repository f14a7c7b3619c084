// The video window with real clips, once drawn by the processor and once by OpenGL, on a display.
#include "platform/media/picture_source.h"
#include "playback/form13_video_window.h"
#include "playback/overlay_bar.h"
#include "tests/support/recorded_player.h"

#include <QMouseEvent>
#include <QOpenGLWidget>
#include <QScreen>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

/// A window in which a clip stands at its second 1.
class ShownClip
{
public:
    explicit ShownClip(const std::optional<RendererChoice>& choice, const QString& clip)
        : m_player({{"ao", "null"}}, choice)
    {
        window.showWindow(true);
        window.prepareForMedia();
        EXPECT_TRUE(m_player.open(clip));
        window.resize(kSize);
        control().Pause();
        control().setCurrentPosition(1);
        EXPECT_TRUE(comesTrue([&] { return window.isVisible() && isStill(); }));
    }

    [[nodiscard]] MediaControl& control() { return m_player.control; }
    [[nodiscard]] QOpenGLWidget* view() const
    {
        return window.ActiveMovie1->findChild<QOpenGLWidget*>();
    }
    /// What the screen shows of it.
    [[nodiscard]] QImage onScreen() const
    {
        return window.screen()
            ->grabWindow(window.winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    /// Once the screen shows the clip's own frame, and twice the same.
    [[nodiscard]] bool isStill()
    {
        const QImage now = onScreen();
        const QImage frame = control().picture()->frame();
        const bool isFrame = !frame.isNull() && frame.size() == now.size() &&
                             middleOf(frame) == middleOf(now) && qGreen(middleOf(now)) > kSecondOne;
        return isFrame && std::exchange(m_last, now) == now;
    }
    /// With the text and the bar over the picture.
    void coverPicture()
    {
        level = TextLevel::Text;
        window.setLine({.text = u"One sentence over the picture"_s, .number = 1, .count = 2});
        window.nextTextLevel();
        QMouseEvent move(QEvent::MouseMove, QPointF(200, 100), QPointF(900, 700), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &move);
        EXPECT_TRUE(comesTrue([&] { return isStill() && window.Bar->isVisible(); }));
    }

private:
    static QRgb middleOf(const QImage& image) { return image.pixel(image.rect().center()); }

    static constexpr int kSecondOne = 85; // the clip begins darker
    static constexpr QSize kSize{500, 300};
    RecordedPlayer m_player;
    QImage m_last;

public:
    TextLevel level = TextLevel::Off;
    Form13 window{Form13Services{
        .control = m_player.control,
        .boundary = HandlerBoundary(),
        .keepAwake = [](bool) {},
        .carryOut = [](Command) { return true; },
        .seek = [this](double seconds) { control().setCurrentPosition(seconds); },
        .mainWindow = []() -> QWidget* { return nullptr; },
        .textLevel = [this] { return level; },
        .setTextLevel = [this](TextLevel to) { level = to; },
    }};
};

class OpenGlWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!isOpenGlRun()) {
            GTEST_SKIP() << "by OpenGL only: ORVANTA_TEST_RENDERER=opengl, on a display";
        }
    }
};

/// How many pixels differ by more than 3 of 255.
int differences(const QImage& one, const QImage& other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            count += std::abs(qRed(a) - qRed(b)) > 3 || std::abs(qGreen(a) - qGreen(b)) > 3 ||
                     std::abs(qBlue(a) - qBlue(b)) > 3;
        }
    }
    return count;
}

/// Whether letters stand on the picture, in full strength.
bool hasText(const QImage& image)
{
    int bright = 0;
    for (int y = 40; y < 190; ++y) {
        for (int x = 0; x < image.width(); ++x) {
            bright += qRed(image.pixel(x, y)) > 240 ? 1 : 0;
        }
    }
    return bright > 50;
}

const QString kClip = u"shades.mp4"_s;

} // namespace

TEST_F(OpenGlWindow, ShowsThePictureAsTheProcessorDoes)
{
    ShownClip software(std::nullopt, kClip);
    const QImage bySoftware = software.onScreen();
    software.window.hide();
    ShownClip openGl(openGlChoice(), kClip);
    ASSERT_NE(openGl.view(), nullptr);
    ASSERT_EQ(openGl.onScreen().size(), bySoftware.size());
    EXPECT_EQ(differences(openGl.onScreen(), bySoftware), 0);
    EXPECT_EQ(openGl.window.currentFrame().size(), software.window.currentFrame().size());
    EXPECT_EQ(differences(openGl.window.currentFrame(), software.window.currentFrame()), 0);
}

TEST_F(OpenGlWindow, WhatLiesOverThePictureLooksTheSame)
{
    ShownClip software(std::nullopt, kClip);
    ShownClip openGl(openGlChoice(), kClip);
    software.window.move(0, 0);
    openGl.window.move(380, 340); // the parts that are looked at lie side by side
    const QImage bare = openGl.onScreen();
    software.coverPicture();
    openGl.coverPicture();
    QImage bySoftware;
    QImage byOpenGl;
    EXPECT_TRUE(comesTrue([&] { // they fade in
        bySoftware = software.onScreen();
        byOpenGl = openGl.onScreen();
        return differences(byOpenGl, bare) > 1000 && hasText(byOpenGl) &&
               differences(byOpenGl, bySoftware) == 0;
    }));
    const QString folder = qEnvironmentVariable("ORVANTA_TEST_PICTURES");
    if (!folder.isEmpty()) {
        bySoftware.save(folder + u"/software.png"_s);
        byOpenGl.save(folder + u"/opengl.png"_s);
    }
}

TEST_F(OpenGlWindow, FillsTheScreenAndComesBack)
{
    ShownClip clip(openGlChoice(), kClip);
    const auto fills = [&] { return clip.window.size() == clip.window.screen()->size(); };
    clip.window.setFullScreen(true);
    EXPECT_TRUE(comesTrue([&] { return fills() && clip.isStill(); }));
    clip.window.setFullScreen(false);
    EXPECT_TRUE(comesTrue([&] { return !fills() && clip.isStill(); }));
}

TEST_F(OpenGlWindow, ALostDriverLeavesThePictureWhereItIs)
{
    std::atomic<bool> answers = true;
    RendererChoice choice = openGlChoice();
    choice.answers = [&] { return answers.load(); };
    ShownClip clip(choice, kClip);
    ASSERT_NE(clip.view(), nullptr);
    answers = false;
    clip.window.resize(clip.window.size() + QSize(2, 2)); // something is to be drawn
    EXPECT_TRUE(comesTrue([&] { return clip.view() == nullptr && clip.isStill(); }));
    EXPECT_EQ(clip.control().CurrentPosition(), 1.0);
}
