#include "platform/process/folder_search.h"

#include "core/log.h"
#include "platform/process/path_text.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <dirent.h>
#include <memory>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

// Below a home folder with all that people keep there it has an end, too.
constexpr int kMostFiles = 500'000;
constexpr int kDeepest = 40;

namespace {

using NamesByFold = QHash<QString, QStringList>;

struct Listing
{
    timespec changed = {}; // when the folder was last changed
    NamesByFold names;
};

struct Look
{
    std::atomic<bool> isForgotten = false;
    bool isOver = false;
    NamesByFold files; // paths by folded name
};

struct Folders
{
    std::mutex mutex;
    std::condition_variable lookOver;
    QHash<QString, std::shared_ptr<const Listing>> listings;
    QHash<QString, std::shared_ptr<Look>> looks;
};

struct CloseFolder
{
    void operator()(DIR* folder) const { ::closedir(folder); }
};

} // namespace

// Never destroyed: a look may still go on when the program ends.
static Folders& folders()
{
    static auto* const all = new Folders;
    return *all;
}

static std::optional<struct stat> statusOf(const QString& path)
{
    struct stat status = {};
    const bool exists = ::stat(QFile::encodeName(path).constData(), &status) == 0;
    return exists ? std::optional(status) : std::nullopt;
}

bool isRegularFile(const QString& path)
{
    const auto status = statusOf(path);
    return status && S_ISREG(status->st_mode);
}

/// Calls entry(name, type) for all that is in the folder. Names that are no text are left out.
template <typename Entry> static void forEachEntry(const QString& folder, Entry&& entry)
{
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(QFile::encodeName(folder).constData()));
    while (const dirent* const found = open ? ::readdir(open.get()) : nullptr) {
        const QString name = QFile::decodeName(found->d_name);
        if (name != u"." && name != u".." && !name.contains(QChar::ReplacementCharacter)) {
            entry(name, found->d_type);
        }
    }
}

