#include "tests/companions/page/page_fixture.h"

#include <QJsonArray>

namespace orvanta::test {

using namespace Qt::StringLiterals;

void PageTest::open(const PageLesson& lesson, PageOrigin origin)
{
    const QString file = folder.write(lesson);
    if (origin == PageOrigin::Stick) {
        browser->open(addressOfFile(file));
    } else {
        server = std::make_unique<StaticServer>(folder.path(), origin == PageOrigin::Server
                                                                   ? StaticServer::WithRanges
                                                                   : StaticServer::WithoutRanges);
        browser->open(server->address(u"index.html"_s));
    }
    note();
}

void PageTest::openPage(const QString& file)
{
    browser->open(addressOfFile(file));
    note();
}

void PageTest::reload()
{
    browser->open(browser->evaluate(u"location.href"_s).toString());
    note();
}

void PageTest::note()
{
    (void)browser->evaluate(
        u"(() => { const note = (id) => { const texts = []; const noted = "
        u"document.getElementById(id);"
        "new MutationObserver(() => texts.push(noted.textContent))"
        ".observe(noted, { childList: true, characterData: true, subtree: true }); return texts; };"
        "window.played = note('text'); window.notices = note('notice'); return 1; })()"_s);
}

QString PageTest::textOf(const QString& selector)
{
    return browser->evaluate(u"document.querySelector('%1').textContent"_s.arg(selector))
        .toString();
}

QStringList PageTest::textsOf(const QString& expression)
{
    QStringList texts;
    const QJsonArray noted = browser->evaluate(expression).toArray();
    for (const QJsonValue& text : noted) {
        texts.append(text.toString());
    }
    return texts;
}

QStringList PageTest::played()
{
    return textsOf(u"window.played"_s);
}

QStringList PageTest::unplayable()
{
    return textsOf(u"window.notices"_s).filter(u"This browser"_s);
}

int PageTest::countOfNotices(const QString& text)
{
    return int(textsOf(u"window.notices"_s).count(text));
}

bool PageTest::waitForText(const QString& text)
{
    return browser->waitUntil(u"document.getElementById('text').textContent === '%1'"_s.arg(text));
}

bool PageTest::waitForState(const QString& state)
{
    return browser->waitUntil(u"document.body.dataset.state === '%1'"_s.arg(state));
}

bool PageTest::waitForEnd()
{
    return browser->waitUntil(
        u"document.getElementById('notice').textContent === 'The lesson is over'"_s);
}

double PageTest::seconds()
{
    return browser->evaluate(u"document.getElementById('media').currentTime"_s).toDouble();
}

PageLesson smallLesson(const PageFolder& folder)
{
    PagePacket clips = clipPacket(
        u"Clips"_s, {clipLine(u"one"_s, folder.clip(u"short.mp4"_s, u"a clip #1 100%.mp4"_s)),
                     clipLine(u"unchecked"_s, folder.clip(u"short.webm"_s)),
                     clipLine(u"two"_s, folder.clip(u"short.webm"_s, u"видео.webm"_s)),
                     clipLine(u"three"_s, folder.clip(u"short.ogg"_s))});
    clips.lines[1].isChecked = false;
    clips.lines[3].media.hasPicture = false;
    PagePacket brakes = brakePacket(u"Brakes"_s, folder.clip(u"two.mp4"_s),
                                    {brakeLine(u"first"_s, 0.1), brakeLine(u"passed over"_s, 0.5),
                                     brakeLine(u"second"_s, 0.9), brakeLine(u"third"_s, 1.2),
                                     brakeLine(u"end"_s, 1.6)});
    brakes.lines[1].isChecked = false;
    PagePacket last = clipPacket(u"Last"_s, {clipLine(u"last"_s, folder.clip(u"short.mp3"_s))});
    last.lines[0].media.hasPicture = false;
    return {.title = u"A small lesson"_s, .packets = {clips, brakes, last}, .options = {}};
}

std::string nameOf(BrowserKind kind)
{
    return kind == BrowserKind::Chromium ? "Chromium" : "Firefox";
}

} // namespace orvanta::test
