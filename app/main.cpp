// The entry point: what must hold before the start-up procedure can run.

#include "app/check_command.h"
#include "app/command_line.h"
#include "app/log_output.h"
#include "app/quit_guard.h"
#include "app/start_up.h"
#include "app/start_up_steps.h"
#include "core/heap.h"
#include "core/version.h"
#include "platform/process/application_folder.h"
#include "platform/screen/display_system.h"
#include "platform/screen/gnome_scaling.h"
#include "platform/screen/window_stacking.h"
#include "window/skin.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr auto kPlatforms = "QT_QPA_PLATFORM";

/// Qt aborts when it finds no display; a person at a terminal deserves a sentence.
static bool canFindDisplay(int count, char** arguments)
{
    const bool chosen = std::any_of(arguments, arguments + count, [](const char* argument) {
        return std::string_view(argument) == "-platform";
    });
    const std::array names = {"DISPLAY", "WAYLAND_DISPLAY", kPlatforms};
    return chosen || std::any_of(names.begin(), names.end(), [](const char* name) {
               return !qEnvironmentVariableIsEmpty(name);
           });
}

static void nameApplication()
{
    QCoreApplication::setApplicationName(u"orvanta"_s);
    QCoreApplication::setApplicationVersion(kVersion.toString());
    QGuiApplication::setDesktopFileName(u"orvanta"_s);
    QGuiApplication::setWindowIcon(skin::applicationIcon()); // of windows that bear none themselves
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

static int runProgram(int count, char** arguments)
{
    const QString activationToken = launchActivationToken();
    const QByteArray platforms = preferredPlatforms(QProcessEnvironment::systemEnvironment(),
                                                    [] { return shellEnlargesX11(); });
    if (!platforms.isEmpty()) {
        qputenv(kPlatforms, platforms);
    }
    QApplication application(count, arguments); // takes its own options out of the arguments
    if (!platforms.isEmpty()) {
        qunsetenv(kPlatforms); // what the program starts chooses for itself
    }
    std::setlocale(LC_NUMERIC, "C"); // the player library refuses anything else
    programIsUp();
    nameApplication();
    StartUp startUp(argumentTexts(count, arguments), activationToken);
    const int status = startUp.run();
    leaveSoon(status);
    return status;
}

/// Such a folder would be taken for another one, whose name is what is left of it as text.
static bool isTextVariable(const char* name)
{
    const QByteArray value = qgetenv(name);
    return QString::fromUtf8(value).toUtf8() == value;
}

/// Which picture there would be is not told by the version alone. Starts no player.
static QString moreOfVersion(int count, char** arguments)
{
    if (argumentTexts(count, arguments) != QStringList(u"--version"_s)) {
        return {};
    }
    const QCoreApplication application(count, arguments);
    return pictureLine(chosenApplicationFolder());
}

static int answer(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    return EXIT_SUCCESS;
}

} // namespace orvanta

int main(int argc, char** argv)
{
    orvanta::giveLargeBlocksBack();
    orvanta::sendLogToStandardError();
    const auto language = [&] {
        const QCoreApplication application(argc, argv);
        return orvanta::languageForTerminal();
    };
    if (const auto text =
            orvanta::answerForTerminal(orvanta::argumentTexts(argc, argv), language)) {
        return orvanta::answer(*text + orvanta::moreOfVersion(argc, argv));
    }
    if (!orvanta::isTextVariable("ORVANTA_HOME")) {
        std::fputs("orvanta: ORVANTA_HOME is no path in UTF-8\n", stderr);
        return EXIT_FAILURE;
    }
    if (const auto check = orvanta::checkCommand(orvanta::argumentTexts(argc, argv))) {
        const QCoreApplication application(argc, argv);
        return orvanta::runCheck(*check);
    }
    if (!orvanta::canFindDisplay(argc, argv)) {
        std::fputs("orvanta: there is no display (DISPLAY and WAYLAND_DISPLAY are not set)\n",
                   stderr);
        return EXIT_FAILURE;
    }
    return orvanta::runProgram(argc, argv);
}
