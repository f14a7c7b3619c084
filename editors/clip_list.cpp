#include "editors/clip_list.h"

#include "core/ini.h"
#include "core/numbers.h"
#include "core/packet_file.h"
#include "core/paths.h"

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

QString clipEntry(const QString& path, const QString& text)
{
    return path + entryMarker() + text;
}

void addClip(EntryList& list, const QString& folder, const QString& name)
{
    makeRoom(list);
    rebuildSelected(list, clipEntry(joinPath(folder, name), nameWithoutExtension(name)));
}

void loadClips(EntryList& list, const QString& packet)
{
    removeAll(list);
    readClipListEntries(packet, list.entries);
}

QString clipPattern(const QString& iniPath)
{
    // A hand-edited count cannot ask for more types than a count can count.
    const double count = std::floor(decimalValue(ReadIni(u"types"_s, u"num"_s, iniPath)));
    const int types = roundToInt16(count).value();
    QString pattern;
    for (int i = 0; i < types; ++i) {
        pattern += u";*."_s + ReadIni(u"types"_s, u"file"_s + QString::number(i), iniPath);
    }
    return pattern.mid(1);
}

} // namespace orvanta
