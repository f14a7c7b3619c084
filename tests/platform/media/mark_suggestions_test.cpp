// Chapters and subtitles of real clips, and of files beside them.
#include "core/ini_encoding.h"
#include "platform/media/mark_suggestions.h"
#include "tests/support/log_capture.h"
#include "tests/support/recorded_player.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;
using testing::AllOf;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr double kExact = 0.05; // seconds

auto mark(double seconds, const QString& text)
{
    return AllOf(Field(&SuggestedMark::seconds, DoubleNear(seconds, kExact)),
                 Field(&SuggestedMark::text, text));
}

auto line(double start, double end, const QString& text)
{
    return AllOf(Field(&SubtitleLine::start, DoubleNear(start, kExact)),
                 Field(&SubtitleLine::end, DoubleNear(end, kExact)),
                 Field(&SubtitleLine::text, text));
}

auto theThreeLines(double later = 0)
{
    return ElementsAre(line(0.25 + later, 0.9 + later, u"Good day,"_s),
                       line(1.04 + later, 1.6 + later, u"how are you?"_s),
                       line(1.77 + later, 2.3 + later, u"Хорошо"_s));
}

ClipTexts textsOf(const QString& path)
{
    MarkSuggestions suggestions;
    std::optional<ClipTexts> found;
    QObject::connect(&suggestions, &MarkSuggestions::done, &suggestions,
                     [&](const ClipTexts& texts) { found = texts; });
    suggestions.read(path);
    EXPECT_TRUE(suggestions.isReading());
    EXPECT_TRUE(comesTrue([&] { return found.has_value(); })) << qPrintable(path);
    EXPECT_FALSE(suggestions.isReading());
    return found.value_or(ClipTexts());
}

/// A clip with files beside it.
class BesideClip : public testing::Test
{
protected:
    BesideClip() { EXPECT_TRUE(QFile::copy(testClip(u"one.mp3"_s), clip)); }

    void put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    static QByteArray srt(const QByteArray& first, const QByteArray& second)
    {
        return "1\r\n00:00:02,500 --> 00:00:03,000\r\n" + first +
               "\r\n\r\n2\r\n00:00:04,120 --> 00:00:05,000\r\n" + second + "\r\n";
    }
    void expectTwoLines(const QString& first, const QString& second) const
    {
        const ClipTexts texts = textsOf(clip);
        ASSERT_THAT(texts.subtitles, SizeIs(1));
        EXPECT_THAT(texts.subtitles[0].lines,
                    ElementsAre(line(2.5, 3, first), line(4.12, 5, second)));
    }

    QTemporaryDir folder;
    QString clip = folder.filePath(u"my clip.one.mp3"_s);
};

} // namespace

class OwnTexts : public testing::TestWithParam<const char*>
{};

TEST_P(OwnTexts, AreChaptersAndLinesOfTheClip)
{
    const ClipTexts texts = textsOf(testClip(QString::fromLatin1(GetParam())));
    EXPECT_THAT(texts.chapters, ElementsAre(mark(0, u"Beginning"_s), mark(0.8, u"Середина"_s),
                                            mark(1.73, QString())));
    ASSERT_THAT(texts.subtitles, SizeIs(1));
    EXPECT_EQ(texts.subtitles[0].language, u"rus");
    EXPECT_THAT(texts.subtitles[0].lines, theThreeLines());
}

INSTANTIATE_TEST_SUITE_P(Containers, OwnTexts, testing::Values("texts.mkv", "texts.mp4"));

TEST(OwnText, MayBeOfAss)
{
    const ClipTexts texts = textsOf(testClip(u"texts_ass.mkv"_s));
    EXPECT_THAT(texts.chapters, IsEmpty());
    ASSERT_THAT(texts.subtitles, SizeIs(1));
    EXPECT_THAT(texts.subtitles[0].lines, theThreeLines());
}

TEST(OwnText, StandsByThePlayersClock)
{
    const ClipTexts texts = textsOf(testClip(u"texts_offset.mkv"_s));
    ASSERT_THAT(texts.subtitles, SizeIs(1));
    EXPECT_THAT(texts.subtitles[0].lines, theThreeLines(10));
}

TEST(OwnText, IsNotThereInClipsWithoutAny)
{
    const LogCapture log("orvanta.errors");
    const ClipTexts texts = textsOf(testClip(u"bursts.mp4"_s));
    EXPECT_THAT(texts.chapters, IsEmpty());
    EXPECT_THAT(texts.subtitles, IsEmpty());
    EXPECT_EQ(LogCapture::lines(), QStringList());
}

