// "CD Create": a lesson in a box, at a terminal or in a window.

#include "companions/cdcreate/box_command.h"
#include "companions/cdcreate/box_window.h"
#include "companions/page/box_page.h"
#include "companions/player_program.h"
#include "core/version.h"
#include "platform/process/end_signals.h"
#include "platform/screen/colour_scheme.h"
#include "playback/outlined_indicators.h"

#include <QApplication>
#include <QFile>
#include <QUrl>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace orvanta {

using namespace Qt::StringLiterals;

static int answer(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    return EXIT_SUCCESS;
}

static QStringList argumentsOf(int count, char** arguments)
{
    QStringList texts;
    for (int i = 1; i < count; ++i) {
        texts.append(QFile::decodeName(arguments[i]));
    }
    return texts;
}

/// What the player that has started this program has open.
static QStringList documentsOfPlayer()
{
    QStringList files;
    const QString all = qEnvironmentVariable("ORVANTA_DOCUMENTS");
    for (const QString& address : all.split(u' ', Qt::SkipEmptyParts)) {
        files.append(QUrl::fromEncoded(address.toLatin1()).toLocalFile());
    }
    return files;
}

/// Qt aborts when it finds no display; a person at a terminal deserves a sentence.
static bool canFindDisplay()
{
    const std::array names = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(names.begin(), names.end(),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

static int runWindow(int count, char** arguments, const MakeExtras& makePage)
{
    const QApplication application(count, arguments); // takes its own options out of them
    QGuiApplication::setDesktopFileName(u"orvanta"_s);
    QApplication::setStyle(new OutlinedIndicators);
    const ColourScheme scheme(QDBusConnection::sessionBus());
    BoxWindow window(companionLanguage(), makePage);
    const EndSignals signals;
    QObject::connect(&signals, &EndSignals::endRequested, &window, &BoxWindow::closeSoon);
    window.show();
    const QStringList lessons = boxCommand(argumentsOf(count, arguments)).lessons;
    window.addLessons(lessons.isEmpty() ? documentsOfPlayer() : lessons);
    return QApplication::exec();
}

static void keepSilent(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                       const QString& /*text*/)
{}

/// Old pictures are drawn anew for the page; that needs fonts, and no display.
static std::unique_ptr<QCoreApplication> applicationFor(const BoxCommand& command, int& count,
                                                        char** arguments)
{
    if (!command.forBrowsers) {
        return std::make_unique<QCoreApplication>(count, arguments);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // At its start it has opinions about the session, which this program has no use for.
    const QtMessageHandler usual = qInstallMessageHandler(keepSilent);
    auto application = std::make_unique<QGuiApplication>(count, arguments);
    qInstallMessageHandler(usual);
    return application;
}

static int run(int count, char** arguments, const MakeExtras& makePage)
{
    const QStringList texts = argumentsOf(count, arguments);
    if (texts == QStringList(u"--help"_s)) {
        return answer(interfaceText(u"Box", u"--help", companionLanguage()));
    }
    if (texts == QStringList(u"--version"_s)) {
        return answer(u"cdcreate (Orvanta) %1\n"_s.arg(kVersion));
    }
    prepareAsPlayer();
    const BoxCommand command = boxCommand(texts);
    if (!command.out.isEmpty() || !command.isUnderstood) {
        const auto application = applicationFor(command, count, arguments);
        return runBoxCommand(command, makePage);
    }
    if (!canFindDisplay()) {
        std::fputs("cdcreate: there is no display, and --out names no box\n", stderr);
        return static_cast<int>(BoxResult::NotMade);
    }
    return runWindow(count, arguments, makePage);
}

} // namespace orvanta

int main(int argc, char** argv)
{
    return orvanta::run(argc, argv, orvanta::boxPage());
}
