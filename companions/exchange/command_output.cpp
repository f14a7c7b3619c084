#include "companions/exchange/command_output.h"

#include "companions/exchange/exchange_texts.h"
#include "core/version.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cstdio>

namespace orvanta {

using namespace Qt::StringLiterals;

void printLine(const QString& line)
{
    std::fprintf(stdout, "%s\n", line.toLocal8Bit().constData());
}

void complain(const QString& line)
{
    std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
}

void complainAbout(const std::vector<FileRemark>& leftOut, const std::vector<FileRemark>& failures,
                   TextLanguage language)
{
    for (const FileRemark& remark : leftOut) {
        complain(exchangeText(u"leftOut", language).arg(remarkText(remark, language)));
    }
    for (const FileRemark& remark : failures) {
        complain(remarkText(remark, language));
    }
}

bool answerAtTerminal(const QStringList& arguments, const char* program, QStringView help)
{
    const QString first = arguments.value(0);
    if (first == u"--help" || first == u"-h") {
        std::fputs(help.toLocal8Bit().constData(), stdout);
        return true;
    }
    if (first == u"--version") {
        printLine(QString::fromLatin1(program) + u' ' + kVersion.toString());
        return true;
    }
    return false;
}

QStringList wordsOfCommand(int count, char** arguments)
{
    QStringList words;
    std::transform(arguments + 1, arguments + std::max(count, 1), std::back_inserter(words),
                   [](const char* word) { return QFile::decodeName(word); });
    return words;
}

bool hasDisplay()
{
    const std::array names = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(names.begin(), names.end(),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

} // namespace orvanta
