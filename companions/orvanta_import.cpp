// Import: lessons from files of other programs.

#include "companions/exchange/exchange_texts.h"
#include "companions/exchange/import_command.h"
#include "companions/player_program.h"

#include <QCoreApplication>

namespace orvanta {

static int importAtTerminal(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    prepareAsPlayer();
    const ImportCommand command = importCommand(wordsOfCommand(count, arguments));
    if (!command.isUnderstood) {
        complain(exchangeText(u"importHelp", TextLanguage::English));
        return static_cast<int>(ExchangeResult::NothingWritten);
    }
    return static_cast<int>(runImport(command, companionLanguage()));
}

} // namespace orvanta

int main(int argc, char** argv)
{
    using namespace orvanta;
    const QString help = exchangeText(u"importHelp", TextLanguage::English);
    if (answerAtTerminal(wordsOfCommand(argc, argv), "orvanta-import", help)) {
        return 0;
    }
    return importAtTerminal(argc, argv);
}
