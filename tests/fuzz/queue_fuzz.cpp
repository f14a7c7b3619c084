// The hand-over queue: a spoilt settings file never loses it for good, and lines arrive in order.

#include "core/ini.h"
#include "core/run_time_error.h"
#include "platform/process/hand_over_queue.h"
#include "tests/fuzz/fuzzing.h"

using namespace orvanta;
using namespace orvanta::fuzz;
using namespace Qt::StringLiterals;

template <typename Step> static bool works(const Step& step)
{
    try {
        step();
        return true;
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::TypeMismatch ||
                    error.number() == ErrorNumber::SubscriptOutOfRange ||
                    error.number() == ErrorNumber::Overflow,
                "a spoilt count raises one of its errors");
        return false;
    }
}

/// Lines as a launch makes them: none is empty, outer blanks are cut when they are read.
static QStringList linesOf(Input& input)
{
    constexpr qsizetype kMost = 4;
    constexpr qsizetype kLongest = 2000;
    QStringList lines;
    while (!input.isEmpty() && lines.size() < kMost) {
        QString line = input.text().left(kLongest);
        line.remove(QChar()).remove(u'\n').remove(u'\r');
        if (!line.trimmed().isEmpty() && !line.contains(u'\uFFFD')) {
            lines.append(line.trimmed());
        }
    }
    return lines;
}

static bool isWrapped(const QString& line)
{
    return line.startsWith(u'"') || line.startsWith(u'\'');
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QString settings = fileWith("orvanta.ini", input.bytes());
    const QStringList lines = linesOf(input);
    HandOverQueue queue(settings);
    (void)works([&] { queue.drain([](const QStringList&) {}); });
    require(ReadIni(u"ftl"_s, u"num"_s, settings) == u"0", "a drain empties the queue");
    require(ReadIni(u"ftl"_s, u"wr"_s, settings) == u"0", "a drain leaves the queue free");
    require(works([&] { require(queue.append(lines), "the queue can be written"); }),
            "an empty queue takes lines");
    QStringList arrived;
    require(works([&] { queue.drain([&](const QStringList& all) { arrived = all; }); }),
            "a queue that was written can be read");
    if (std::ranges::none_of(
            lines, isWrapped)) { // an outer pair of quotes goes, and with it a line of nothing else
        require(arrived == lines, "lines arrive as they were, in order");
    }
    return 0;
}