static bool isSameMoment(const timespec& one, const timespec& other)
{
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

static std::shared_ptr<const Listing> listed(const QString& folder, const timespec& changed)
{
    auto listing = std::make_shared<Listing>();
    listing->changed = changed;
    forEachEntry(folder, [&](const QString& name, unsigned char) {
        listing->names[foldedName(name)].append(name);
    });
    return listing;
}

/// A folder's names, read again only when it has changed.
static std::shared_ptr<const Listing> listingOf(const QString& folder)
{
    const auto status = statusOf(folder);
    if (!status || !S_ISDIR(status->st_mode)) {
        return std::make_shared<const Listing>();
    }
    Folders& all = folders();
    {
        const std::lock_guard lock(all.mutex);
        auto known = all.listings.value(folder);
        if (known && isSameMoment(known->changed, status->st_mtim)) {
            return known;
        }
    }
    auto fresh = listed(folder, status->st_mtim);
    const std::lock_guard lock(all.mutex);
    all.listings.insert(folder, fresh);
    return fresh;
}

static QString below(const QString& folder, const QString& name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

/// The paths at which a name is in a folder: the exact one alone where it is there.
static QStringList placesOf(const QString& folder, const QString& name)
{
    const QString exact = below(folder, name);
    if (statusOf(exact)) {
        return {exact};
    }
    QStringList places = listingOf(folder)->names.value(foldedName(name));
    for (QString& place : places) {
        place = below(folder, place);
    }
    return places;
}

QStringList filesInAnyCase(const QString& folder, const QStringList& parts)
{
    QStringList places = {folder};
    for (const QString& part : parts) {
        QStringList next;
        for (const QString& place : std::as_const(places)) {
            next += placesOf(place, part);
        }
        places = next;
    }
    places.removeIf([](const QString& place) { return !isRegularFile(place); });
    return places;
}

/// What the kernel shows as files has no end, and none of it is a clip.
static bool isOfTheKernel(const QString& path)
{
    constexpr std::array folders = {u"/proc", u"/sys", u"/dev", u"/run"};
    return std::any_of(folders.begin(), folders.end(),
                       [&](const char16_t* folder) { return path == QStringView(folder); });
}

/// Some file systems do not say what an entry is.
static bool isFolder(const QString& path, unsigned char type)
{
    struct stat status = {};
    return type == DT_DIR ||
           (type == DT_UNKNOWN && ::lstat(QFile::encodeName(path).constData(), &status) == 0 &&
            S_ISDIR(status.st_mode));
}

/// Links to folders are not followed: they may lead in a circle, and out of the folder.
static int gather(const QString& top, const Look& look, NamesByFold& files)
{
    int count = 0;
    std::vector<std::pair<QString, int>> waiting = {{top, 0}};
    while (!waiting.empty() && count < kMostFiles && !look.isForgotten) {
        const QString folder = waiting.back().first;
        const int depth = waiting.back().second;
        waiting.pop_back();
        forEachEntry(folder, [&](const QString& name, unsigned char type) {
            const QString path = below(folder, name);
            if (!isFolder(path, type)) {
                files[foldedName(name)].append(path);
                ++count;
            } else if (!name.startsWith(u'.') && depth < kDeepest && !isOfTheKernel(path)) {
                waiting.emplace_back(path, depth + 1);
            }
        });
    }
    return count;
}

static void noteOver(Look& look)
{
    const std::lock_guard lock(folders().mutex);
    look.isOver = true;
    folders().lookOver.notify_all();
}

static void carryOut(const QString& folder, const std::shared_ptr<Look>& look)
{
    QElapsedTimer clock;
    clock.start();
    NamesByFold files;
    const int count = gather(folder, *look, files);
    if (look->isForgotten) {
        return noteOver(*look);
    }
    qCInfo(logPlaylist, "looked through %d files below %s in %lld ms%s", count,
           qUtf8Printable(folder), static_cast<long long>(clock.elapsed()),
           count < kMostFiles ? "" : "; there are more");
    look->files = std::move(files); // nobody reads them before it is over
    noteOver(*look);
}

static QString lookedAt(const QString& folder)
{
    return QDir::cleanPath(folder);
}

bool isLookedThrough(const QString& folder)
{
    const std::lock_guard lock(folders().mutex);
    const auto known = folders().looks.value(lookedAt(folder));
    return known && known->isOver;
}

/// The caller holds the lock.
static void begin(const QString& folder)
{
    const auto fresh = std::make_shared<Look>();
    folders().looks.insert(folder, fresh);
    try {
        std::thread([folder, fresh] { carryOut(folder, fresh); }).detach();
    } catch (const std::system_error& error) {
        qCInfo(logErrors, "no thread for looking through a folder: %s", error.what());
        fresh->isOver = true; // nothing is found there
    }
}

void lookThrough(const QString& folder)
{
    const QString place = lookedAt(folder);
    const std::lock_guard lock(folders().mutex);
    if (place.startsWith(u'/') && !folders().looks.contains(place)) {
        begin(place);
    }
}

bool waitForLook(const QString& folder, int milliseconds)
{
    Folders& all = folders();
    std::unique_lock lock(all.mutex);
    const auto known = all.looks.value(lookedAt(folder));
    if (!known) {
        return false;
    }
    const auto isOver = [&] { return known->isOver; };
    if (milliseconds < 0) {
        all.lookOver.wait(lock, isOver);
        return true;
    }
    return all.lookOver.wait_for(lock, std::chrono::milliseconds(milliseconds), isOver);
}

QStringList filesBelow(const QString& folder, const QString& name)
{
    QStringList files;
    {
        const std::lock_guard lock(folders().mutex);
        const auto known = folders().looks.value(lookedAt(folder));
        files = known && known->isOver ? known->files.value(foldedName(name)) : QStringList();
    }
    files.removeIf([](const QString& file) { return !isRegularFile(file); });
    return files;
}

void forgetFolders()
{
    const std::lock_guard lock(folders().mutex);
    for (const auto& look : std::as_const(folders().looks)) {
        look->isForgotten = true;
    }
    folders().listings.clear();
    folders().looks.clear();
}

} // namespace orvanta
