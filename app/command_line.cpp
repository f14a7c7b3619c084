#include "app/command_line.h"

#include "core/log.h"
#include "core/paths.h"
#include "core/version.h"
#include "model/settings.h"
#include "platform/process/application_folder.h"
#include "platform/process/hand_over_queue.h"

#include <QDir>
#include <QFileInfo>
#include <QStringDecoder>
#include <QUrl>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

static std::optional<QString> textOfBytes(const char* bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(QByteArrayView(bytes));
    if (decoder.hasError()) {
        qCInfo(logErrors, "an argument is not UTF-8 and is left out: %s",
               QByteArray(bytes).toPercentEncoding("/").constData());
        return std::nullopt;
    }
    return text;
}

QStringList argumentTexts(int count, const char* const* arguments)
{
    QStringList texts;
    for (int i = 1; i < count; ++i) {
        if (const std::optional<QString> text = textOfBytes(arguments[i])) {
            texts.append(*text);
        }
    }
    return texts;
}

std::optional<QString> answerForTerminal(const QStringList& arguments,
                                         const std::function<TextLanguage()>& language)
{
    if (arguments == QStringList(u"--help"_s)) {
        return interfaceText(u"CommandLine", u"--help", language());
    }
    if (arguments == QStringList(u"--version"_s)) {
        return u"Orvanta %1\n"_s.arg(kVersion);
    }
    return std::nullopt;
}

TextLanguage languageForTerminal()
{
    const QString settings = programFile(chosenApplicationFolder(), u"\\orvanta.ini"_s);
    return Settings(settings).exactTextLanguage(TextLanguage::English);
}

QString commandLine(const QStringList& arguments)
{
    return arguments.join(u' ');
}

bool isAutoStart(const QString& commandLine)
{
    return commandLine.toLower() == u"/auto";
}

static QString absolutePath(const QString& path)
{
    const QString whole = path.startsWith(u'/') ? path : QDir::currentPath() + u'/' + path;
    const QString clean = QDir::cleanPath(whole);
    // Behind a symbolic link ".." is not what the text says.
    return QFileInfo::exists(clean) ? clean : whole;
}

static QString pathOfUrl(const QString& text)
{
    const QUrl url(text);
    const bool here = url.host().isEmpty() || url.host() == u"localhost";
    const bool isPath = text.startsWith(u"file:/", Qt::CaseInsensitive) && here;
    return isPath ? url.path(QUrl::FullyDecoded) : QString();
}

static QString lineToQueue(const QString& text)
{
    if (QFileInfo::exists(text)) {
        return absolutePath(text);
    }
    if (QString path = pathOfUrl(text); !path.isEmpty()) {
        return path;
    }
    if (const std::optional<QString> folder = folderOfLine(text)) {
        return text.left(2) + (QFileInfo::exists(*folder) ? absolutePath(*folder) : *folder);
    }
    return text;
}

static bool namesExistingFile(const QString& argument)
{
    return QFileInfo::exists(argument) || QFileInfo::exists(pathOfUrl(argument));
}

static bool isOneEntryEach(const QStringList& arguments)
{
    return arguments.size() > 1 &&
           std::all_of(arguments.begin(), arguments.end(), namesExistingFile);
}

static bool cannotBeHeld(const QString& line)
{
    const bool breaksLine = line.contains(u'\n') || line.contains(u'\r');
    if (breaksLine) {
        qCInfo(logErrors, "a name with a line break in it is left out");
    }
    return breaksLine;
}

QStringList linesToQueue(const QStringList& arguments)
{
    const QString whole = commandLine(arguments);
    if (whole.isEmpty() || isAutoStart(whole)) {
        return {};
    }
    if (whole == QStringView(kContinueLine)) {
        return {whole};
    }
    QStringList lines;
    for (const QString& text : isOneEntryEach(arguments) ? arguments : QStringList(whole)) {
        lines.append(lineToQueue(text));
    }
    lines.removeIf(cannotBeHeld);
    return lines;
}

} // namespace orvanta