TEST(OwnText, OfWhatIsNoClipIsNoneAndLogged)
{
    for (const QString& path : {testClip(u"noise.mp4"_s), testClip(u"nowhere.mkv"_s),
                                u"/dev/zero"_s, u"relative.mkv"_s}) {
        const LogCapture log("orvanta.errors");
        const ClipTexts texts = textsOf(path);
        EXPECT_THAT(texts.subtitles, IsEmpty());
        EXPECT_EQ(LogCapture::lines().size(), 1) << qPrintable(path);
    }
}

TEST_F(BesideClip, SubRipMayHaveAMark)
{
    put(u"my clip.one.srt"_s, "\xef\xbb\xbf" + srt("Сначала", "<i>then</i>"));
    expectTwoLines(u"Сначала"_s, u"then"_s);
    EXPECT_EQ(textsOf(clip).subtitles[0].title, u"my clip.one.srt");
}

TEST_F(BesideClip, SubRipMayBeInAnOldCyrillicPage)
{
    const auto page = CodePage::named(u"windows-1251"_s);
    ASSERT_NE(page, nullptr);
    put(u"my clip.one.srt"_s, srt(*page->encode(u"Сначала было"), *page->encode(u"слово")));
    expectTwoLines(u"Сначала было"_s, u"слово"_s);
}

TEST_F(BesideClip, SubRipMayBeInAnOldWesternPage)
{
    put(u"my clip.one.srt"_s, srt("d\xe9j\xe0 vu", "na\xefve"));
    expectTwoLines(u"déjà vu"_s, u"naïve"_s);
}

TEST_F(BesideClip, SubRipMayBeInUtf16)
{
    const QString text = QString::fromUtf8(srt("один", "two"));
    const QByteArray words(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    put(u"my clip.one.srt"_s, "\xff\xfe" + words);
    expectTwoLines(u"один"_s, u"two"_s);
}

TEST_F(BesideClip, WebVttAndAssAreRead)
{
    put(u"my clip.one.vtt"_s, "WEBVTT\n\n00:02.500 --> 00:03.000\n<v Ann>Good</v> day\n");
    put(u"my clip.one.ass"_s,
        "[Script Info]\nScriptType: v4.00+\n\n[Events]\n"
        "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
        "Dialogue: 0,0:00:01.25,0:00:02.00,Default,,0,0,0,,{\\b1}And\\Nyou\n");
    const ClipTexts texts = textsOf(clip);
    ASSERT_THAT(texts.subtitles, SizeIs(2));
    EXPECT_THAT(texts.subtitles[0].lines, ElementsAre(line(2.5, 3, u"Good day"_s)));
    EXPECT_THAT(texts.subtitles[1].lines, ElementsAre(line(1.25, 2, u"And you"_s)));
}

TEST_F(BesideClip, FilesOfOtherNamesAndKindsAreLeftAlone)
{
    put(u"my clip.srt"_s, srt("a", "b"));
    put(u"my clip.one.txt"_s, srt("a", "b"));
    ASSERT_EQ(mkfifo(QFile::encodeName(folder.filePath(u"my clip.one.vtt"_s)).constData(), 0600),
              0);
    put(u"my clip.one.ass"_s, "no subtitles at all");
    const LogCapture log("orvanta.errors");
    EXPECT_THAT(textsOf(clip).subtitles, IsEmpty());
    EXPECT_EQ(LogCapture::lines().size(), 1); // the last one
}

TEST(Suggestions, ThatAreNotWantedAnyMoreAreNotGiven)
{
    MarkSuggestions suggestions;
    std::vector<ClipTexts> found;
    QObject::connect(&suggestions, &MarkSuggestions::done, &suggestions,
                     [&](const ClipTexts& texts) { found.push_back(texts); });
    suggestions.read(testClip(u"texts_ass.mkv"_s));
    suggestions.cancel();
    EXPECT_FALSE(suggestions.isReading());
    suggestions.read(testClip(u"texts_ass.mkv"_s));
    suggestions.read(testClip(u"texts.mkv"_s));
    ASSERT_TRUE(comesTrue([&] { return !found.empty(); }));
    EXPECT_FALSE(suggestions.isReading());
    ASSERT_THAT(found, SizeIs(1));
    EXPECT_THAT(found[0].chapters, SizeIs(3));
}

} // namespace orvanta::test
