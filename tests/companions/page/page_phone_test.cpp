// The page on a phone, and to who hears it instead of seeing it.
#include "tests/companions/page/page_fixture.h"

#include <QJsonArray>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class PageOnPhone : public PageTest, public testing::TestWithParam<QSize>
{
protected:
    PageOnPhone()
        : PageTest(BrowserKind::Chromium)
    {
        browser->resize(GetParam(), true);
    }

    /// The names of all buttons, boxes and lines that are smaller than a finger.
    [[nodiscard]] QJsonArray smallTargets()
    {
        return browser
            ->evaluate(u"[...document.querySelectorAll('button, select, input, [role=treeitem]')]"
                       ".filter(e => e.checkVisibility() && e.offsetParent !== null)"
                       ".map(e => [e.id || e.textContent, e.getBoundingClientRect()])"
                       ".filter(([name, r]) => r.width < 44 || r.height < 44)"
                       ".map(([name, r]) => `${name} ${r.width} x ${r.height}`)"_s)
            .toArray();
    }
    /// What sticks out of the screen at its side.
    [[nodiscard]] QJsonArray clipped()
    {
        return browser
            ->evaluate(u"[...document.querySelectorAll('#page *')]"
                       ".filter(e => e.checkVisibility() && e.getBoundingClientRect().width > 0)"
                       ".filter(e => e.getBoundingClientRect().right > innerWidth + 0.5"
                       " || e.getBoundingClientRect().left < -0.5).map(e => e.id || e.className)"_s)
            .toArray();
    }
};

TEST_P(PageOnPhone, EveryTargetIsLargeEnoughForAFingerAndOnTheScreen)
{
    for (const TextLanguage language : {TextLanguage::English, TextLanguage::Russian}) {
        PageLesson lesson = smallLesson(folder);
        lesson.title = u"A lesson with a title that is too long for any telephone"_s;
        lesson.options.language = language;
        open(lesson);
        EXPECT_EQ(smallTargets(), QJsonArray());
        EXPECT_EQ(clipped(), QJsonArray());
        EXPECT_TRUE(
            browser->evaluate(u"document.documentElement.scrollWidth <= innerWidth"_s).toBool());
    }
}

TEST_P(PageOnPhone, PlaysByTouch)
{
    open(smallLesson(folder));
    tap(u"[role=treeitem]:nth-of-type(2)"_s);
    ASSERT_TRUE(waitForText(u"one"_s));
    tap(u"#next"_s);
    ASSERT_TRUE(waitForText(u"unchecked"_s)); // by hand every line has its turn
    tap(u"#previous"_s);
    tap(u"[role=treeitem]:nth-of-type(2) .box"_s);
    EXPECT_TRUE(browser->waitUntil(
        u"document.querySelector('[role=treeitem]:nth-of-type(2)').ariaChecked === 'false'"_s));
    ASSERT_TRUE(waitForEnd());
    expectNoComplaints();
}

TEST_P(PageOnPhone, TheListCanBeSeen)
{
    open(smallLesson(folder));
    const QJsonArray list =
        browser
            ->evaluate(
                u"(() => { const r = document.getElementById('list').getBoundingClientRect();"
                "return [r.height, document.documentElement.scrollHeight - r.bottom]; })()"_s)
            .toArray();
    EXPECT_GE(list.at(0).toDouble(), 140);
    EXPECT_GE(list.at(1).toDouble(), 0);
}

TEST_P(PageOnPhone, TheLineThatPlaysIsInSight)
{
    PageLesson lesson = smallLesson(folder);
    for (int i = 0; i < 30; ++i) {
        lesson.packets[0].lines.push_back(clipLine(u"line %1"_s.arg(i), folder.clip(u"two.mp4"_s)));
    }
    open(lesson);
    const QString isInSight =
        u"(() => { const list = document.getElementById('list').getBoundingClientRect();"
        "const line = document.querySelector('[aria-current]')?.getBoundingClientRect();"
        "return line !== undefined && line.top >= list.top && line.bottom <= list.bottom; })()"_s;
    for (int i = 0; i < 20; ++i) {
        browser->press(u"PageDown"_s);
        EXPECT_TRUE(browser->waitUntil(isInSight)) << i;
    }
    for (int i = 0; i < 20; ++i) {
        browser->press(u"PageUp"_s);
        EXPECT_TRUE(browser->waitUntil(isInSight)) << i;
    }
}

