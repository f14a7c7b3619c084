// What a person does with the page: keys, clicks, finding, practice, coming back.
#include "tests/companions/page/page_fixture.h"

#include <QJsonArray>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class PageByHand : public PageTest, public testing::TestWithParam<BrowserKind>
{
protected:
    PageByHand()
        : PageTest(GetParam())
    {}

    /// The text of the line that has the list's cursor.
    [[nodiscard]] QString cursorText() { return textOf(u".cursor .said"_s); }
    [[nodiscard]] bool waitForCursor(const QString& text)
    {
        return browser->waitUntil(
            u"document.querySelector('.cursor .said').textContent === '%1'"_s.arg(text));
    }
    [[nodiscard]] QString valueOf(const QString& selector)
    {
        return browser->evaluate(u"document.querySelector('%1').value"_s.arg(selector)).toString();
    }
    void type(const QString& text)
    {
        for (const QChar letter : text) {
            browser->press(QString(letter));
        }
    }
    /// A lesson whose clips last long enough to be worked with.
    [[nodiscard]] PageLesson slowLesson()
    {
        return {
            .title = u"Slow"_s,
            .packets = {clipPacket(u"Clips"_s, {clipLine(u"first"_s, folder.clip(u"two.mp4"_s)),
                                                clipLine(u"other"_s, folder.clip(u"two.mp4"_s)),
                                                clipLine(u"third"_s, folder.clip(u"two.mp4"_s))})},
            .options = {}};
    }
    /// One clip of two seconds with a mark in its middle.
    [[nodiscard]] PageLesson brakedLesson()
    {
        return {.title = u"Brakes"_s,
                .packets = {brakePacket(u"Brakes"_s, folder.clip(u"two.mp4"_s),
                                        {brakeLine(u"first"_s, 0), brakeLine(u"second"_s, 0.5),
                                         brakeLine(u"end"_s, 1.5)})},
                .options = {}};
    }
};

TEST_P(PageByHand, LinesAreChosenByTheProgramsKeys)
{
    open(slowLesson());
    browser->press(u"PageDown"_s);
    ASSERT_TRUE(waitForText(u"first"_s));
    browser->press(u"PageDown"_s);
    ASSERT_TRUE(waitForText(u"other"_s));
    ASSERT_TRUE(waitForState(u"running"_s));
    browser->press(u"p"_s);
    ASSERT_TRUE(waitForState(u"paused"_s));
    browser->press(u"PageUp"_s);
    ASSERT_TRUE(waitForText(u"first"_s));
    expectNoComplaints();
}

TEST_P(PageByHand, SpacePlaysAndPauses)
{
    open(slowLesson());
    browser->press(u" "_s);
    ASSERT_TRUE(waitForState(u"running"_s));
    browser->press(u" "_s);
    ASSERT_TRUE(waitForState(u"paused"_s));
    browser->press(u"r"_s);
    ASSERT_TRUE(waitForState(u"running"_s));
}

TEST_P(PageByHand, AClickInTheListStartsALineAndOneOnItsBoxClearsIt)
{
    open(slowLesson());
    click(u"[role=treeitem]:nth-of-type(3)"_s);
    ASSERT_TRUE(waitForText(u"other"_s));
    click(u"[role=treeitem]:nth-of-type(2) .box"_s);
    EXPECT_TRUE(browser->waitUntil(
        u"document.querySelector('[role=treeitem]:nth-of-type(2)').ariaChecked === 'false'"_s));
    EXPECT_EQ(textOf(u"#text"_s), u"other"_s);
}

TEST_P(PageByHand, TheListIsSteeredByKeysAlone)
{
    open(slowLesson());
    (void)browser->evaluate(u"document.querySelector('[role=treeitem][tabindex=\"0\"]').focus()"_s);
    browser->press(u"ArrowDown"_s);
    browser->press(u"ArrowDown"_s);
    ASSERT_TRUE(waitForCursor(u"other"_s));
    browser->press({.key = u" "_s, .ctrl = true});
    EXPECT_TRUE(browser->waitUntil(u"document.querySelector('.cursor').ariaChecked === 'false'"_s));
    browser->press(u"End"_s);
    ASSERT_TRUE(waitForCursor(u"third"_s));
    browser->press(u"Enter"_s);
    ASSERT_TRUE(waitForText(u"third"_s));
}

