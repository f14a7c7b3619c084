// A lesson's page in a real browser, from a stick or from a server.
#pragma once

#include "tests/support/browser/browser.h"
#include "tests/support/browser/page_folder.h"
#include "tests/support/browser/static_server.h"

#include <gtest/gtest.h>

namespace orvanta::test {

enum class BrowserKind
{
    Chromium,
    Firefox,
};

enum class PageOrigin
{
    Stick,
    Server,
    PlainServer, // without ranges
};

class PageTest
{
protected:
    explicit PageTest(BrowserKind kind)
        : PageTest(kind == BrowserKind::Chromium ? startChromium() : startFirefox())
    {}
    explicit PageTest(std::unique_ptr<Browser> started)
        : browser(std::move(started))
    {
        EXPECT_TRUE(browser->isReady());
    }

    /// Opens the lesson's page and begins to note the texts that become current.
    void open(const PageLesson& lesson, PageOrigin origin = PageOrigin::Stick);
    /// The same with a page that is there already.
    void openPage(const QString& file);
    void reload();
    /// What the page's own texts are looked up by: the content of an element.
    [[nodiscard]] QString textOf(const QString& selector);
    /// The texts of the lines since the page was opened, in their order.
    [[nodiscard]] QStringList played();
    /// What the page has said about clips that do not play, or not wholly.
    [[nodiscard]] QStringList unplayable();
    [[nodiscard]] int countOfNotices(const QString& text);
    [[nodiscard]] bool waitForText(const QString& text);
    [[nodiscard]] bool waitForState(const QString& state);
    [[nodiscard]] bool waitForEnd();
    [[nodiscard]] double seconds();
    void click(const QString& selector) { browser->click(browser->placeOf(selector)); }
    void tap(const QString& selector) { browser->tap(browser->placeOf(selector)); }
    void expectNoComplaints() { EXPECT_EQ(browser->complaints(), QStringList()); }

    PageFolder folder;
    std::unique_ptr<StaticServer> server;
    std::unique_ptr<Browser> browser;

private:
    void note();
    [[nodiscard]] QStringList textsOf(const QString& expression);
};

/// A packet of clips, one of brakes, one of clips; the first has an unchecked line in it, the
/// second an unchecked brake.
[[nodiscard]] PageLesson smallLesson(const PageFolder& folder);

[[nodiscard]] std::string nameOf(BrowserKind kind);

} // namespace orvanta::test
