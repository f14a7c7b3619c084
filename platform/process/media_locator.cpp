#include "platform/process/media_locator.h"

#include "core/log.h"
#include "core/paths.h"
#include "platform/process/folder_search.h"
#include "platform/process/known_places.h"
#include "platform/process/path_text.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <array>
#include <mutex>
#include <utility>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr int kForEver = -1;

struct Search
{
    QString text;
    PathText path;
    LessonFolders folders;
    KnownPlaces known;

    [[nodiscard]] QStringList startFolders() const
    {
        QStringList all = {folders.packet, folders.group};
        all.removeAll(QString());
        all.removeDuplicates();
        return all;
    }
};

/// Where a file may be: parts below a folder.
struct Place
{
    QString folder;
    QStringList parts;
    QChar drive = {};       // the drive that would lie at the folder; null: none is guessed
    bool isWritten = false; // the text itself or the drive table says so

    [[nodiscard]] QString path() const { return QDir(folder).absoluteFilePath(parts.join(u'/')); }
};

/// What is known to have been said about a text: a log that repeats itself helps nobody.
struct Said
{
    std::mutex mutex;
    QSet<QString> lines;
};

} // namespace

static Said& said()
{
    static Said all;
    return all;
}

static void sayOnce(const QString& line)
{
    Said& all = said();
    const std::lock_guard lock(all.mutex);
    if (!all.lines.contains(line)) {
        all.lines.insert(line);
        qCInfo(logPlaylist, "%s", qUtf8Printable(line));
    }
}

/// As the text says, letter for letter. A backslash in a relative text may be a letter of the
/// file's name, or a separator on another system.
static QStringList writtenPaths(const Search& search)
{
    if (search.path.root == PathRoot::Linux) {
        return {search.text};
    }
    if (hasDriveLetter(search.text)) {
        return {};
    }
    const QDir folder(search.folders.packet);
    return {folder.absoluteFilePath(search.text),
            folder.absoluteFilePath(QString(search.text).replace(u'\\', u'/'))};
}

static QStringList partsOf(const QString& folder)
{
    return pathTextOf(QDir::cleanPath(folder)).parts;
}

static QString folderOf(const QStringList& parts)
{
    return u'/' + parts.join(u'/');
}

static bool beginsWith(const QStringList& parts, const QStringList& beginning)
{
    return parts.size() > beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), parts.begin(), isSameName);
}

/// "E:\Lessons\3\a.avi" in a packet that lies in /media/user/STICK/Lessons/3: the drive is the
/// folder above what both have in common. The longest common run is the likeliest.
static std::vector<Place> placesByOwnFolder(const Search& search, const QString& folder)
{
    const QStringList own = partsOf(folder);
    const QStringList& parts = search.path.parts;
    std::vector<std::pair<qsizetype, Place>> runs;
    for (qsizetype at = 0; at < own.size(); ++at) {
        qsizetype run = 0;
        while (run + 1 < parts.size() && at + run < own.size() &&
               isSameName(own[at + run], parts[run])) {
            ++run;
        }
        if (run > 0) {
            runs.emplace_back(run, Place{folderOf(own.mid(0, at)),
                                         own.mid(at, run) + parts.mid(run), search.path.drive});
        }
    }
    std::stable_sort(runs.begin(), runs.end(),
                     [](const auto& one, const auto& other) { return one.first > other.first; });
    std::vector<Place> places;
    places.reserve(runs.size());
    for (auto& run : runs) {
        places.push_back(std::move(run.second));
    }
    return places;
}

static void addDrivePlaces(std::vector<Place>& places, const Search& search)
{
    const QChar drive = search.path.drive;
    if (search.known.drives.contains(drive)) {
        places.push_back({search.known.drives[drive], search.path.parts, {}, true});
    }
    for (const QString& folder : search.startFolders()) {
        const std::vector<Place> own = placesByOwnFolder(search, folder);
        places.insert(places.end(), own.begin(), own.end());
    }
    if (search.known.guessed.contains(drive)) {
        places.push_back({search.known.guessed[drive], search.path.parts});
    }
}