static std::string nameOfPhone(const testing::TestParamInfo<QSize>& size)
{
    return "Of" + std::to_string(size.param.width()) + "By" + std::to_string(size.param.height());
}

INSTANTIATE_TEST_SUITE_P(Phones, PageOnPhone,
                         testing::Values(QSize(360, 640), QSize(412, 915), QSize(667, 375),
                                         QSize(740, 360)),
                         nameOfPhone);

class PageByEar : public PageTest, public testing::Test
{
protected:
    PageByEar()
        : PageTest(BrowserKind::Chromium)
    {
        browser->resize({1280, 800}, false);
    }

    /// What a screen reader is told: "role name" of all that has a name, with its states.
    [[nodiscard]] QStringList said()
    {
        QStringList lines;
        const QJsonArray nodes =
            browser->ask(u"Accessibility.getFullAXTree"_s, {})[u"nodes"_s].toArray();
        for (const QJsonValue& node : nodes) {
            if (!node[u"ignored"_s].toBool()) {
                lines.append(lineOf(node.toObject()));
            }
        }
        return lines;
    }

private:
    static QString lineOf(const QJsonObject& node)
    {
        QString line =
            node[u"role"_s][u"value"_s].toString() + u' ' + node[u"name"_s][u"value"_s].toString();
        const QJsonArray properties = node[u"properties"_s].toArray();
        for (const QJsonValue& property : properties) {
            const QString name = property[u"name"_s].toString();
            if (name == u"checked" || name == u"level" || name == u"pressed") {
                line +=
                    u' ' + name + u'=' + property[u"value"_s][u"value"_s].toVariant().toString();
            }
        }
        return line;
    }
};

TEST_F(PageByEar, EverythingHasARoleAndAName)
{
    open(smallLesson(folder));
    const QStringList lines = said();
    for (const QString& wanted :
         {u"heading A small lesson level=1"_s, u"tree Lesson"_s,
          u"treeitem Clips level=1 checked=true"_s, u"treeitem one level=2 checked=true"_s,
          u"treeitem unchecked level=2 checked=false"_s, u"button Play"_s, u"button Next line"_s,
          u"button Previous line"_s, u"button This line again"_s,
          u"button Repeat lines endlessly pressed=false"_s, u"combobox Speed"_s,
          u"searchbox Find text"_s, u"slider Position"_s, u"slider Volume"_s, u"toolbar Player"_s,
          u"button Full screen pressed=false"_s}) {
        EXPECT_TRUE(lines.contains(wanted)) << qPrintable(wanted + u'\n' + lines.join(u'\n'));
    }
    for (const QString& role : {u"button"_s, u"slider"_s, u"combobox"_s, u"treeitem"_s}) {
        EXPECT_FALSE(lines.contains(role + u' ')) << qPrintable(role);
    }
}

TEST_F(PageByEar, TheLineThatPlaysIsMarkedAndItsTextIsSaid)
{
    open(smallLesson(folder));
    click(u"[role=treeitem]:nth-of-type(2)"_s);
    ASSERT_TRUE(waitForText(u"one"_s));
    EXPECT_EQ(textOf(u"[aria-current=true] .said"_s), u"one"_s);
    EXPECT_EQ(browser->evaluate(u"document.getElementById('text').ariaLive"_s), u"polite"_s);
    EXPECT_EQ(browser->evaluate(u"document.getElementById('notice').role"_s), u"status"_s);
}

TEST_F(PageByEar, TabLeadsThroughEveryControlAndOneLineOfTheList)
{
    open(smallLesson(folder));
    QStringList reached;
    for (int i = 0; i < 20; ++i) {
        browser->press(u"Tab"_s);
        reached += browser->evaluate(u"document.activeElement.id || document.activeElement.role"_s)
                       .toString();
    }
    for (const QString& id : {u"find"_s, u"language"_s, u"helpButton"_s, u"position"_s, u"play"_s,
                              u"next"_s, u"repeat"_s, u"speed"_s, u"practice"_s, u"screen"_s}) {
        EXPECT_TRUE(reached.contains(id)) << qPrintable(id + u": "_s + reached.join(u", "));
    }
    EXPECT_EQ(reached.count(u"treeitem"_s), 1) << qPrintable(reached.join(u", "));
}

} // namespace orvanta::test
