#include "companions/exchange/export_command.h"

#include "companions/exchange/chapter_copy.h"
#include "companions/exchange/exchange_texts.h"

#include <QEventLoop>

namespace orvanta {

using namespace Qt::StringLiterals;

ExportCommand exportCommand(const QStringList& arguments)
{
    ExportCommand command;
    QStringList lessons;
    QString format;
    bool onlyFiles = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& word = arguments[i];
        if (onlyFiles || !word.startsWith(u"--")) {
            lessons.append(word);
        } else if (word == u"--") {
            onlyFiles = true;
        } else if ((word == u"--to" || word == u"--format") && i + 1 < arguments.size()) {
            (word == u"--to" ? command.order.target : format) = arguments[++i];
        } else {
            command.isUnderstood = false;
        }
    }
    const auto named = exportFormatNamed(format);
    command.order.lesson = lessons.value(0);
    command.order.format = named.value_or(exportFormatOf(command.order.target));
    command.knowsFormat = format.isEmpty() || named;
    command.isUnderstood =
        command.isUnderstood && lessons.size() == 1 && !command.order.target.isEmpty();
    return command;
}

/// None when it is done.
static std::optional<FileRemark> copyClip(const LessonPacket& packet, const QString& target)
{
    ChapterCopy copy;
    QEventLoop loop;
    std::optional<FileRemark> failure;
    QObject::connect(&copy, &ChapterCopy::finished, &loop,
                     [&](const char16_t* what, const QString& detail) {
                         if (what != nullptr) {
                             failure = FileRemark{target, {what, 0, detail}};
                         }
                         loop.quit();
                     });
    QMetaObject::invokeMethod(
        &copy, [&] { copy.start(packet, target); }, Qt::QueuedConnection);
    loop.exec();
    return failure;
}

static std::optional<FileRemark> writePart(const ExportPlan& plan, const ExportPart& part,
                                           ExportFormat format)
{
    if (format == ExportFormat::ClipWithChapters) {
        return copyClip(plan.lesson.packets[part.packet], part.target);
    }
    return writeWholeFile(part.target, exportedBytes(plan, part, format))
               ? std::nullopt
               : std::optional(FileRemark{part.target, {u"unwritable", 0, {}}});
}

ExchangeResult runExport(const ExportCommand& command, TextLanguage language)
{
    ExportPlan plan = planExport(command.order);
    std::size_t written = 0;
    for (const ExportPart& part : plan.parts) {
        if (auto failure = writePart(plan, part, command.order.format)) {
            plan.failures.push_back(std::move(*failure));
        } else {
            printLine(exchangeText(u"written", language).arg(part.target));
            ++written;
        }
    }
    complainAbout(plan.leftOut, plan.failures, language);
    const bool isWhole = plan.leftOut.empty() && plan.failures.empty();
    return written == 0 ? ExchangeResult::NothingWritten
           : isWhole    ? ExchangeResult::Done
                        : ExchangeResult::SomeLeftOut;
}

} // namespace orvanta
