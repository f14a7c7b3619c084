#include "app/log_output.h"

#include <QString>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

namespace orvanta {

static bool isUp = false;

static void writeLine(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    QString line = qFormatLogMessage(type, context, message);
    line.replace(u'\n', u' ');
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
    if (type == QtFatalMsg && !isUp) {
        std::fputs("orvanta: the display cannot be used\n", stderr);
        std::_Exit(EXIT_FAILURE);
    }
}

void sendLogToStandardError()
{
    qSetMessagePattern(QStringLiteral("%{category}: %{message}"));
    qInstallMessageHandler(writeLine);
}

void programIsUp()
{
    isUp = true;
}

} // namespace orvanta
