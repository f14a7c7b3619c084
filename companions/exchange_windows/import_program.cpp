#include "companions/exchange/exchange_texts.h"
#include "companions/exchange/import_command.h"
#include "companions/exchange_windows/exchange_pickers.h"
#include "companions/exchange_windows/exchange_programs.h"
#include "companions/player_program.h"

#include <QApplication>

namespace orvanta {

static int importAtTerminal(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    prepareAsPlayer();
    const ImportCommand command = importCommand(wordsOfCommand(count, arguments));
    if (!command.isUnderstood) {
        complain(exchangeText(u"importHelp", companionLanguage()));
        return static_cast<int>(ExchangeResult::NothingWritten);
    }
    return static_cast<int>(runImport(command, companionLanguage()));
}

static int importInWindow(int count, char** arguments)
{
    QApplication application(count, arguments);
    prepareAsPlayer();
    prepareCompanionProgram(companionLanguage());
    ImportWindow window(companionLanguage(), importServices());
    window.show();
    return QApplication::exec();
}

int runImportProgram(int count, char** arguments)
{
    const QString help = exchangeText(u"importHelp", companionLanguage());
    if (answerAtTerminal(wordsOfCommand(count, arguments), "orvanta-import", help)) {
        return 0;
    }
    const bool wantsWindow = count == 1 && hasDisplay();
    return wantsWindow ? importInWindow(count, arguments) : importAtTerminal(count, arguments);
}

} // namespace orvanta
