// What is said to play in browsers, and what is converted for them, does play in them.
#include "companions/page/browser_conversion.h"
#include "tests/companions/page/page_fixture.h"

#include <QDir>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class PageClips : public PageTest, public testing::TestWithParam<BrowserKind>
{
protected:
    PageClips()
        : PageTest(GetParam())
    {}

    /// The short clips of the media tests that are whole, by their names.
    [[nodiscard]] static QStringList names()
    {
        QStringList names;
        const QStringList all = QDir(media({})).entryList(QDir::Files);
        for (const QString& name : all) {
            const BrowserClip clip = clipOf(name);
            const bool hasAny = clip.isOpened && (clip.hasPicture() || clip.sound >= 0);
            if (hasAny && clip.seconds < 2.2 && !name.startsWith(u"broken") &&
                !name.startsWith(u"headonly")) {
                names.append(name);
            }
        }
        return names;
    }
    [[nodiscard]] static QString media(const QString& name)
    {
        return QStringLiteral(ORVANTA_BUILD_DIR "/test-media/") + name;
    }
    [[nodiscard]] static BrowserClip clipOf(const QString& name)
    {
        return browserClip(media(name), [] { return false; });
    }

    /// A line for each of them that plays at once, or for each that has to be converted.
    [[nodiscard]] PageLesson lessonOf(bool isConverted, const BrowserEncoders& with)
    {
        PagePacket packet = clipPacket(u"Clips"_s, {});
        for (const QString& name : names()) {
            const BrowserClip clip = clipOf(name);
            if (clip.isPlayable() != isConverted) {
                PageMedia here = isConverted ? converted(name, clip, with) : folder.clip(name);
                here.hasPicture = clip.hasPicture();
                packet.lines.push_back(clipLine(name, here));
            }
        }
        PageLesson lesson = {.title = u"Clips"_s, .packets = {packet}, .options = {}};
        lesson.options.practice.speed = 200;
        return lesson;
    }

    PageMedia converted(const QString& name, const BrowserClip& clip, const BrowserEncoders& with)
    {
        const BrowserRecipe recipe = browserRecipe(clip, with);
        const QString file = u"media/%1.%2"_s.arg(name, recipe.suffix);
        EXPECT_EQ(convertForBrowsers(media(name), clip, recipe, folder.path() + u'/' + file, {}),
                  QString());
        return {.sources = {{.file = file, .type = recipe.type}}};
    }

    void expectToPlay(const PageLesson& lesson)
    {
        EXPECT_GE(lesson.packets[0].lines.size(), 15U);
        open(lesson);
        browser->press(u" "_s);
        ASSERT_TRUE(
            e2e::waitFor([&] { return textOf(u"#notice"_s) == u"The lesson is over"; }, 120000));
        EXPECT_EQ(played().size(), qsizetype(lesson.packets[0].lines.size()));
        EXPECT_EQ(unplayable().join(u", ").toStdString(), "");
        expectNoComplaints();
    }

    const BrowserEncoders encoders = browserEncoders();
};

TEST_P(PageClips, ThatNeedNoConversionPlay)
{
    expectToPlay(lessonOf(false, encoders));
}

TEST_P(PageClips, ThatWereConvertedPlay)
{
    expectToPlay(lessonOf(true, encoders));
}

TEST_P(PageClips, ThatWereConvertedWithFreeCodecsAlonePlay)
{
    expectToPlay(lessonOf(true, {.isThere = true, .h264 = false, .vp8 = true, .opus = true}));
}

static std::string nameOfBrowser(const testing::TestParamInfo<BrowserKind>& kind)
{
    return nameOf(kind.param);
}

INSTANTIATE_TEST_SUITE_P(Browsers, PageClips,
                         testing::Values(BrowserKind::Chromium, BrowserKind::Firefox),
                         nameOfBrowser);

} // namespace orvanta::test
