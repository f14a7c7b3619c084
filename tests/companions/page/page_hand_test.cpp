// What a person does with the page.
#include "tests/companions/page/page_fixture.h"

namespace orvanta::test {

using namespace Qt::StringLiterals;

class PageByHand : public PageTest, public testing::TestWithParam<BrowserKind>
{
protected:
    PageByHand()
        : PageTest(GetParam())
    {}
};

TEST_P(PageByHand, LinesAreChosenByTheProgramsKeys)
{
    open(smallLesson(folder));
    browser->press(u"PageDown"_s);
    EXPECT_TRUE(waitForText(u"one"_s));
}

static std::string nameOfBrowser(const testing::TestParamInfo<BrowserKind>& kind)
{
    return nameOf(kind.param);
}

INSTANTIATE_TEST_SUITE_P(Browsers, PageByHand,
                         testing::Values(BrowserKind::Chromium, BrowserKind::Firefox),
                         nameOfBrowser);

} // namespace orvanta::test
