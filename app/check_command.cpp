#include "app/check_command.h"

#include "app/command_line.h"
#include "app/start_up_steps.h"
#include "platform/process/application_folder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

namespace orvanta {

using namespace Qt::StringLiterals;

/// Returns whether it is an option of the command.
static bool takeOption(CheckCommand& command, const QString& argument)
{
    bool* const wish = argument == u"--json"       ? &command.asJson
                       : argument == u"--fix"      ? &command.wishes.fixes
                       : argument == u"--relative" ? &command.wishes.makesRelative
                                                   : nullptr;
    if (wish != nullptr) {
        *wish = true;
    }
    return wish != nullptr;
}

std::optional<CheckCommand> checkCommand(const QStringList& arguments)
{
    if (arguments.value(0) != u"--check") {
        return std::nullopt;
    }
    CheckCommand command;
    bool onlyFiles = false;
    for (const QString& argument : arguments.mid(1)) {
        if (!onlyFiles && argument == u"--") {
            onlyFiles = true;
        } else if (onlyFiles || !argument.startsWith(u"--"_s)) {
            command.filesAndFolders.append(argument);
        } else if (!takeOption(command, argument)) {
            command.isUnderstood = false;
        }
    }
    command.isUnderstood = command.isUnderstood && !command.filesAndFolders.isEmpty();
    return command;
}

namespace {

/// How a finding is called: in texts, and in JSON.
struct FindingName
{
    Finding finding;
    const char16_t* text;
    const char16_t* json;
};

struct PartName
{
    CheckedPart part;
    const char16_t* text;
};

struct ResultName
{
    CheckResult result;
    const char16_t* text; // null: the document's lines say it
    const char16_t* json;
};

} // namespace

constexpr FindingName kFindingNames[] = {
    {Finding::AsWritten, u"written", u"as written"},
    {Finding::Elsewhere, u"elsewhere", u"elsewhere"},
    {Finding::Nowhere, u"missing", u"missing"},
    {Finding::Refused, u"refused", u"not openable"},
};
constexpr PartName kPartNames[] = {
    {CheckedPart::Clip, u"clip"},
    {CheckedPart::Packet, u"packet"},
    {CheckedPart::Picture, u"picture"},
};
constexpr ResultName kResultNames[] = {
    {CheckResult::AllFound, nullptr, u"all found"},
    {CheckResult::SomeMissing, nullptr, u"some missing"},
    {CheckResult::NotChecked, u"unread", u"not checked"},
    {CheckResult::NoDocument, u"alien", u"no packet and no group"},
};

static const FindingName& nameOf(Finding finding)
{
    return *std::find_if(std::begin(kFindingNames), std::end(kFindingNames),
                         [&](const FindingName& row) { return row.finding == finding; });
}

static const PartName& nameOf(CheckedPart part)
{
    return *std::find_if(std::begin(kPartNames), std::end(kPartNames),
                         [&](const PartName& row) { return row.part == part; });
}

static const ResultName& nameOf(CheckResult result)
{
    return *std::find_if(std::begin(kResultNames), std::end(kResultNames),
                         [&](const ResultName& row) { return row.result == result; });
}

static QString checkText(const char16_t* control, TextLanguage language)
{
    return interfaceText(u"Check", QStringView(control), language);
}

static QString lineOf(const CheckedText& checked, TextLanguage language)
{
    QString line = checkText(nameOf(checked.part).text, language).arg(checked.number) + u": "_s +
                   checkText(nameOf(checked.found.finding).text, language) + u": "_s + checked.text;
    if (checked.found.finding == Finding::Elsewhere) {
        line += u" -> "_s + checked.found.file;
    }
    return line;
}

QByteArray checkLines(const std::vector<CheckedDocument>& documents, TextLanguage language)
{
    QByteArray lines;
    for (const CheckedDocument& document : documents) {
        const auto say = [&](const QString& what) {
            lines += (document.document + u": "_s + what).toUtf8() + '\n';
        };
        for (const CheckedText& checked : document.texts) {
            say(lineOf(checked, language));
        }
        if (const char16_t* const text = nameOf(document.result).text) {
            say(checkText(text, language));
        } else if (document.isWritten) {
            say(checkText(u"saved", language));
        }
    }
    return lines;
}

static QJsonObject jsonOf(const CheckedText& checked)
{
    return {{u"part"_s, QStringView(nameOf(checked.part).text).toString()},
            {u"number"_s, checked.number},
            {u"path"_s, checked.text},
            {u"found"_s, QStringView(nameOf(checked.found.finding).json).toString()},
            {u"file"_s, checked.found.file}};
}

QByteArray checkJson(const std::vector<CheckedDocument>& documents)
{
    QJsonArray all;
    for (const CheckedDocument& document : documents) {
        QJsonArray texts;
        for (const CheckedText& checked : document.texts) {
            texts.append(jsonOf(checked));
        }
        all.append(QJsonObject{{u"document"_s, document.document},
                               {u"result"_s, QStringView(nameOf(document.result).json).toString()},
                               {u"written"_s, document.isWritten},
                               {u"texts"_s, texts}});
    }
    return QJsonDocument(all).toJson();
}

static void print(const QByteArray& text, std::FILE* where)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), where);
}

int runCheck(const CheckCommand& command)
{
    const TextLanguage language = languageForTerminal();
    if (!command.isUnderstood) {
        print(checkText(u"usage", language).toUtf8() + '\n', stderr);
        return static_cast<int>(CheckResult::NotChecked);
    }
    prepareDocuments(chosenApplicationFolder());
    const auto documents = checkDocuments(command.filesAndFolders, command.wishes);
    print(command.asJson ? checkJson(documents) : checkLines(documents, language), stdout);
    return static_cast<int>(worstOf(documents));
}

} // namespace orvanta
