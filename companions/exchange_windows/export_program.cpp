#include "companions/exchange/exchange_texts.h"
#include "companions/exchange/export_command.h"
#include "companions/exchange_windows/exchange_pickers.h"
#include "companions/exchange_windows/exchange_programs.h"
#include "companions/player_program.h"

#include <QApplication>

namespace orvanta {

static int exportAtTerminal(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    prepareAsPlayer();
    const ExportCommand command = exportCommand(wordsOfCommand(count, arguments));
    if (!command.isUnderstood || !command.knowsFormat) {
        complain(
            exchangeText(command.isUnderstood ? u"noFormat" : u"exportHelp", companionLanguage()));
        return static_cast<int>(ExchangeResult::NothingWritten);
    }
    return static_cast<int>(runExport(command, companionLanguage()));
}

static int exportInWindow(int count, char** arguments)
{
    QApplication application(count, arguments);
    prepareAsPlayer();
    prepareCompanionProgram(companionLanguage());
    ExportWindow window(companionLanguage(), exportServices());
    window.show();
    return QApplication::exec();
}

int runExportProgram(int count, char** arguments)
{
    const QString help = exchangeText(u"exportHelp", companionLanguage());
    if (answerAtTerminal(wordsOfCommand(count, arguments), "orvanta-export", help)) {
        return 0;
    }
    const bool wantsWindow = count == 1 && hasDisplay();
    return wantsWindow ? exportInWindow(count, arguments) : exportAtTerminal(count, arguments);
}

} // namespace orvanta
