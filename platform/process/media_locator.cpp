#include "platform/process/media_locator.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <sys/stat.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct Search
{
    QString pathText;
    QString packetFolder;
};

/// The place where one step of the search expects the file; empty when the step does not apply.
using SearchStep = QString (*)(const Search&);

} // namespace

/// By stat alone: opening a FIFO or a device to see what it is could block or disturb it.
static bool isRegularFile(const QString& path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode);
}

/// "C:\Clips\a.avi"; but "A: intro.mp3" is a name.
static bool hasDriveLetter(const QString& pathText)
{
    return pathText.size() > 2 && pathText[0].isLetter() && pathText[1] == u':' &&
           (pathText[2] == u'\\' || pathText[2] == u'/');
}

/// "http://host/a.avi", "lavf://...": two letters or more, a colon and a slash.
static bool isUrl(const QString& pathText)
{
    const qsizetype colon = pathText.indexOf(u":/"_s);
    if (colon < 2) {
        return false;
    }
    const QStringView scheme = QStringView(pathText).left(colon);
    return std::all_of(scheme.begin(), scheme.end(), [](QChar c) {
        return c.unicode() < 128 && (c.isLetterOrNumber() || u"+.-"_s.contains(c));
    });
}

static bool canNameAFile(const QString& pathText)
{
    return !pathText.isEmpty() && !pathText.contains(QChar::Null) && !isUrl(pathText);
}

static QString asWritten(const Search& search)
{
    return search.pathText.startsWith(u'/') ? search.pathText : QString();
}

static bool isRelative(const Search& search)
{
    return !search.pathText.startsWith(u'/') && !hasDriveLetter(search.pathText);
}

static QString belowFolder(const Search& search, const QString& name)
{
    return QDir(search.packetFolder).absoluteFilePath(name);
}

/// A backslash may be a letter of the file's name.
static QString belowPacketFolder(const Search& search)
{
    return isRelative(search) ? belowFolder(search, search.pathText) : QString();
}

/// A backslash is a separator in packets that were written on other systems.
static QString belowPacketFolderWithSlashes(const Search& search)
{
    if (!isRelative(search)) {
        return {};
    }
    return belowFolder(search, QString(search.pathText).replace(u'\\', u'/'));
}

/// In the order in which they are tried.
constexpr std::array<SearchStep, 3> kSearchSteps = {
    asWritten,
    belowPacketFolder,
    belowPacketFolderWithSlashes,
};

QString locateFile(const QString& pathText, const QString& packetFolder)
{
    if (!canNameAFile(pathText)) {
        return {};
    }
    const Search search = {pathText, packetFolder};
    for (const SearchStep step : kSearchSteps) {
        QString place = step(search);
        if (!place.isEmpty() && isRegularFile(place)) {
            return place;
        }
    }
    return {};
}

bool isOnDriveA(const QString& pathText)
{
    return pathText.startsWith(u"a:\\", Qt::CaseInsensitive);
}

} // namespace orvanta
