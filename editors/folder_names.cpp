#include "editors/folder_names.h"

#include "core/folder_contents.h"
#include "core/log.h"
#include "core/paths.h"
#include "editors/entry_list.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <unistd.h>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

/// Without the names that no line of a file can hold.
static QStringList linesOnly(QStringList names)
{
    names.removeIf([](const QString& name) {
        const bool isLine = onOneLine(name) == name;
        if (!isLine) {
            qCInfo(logErrors) << "a file name that is no line of text is left out:" << name;
        }
        return !isLine;
    });
    return names;
}

QStringList fileNames(const QString& folder, const QString& pattern)
{
    return linesOnly(namesOfFiles(folder, pattern));
}

QStringList folderNames(const QString& folder)
{
    return linesOnly(namesOfFolders(folder));
}

/// Blanks and the like stand in the mount table as a backslash and three octal digits.
static QString unescaped(const QByteArray& field)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < field.size(); ++i) {
        bool isOctal = false;
        const int code = field.at(i) == '\\' ? field.mid(i + 1, 3).toInt(&isOctal, 8) : 0;
        bytes.append(isOctal ? static_cast<char>(code) : field.at(i));
        i += isOctal ? 3 : 0;
    }
    return QFile::decodeName(bytes);
}

static bool isUsersPlace(const QString& mountPoint)
{
    static const QStringList places = {u"/media/"_s, u"/run/media/"_s, u"/mnt/"_s};
    return std::any_of(places.begin(), places.end(), [&](const QString& place) {
        return mountPoint.startsWith(place) || mountPoint + u'/' == place;
    });
}

QStringList volumesOfMountTable(const QByteArray& table)
{
    QStringList volumes;
    for (const QByteArray& line : table.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        const QString mountPoint = fields.size() > 1 ? unescaped(fields.at(1)) : QString();
        if (isUsersPlace(mountPoint) && !volumes.contains(mountPoint)) {
            volumes.append(mountPoint);
        }
    }
    sortNaturally(volumes);
    return volumes;
}

QStringList mountedVolumes()
{
    QFile table(u"/proc/self/mounts"_s);
    return table.open(QIODevice::ReadOnly) ? volumesOfMountTable(table.readAll()) : QStringList();
}

QString AddBackslash(const QString& path)
{
    return joinPath(path, QString());
}

bool FolderExists(const QString& path)
{
    if (!path.startsWith(u'/') || path.contains(QChar::Null)) {
        return false;
    }
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(QFile::encodeName(path).constData()),
                                                     &closedir);
    return folder != nullptr;
}

QString startFolder(const QString& stored)
{
    if (FolderExists(stored)) {
        return stored;
    }
    return FolderExists(QDir::homePath()) ? QDir::homePath() : QDir::rootPath();
}

static QString withoutQuotes(QString text)
{
    if (text.size() > 1 && text.startsWith(u'"') && text.endsWith(u'"')) {
        text = text.mid(1, text.size() - 2);
    }
    return text;
}

static QString absolutePath(const QString& text, const QString& currentFolder)
{
    if (text.startsWith(u"file:"_s)) {
        return QUrl(text).toLocalFile();
    }
    if (text == u"~" || text.startsWith(u"~/"_s)) {
        return QDir::homePath() + text.mid(1);
    }
    return text.startsWith(u'/') ? text : joinPath(currentFolder, text);
}

/// Blanks around a path come with pasting, unless they belong to a name that is there.
static QString withoutWrapping(const QString& line, const QString& currentFolder)
{
    return QFileInfo::exists(absolutePath(line, currentFolder)) ? line
                                                                : withoutQuotes(line.trimmed());
}

TypedPath typedPath(const QString& text, const QString& currentFolder)
{
    const QString typed = withoutWrapping(onOneLine(text), currentFolder);
    if (typed.isEmpty()) {
        return {};
    }
    const QString path = QDir::cleanPath(absolutePath(typed, currentFolder));
    if (FolderExists(path)) {
        return {.folder = path, .name = {}};
    }
    const QString folder = QDir::cleanPath(folderOfPath(path));
    if (!FolderExists(folder)) {
        return {};
    }
    return {.folder = folder, .name = fileNameOfPath(path)};
}

} // namespace orvanta
