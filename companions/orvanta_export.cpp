// Export: lessons as files for other programs.

#include "companions/exchange/exchange_texts.h"
#include "companions/exchange/export_command.h"
#include "companions/player_program.h"

#include <QCoreApplication>

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

} // namespace orvanta

int main(int argc, char** argv)
{
    using namespace orvanta;
    const QString help = exchangeText(u"exportHelp", TextLanguage::English);
    if (answerAtTerminal(wordsOfCommand(argc, argv), "orvanta-export", help)) {
        return 0;
    }
    return exportAtTerminal(argc, argv);
}
