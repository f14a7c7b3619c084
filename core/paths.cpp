#include "core/paths.h"

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

/// Position of the last separator; -1 when there is none.
static qsizetype lastSeparator(const QString& path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    return path.startsWith(u'/') ? slash : std::max(slash, path.lastIndexOf(u'\\'));
}

bool isAbsolutePathText(const QString& pathText)
{
    const bool onDrive = pathText.size() > 2 && pathText[0].isLetter() && pathText[1] == u':' &&
                         (pathText[2] == u'\\' || pathText[2] == u'/');
    return pathText.startsWith(u'/') || pathText.startsWith(u'\\') || onDrive;
}

QString folderOfPath(const QString& path)
{
    return path.left(lastSeparator(path) + 1);
}

QString fileNameOfPath(const QString& path)
{
    return path.mid(lastSeparator(path) + 1);
}

QString clipNameOfPath(const QString& path)
{
    if (lastSeparator(path) < 0) {
        return {};
    }
    const QString name = fileNameOfPath(path);
    return name.left(std::max<qsizetype>(name.lastIndexOf(u'.'), 0));
}

QString joinPath(const QString& folder, const QString& name)
{
    if (folder.isEmpty()) {
        return name;
    }
    const qsizetype separator = lastSeparator(folder);
    if (separator >= 0 && separator == folder.size() - 1) {
        return folder + name;
    }
    return folder + (separator < 0 ? QChar(u'/') : folder.at(separator)) + name;
}

QString kindOfPath(const QString& path)
{
    return path.right(3).toUpper();
}

QString programFile(const QString& folder, const QString& name)
{
    QString below = name.startsWith(u'\\') ? name.mid(1) : name;
    below.replace(u'\\', u'/');
    return joinPath(folder, below);
}

} // namespace orvanta