TEST_P(PageByHand, StartingALineByHandChecksItAgain)
{
    PageLesson lesson = slowLesson();
    lesson.packets[0].lines[1].isChecked = false;
    open(lesson);
    click(u"[role=treeitem]:nth-of-type(3)"_s);
    ASSERT_TRUE(waitForText(u"other"_s));
    EXPECT_TRUE(browser->waitUntil(
        u"document.querySelector('[role=treeitem]:nth-of-type(3)').ariaChecked === 'true'"_s));
    reload();
    EXPECT_EQ(browser->evaluate(u"document.querySelectorAll('[aria-checked=false]').length"_s), 0);
}

TEST_P(PageByHand, SStopsABrakedClipAtItsBeginning)
{
    open(brakedLesson());
    click(u"[role=treeitem]:nth-of-type(3)"_s);
    ASSERT_TRUE(waitForText(u"second"_s));
    ASSERT_TRUE(waitForState(u"running"_s));
    browser->press(u"s"_s);
    ASSERT_TRUE(waitForState(u"paused"_s));
    EXPECT_TRUE(waitForText(u"first"_s));
    EXPECT_TRUE(browser->waitUntil(u"document.getElementById('media').currentTime < 0.05"_s));
}

TEST_P(PageByHand, FindsTextsAndStartsWhatWasFound)
{
    open(slowLesson());
    browser->press({.key = u"f"_s, .ctrl = true});
    type(u"TH"_s);
    browser->press(u"Enter"_s);
    ASSERT_TRUE(waitForCursor(u"other"_s));
    browser->press(u"F3"_s);
    ASSERT_TRUE(waitForCursor(u"third"_s));
    browser->press(u"F3"_s);
    EXPECT_TRUE(
        browser->waitUntil(u"document.getElementById('notice').textContent === 'Not found'"_s));
    browser->press({.key = u"Enter"_s, .ctrl = true});
    ASSERT_TRUE(waitForText(u"third"_s));
}

TEST_P(PageByHand, SpeedAndRepeatsHaveTheProgramsKeys)
{
    open(slowLesson());
    browser->press(u"F8"_s);
    browser->press(u"F8"_s);
    EXPECT_EQ(valueOf(u"#speed"_s), u"120"_s);
    browser->press({.key = u"F7"_s, .shift = true});
    browser->press(u"F7"_s);
    EXPECT_EQ(valueOf(u"#speed"_s), u"95"_s);
    browser->press(u"PageDown"_s);
    EXPECT_TRUE(browser->waitUntil(u"document.getElementById('media').playbackRate === 0.95"_s));
    browser->press(u"F6"_s);
    EXPECT_TRUE(browser->waitUntil(u"document.getElementById('repeat').ariaPressed === 'true'"_s));
}

TEST_P(PageByHand, AWaitStandsExactlyAtTheNextBrakeUntilAKey)
{
    open(brakedLesson());
    browser->press(u"F9"_s);
    browser->press(u"PageDown"_s);
    ASSERT_TRUE(browser->waitUntil(u"!document.getElementById('wait').hidden"_s));
    EXPECT_TRUE(browser->waitUntil(u"document.getElementById('media').currentTime === 0.5"_s))
        << seconds();
    EXPECT_EQ(textOf(u"#text"_s), u"first"_s);
    browser->press(u" "_s);
    ASSERT_TRUE(waitForText(u"second"_s));
}

TEST_P(PageByHand, EachLineIsRepeatedAsOftenAsChosen)
{
    PageLesson lesson = brakedLesson();
    lesson.options.practice.times = 2;
    open(lesson);
    browser->press(u" "_s);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(played().join(u", ").toStdString(), "first, second, end");
    EXPECT_EQ(countOfNotices(u"Repeat 2 of 2"_s), 2);
}

