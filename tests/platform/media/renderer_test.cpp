// What draws the pictures: which renderer is chosen, when it is left, and that both show the same.
#include "platform/media/mpv_options.h"
#include "platform/media/picture_source.h"
#include "tests/support/recorded_player.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

/// A player told to draw by OpenGL, and what it says about it. Without a display there is none.
class OpenGlPictures : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!isOpenGlRun()) {
            GTEST_SKIP() << "by OpenGL only: ORVANTA_TEST_RENDERER=opengl, on a display";
        }
    }

    void make(const std::function<void(RendererChoice&)>& change = [](RendererChoice&) {})
    {
        RendererChoice choice = openGlChoice();
        choice.remember = [this](const QString& driver) { remembered += driver; };
        choice.draws = [this] { return draws.load(); };
        choice.answers = [this] { return answers.load(); };
        change(choice);
        player = std::make_unique<RecordedPlayer>(MpvOptionList{{"ao", "null"}}, choice);
        source().setTargetSize(QSize(64, 64));
    }

    [[nodiscard]] PictureSource& source() const { return *player->control.picture(); }
    [[nodiscard]] bool showsFrame() const
    {
        return comesTrue([this] { return !source().frame().isNull(); });
    }
    [[nodiscard]] bool showsByProcessor() const
    {
        return comesTrue([this] { return !source().isOpenGl() && !source().frame().isNull(); });
    }
    [[nodiscard]] int shade() const { return qGreen(source().frame().pixel(32, 32)); }

    QStringList remembered;
    std::atomic<bool> draws = true;
    std::atomic<bool> answers = true;
    std::unique_ptr<RecordedPlayer> player;
};

constexpr int kSecondOne = 85; // "shades.mp4" begins darker

/// Whether each pixel's fourth byte says so.
bool isOpaque(const QImage& frame)
{
    for (int y = 0; y < frame.height(); ++y) {
        const auto* line = reinterpret_cast<const quint32*>(frame.constScanLine(y));
        if (std::any_of(line, line + frame.width(), [](quint32 p) { return p < 0xff000000U; })) {
            return false;
        }
    }
    return !frame.isNull();
}

/// At second 1, at its own size in the middle of this one.
QImage pausedFrame(const QString& clip, QSize size, const std::optional<RendererChoice>& choice)
{
    RecordedPlayer player({{"ao", "null"}}, choice);
    PictureSource& source = *player.control.picture();
    source.setTargetSize(size);
    EXPECT_TRUE(player.open(clip));
    EXPECT_EQ(source.isOpenGl(), choice.has_value());
    player.control.setCurrentPosition(1);
    QImage frame;
    EXPECT_TRUE(comesTrue([&] {
        frame = source.frame();
        const QRgb middle = frame.isNull() ? 0 : frame.pixel(frame.rect().center());
        return frame.size() == size && std::max(qRed(middle), qGreen(middle)) > kSecondOne;
    }));
    return frame;
}

/// As they rest after opening: made for a window that is blended, and for one that is not.
std::pair<QImage, QImage> framesOfBothKinds(const QString& clip, QSize size)
{
    RecordedPlayer player({{"ao", "null"}}, std::nullopt);
    PictureSource& source = *player.control.picture();
    source.setTargetSize(size);
    EXPECT_TRUE(player.open(clip));
    EXPECT_TRUE(comesTrue([&] { return isOpaque(source.frame()); }));
    const QImage blended = source.frame();
    source.setBlended(false);
    EXPECT_TRUE(comesTrue([&] { return !isOpaque(source.frame()); }));
    const QImage plain = source.frame();
    source.setBlended(true);
    EXPECT_TRUE(comesTrue([&] { return isOpaque(source.frame()); }));
    EXPECT_EQ(source.frame(), blended);
    return {blended, plain};
}

int difference(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

} // namespace

TEST(Renderers, ADriverThatDrawsByTheProcessorIsKnownByItsName)
{
    for (const char* name : {"llvmpipe (LLVM 15.0.6, 256 bits)", "softpipe", "Software Rasterizer",
                             "Mesa DRI swrast", "zink (llvmpipe (LLVM 15.0.6, 256 bits))"}) {
        EXPECT_TRUE(drawsByProcessor(name)) << name;
    }
    for (const char* name : {"Mesa Intel(R) UHD Graphics 620 (KBL GT2)", "AMD Radeon RX 580",
                             "NVIDIA GeForce GTX 1050/PCIe/SSE2", "virgl"}) {
        EXPECT_FALSE(drawsByProcessor(name)) << name;
    }
}

