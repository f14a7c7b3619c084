#include "core/error_boundary.h"
#include "core/log.h"
#include "platform/media/mpv_player.h"

#include <QFile>

#include <chrono>
#include <utility>

namespace orvanta {

/// The library leaves the file before first, and waits for that one's disk.
constexpr std::chrono::seconds kPatienceToBegin(3);
constexpr auto kSilentDisk = "its disk does not answer";

void MpvPlayer::setFileName(const QString& path)
{
    if (path.isEmpty()) {
        unload();
    } else {
        load(path);
    }
}

void MpvPlayer::load(const QString& path)
{
    if (m_next.stage == NextClip::Heard && path == m_next.path) {
        adoptNext();
        return;
    }
    m_next = {};
    chooseRenderer();
    forgetClip();
    m_picture.hold();
    m_phase = Opening;
    m_fileName = path;
    setPaused(true);
    m_probe.look(path, [this](FileProbe::Answer answer) { fileLookedAt(answer); });
    changeState(NotLoaded);
}

void MpvPlayer::fileLookedAt(FileProbe::Answer answer)
{
    if (answer == FileProbe::Ready) {
        loadEntry();
    } else {
        m_mpv->command({"stop"}, idOf(Unasked, 0));
        refuseLater(answer == FileProbe::NoFile ? QStringLiteral("not a file")
                                                : QLatin1String(kSilentDisk));
    }
}

void MpvPlayer::unload()
{
    forgetClip();
    if (!isAhead()) {
        setPaused(true);
    }
    m_picture.hold();
    // Unless another clip is opened in this turn of the event loop: then there is no black between,
    // and the sound's device stays open.
    QTimer::singleShot(0, this, [this, load = m_load] {
        if (load == m_load) {
            setPaused(true);
            m_next = {};
            m_mpv->command({"stop"}, idOf(Unasked, 0));
            m_picture.clear();
        }
    });
    changeState(NotLoaded);
}

/// Whatever the library still says belongs to an earlier file. What is heard by now may be loaded
/// next.
void MpvPlayer::forgetClip()
{
    ++m_load;
    if (m_next.stage != NextClip::Heard) {
        m_nextProbe.stop();
        m_nextLook.stop();
        m_next = {};
    }
    m_refusedNext.clear();
    m_withdrawing = false;
    m_isAdopted = false;
    m_probe.stop();
    m_patience.stop();
    m_entry = -1;
    m_factsAsked = false;
    m_reloading = false;
    m_rewindsByReload = false;
    m_unseekable = false;
    m_phase = Empty;
    m_fileName.clear();
    m_pictureSize = QSize();
    forgetTracks();
    m_position = 0;
    m_duration = 0;
    m_largest = 0;
    m_atStart = true;
    m_seek.cancel();
    m_seekGuard.stop();
    m_seekWhenReady.reset();
}

/// start: seconds.
void MpvPlayer::loadEntry(double start)
{
    QByteArrayList words = {"loadfile", QFile::encodeName(m_fileName), "replace"};
    if (start > 0) {
        words.append("start=" + QByteArray::number(start, 'f', 6));
    }
    m_mpv->command(words, idOf(LoadFile, m_load));
    m_patience.start(std::exchange(m_isFresh, false) ? kPatienceToOpen : kPatienceToBegin);
}

void MpvPlayer::entryBegan()
{
    if (hasBegun() && m_patience.isActive()) {
        m_patience.start(kPatienceToOpen);
    }
}

/// The library hangs in this file, or still in one before, which is no fault of this one: then it
/// comes to a player that has never had another.
void MpvPlayer::patienceIsOver()
{
    const bool isAtFault = hasBegun() || m_patience.intervalAsDuration() == kPatienceToOpen;
    const bool isFresh = resumeNext("a fresh player", [this] { takeFreshPlayer(); });
    if (isAtFault || !isFresh) {
        failOpening(QLatin1String(kSilentDisk));
    } else {
        loadEntry();
    }
}

/// Opens the clip once more, unseen: to go to the start of one that has no index to seek by.
void MpvPlayer::reload(double start)
{
    m_next = {}; // a load empties the library's list
    m_withdrawing = false;
    ++m_load;
    m_entry = -1;
    m_factsAsked = false;
    m_reloading = true;
    m_picture.hold();
    m_seek.cancel();
    m_seekGuard.stop();
    loadEntry(start);
}

/// The caller has not yet begun to wait for the answer, so it comes from the event loop.
void MpvPlayer::refuseLater(const QString& reason)
{
    QTimer::singleShot(0, this, [this, reason, load = m_load] {
        if (load == m_load && m_phase == Opening) {
            failOpening(reason);
        }
    });
}

/// A file that cannot be opened ends, and so does one whose tracks all fail while it plays.
void MpvPlayer::endOfEntry(const mpv_event_end_file& end)
{
    if (isAhead() && end.playlist_entry_id == m_next.entry) {
        nextFailed();
    }
    if (m_entry < 0 || end.playlist_entry_id != m_entry) {
        return;
    }
    const bool hasNext = m_next.stage == NextClip::Appended || m_withdrawing;
    if (hasNext && end.reason == MPV_END_FILE_REASON_EOF) {
        goneOn();
        return;
    }
    if (m_state == Running && !m_reloading) {
        m_rewindsByReload = true;
        reachEnd();
    } else {
        failOpening(QString::fromUtf8(end.error < 0 ? mpv_error_string(end.error) : "no media"));
    }
}

void MpvPlayer::askFacts()
{
    m_factsAsked = true;
    m_mpv->ask("file-format", MPV_FORMAT_STRING, idOf(FileFormat, m_load));
    m_mpv->ask("duration", MPV_FORMAT_DOUBLE, idOf(Length, m_load));
    m_mpv->ask("track-list", MPV_FORMAT_NODE, idOf(Tracks, m_load));
    m_mpv->ask("dwidth", MPV_FORMAT_INT64, idOf(PictureWidth, m_load));
    m_mpv->ask("dheight", MPV_FORMAT_INT64, idOf(PictureHeight, m_load));
}

void MpvPlayer::finishOpening()
{
    m_patience.stop();
    if (m_reloading) {
        finishReloading();
        return;
    }
    m_phase = Ready;
    showPicture();
    seekAsWished();
    if (std::exchange(m_isAdopted, false)) {
        settleAdopted();
    }
    const quint64 load = m_load;
    changeState(Stopped);
    if (load == m_load) {
        Q_EMIT openComplete(m_pictureSize);
    }
}

/// The library has shown the first picture of what was opened or sought.
void MpvPlayer::showPicture()
{
    if (m_pictureSize.isEmpty()) {
        m_picture.clear();
    } else {
        m_picture.begin();
    }
}

/// A clip that has ended is back at its start within the turn of the event loop in which its end is
/// reported; what is opened upon that report comes before its first picture is shown once more.
void MpvPlayer::showPictureSoon()
{
    QTimer::singleShot(0, this, [this, load = m_load] {
        if (load == m_load && m_phase == Ready) {
            showPicture();
        }
    });
}

void MpvPlayer::finishReloading()
{
    m_reloading = false;
    showPicture();
    loadSubtitles();
    seekAsWished();
}

void MpvPlayer::failOpening(const QString& reason)
{
    qCInfo(logErrors, "cannot open %ls: %ls", qUtf16Printable(m_fileName), qUtf16Printable(reason));
    forgetClip();
    m_picture.clear();
    changeState(NotLoaded);
    Q_EMIT openFailed(reason);
}

/// Goes where somebody wanted to go while the file was not yet open.
void MpvPlayer::seekAsWished()
{
    const std::optional<double> wish = std::exchange(m_seekWhenReady, std::nullopt);
    if (wish && canGoTo(*wish)) {
        goTo(clamped(*wish), MpvSeek::Exact);
    }
}

} // namespace orvanta
