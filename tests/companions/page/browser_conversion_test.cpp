// Which clips browsers cannot play, and what is made of them.
#include "companions/page/browser_conversion.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static QString media(const QString& name)
{
    return QStringLiteral(ORVANTA_BUILD_DIR "/test-media/") + name;
}

static BrowserClip clipOf(const QString& path)
{
    return browserClip(path, [] { return false; });
}

static bool isPlayable(const QString& name)
{
    const BrowserClip clip = clipOf(media(name));
    EXPECT_TRUE(clip.isOpened) << qPrintable(name + u": "_s + clip.error);
    return clip.isPlayable();
}

TEST(BrowserClip, WhatBrowsersPlayIsLeftAlone)
{
    for (const QString& name : {u"two.mp4"_s, u"silent.mp4"_s, u"short.webm"_s, u"short.mp3"_s,
                                u"short.ogg"_s, u"one.ogg"_s, u"short.wav"_s, u"short.flac"_s,
                                u"covered.mp3"_s, u"bursts.opus"_s, u"raw.aac"_s}) {
        EXPECT_TRUE(isPlayable(name)) << qPrintable(name);
    }
}

TEST(BrowserClip, WhatTheyDoNotPlayIsSeen)
{
    for (const QString& name : {u"short.avi"_s, u"short.mkv"_s, u"stream.ts"_s, u"shades.mpg"_s,
                                u"raw.hevc"_s, u"raw.ac3"_s, u"raw.dts"_s, u"raw.m2v"_s,
                                u"plain.mov"_s, u"surround.mp4"_s, u"bursts_f64le.wav"_s}) {
        EXPECT_FALSE(isPlayable(name)) << qPrintable(name);
    }
}

TEST(BrowserClip, WhatIsNoMediaIsNotOpened)
{
    for (const QString& name : {u"text.mp4"_s, u"empty.mp4"_s, u"noise.mp4"_s, u"nowhere.mp4"_s}) {
        EXPECT_FALSE(clipOf(media(name)).isOpened) << qPrintable(name);
    }
}

TEST(BrowserClip, TenBitsAreMoreThanEveryBrowserPlays)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"ten.mp4"_s);
    ASSERT_EQ(QProcess::execute(u"ffmpeg"_s,
                                {u"-nostdin"_s, u"-loglevel"_s, u"error"_s, u"-f"_s, u"lavfi"_s,
                                 u"-i"_s, u"testsrc2=size=64x64"_s, u"-t"_s, u"0.4"_s, u"-c:v"_s,
                                 u"libx264"_s, u"-pix_fmt"_s, u"yuv420p10le"_s, file}),
              0);
    EXPECT_TRUE(clipOf(file).isOpened);
    EXPECT_FALSE(clipOf(file).isPlayable());
}

class BrowserConversions : public testing::Test
{
protected:
    QString convert(const QString& source, const BrowserEncoders& with,
                    const ConversionWatch& watch = {})
    {
        const BrowserClip clip = clipOf(source);
        recipe = browserRecipe(clip, with);
        target = folder.filePath(u"made."_s + recipe.suffix);
        QFile::remove(target);
        return convertForBrowsers(source, clip, recipe, target, watch);
    }

    QTemporaryDir folder;
    BrowserRecipe recipe;
    QString target;
    const BrowserEncoders encoders = browserEncoders();
    const BrowserEncoders freeOnly = {.isThere = true, .h264 = false, .vp8 = true, .opus = true};
};

TEST_F(BrowserConversions, MakeAClipThatBrowsersPlayOfEveryOther)
{
    ASSERT_TRUE(encoders.canConvert());
    const QStringList names = QDir(media({})).entryList(QDir::Files);
    int converted = 0;
    for (const QString& name : names) {
        const BrowserClip clip = clipOf(media(name));
        if (!clip.isOpened || clip.isPlayable() || (!clip.hasPicture() && clip.sound < 0)) {
            continue;
        }
        for (const BrowserEncoders& with : {encoders, freeOnly}) {
            const QString failure = convert(media(name), with);
            EXPECT_EQ(failure, QString()) << qPrintable(name + u": "_s + failure);
            const BrowserClip made = clipOf(target);
            EXPECT_TRUE(made.isPlayable()) << qPrintable(name + u" with "_s + recipe.suffix);
            EXPECT_EQ(made.hasPicture(), clip.hasPicture()) << qPrintable(name);
            ++converted;
        }
    }
    EXPECT_GE(converted, 30);
}

TEST_F(BrowserConversions, LeaveWhatCanStayAsItIs)
{
    EXPECT_TRUE(
        browserRecipe(clipOf(media(u"short.mkv"_s)), encoders).arguments.contains(u"copy"_s));
    ASSERT_EQ(convert(media(u"short.mkv"_s), encoders), QString());
    EXPECT_EQ(recipe.suffix, u"mp4"_s);
    EXPECT_FALSE(recipe.arguments.contains(u"libx264"_s));
    EXPECT_FALSE(recipe.arguments.contains(u"aac"_s));
}

TEST_F(BrowserConversions, SayHowFarTheyAre)
{
    double reached = -1;
    bool isRising = true;
    ConversionWatch watch;
    watch.reached = [&](double part) {
        isRising = isRising && part >= reached;
        reached = part;
    };
    ASSERT_EQ(convert(media(u"whole.avi"_s), encoders, watch), QString());
    EXPECT_TRUE(isRising);
    EXPECT_GT(reached, 0.9);
    EXPECT_LE(reached, 1);
}

TEST_F(BrowserConversions, StopWhenTheyAreToldAndLeaveNothingBehind)
{
    ConversionWatch watch;
    watch.isStopped = [] { return true; };
    EXPECT_EQ(convert(media(u"whole.avi"_s), encoders, watch), u"stopped"_s);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

TEST_F(BrowserConversions, ReplaceNoFile)
{
    const BrowserClip clip = clipOf(media(u"short.avi"_s));
    recipe = browserRecipe(clip, encoders);
    target = folder.filePath(u"there.mp4"_s);
    QFile there(target);
    ASSERT_TRUE(there.open(QIODevice::WriteOnly));
    there.write("mine");
    there.close();
    EXPECT_NE(convertForBrowsers(media(u"short.avi"_s), clip, recipe, target, {}), QString());
    EXPECT_EQ(QFileInfo(target).size(), 4);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"there.mp4"_s});
}

TEST_F(BrowserConversions, TakeNamesLiterally)
{
    const QString odd = folder.filePath(u"-i %d;|concat:.avi"_s);
    ASSERT_TRUE(QFile::copy(media(u"short.avi"_s), odd));
    EXPECT_EQ(convert(odd, encoders), QString());
}

TEST_F(BrowserConversions, SayWhyTheyFail)
{
    const BrowserClip clip = clipOf(media(u"short.avi"_s));
    recipe = browserRecipe(clip, encoders);
    EXPECT_NE(
        convertForBrowsers(media(u"text.mp4"_s), clip, recipe, folder.filePath(u"x.mp4"_s), {}),
        QString());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

} // namespace orvanta::test