TEST(Renderers, TheSettingsTextSaysWhichIsWished)
{
    EXPECT_EQ(rendererWish(u"opengl"), RendererWish::OpenGl);
    EXPECT_EQ(rendererWish(u"software"), RendererWish::Software);
    EXPECT_EQ(rendererWish(u"auto"), RendererWish::Automatic);
    EXPECT_EQ(rendererWish(u""), RendererWish::Automatic);
    EXPECT_EQ(rendererWish(u"vulkan"), RendererWish::Automatic);
}

TEST(Renderers, WithoutADeviceNoDriverIsLoaded)
{
    const QTemporaryDir noDevices;
    const OpenGlOffer offer =
        offeredOpenGl({.wish = RendererWish::Automatic, .devices = noDevices.path()});
    EXPECT_EQ(offer.driver, nullptr);
    EXPECT_EQ(offer.why, u"there is no graphics processor");
}

TEST(Renderers, SoftwareIsNeverAskedAboutADriver)
{
    EXPECT_EQ(offeredOpenGl({.wish = RendererWish::Software}).why, u"as the settings say");
}

TEST(Renderers, DecodedPicturesComeToOpenGlByTheLibrariesOfTheDeviceAlone)
{
    const QTemporaryDir devices;
    EXPECT_EQ(decodedPicturesWay(devices.path()), "no");
    ASSERT_TRUE(QDir(devices.path()).mkpath(u"dri"_s));
    QFile node(devices.filePath(u"dri/renderD128"_s));
    ASSERT_TRUE(node.open(QIODevice::WriteOnly));
    EXPECT_EQ(decodedPicturesWay(devices.path()), "vaapi");
    QFile other(devices.filePath(u"nvidiactl"_s));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    EXPECT_EQ(decodedPicturesWay(devices.path()), "auto");
}

TEST(SoftwarePictures, AreOpaqueWhereWindowsAreBlendedAndHaveTheSameColoursWhereNot)
{
    for (const char* clip :
         {"shades.mp4", "ten.mkv", "gray.mkv", "holes.mkv", "holes.gif", "holes_still.mkv"}) {
        for (const QSize size : {QSize(64, 64), QSize(100, 64), QSize(64, 120), QSize(128, 128)}) {
            const auto [blended, plain] = framesOfBothKinds(QString::fromLatin1(clip), size);
            ASSERT_EQ(blended.size(), size) << clip;
            EXPECT_TRUE(isOpaque(blended)) << clip << ' ' << size.width();
            EXPECT_EQ(plain, blended) << clip << ' ' << size.width();
            EXPECT_FALSE(isOpaque(plain)) << clip << ": nothing is saved";
        }
    }
}

TEST_F(OpenGlPictures, AreNotUsedByThemselvesWhereTheProcessorDrawsThem)
{
    const QTemporaryDir devices;
    QFile device(devices.filePath(u"nvidiactl"_s));
    ASSERT_TRUE(device.open(QIODevice::WriteOnly));
    make([&](RendererChoice& choice) {
        choice.wish = RendererWish::Automatic;
        choice.devices = devices.path();
    });
    ASSERT_TRUE(player->open(u"shades.mp4"_s));
    EXPECT_TRUE(showsByProcessor());
    EXPECT_TRUE(player->control.pictureFacts().openGlDriver.isEmpty());
    EXPECT_EQ(remembered, QStringList());
}

TEST_F(OpenGlPictures, AreNamedWithTheirDriver)
{
    make();
    ASSERT_TRUE(player->open(u"shades.mp4"_s));
    EXPECT_TRUE(source().isOpenGl());
    EXPECT_TRUE(showsFrame());
    EXPECT_TRUE(player->control.pictureFacts().openGlDriver.contains(u"llvmpipe"_s));
    EXPECT_TRUE(player->control.pictureFacts().decoder.isEmpty());
}

TEST_F(OpenGlPictures, AreTheSameAsTheProcessors)
{
    for (const auto& [clip, size] :
         {std::pair(u"shades.mp4"_s, QSize(64, 64)), std::pair(u"shades.mp4"_s, QSize(100, 64)),
          std::pair(u"red.mp4"_s, QSize(64, 120))}) {
        const QImage software = pausedFrame(clip, size, std::nullopt);
        const QImage openGl = pausedFrame(clip, size, openGlChoice());
        ASSERT_EQ(software.size(), openGl.size());
        int largest = 0;
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                largest = std::max(largest, difference(software.pixel(x, y), openGl.pixel(x, y)));
            }
        }
        EXPECT_LE(largest, 3) << qPrintable(clip) << ", " << size.width() << " wide";
    }
}

