#include "companions/exchange/import_command.h"

#include "companions/exchange/exchange_texts.h"
#include "companions/exchange/lesson_documents.h"
#include "companions/player_program.h"
#include "core/log.h"
#include "core/paths.h"
#include "core/run_time_error.h"

#include <QFileInfo>

namespace orvanta {

using namespace Qt::StringLiterals;

ImportCommand importCommand(const QStringList& arguments)
{
    ImportCommand command;
    bool onlyFiles = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& word = arguments[i];
        const bool isOption = !onlyFiles && word.startsWith(u"--");
        if (!isOption) {
            command.order.files.append(word);
        } else if (word == u"--") {
            onlyFiles = true;
        } else if (word == u"--open") {
            command.opens = true;
        } else if ((word == u"--clip" || word == u"--out") && i + 1 < arguments.size()) {
            (word == u"--clip" ? command.order.clip : command.out) = arguments[++i];
        } else {
            command.isUnderstood = false;
        }
    }
    command.isUnderstood = command.isUnderstood && !command.order.files.isEmpty();
    return command;
}

ImportTarget importTarget(const Lesson& lesson, const QString& out, const QString& source)
{
    if (out.isEmpty()) {
        return {.file = proposedDocument(lesson, QFileInfo(source).absolutePath())};
    }
    const QString kind = kindOfPath(out);
    const bool isLesson = QFileInfo(out).suffix().size() == 3 && (kind == u"VXL" || kind == u"VXG");
    const char16_t* objection = !isLesson                                     ? u"wantsLesson"
                                : kind == u"VXL" && lesson.packets.size() > 1 ? u"wantsGroup"
                                                                              : nullptr;
    return {.file = QFileInfo(out).absoluteFilePath(), .objection = objection};
}

const char16_t* writeImported(const Lesson& lesson, const QString& target)
{
    if (lesson.packets.size() > kMostInPacket) {
        return u"tooMany";
    }
    try {
        writeLesson(lesson, target);
        return nullptr;
    } catch (const RuntimeError& error) {
        qCInfo(logErrors, "%ls: error %d", qUtf16Printable(target),
               static_cast<int>(error.number()));
        return u"unwritable";
    }
}

ExchangeResult runImport(const ImportCommand& command, TextLanguage language)
{
    ImportOrder order = command.order;
    order.endText = exchangeText(u"end", language);
    const ImportedLesson imported = importFiles(order);
    complainAbout(imported.leftOut, imported.failures, language);
    if (imported.lesson.packets.empty()) {
        return ExchangeResult::NothingWritten;
    }
    const ImportTarget target = importTarget(imported.lesson, command.out, order.files.front());
    const char16_t* const objection = target.objection != nullptr
                                          ? target.objection
                                          : writeImported(imported.lesson, target.file);
    if (objection != nullptr) {
        complain(remarkText({target.file, {objection, 0, {}}}, language));
        return ExchangeResult::NothingWritten;
    }
    printLine(exchangeText(u"written", language).arg(target.file));
    const bool isOpen = !command.opens || openInPlayer(target.file);
    if (!isOpen) {
        complain(exchangeText(u"noPlayer", language));
    }
    const bool isWhole = isOpen && imported.leftOut.empty() && imported.failures.empty();
    return isWhole ? ExchangeResult::Done : ExchangeResult::SomeLeftOut;
}

} // namespace orvanta