/// The same folder, written as it would be in this document: a relative text is meant below it.
static PathText wholePath(const Search& search)
{
    return search.path.root == PathRoot::Folder
               ? pathTextOf(
                     QDir(search.folders.packet).absoluteFilePath(search.path.parts.join(u'/')))
               : search.path;
}

static void addMovedPlaces(std::vector<Place>& places, const Search& search)
{
    if (search.known.moved.empty()) {
        return;
    }
    const PathText whole = wholePath(search);
    // What was said last counts first.
    for (auto moved = search.known.moved.rbegin(); moved != search.known.moved.rend(); ++moved) {
        const PathText from = pathTextOf(moved->from);
        if (from.root == whole.root && from.drive == whole.drive &&
            beginsWith(whole.parts, from.parts)) {
            places.push_back({moved->to, whole.parts.mid(from.parts.size())});
        }
    }
}

/// Where the text means its file to be. One that leads out of its folder is taken as written only.
static std::vector<Place> meantPlaces(const Search& search)
{
    std::vector<Place> places;
    if (search.path.root == PathRoot::Linux) {
        places.push_back({u"/"_s, search.path.parts});
    } else if (search.path.root == PathRoot::Folder && !search.path.escapes &&
               !search.folders.packet.isEmpty()) {
        places.push_back({search.folders.packet, search.path.parts});
    } else if (search.path.root == PathRoot::Drive) {
        addDrivePlaces(places, search);
    }
    addMovedPlaces(places, search);
    return places;
}

/// Of several files the newest.
static QString newestOf(const QString& text, const QStringList& files)
{
    if (files.size() < 2) {
        return files.value(0);
    }
    QString newest =
        *std::max_element(files.begin(), files.end(), [](const QString& one, const QString& other) {
            return QFileInfo(one).lastModified() < QFileInfo(other).lastModified();
        });
    sayOnce(u"%1 may be one of %2 files, the newest is taken: %3"_s.arg(text)
                .arg(files.size())
                .arg(newest));
    return newest;
}

static void learnFrom(const Place& place)
{
    if (!place.drive.isNull()) {
        guessDrive(place.drive, place.folder);
    }
}

static FoundFile inPlaceExactly(const std::vector<Place>& places)
{
    for (const Place& place : places) {
        if (QString path = place.path(); isRegularFile(path)) {
            learnFrom(place);
            return {path, place.isWritten ? Finding::AsWritten : Finding::Elsewhere};
        }
    }
    return {};
}

static FoundFile inPlaceInAnyCase(const Search& search, const std::vector<Place>& places)
{
    for (const Place& place : places) {
        const QString file =
            newestOf(search.text, filesInAnyCase(QDir(place.folder).absolutePath(), place.parts));
        if (!file.isEmpty()) {
            learnFrom(place);
            return {file, Finding::Elsewhere};
        }
    }
    return {};
}

/// The end of the path below a folder: all of its parts, then all but the first, ...
static QString tailBelow(const Search& search, const QString& folder)
{
    const QStringList& parts = search.path.parts;
    for (qsizetype left = 0; left + 1 < parts.size(); ++left) {
        const QStringList files = filesInAnyCase(QDir::cleanPath(folder), parts.mid(left));
        if (!files.isEmpty()) {
            return newestOf(search.text, files);
        }
    }
    return {};
}

/// Somewhere below a folder: whose path ends most like the text.
static QString likestBelow(const Search& search, const QString& folder, SearchDepth depth)
{
    if (depth == SearchDepth::Patient && !isLookedThrough(folder)) {
        lookThrough(folder);
        (void)waitForLook(folder, kForEver);
    }
    QStringList likest;
    qsizetype longest = 0;
    for (const QString& file : filesBelow(folder, search.path.parts.last())) {
        const qsizetype tail = commonTail(partsOf(file), search.path.parts);
        if (tail > longest) {
            likest.clear();
            longest = tail;
        }
        if (tail == longest) {
            likest.append(file);
        }
    }
    return newestOf(search.text, likest);
}