TEST_P(PageByHand, GoesOnWhereOneStopped)
{
    open(slowLesson());
    click(u"[role=treeitem]:nth-of-type(3)"_s);
    ASSERT_TRUE(browser->waitUntil(u"document.getElementById('media').currentTime > 0.5"_s));
    browser->press(u"p"_s);
    ASSERT_TRUE(waitForState(u"paused"_s));
    click(u"[role=treeitem]:nth-of-type(2) .box"_s);
    const double stopped = seconds();
    reload();
    EXPECT_EQ(textOf(u"#text"_s), u"other"_s);
    EXPECT_TRUE(textOf(u"#resumeText"_s).startsWith(u"You stopped at 0:0"));
    EXPECT_TRUE(browser->waitUntil(u"document.getElementById('media').readyState > 0"_s));
    EXPECT_NEAR(seconds(), stopped, 0.1);
    EXPECT_EQ(browser->evaluate(u"document.querySelectorAll('[aria-checked=false]').length"_s), 1);
    browser->press(u" "_s);
    ASSERT_TRUE(waitForText(u"third"_s));
    EXPECT_FALSE(played().contains(u"first"_s));
}

TEST_P(PageByHand, AClipThatCannotBePlayedIsNamedAndPassedOver)
{
    PageLesson lesson = slowLesson();
    lesson.packets[0].lines[0].media = {};
    lesson.packets[0].lines[1].media = folder.clip(u"text.mp4"_s);
    open(lesson);
    EXPECT_EQ(browser->evaluate(u"document.querySelectorAll('.missing').length"_s), 1);
    browser->press(u" "_s);
    ASSERT_TRUE(waitForText(u"third"_s));
    EXPECT_EQ(played().join(u", ").toStdString(), "first, other, third");
    EXPECT_EQ(textOf(u"#notice"_s), u"This browser cannot play: other"_s);
}

TEST_P(PageByHand, AClipThatOneAskedForAndCannotBePlayedStartsNoOther)
{
    PageLesson lesson = slowLesson();
    lesson.packets[0].lines[1].media = folder.clip(u"text.mp4"_s);
    open(lesson);
    click(u"[role=treeitem]:nth-of-type(3)"_s);
    EXPECT_TRUE(browser->waitUntil(u"document.getElementById('notice').textContent === "
                                   "'This browser cannot play: other'"_s));
    EXPECT_TRUE(waitForState(u"empty"_s));
    EXPECT_EQ(played().join(u", ").toStdString(), "other");
}

TEST_P(PageByHand, ALessonWithoutAnythingToPlayEnds)
{
    PageLesson lesson = slowLesson();
    for (PageLine& line : lesson.packets[0].lines) {
        line.media = {};
    }
    lesson.options.replay = true;
    open(lesson);
    browser->press(u" "_s);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(played().join(u", ").toStdString(), "first, other, third");
}

TEST_P(PageByHand, TakesTheSecondSourceWhereTheFirstDoesNotPlay)
{
    PageLesson lesson = slowLesson();
    PageMedia& media = lesson.packets[0].lines[0].media;
    media.sources.insert(media.sources.begin(), folder.clip(u"text.mp4"_s).sources.front());
    open(lesson);
    browser->press(u" "_s);
    EXPECT_TRUE(browser->waitUntil(u"document.getElementById('media').currentTime > 0.2"_s));
    EXPECT_EQ(played().join(u", ").toStdString(), "first");
}

TEST_P(PageByHand, TextsAreNeverMarkup)
{
    PageLesson lesson = slowLesson();
    const QString hostile = u"</script><img src=x onerror='document.title=1'><b>bold</b>&amp;"_s;
    lesson.title = hostile;
    lesson.packets[0].title = hostile;
    lesson.packets[0].lines[0].text = hostile;
    open(lesson);
    browser->press(u"PageDown"_s);
    ASSERT_TRUE(waitForState(u"running"_s));
    EXPECT_EQ(textOf(u"#text"_s), hostile);
    EXPECT_EQ(textOf(u"#title"_s), hostile);
    EXPECT_EQ(browser->evaluate(u"document.title"_s).toString(), hostile);
    EXPECT_EQ(browser->evaluate(u"document.querySelectorAll('b, img:not(#picture)').length"_s), 0);
    expectNoComplaints();
}

