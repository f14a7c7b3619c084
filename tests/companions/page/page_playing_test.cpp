// Lessons that play to their ends, by themselves, in real browsers.
#include "tests/companions/page/page_fixture.h"

#include <QFileInfo>
#include <QProcess>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class PagePlays : public PageTest,
                  public testing::TestWithParam<std::tuple<BrowserKind, PageOrigin>>
{
protected:
    PagePlays()
        : PageTest(std::get<BrowserKind>(GetParam()))
    {}

    void openHere(const PageLesson& lesson) { open(lesson, std::get<PageOrigin>(GetParam())); }
};

static std::string nameOfCase(const testing::TestParamInfo<PagePlays::ParamType>& info)
{
    const std::array origins = {"Stick", "Server", "PlainServer"};
    return nameOf(std::get<BrowserKind>(info.param)) + "From" +
           origins[std::size_t(std::get<PageOrigin>(info.param))];
}

TEST_P(PagePlays, TheWholeLessonByTheProgramsRules)
{
    openHere(smallLesson(folder));
    browser->press(u" "_s);
    ASSERT_TRUE(waitForEnd()) << qPrintable(played().join(u", ") + textOf(u"#notice"_s));
    EXPECT_EQ(played().join(u", ").toStdString(),
              "one, two, three, first, second, third, end, last");
    EXPECT_EQ(unplayable(), QStringList());
    expectNoComplaints();
}

TEST_P(PagePlays, AtABrakeThatIsChosenByHand)
{
    openHere(smallLesson(folder));
    browser->press(u"F9"_s); // at the line's end the clip stands until a key
    click(u"[role=treeitem]:nth-of-type(10)"_s);
    ASSERT_TRUE(waitForText(u"third"_s)) << qPrintable(played().join(u", "));
    ASSERT_TRUE(browser->waitUntil(u"!document.getElementById('wait').hidden"_s)) << seconds();
    EXPECT_TRUE(browser->waitUntil(u"document.getElementById('media').currentTime === 1.6"_s))
        << seconds();
    browser->press(u"F9"_s);
    browser->press(u"F9"_s); // no wait any more
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(played().join(u", ").toStdString(), "third, end, last");
    EXPECT_EQ(unplayable(), QStringList());
    expectNoComplaints();
}

/// Too large to be in the browser at once, with sound and picture of noise; sixteen seconds.
static void makeLargeClip(const QString& file)
{
    QProcess ffmpeg;
    ffmpeg.start(u"ffmpeg"_s, {u"-nostdin"_s,
                               u"-loglevel"_s,
                               u"error"_s,
                               u"-f"_s,
                               u"lavfi"_s,
                               u"-i"_s,
                               u"testsrc2=size=640x360:rate=25,noise=alls=60:allf=t"_s,
                               u"-f"_s,
                               u"lavfi"_s,
                               u"-i"_s,
                               u"sine=frequency=440"_s,
                               u"-t"_s,
                               u"16"_s,
                               u"-c:v"_s,
                               u"libx264"_s,
                               u"-preset"_s,
                               u"ultrafast"_s,
                               u"-b:v"_s,
                               u"12M"_s,
                               u"-g"_s,
                               u"50"_s,
                               u"-pix_fmt"_s,
                               u"yuv420p"_s,
                               u"-c:a"_s,
                               u"aac"_s,
                               file});
    EXPECT_TRUE(ffmpeg.waitForFinished());
    EXPECT_GT(QFileInfo(file).size(), 10'000'000);
}

TEST_P(PagePlays, AFarBrakeOfALargeClip)
{
    makeLargeClip(folder.path() + u"/media/large.mp4"_s);
    const PageMedia large = {.sources = {{.file = u"media/large.mp4"_s, .type = {}}}};
    openHere({.title = u"Large"_s,
              .packets = {brakePacket(
                  u"Brakes"_s, large,
                  {brakeLine(u"near"_s, 0), brakeLine(u"far"_s, 14.5), brakeLine(u"end"_s, 15)})},
              .options = {}});
    browser->press(u"F9"_s); // at the line's end the clip stands until a key
    click(u"[role=treeitem]:nth-of-type(3)"_s);
    ASSERT_TRUE(waitForText(u"far"_s));
    ASSERT_TRUE(browser->waitUntil(u"!document.getElementById('wait').hidden"_s)) << seconds();
    // Nothing that comes before it was heard.
    EXPECT_GT(browser->evaluate(u"document.getElementById('media').played.start(0)"_s).toDouble(),
              14);
    browser->press(u"PageDown"_s);
    ASSERT_TRUE(waitForEnd()) << seconds();
    EXPECT_EQ(played().join(u", ").toStdString(), "far, end");
    EXPECT_EQ(unplayable(), QStringList());
    expectNoComplaints();
}

INSTANTIATE_TEST_SUITE_P(Browsers, PagePlays,
                         testing::Combine(testing::Values(BrowserKind::Chromium,
                                                          BrowserKind::Firefox),
                                          testing::Values(PageOrigin::Stick, PageOrigin::Server,
                                                          PageOrigin::PlainServer)),
                         nameOfCase);

} // namespace orvanta::test
