#include "editors/found_paths.h"

#include "core/paths.h"
#include "editors/entry_list.h"
#include "platform/process/media_locator.h"

#include <QDir>

namespace orvanta {

QString pathFoundBeside(const QString& documentFolder, const QString& pathText)
{
    const QString found =
        documentFolder.isEmpty() ? QString() : locateFile(pathText, documentFolder);
    return found.isEmpty() ? pathText : found;
}

static bool liesIn(const QString& folder, const QString& file)
{
    return QDir::cleanPath(folderOfPath(file)) == QDir::cleanPath(folder);
}

/// The document that Create opens at once; nobody keeps it.
static bool isTemporary(const QString& target)
{
    const QString name = fileNameOfPath(target);
    return name == u"temp.vxl" || name == u"temp.vxg";
}

QString pathFor(const QString& target, const QString& documentFolder, const QString& pathText)
{
    const bool stays =
        liesIn(documentFolder, target) || (isAbsolutePathText(pathText) && !isTemporary(target));
    return stays ? pathText : pathFoundBeside(documentFolder, pathText);
}

QStringList entriesFor(const QString& target, const QString& documentFolder, QStringList entries)
{
    for (QString& entry : entries) {
        const qsizetype marker = entry.indexOf(entryMarker());
        if (marker > 0) {
            entry.replace(0, marker, pathFor(target, documentFolder, entry.left(marker)));
        }
    }
    return entries;
}

} // namespace orvanta
