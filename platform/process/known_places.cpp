#include "platform/process/known_places.h"

#include "core/ini.h"
#include "core/log.h"

#include <algorithm>
#include <mutex>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kDrives = u"drives"_s;
static const QString kMoved = u"moved"_s;
static const QString kMovedCount = u"num"_s;
constexpr int kMostMoved = 200; // the oldest ones go

namespace {

struct Shared
{
    std::mutex mutex;
    QString file;
    KnownPlaces places;
};

} // namespace

static Shared& shared()
{
    static Shared state;
    return state;
}

static QHash<QChar, QString> drivesIn(const IniSnapshot& ini)
{
    QHash<QChar, QString> drives;
    for (char16_t letter = u'a'; letter <= u'z'; ++letter) {
        const QString folder = ini.read(kDrives, QString(QChar(letter)));
        if (folder.startsWith(u'/')) {
            drives.insert(QChar(letter), folder);
        } else if (!folder.isEmpty()) {
            qCInfo(logErrors, "drive %c: no folder of this system: %s", static_cast<char>(letter),
                   qUtf8Printable(folder));
        }
    }
    return drives;
}

static std::vector<MovedFolder> movedIn(const IniSnapshot& ini)
{
    std::vector<MovedFolder> moved;
    const int count = std::min(ini.read(kMoved, kMovedCount).toInt(), kMostMoved);
    for (int i = 1; i <= count; ++i) {
        const MovedFolder folder = {ini.read(kMoved, u"from"_s + QString::number(i)),
                                    ini.read(kMoved, u"to"_s + QString::number(i))};
        if (!folder.from.isEmpty() && folder.to.startsWith(u'/')) {
            moved.push_back(folder);
        }
    }
    return moved;
}

void readPlaces()
{
    Shared& state = shared();
    const std::lock_guard lock(state.mutex);
    if (state.file.isEmpty()) {
        return;
    }
    const IniSnapshot ini(state.file);
    state.places.drives = drivesIn(ini);
    state.places.moved = movedIn(ini);
}

void setPlacesFile(const QString& platformIni)
{
    {
        const std::lock_guard lock(shared().mutex);
        shared().file = platformIni;
        shared().places = {};
    }
    readPlaces();
}

KnownPlaces knownPlaces()
{
    const std::lock_guard lock(shared().mutex);
    return shared().places;
}

void guessDrive(QChar letter, const QString& folder)
{
    const std::lock_guard lock(shared().mutex);
    QString& known = shared().places.guessed[letter];
    if (known != folder) {
        known = folder;
        qCInfo(logPlaylist, "drive %c: seems to be %s", letter.toLatin1(), qUtf8Printable(folder));
    }
}

/// All of them: the numbers of the later ones change when an earlier one goes.
static std::vector<IniChange> changesFor(const std::vector<MovedFolder>& moved)
{
    std::vector<IniChange> changes = {{kMoved, kMovedCount, QString::number(moved.size())}};
    int number = 0;
    for (const MovedFolder& folder : moved) {
        const QString i = QString::number(++number);
        changes.push_back({kMoved, u"from"_s + i, folder.from});
        changes.push_back({kMoved, u"to"_s + i, folder.to});
    }
    return changes;
}

bool rememberMoved(const MovedFolder& folder)
{
    Shared& state = shared();
    const std::lock_guard lock(state.mutex);
    std::vector<MovedFolder>& moved = state.places.moved;
    moved.erase(std::remove_if(moved.begin(), moved.end(),
                               [&](const MovedFolder& old) { return old.from == folder.from; }),
                moved.end());
    if (moved.size() == kMostMoved) {
        moved.erase(moved.begin());
    }
    moved.push_back(folder);
    return !state.file.isEmpty() &&
           changeIniAtOnce(state.file, [&](const auto&) { return changesFor(moved); });
}

} // namespace orvanta
