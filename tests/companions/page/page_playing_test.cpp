// Lessons that play to their ends, by themselves, in real browsers.
#include "tests/companions/page/page_fixture.h"

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
    expectNoComplaints();
}

TEST_P(PagePlays, AtABrakeThatIsChosenByHand)
{
    openHere(smallLesson(folder));
    click(u"[role=treeitem]:nth-of-type(10)"_s);
    ASSERT_TRUE(waitForText(u"third"_s)) << qPrintable(played().join(u", "));
    EXPECT_TRUE(browser->waitUntil(u"document.getElementById('media').currentTime >= 1.15"_s))
        << seconds();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(played().join(u", ").toStdString(), "third, end, last");
    expectNoComplaints();
}

INSTANTIATE_TEST_SUITE_P(Browsers, PagePlays,
                         testing::Combine(testing::Values(BrowserKind::Chromium,
                                                          BrowserKind::Firefox),
                                          testing::Values(PageOrigin::Stick, PageOrigin::Server,
                                                          PageOrigin::PlainServer)),
                         nameOfCase);

} // namespace orvanta::test
