// How soon a lesson's page is to be seen in Chromium, from the moment at which it is asked for.
#include "tests/support/browser/browser.h"
#include "tests/support/browser/page_folder.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kRounds = 11;

static PageLesson lessonOf(int lines)
{
    PageLesson lesson = {.title = u"Bench"_s, .packets = {}, .options = {}};
    for (int i = 0; i < lines; ++i) {
        if (i % 50 == 0) {
            lesson.packets.push_back(test::clipPacket(u"Packet %1"_s.arg(i / 50 + 1), {}));
        }
        const PageMedia clip = {.sources = {{.file = u"media/clip %1.mp4"_s.arg(i), .type = {}}}};
        lesson.packets.back().lines.push_back(
            test::clipLine(u"Line %1: the text that is shown while its clip plays"_s.arg(i), clip));
    }
    return lesson;
}

static double median(std::vector<double> values)
{
    std::ranges::nth_element(values, values.begin() + kRounds / 2);
    return values[kRounds / 2];
}

static void measure(test::Browser& browser, int lines)
{
    const test::PageFolder folder;
    const QString file = folder.write(lessonOf(lines));
    std::vector<double> shown;
    for (int i = 0; i < kRounds; ++i) {
        browser.open(test::addressOfFile(file));
        const QString painted = u"performance.getEntriesByName('first-contentful-paint')"_s;
        if (!browser.waitUntil(painted + u".length > 0"_s)) {
            std::puts("nothing is shown");
            return;
        }
        shown.push_back(browser.evaluate(painted + u"[0].startTime"_s).toDouble());
    }
    std::printf("%6d lines, %5lld kB: shown after %4.0f ms (median of %d)\n", lines,
                static_cast<long long>(QFileInfo(file).size() / 1000), median(shown), kRounds);
}

} // namespace orvanta

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const auto browser = orvanta::test::startChromium();
    if (!browser->isReady()) {
        std::puts("no Chromium here");
        return EXIT_FAILURE;
    }
    browser->resize({1280, 800}, false);
    for (const int lines : {10, 1000, 32767}) {
        orvanta::measure(*browser, lines);
    }
    return EXIT_SUCCESS;
}