TEST_F(OpenGlPictures, AreLeftWhenTheFirstFrameDoesNotCome)
{
    draws = false;
    make([](RendererChoice& choice) { choice.firstFrame = std::chrono::milliseconds(50); });
    ASSERT_TRUE(player->open(u"shades.mp4"_s));
    player->control.Run();
    EXPECT_TRUE(showsByProcessor());
    EXPECT_EQ(remembered.size(), 1);
    EXPECT_TRUE(remembered.first().contains(u"llvmpipe"_s));
    EXPECT_EQ(player->control.CurrentState(), MediaControl::Running);
    EXPECT_TRUE(player->endsOnceMore());
    EXPECT_EQ(player->opened.size(), 1);
    EXPECT_EQ(player->failures, 0);
}

TEST_F(OpenGlPictures, AreLeftWhenTheContextIsLostAndPlayingGoesOn)
{
    make();
    ASSERT_TRUE(player->open(u"two.mp4"_s));
    player->control.Run();
    ASSERT_TRUE(showsFrame());
    ASSERT_TRUE(player->reaches(0.3));
    answers = false;
    EXPECT_TRUE(showsByProcessor());
    EXPECT_EQ(remembered.size(), 1);
    EXPECT_GE(player->control.CurrentPosition(), 0.3);
    EXPECT_TRUE(player->endsOnceMore());
    EXPECT_EQ(player->failures, 0);
    EXPECT_TRUE(player->control.pictureFacts().openGlDriver.isEmpty());
}

TEST_F(OpenGlPictures, LostWhileAClipRestsComeBackAtTheSamePlace)
{
    make();
    ASSERT_TRUE(player->open(u"shades.mp4"_s));
    player->control.setCurrentPosition(1);
    ASSERT_TRUE(comesTrue([&] { return showsFrame() && shade() > kSecondOne; })) << shade();
    answers = false;
    source().setTargetSize(QSize(66, 66)); // something is to be drawn
    EXPECT_TRUE(showsByProcessor());
    EXPECT_TRUE(comesTrue([&] { return source().frame().width() == 66 && shade() > kSecondOne; }));
    EXPECT_EQ(player->control.CurrentPosition(), 1.0);
}

TEST_F(OpenGlPictures, LostBetweenTwoClipsTheNextOneOpensAllTheSame)
{
    make();
    ASSERT_TRUE(player->open(u"two.mp4"_s));
    ASSERT_TRUE(showsFrame());
    answers = false;
    source().setTargetSize(QSize(66, 66));
    player->control.setFileName(testClip(u"shades.mp4"_s));
    EXPECT_TRUE(comesTrue([&] { return player->opened.size() == 2; }));
    EXPECT_EQ(player->failures, 0);
    player->control.Run();
    EXPECT_TRUE(comesTrue([&] { return player->ends == 1; }));
}

TEST_F(OpenGlPictures, AreNeverBegunWithADriverThatDoesNotAnswer)
{
    answers = false;
    make();
    ASSERT_TRUE(player->open(u"shades.mp4"_s));
    EXPECT_FALSE(source().isOpenGl());
    EXPECT_TRUE(showsByProcessor());
    EXPECT_EQ(remembered.size(), 1);
}

TEST_F(OpenGlPictures, AreLeftByAClipWithSoundThatPlaysOn)
{
    make();
    ASSERT_TRUE(player->open(u"two.mp4"_s));
    ASSERT_TRUE(std::ranges::any_of(player->control.tracks(), [](const MediaTrack& track) {
        return track.kind == MediaTrack::Sound && track.chosen;
    }));
    player->control.Run();
    ASSERT_TRUE(showsFrame());
    const std::size_t jumpsBefore = player->jumps.size();
    const std::size_t statesBefore = player->states.size();
    answers = false;
    EXPECT_TRUE(comesTrue([this] { return !source().isOpenGl(); }));
    const QImage before = source().frame();
    EXPECT_TRUE(comesTrue([&] { return source().frame() != before; })); // pictures come again
    EXPECT_EQ(player->jumps.size(), jumpsBefore);
    EXPECT_EQ(player->states.size(), statesBefore);
}
