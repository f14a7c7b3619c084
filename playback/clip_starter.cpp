#include "playback/clip_starter.h"

#include "core/error_boundary.h"
#include "core/group_file.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "platform/process/media_locator.h"
#include "playback/brakes.h"
#include "playback/event_wait.h"

#include <QFile>

#include <chrono>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

// For what lies deep below a folder.
constexpr int kUnnoticed = 50; // milliseconds for which the windows may stand still
constexpr std::chrono::seconds kPatienceWithSearch(30);

ClipStarter::ClipStarter(EngineContext& context, TransportButtons& transport)
    : m_context(context),
      m_transport(transport)
{}

void ClipStarter::ListClick(Int16 p, Int16 q, FailedMedia failed)
{
    start({p, q}, ByItself, std::move(failed));
}

void ClipStarter::startByHand(Int16 p, Int16 q)
{
    start({p, q}, ByHand, {});
}

void ClipStarter::reachBrake(Int16 p, Int16 q)
{
    start({p, q}, ByPlaying, {});
}

void ClipStarter::beginAt(Cursor place, double seconds)
{
    m_beginning = {place, seconds, m_context.module.playlist.revision};
}

std::optional<double> ClipStarter::takeBeginning(Cursor place)
{
    const Beginning beginning = std::exchange(m_beginning, {});
    const bool isMeant =
        beginning.place == place && beginning.revision == m_context.module.playlist.revision;
    return isMeant ? std::optional(beginning.seconds) : std::nullopt;
}

void ClipStarter::start(Cursor place, Way way, FailedMedia failed)
{
    resumeNext("bookmark of the line before", [&] { m_context.onLineLeft(); });
    m_context.supersede(std::move(failed));
    m_way = way;
    const Superseded superseded(m_context);
    m_context.log.running();
    m_transport.showPlaying();
    // A clip that is unloaded before any tick has seen it run leaves no other trace.
    m_context.module.playback.StateChanged = true;
    resumeNext("picture", [&] { showPicture(place.packet); });
    resumeNext("saved position", [&] { handBookmarkOver(); });
    const bool started = conditionHolds("media", [&] { return startMedia(place, way); });
    if (superseded()) {
        return;
    }
    makeCurrent(place, way);
    // Once more, now of the entry that plays: the video window goes to its own saved position.
    resumeNext("saved position", [&] { handBookmarkOver(); });
    if (started) {
        logStart(place);
    } else {
        noteFailure();
    }
}

void ClipStarter::showPicture(Int16 p)
{
    const PlaylistEntry& packet = m_context.module.playlist.packet(p);
    const bool hasPicture = !packet.Picture.isEmpty() && packet.Picture != kNoPicture;
    m_context.video.setStillPicture(
        hasPicture ? m_context.findFile(packet.Picture, {.packet = packet.PictureFolder})
                   : QString());
}

/// Of the entry that is current.
void ClipStarter::handBookmarkOver()
{
    const ClipEntry& entry = m_context.currentPacket().clip(m_context.cursor().clip);
    m_context.operations.SetBookmark(m_context.module.settings().position(entry.Text));
}

bool ClipStarter::startMedia(Cursor place, Way way)
{
    const bool braked = m_context.module.playlist.packet(place.packet).HasBrakes;
    return braked ? startBrake(place, way) : startClip(place);
}

/// Raises 53 for a text that names no file.
static QString existing(const QString& file)
{
    if (file.isEmpty()) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    return file;
}

/// A lesson that has moved may lie in a large folder: what is deep below it is known only after a
/// while, and windows and keys go on meanwhile.
QString ClipStarter::located(const QString& text, const LessonFolders& folders)
{
    QString file = m_context.findFile(text, folders);
    if (!file.isEmpty() || !mayBeFoundLater(text, folders, kUnnoticed)) {
        return file.isEmpty() ? m_context.findFile(text, folders) : file;
    }
    const Superseded superseded(m_context);
    ++m_waiting;
    waitInEventLoop([&] { return superseded() || !mayBeFoundLater(text, folders); },
                    QDeadlineTimer(kPatienceWithSearch));
    --m_waiting;
    return superseded() ? QString() : m_context.findFile(text, folders);
}

bool ClipStarter::startClip(Cursor place)
{
    const PlaylistEntry& packet = m_context.module.playlist.packet(place.packet);
    // Copies: appending packets while the file is looked for moves the list.
    const QString text = packet.clip(place.clip).Path;
    const QString folder = packet.Folder;
    const QString file = existing(located(text, m_context.foldersOf(packet)));
    const auto beginning = takeBeginning(place);
    open(playableFile(text, file), text, folder);
    if (beginning) { // the player goes there once it has opened the clip
        resumeNext("place in the clip",
                   [&] { m_context.operations.SetPlayerPosition(decimalText(*beginning)); });
    }
    m_context.operations.PlayerRun();
    return !m_context.player().isEmpty();
}

