#include "core/log.h"
#include "platform/media/mpv_player.h"

#include <QFile>

#include <sys/stat.h>
#include <utility>

namespace orvanta {

namespace {

/// Only files are opened. The library would take addresses, devices and pipes just as gladly.
bool isRegularFile(const QString& path)
{
    struct stat status = {};
    return path.startsWith(u'/') && stat(QFile::encodeName(path).constData(), &status) == 0 &&
           S_ISREG(status.st_mode);
}

} // namespace

void MpvMediaControl::Private::load(const QString& path)
{
    forgetClip();
    m_phase = Opening;
    m_fileName = path;
    setPaused(true);
    if (isRegularFile(path)) {
        loadEntry();
    } else {
        m_mpv->command({"stop"}, idOf(Unasked, 0));
        refuseLater(QStringLiteral("not a file"));
    }
    changeState(NotLoaded);
}

void MpvMediaControl::Private::unload()
{
    forgetClip();
    setPaused(true);
    m_mpv->command({"stop"}, idOf(Unasked, 0));
    m_picture.setHasPicture(false);
    changeState(NotLoaded);
}

/// Whatever the library still says belongs to an earlier file.
void MpvMediaControl::Private::forgetClip()
{
    ++m_load;
    m_entry = -1;
    m_factsAsked = false;
    m_reloading = false;
    m_rewindsByReload = false;
    m_phase = Empty;
    m_fileName.clear();
    m_pictureSize = QSize();
    m_position = 0;
    m_duration = 0;
    m_largest = 0;
    m_atStart = true;
    m_seek.cancel();
    m_seekGuard.stop();
    m_seekWhenReady.reset();
}

void MpvMediaControl::Private::loadEntry()
{
    m_mpv->command({"loadfile", QFile::encodeName(m_fileName), "replace"}, idOf(LoadFile, m_load));
}

/// Goes to the start of a clip that has no index to seek by: opens it once more, unseen.
void MpvMediaControl::Private::reload()
{
    ++m_load;
    m_entry = -1;
    m_factsAsked = false;
    m_reloading = true;
    m_seek.cancel();
    m_seekGuard.stop();
    loadEntry();
}

/// The caller has not yet begun to wait for the answer, so it comes from the event loop.
void MpvMediaControl::Private::refuseLater(const QString& reason)
{
    QTimer::singleShot(0, &m_control, [this, reason, load = m_load] {
        if (load == m_load && m_phase == Opening) {
            failOpening(reason);
        }
    });
}

/// A file that cannot be opened ends, and so does one whose tracks all fail while it plays.
void MpvMediaControl::Private::endOfEntry(const mpv_event_end_file& end)
{
    if (m_entry < 0 || end.playlist_entry_id != m_entry) {
        return;
    }
    if (m_state == Running && !m_reloading) {
        m_rewindsByReload = true;
        reachEnd();
    } else {
        failOpening(QString::fromUtf8(end.error < 0 ? mpv_error_string(end.error) : "no media"));
    }
}

void MpvMediaControl::Private::askFacts()
{
    m_factsAsked = true;
    m_mpv->ask("file-format", MPV_FORMAT_STRING, idOf(FileFormat, m_load));
    m_mpv->ask("duration", MPV_FORMAT_DOUBLE, idOf(Length, m_load));
    m_mpv->ask("dwidth", MPV_FORMAT_INT64, idOf(PictureWidth, m_load));
    m_mpv->ask("dheight", MPV_FORMAT_INT64, idOf(PictureHeight, m_load));
}

void MpvMediaControl::Private::finishOpening()
{
    if (m_reloading) {
        finishReloading();
        return;
    }
    m_phase = Ready;
    m_picture.setHasPicture(!m_pictureSize.isEmpty());
    seekAsWished();
    const quint64 load = m_load;
    changeState(Stopped);
    if (load == m_load) {
        Q_EMIT m_control.openComplete(m_pictureSize);
    }
}

void MpvMediaControl::Private::finishReloading()
{
    m_reloading = false;
    seekAsWished();
}

void MpvMediaControl::Private::failOpening(const QString& reason)
{
    qCInfo(logErrors, "cannot open %ls: %ls", qUtf16Printable(m_fileName), qUtf16Printable(reason));
    forgetClip();
    m_picture.setHasPicture(false);
    changeState(NotLoaded);
    Q_EMIT m_control.openFailed(reason);
}

/// Goes where somebody wanted to go while the file was not yet open.
void MpvMediaControl::Private::seekAsWished()
{
    if (m_seekWhenReady) {
        goTo(clamped(*std::exchange(m_seekWhenReady, std::nullopt)), MpvSeek::Exact);
    }
}

} // namespace orvanta
