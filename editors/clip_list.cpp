#include "editors/clip_list.h"

#include "core/packet_file.h"
#include "core/paths.h"

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

} // namespace orvanta
