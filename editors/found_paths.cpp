#include "editors/found_paths.h"

#include "editors/entry_list.h"
#include "platform/media_locator.h"

namespace orvanta {

QString pathFoundBeside(const QString& documentFolder, const QString& pathText)
{
    const QString found =
        documentFolder.isEmpty() ? QString() : locateFile(pathText, documentFolder);
    return found.isEmpty() ? pathText : found;
}

QStringList entriesFoundBeside(const QString& documentFolder, QStringList entries)
{
    for (QString& entry : entries) {
        const qsizetype marker = entry.indexOf(entryMarker());
        if (marker > 0) {
            entry.replace(0, marker, pathFoundBeside(documentFolder, entry.left(marker)));
        }
    }
    return entries;
}

} // namespace orvanta
