#include "companions/cdcreate/box_command.h"

#include "companions/cdcreate/box_speed.h"
#include "companions/cdcreate/box_task.h"
#include "companions/cdcreate/box_texts.h"
#include "companions/cdcreate/box_writer.h"
#include "companions/cdcreate/lesson_box.h"
#include "companions/player_program.h"
#include "platform/process/end_signals.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

/// Returns whether it is an option without a word behind it.
static bool takeFlag(BoxCommand& command, const QString& argument)
{
    bool* const flag = argument == u"--web"            ? &command.forBrowsers
                       : argument == u"--skip-missing" ? &command.skipsMissing
                       : argument == u"--force"        ? &command.replaces
                                                       : nullptr;
    if (flag != nullptr) {
        *flag = true;
    }
    return flag != nullptr;
}

BoxCommand boxCommand(const QStringList& arguments)
{
    BoxCommand command;
    bool onlyLessons = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (onlyLessons || !argument.startsWith(u"--"_s)) {
            command.lessons.append(argument);
        } else if (argument == u"--") {
            onlyLessons = true;
        } else if (argument == u"--out") {
            command.out = arguments.value(++i);
            command.isUnderstood = command.isUnderstood && !command.out.isEmpty();
        } else if (!takeFlag(command, argument)) {
            command.isUnderstood = false;
        }
    }
    const bool makesNow = !command.out.isEmpty();
    const bool asksToMake = command.forBrowsers || command.skipsMissing || command.replaces;
    if (makesNow ? command.lessons.isEmpty() : asksToMake) {
        command.isUnderstood = false;
    }
    return command;
}

QByteArray missingLines(const BoxPlan& plan, TextLanguage language)
{
    QString lines;
    for (const MissingPart& part : plan.missing) {
        lines += part.document + u": "_s + missingText(part, language) + u'\n';
    }
    return lines.toUtf8();
}

static void say(const QByteArray& text)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stderr);
}

namespace {

/// One run at a terminal. The event loop hears signals meanwhile.
class CommandRun : public QObject
{
public:
    CommandRun(BoxCommand command, const MakeExtras& makePage, TextLanguage language)
        : m_command(std::move(command)),
          m_language(language)
    {
        m_order.target = QDir::cleanPath(QDir::current().absoluteFilePath(m_command.out));
        m_order.skipsMissing = m_command.skipsMissing;
        m_order.replaces = m_command.replaces;
        m_order.extras = m_command.forBrowsers ? makePage : MakeExtras();
        connect(&m_task, &BoxTask::moved, this, &CommandRun::show);
        connect(&m_task, &BoxTask::ended, this, &CommandRun::end);
        connect(&m_signals, &EndSignals::endRequested, &m_task, &BoxTask::stop);
    }

    int run()
    {
        m_task.start([this](BoxWork& work) {
            m_plan = gatherLesson(m_command.lessons, work);
            say(missingLines(m_plan, m_language));
            writeBox(m_plan, m_order, work);
        });
        return QCoreApplication::exec();
    }

private:
    void show(const BoxState& state)
    {
        m_speed.take(state, std::chrono::steady_clock::now());
        if (m_isTerminal) {
            say('\r' + progressText(state, m_speed, m_language).toUtf8() + "\033[K");
        }
    }
    void end(const BoxFailure* failure)
    {
        if (m_isTerminal) {
            say("\r\033[K");
        }
        if (failure != nullptr) {
            say("cdcreate: " + failureText(*failure, m_language).toUtf8() + '\n');
        }
        const BoxResult result = failure != nullptr       ? BoxResult::NotMade
                                 : m_plan.missing.empty() ? BoxResult::Made
                                                          : BoxResult::MadeWithoutMissing;
        QCoreApplication::exit(static_cast<int>(result));
    }

    BoxCommand m_command;
    BoxOrder m_order;
    TextLanguage m_language;
    BoxPlan m_plan; // of the thread that works, until it has ended
    BoxSpeed m_speed;
    bool m_isTerminal = ::isatty(STDERR_FILENO) == 1;
    EndSignals m_signals;
    BoxTask m_task; // goes first: it works with the others
};

} // namespace

int runBoxCommand(const BoxCommand& command, const MakeExtras& makePage)
{
    const TextLanguage language = companionLanguage();
    if (!command.isUnderstood) {
        say(interfaceText(u"Box", u"usage", language).toUtf8() + '\n');
        return static_cast<int>(BoxResult::NotMade);
    }
    if (command.forBrowsers && !makePage) {
        say("cdcreate: " + interfaceText(u"Box", u"noPage", language).toUtf8() + '\n');
        return static_cast<int>(BoxResult::NotMade);
    }
    return CommandRun(command, makePage, language).run();
}

} // namespace orvanta
