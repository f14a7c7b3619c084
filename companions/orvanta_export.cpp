// Export: lessons as files for other programs.

#include "companions/exchange/exchange_texts.h"
#include "companions/exchange/export_command.h"
#include "companions/exchange_windows/exchange_pickers.h"
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

} // namespace orvanta

int main(int argc, char** argv)
{
    using namespace orvanta;
    const QString help = exchangeText(u"exportHelp", TextLanguage::English);
    if (answerAtTerminal(wordsOfCommand(argc, argv), "orvanta-export", help)) {
        return 0;
    }
    const bool wantsWindow = argc == 1 && hasDisplay();
    return wantsWindow ? exportInWindow(argc, argv) : exportAtTerminal(argc, argv);
}
