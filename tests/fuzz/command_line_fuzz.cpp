// Command lines: whatever stands there becomes whole lines of the queue, or nothing.

#include "app/command_line.h"
#include "core/log.h"
#include "platform/process/hand_over_queue.h"
#include "tests/fuzz/fuzzing.h"

#include <algorithm>

using namespace orvanta;
using namespace orvanta::fuzz;

static QByteArrayList argumentsOf(Input& input)
{
    constexpr qsizetype kMost = 16;
    QByteArrayList arguments;
    while (!input.isEmpty() && arguments.size() < kMost) {
        arguments.append(input.bytes().toByteArray().replace('\0', ' '));
    }
    return arguments;
}

static QStringList textsOf(const QByteArrayList& arguments)
{
    std::vector<const char*> words = {"orvanta"};
    for (const QByteArray& argument : arguments) {
        words.push_back(argument.constData());
    }
    return argumentTexts(static_cast<int>(words.size()), words.data());
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QStringList arguments = textsOf(argumentsOf(input));
    (void)answerForTerminal(arguments, [] { return TextLanguage::English; });
    const QString line = commandLine(arguments);
    const QStringList lines = linesToQueue(arguments);
    require(lines.size() <= std::max<qsizetype>(arguments.size(), 1),
            "no argument becomes two lines");
    require(!isAutoStart(line) || lines.isEmpty(), "\"/auto\" hands nothing over");
    for (const QString& each : lines) {
        require(!each.isEmpty(), "no line is empty");
        require(!each.contains(u'\n') && !each.contains(u'\r'), "no line holds a line break");
        (void)folderOfLine(each);
    }
    return 0;
}