TEST_P(PageByHand, SpeaksBothLanguagesAndKeepsTheChoice)
{
    open(slowLesson());
    EXPECT_EQ(browser->evaluate(u"document.documentElement.lang"_s), u"en"_s);
    click(u"#language"_s);
    EXPECT_EQ(browser->evaluate(u"document.documentElement.lang"_s), u"ru"_s);
    EXPECT_EQ(browser->evaluate(u"document.getElementById('find').placeholder"_s),
              u"Найти текст"_s);
    reload();
    EXPECT_EQ(browser->evaluate(u"document.documentElement.lang"_s), u"ru"_s);
}

TEST_P(PageByHand, FillsTheScreenWithTheTextOverThePicture)
{
    open(slowLesson());
    browser->press(u"PageDown"_s);
    ASSERT_TRUE(waitForState(u"running"_s));
    browser->press(u"F11"_s);
    EXPECT_TRUE(browser->waitUntil(u"document.fullscreenElement?.id === 'player'"_s));
    browser->press(u"n"_s);
    EXPECT_TRUE(browser->waitUntil(u"document.fullscreenElement === null"_s));
}

TEST_P(PageByHand, LettersAreKnownByTheirPlaceUnderOtherLayouts)
{
    open(slowLesson());
    browser->press(u" "_s);
    ASSERT_TRUE(waitForState(u"running"_s));
    (void)browser->evaluate(u"document.body.dispatchEvent(new KeyboardEvent('keydown',"
                            "{ key: 'з', code: 'KeyP', bubbles: true }))"_s);
    EXPECT_TRUE(waitForState(u"paused"_s));
}

TEST_P(PageByHand, NothingButThePagesOwnScriptRuns)
{
    open(slowLesson());
    EXPECT_TRUE(browser
                    ->evaluate(u"(() => { const script = document.createElement('script');"
                               "script.textContent = 'document.title = 1';"
                               "document.body.append(script);"
                               "const link = document.createElement('b');"
                               "link.setAttribute('onclick', 'document.title = 2');"
                               "document.body.append(link); link.click();"
                               "return document.title === 'Slow'; })()"_s)
                    .toBool());
    EXPECT_FALSE(browser->complaints().isEmpty()); // the browser says what it has refused
}

TEST_P(PageByHand, TellsItsRolesToWhoHearsIt)
{
    open(smallLesson(folder));
    const QString roles = u"[...document.querySelectorAll('[role]')].map(e => e.role)"
                          ".filter(r => r === '%1').length"_s;
    EXPECT_EQ(browser->evaluate(roles.arg(u"tree"_s)), 1);
    EXPECT_EQ(browser->evaluate(roles.arg(u"treeitem"_s)), 13);
    EXPECT_EQ(browser->evaluate(roles.arg(u"toolbar"_s)), 1);
    EXPECT_EQ(browser
                  ->evaluate(u"[...document.querySelectorAll('button')].filter(e =>"
                             "(e.ariaLabel ?? '') + e.textContent.trim() === '')"
                             ".map(e => e.id).join()"_s)
                  .toString()
                  .toStdString(),
              "");
    EXPECT_EQ(browser->evaluate(u"[...document.querySelectorAll('[role=treeitem]')].filter(e =>"
                                "!e.ariaChecked || !e.ariaLevel || !e.ariaPosInSet).length"_s),
              0);
}

static std::string nameOfBrowser(const testing::TestParamInfo<BrowserKind>& kind)
{
    return nameOf(kind.param);
}

INSTANTIATE_TEST_SUITE_P(Browsers, PageByHand,
                         testing::Values(BrowserKind::Chromium, BrowserKind::Firefox),
                         nameOfBrowser);

} // namespace orvanta::test