static QString belowFolders(const Search& search, SearchDepth depth)
{
    const QStringList folders = search.startFolders();
    if (search.path.parts.isEmpty() || folders.isEmpty()) {
        return {};
    }
    const QStringList name = {search.path.parts.last()};
    QString file = newestOf(search.text, filesInAnyCase(QDir::cleanPath(folders.first()), name));
    for (auto folder = folders.begin(); file.isEmpty() && folder != folders.end(); ++folder) {
        file = tailBelow(search, *folder);
    }
    for (auto folder = folders.begin(); file.isEmpty() && folder != folders.end(); ++folder) {
        file = likestBelow(search, *folder, depth);
    }
    return file;
}

static FoundFile found(const Search& search, SearchDepth depth)
{
    const std::vector<Place> places = meantPlaces(search);
    FoundFile result = inPlaceExactly(places);
    if (result.file.isEmpty()) {
        result = inPlaceInAnyCase(search, places);
    }
    if (result.file.isEmpty()) {
        result.file = belowFolders(search, depth);
        result.finding = result.file.isEmpty() ? Finding::Nowhere : Finding::Elsewhere;
    }
    return result;
}

static FoundFile asWritten(const Search& search)
{
    for (const QString& path : writtenPaths(search)) {
        if (isRegularFile(path)) {
            return {path, Finding::AsWritten};
        }
    }
    return {};
}

/// A folder, a device, a FIFO or a socket stands where the text says: no other file is meant.
static bool isNoFile(const Search& search)
{
    const QStringList paths = writtenPaths(search);
    return std::any_of(paths.begin(), paths.end(),
                       [](const QString& path) { return QFileInfo::exists(path); });
}

static FoundFile elsewhere(Search search, SearchDepth depth)
{
    search.known = knownPlaces();
    FoundFile result = found(search, depth);
    const QString text = search.text;
    for (const QString& spelling : otherSpellings(text)) {
        if (!result.file.isEmpty()) {
            break;
        }
        search.text = spelling;
        search.path = pathTextOf(spelling);
        result = found(search, depth);
    }
    if (result.finding == Finding::Elsewhere) {
        sayOnce(u"found elsewhere: %1 is %2"_s.arg(text, result.file));
    }
    return result;
}

FoundFile findMediaFile(const QString& pathText, const LessonFolders& folders, SearchDepth depth)
{
    if (!canNameAFile(pathText)) {
        const bool isAddress = !pathText.isEmpty() && !pathText.contains(QChar::Null);
        return {{}, isAddress ? Finding::Refused : Finding::Nowhere};
    }
    Search search = {pathText, pathTextOf(pathText), folders, {}};
    FoundFile result = asWritten(search);
    if (!result.file.isEmpty()) {
        return result;
    }
    if (isNoFile(search)) {
        return {{}, Finding::Refused};
    }
    return elsewhere(std::move(search), depth);
}

QString locateFile(const QString& pathText, const QString& packetFolder)
{
    return findMediaFile(pathText, {.packet = packetFolder}).file;
}

void beginSearches()
{
    forgetFolders();
    readPlaces();
    const std::lock_guard lock(said().mutex);
    said().lines.clear();
}

bool mayBeFoundLater(const QString& pathText, const LessonFolders& folders, int milliseconds)
{
    bool isOver = true;
    for (const QString& folder : {folders.packet, folders.group}) {
        if (canNameAFile(pathText) && folder.startsWith(u'/')) {
            lookThrough(folder);
            isOver = waitForLook(folder, milliseconds) && isOver;
        }
    }
    return !isOver;
}

bool isOnDriveA(const QString& pathText)
{
    if (pathText.startsWith(u"a:\\", Qt::CaseInsensitive)) {
        return true;
    }
    const QString drive = knownPlaces().drives.value(u'a');
    return !drive.isEmpty() && pathText.startsWith(u'/') &&
           beginsWith(partsOf(pathText), partsOf(drive));
}

} // namespace orvanta
