#include "companions/exchange/pls.h"

#include "companions/exchange/list_entry.h"
#include "companions/exchange/text_lines.h"

#include <map>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct PlsEntry
{
    int line = 0;
    QString path;
    QString title;
};

} // namespace

static std::optional<int> numberBehind(QStringView key, QStringView word)
{
    bool isNumber = false;
    const int number = beginsWith(key, word) ? key.sliced(word.size()).toInt(&isNumber) : 0;
    return isNumber && number >= 0 ? std::optional(number) : std::nullopt;
}

static void takeKey(std::map<int, PlsEntry>& entries, QStringView line, int number)
{
    const qsizetype sign = line.indexOf(u'=');
    const QStringView key = line.first(std::max<qsizetype>(sign, 0)).trimmed();
    const QString value = line.sliced(sign + 1).trimmed().toString();
    if (const auto file = numberBehind(key, u"File")) {
        entries[*file].path = value;
        entries[*file].line = number;
    } else if (const auto title = numberBehind(key, u"Title")) {
        entries[*title].title = value;
    }
}

static void takeEntry(ReadLesson& read, LessonPacket& packet, const PlsEntry& entry)
{
    if (isAddressElsewhere(entry.path)) {
        read.leftOut.push_back({u"address", entry.line, entry.path});
    } else if (!entry.path.isEmpty()) {
        const QString path = pathOfList(entry.path);
        packet.clips.push_back({path, entry.title.isEmpty() ? titleOfPath(path) : entry.title});
    }
}

ReadLesson readPls(QStringView text)
{
    ReadLesson read;
    std::map<int, PlsEntry> entries;
    int number = 0;
    for (const QStringView line : linesOfText(text)) {
        takeKey(entries, line, ++number);
    }
    LessonPacket packet;
    for (const auto& [place, entry] : entries) {
        takeEntry(read, packet, entry);
    }
    if (packet.clips.empty()) {
        read.failure = Remark{u"nothingIn", 0, {}};
    } else {
        read.lesson.packets.push_back(std::move(packet));
    }
    return read;
}

} // namespace orvanta
