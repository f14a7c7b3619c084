// Files of other programs: read without harm, and never more than a packet holds.

#include "companions/exchange/cue.h"
#include "companions/exchange/ffmetadata.h"
#include "companions/exchange/import_format.h"
#include "companions/exchange/importing.h"
#include "companions/exchange/labels.h"
#include "companions/exchange/m3u.h"
#include "companions/exchange/matroska_chapters.h"
#include "companions/exchange/pls.h"
#include "companions/exchange/time_list.h"
#include "companions/exchange/webvtt.h"
#include "companions/exchange/xspf.h"
#include "core/foreign_text.h"
#include "core/ini_encoding.h"
#include "tests/fuzz/fuzzing.h"

#include <cmath>

using namespace orvanta;
using namespace orvanta::fuzz;

static void check(const ReadLesson& read)
{
    for (const LessonPacket& packet : read.lesson.packets) {
        for (const LessonMark& mark : packet.marks) {
            require(std::isfinite(mark.seconds), "every mark has a time");
        }
        for (const LessonPacket& part : packetsThatFit(packet)) {
            require(part.clips.size() <= kMostInPacket && part.marks.size() <= kMostInPacket,
                    "a packet holds what it can count");
        }
    }
}

static void readAsText(int kind, const QString& text)
{
    constexpr std::array kReaders = {readCue, readFfMetadata, readLabels, readM3u,
                                     readPls, readTimeList,   readWebVtt};
    check(kReaders[static_cast<std::size_t>(kind) % kReaders.size()](text));
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    constexpr int kTextKinds = 7;
    constexpr int kKinds = 9;
    const int kind = data[0] % kKinds;
    const QByteArray bytes = Input(data + 1, size - 1).rest().toByteArray();
    (void)importFormatOf(QStringLiteral("list.txt"), bytes);
    if (kind < kTextKinds) {
        readAsText(kind, foreignText(bytes, CodePage::current()));
    } else {
        check(kind == kTextKinds ? readXspf(bytes) : readMatroskaChapters(bytes));
    }
    return 0;
}
