// "CD Create": a lesson in a box, at a terminal or in a window.

#include "companions/cdcreate/box_command.h"
#include "companions/page/box_page.h"
#include "core/version.h"

#include <QGuiApplication>

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
        texts.append(QString::fromLocal8Bit(arguments[i]));
    }
    return texts;
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

} // namespace orvanta

int main(int argc, char** argv)
{
    using namespace orvanta;
    const QStringList arguments = argumentsOf(argc, argv);
    const auto application = applicationFor(boxCommand(arguments), argc, argv);
    if (arguments == QStringList(u"--help"_s)) {
        return answer(interfaceText(u"Box", u"--help", TextLanguage::English));
    }
    if (arguments == QStringList(u"--version"_s)) {
        return answer(u"cdcreate (Orvanta) %1\n"_s.arg(kVersion));
    }
    return runBoxCommand(boxCommand(arguments), boxPage());
}
