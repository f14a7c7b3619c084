// "CD Create": a lesson in a box, at a terminal or in a window.

#include "companions/cdcreate/box_command.h"
#include "core/version.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

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

} // namespace orvanta

int main(int argc, char** argv)
{
    using namespace orvanta;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = argumentsOf(argc, argv);
    if (arguments == QStringList(u"--help"_s)) {
        return answer(interfaceText(u"Box", u"--help", TextLanguage::English));
    }
    if (arguments == QStringList(u"--version"_s)) {
        return answer(u"cdcreate (Orvanta) %1\n"_s.arg(kVersion));
    }
    return runBoxCommand(boxCommand(arguments), {});
}