bool ClipStarter::startBrake(Cursor place, Way way)
{
    const Superseded superseded(m_context);
    const auto beginning = takeBeginning(place);
    const PlaylistEntry& packet = m_context.module.playlist.packet(place.packet);
    const QString text = packet.MediaFile;
    const QString folder = packet.Folder;
    const QString file = existing(located(text, m_context.foldersOf(packet)));
    if (mustLoad(file, place.packet)) {
        open(file, text, folder);
    } else {
        // Perhaps loaded as a clip of its own, or from another packet: now it is this packet's.
        m_context.loaded = {file, text, folder};
    }
    if (!waitUntilReady() || superseded()) {
        return false;
    }
    // Not through a reference: appending packets meanwhile has moved the list.
    const QString time = m_context.module.playlist.packet(place.packet).clip(place.clip).Time;
    const bool stands = takeStanding(time) && way == ByPlaying;
    if (stands) {
        m_context.operations.ForgetEnd();
        m_context.operations.PlayerRun();
    } else if (way != ByPlaying || !isSoonAfter(time)) {
        goToBrake(beginning ? decimalText(*beginning) : time);
    }
    return true;
}

void ClipStarter::goToBrake(const QString& time)
{
    m_context.operations.ForgetEnd();
    resumeNext("time of the brake", [&] { m_context.operations.SetPlayerPosition(time); });
    m_context.operations.PlayerRun();
}

void ClipStarter::standAtBrake(double seconds)
{
    m_context.operations.SetPlayerPosition(decimalText(seconds));
    m_standsAt = seconds;
}

/// A picture may begin a little behind the time that was sought.
bool ClipStarter::takeStanding(const QString& time)
{
    constexpr double kPicture = 0.1; // seconds, more than one lasts
    const auto standsAt = std::exchange(m_standsAt, std::nullopt);
    return standsAt && m_context.player().state == MediaControl::Paused &&
           conditionHolds("time of a brake", [&] {
               const double past = m_context.operations.secondsNow() - *standsAt;
               return decimalValue(time) == *standsAt && past >= 0 && past < kPicture;
           });
}

bool ClipStarter::isSoonAfter(const QString& time) const
{
    return m_context.player().isRunning() && conditionHolds("time of a reached brake", [&] {
               const double since = decimalValue(m_context.player().position) - decimalValue(time);
               return since >= 0 && since < kSoonAfterBrake;
           });
}

bool ClipStarter::mustLoad(const QString& file, Int16 p) const
{
    const PlayerSnapshot& player = m_context.player();
    return player.file != file || player.isEmpty() || p != m_context.cursor().packet;
}

bool ClipStarter::waitUntilReady()
{
    const Superseded superseded(m_context);
    ++m_waiting;
    waitInEventLoop([&] {
        m_context.operations.look();
        return superseded() || !m_context.player().opening;
    });
    --m_waiting;
    if (m_context.player().isEmpty() && !m_openingFailed) {
        m_context.supersede(); // unloaded by the user, who closed the video window: no failure
    }
    return m_context.player().ready;
}

void ClipStarter::open(const QString& file, const QString& text, const QString& folder)
{
    m_context.loaded = {file, text, folder};
    m_openingFailed = false;
    m_context.operations.OpenMedia(file);
}

/// Raises 75 when the copy fails.
static QString copied(const QString& file, const QString& target)
{
    QFile::remove(target);
    if (!QFile::copy(file, target)) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    return target;
}

/// A clip on drive A plays from the hard disk when the option says so.
bool ClipStarter::mustCopy(const QString& text, const QString& file) const
{
    return (isOnDriveA(text) || isOnDriveA(file)) &&
           m_context.module.optionIsOn(Option::CopyFromDriveA);
}

QString ClipStarter::playableFile(const QString& text, const QString& file) const
{
    const QString& folder = m_context.module.ApplicationFolder;
    return mustCopy(text, file) ? copied(file, programFile(folder, u"\\temp.vxc"_s)) : file;
}

QString ClipStarter::fileOf(Cursor place) const
{
    const PlaylistEntry& packet = m_context.module.playlist.packet(place.packet);
    if (packet.HasBrakes) {
        return {}; // it goes to a brake
    }
    const QString& text = packet.clip(place.clip).Path;
    const QString file = m_context.findFile(text, m_context.foldersOf(packet));
    return mustCopy(text, file) ? QString() : file;
}

/// Playing never changes a mark; the end mark is reached even unchecked.
void ClipStarter::makeCurrent(Cursor place, Way way)
{
    m_context.setCursor(place);
    resumeNext("current clip", [&] {
        m_context.view->setClipText(m_context.currentPacket().clip(place.clip).Text);
    });
    const int line = m_context.moveListCursor(place);
    if (line >= 0 && way != ByPlaying) {
        m_context.view->checkLine(line);
        m_context.view->enableTimer2(line);
    }
}

void ClipStarter::logStart(Cursor place)
{
    resumeNext("log", [&] {
        m_context.log.start(place, m_context.currentPacket().clip(place.clip).Text);
    });
}

void ClipStarter::openingFailed()
{
    m_openingFailed = true;
    if (m_context.view != nullptr) {
        noteFailure();
    }
}

/// A player that still has its earlier clip plays on; an empty one goes on to the next clip with
/// the next tick, unless a person asked for this one.
void ClipStarter::noteFailure()
{
    if (m_context.player().isEmpty()) {
        m_context.startFailed = m_way != ByHand;
        m_transport.showIdle();
    } else {
        // The buttons were shown as for a clip that runs: the tick sets them right.
        m_context.module.playback.StateChanged = true;
    }
}

} // namespace orvanta
