#include "editors/folder_names.h"

#include "core/log.h"
#include "core/paths.h"
#include "editors/entry_list.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <dirent.h>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// One item of a pattern list. Nearly all are "*.ext", which 20,000 names meet quickest as text.
struct NamePattern
{
    explicit NamePattern(const QString& pattern)
    {
        const QString tail = pattern.mid(1);
        if (pattern.startsWith(u'*') && !tail.contains(QRegularExpression(u"[*?\\[\\]]"_s))) {
            ending = tail;
        } else {
            wildcard = QRegularExpression::fromWildcard(pattern, Qt::CaseInsensitive);
        }
    }

    [[nodiscard]] bool matches(const QString& name) const
    {
        return wildcard ? wildcard->match(name).hasMatch()
                        : name.endsWith(ending, Qt::CaseInsensitive);
    }

    QString ending;
    std::optional<QRegularExpression> wildcard;
};

using NamePatterns = std::vector<NamePattern>;

NamePatterns patternsOf(const QString& list)
{
    NamePatterns patterns;
    for (const QString& pattern : list.split(u';', Qt::SkipEmptyParts)) {
        patterns.emplace_back(pattern);
    }
    return patterns;
}

bool matchesAny(const NamePatterns& patterns, const QString& name)
{
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const NamePattern& pattern) { return pattern.matches(name); });
}

/// Null for a name that no text, or no line of a file, can hold.
QString textOfName(const std::string& bytes)
{
    const QByteArray raw = QByteArray::fromStdString(bytes);
    QString text = QFile::decodeName(raw);
    if (QFile::encodeName(text) == raw && onOneLine(text) == text) {
        return text;
    }
    qCInfo(logErrors) << "a file name that is no line of text is left out:" << raw;
    return {};
}

bool isShown(const QString& name)
{
    return !name.isEmpty() && !name.startsWith(u'.');
}

/// Calls visit with each entry whose name can be shown. A folder that cannot be read has none.
template <typename Visit> void forEachEntry(const QString& folder, Visit visit)
{
    using std::filesystem::directory_iterator;
    const auto options = std::filesystem::directory_options::skip_permission_denied;
    std::error_code error;
    directory_iterator entry(QFile::encodeName(folder).toStdString(), options, error);
    for (; !error && entry != directory_iterator(); entry.increment(error)) {
        const QString name = textOfName(entry->path().filename().string());
        if (isShown(name)) {
            visit(*entry, name);
        }
    }
}

struct SortedName
{
    QCollatorSortKey key;
    QString name;

    friend bool operator<(const SortedName& a, const SortedName& b)
    {
        const int order = a.key.compare(b.key);
        return order != 0 ? order < 0 : a.name < b.name;
    }
};

QCollator naturalOrder()
{
    // The C locale has no rules for people; its users get those of English.
    const QLocale user;
    QCollator order(user.language() == QLocale::C ? QLocale(QLocale::English) : user);
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    return order;
}

} // namespace

void sortNaturally(QStringList& names)
{
    const QCollator order = naturalOrder();
    std::vector<SortedName> sorted;
    sorted.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : names) {
        sorted.push_back({.key = order.sortKey(name), .name = name});
    }
    std::sort(sorted.begin(), sorted.end());
    std::transform(sorted.begin(), sorted.end(), names.begin(),
                   [](const SortedName& item) { return item.name; });
}

QStringList fileNames(const QString& folder, const QString& pattern)
{
    const NamePatterns patterns = patternsOf(pattern);
    QStringList names;
    forEachEntry(folder, [&](const auto& entry, const QString& name) {
        std::error_code ignored;
        if (matchesAny(patterns, name) && entry.is_regular_file(ignored)) {
            names.append(name);
        }
    });
    sortNaturally(names);
    return names;
}

QStringList folderNames(const QString& folder)
{
    QStringList names;
    forEachEntry(folder, [&](const auto& entry, const QString& name) {
        std::error_code ignored;
        if (entry.is_directory(ignored)) {
            names.append(name);
        }
    });
    sortNaturally(names);
    return names;
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
