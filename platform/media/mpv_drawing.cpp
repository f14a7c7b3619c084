// What draws the pictures: OpenGL where it pays, else the processor.
#include "core/log.h"
#include "platform/media/mpv_player.h"
#include "platform/media/opengl_renderer.h"
#include "platform/media/software_renderer.h"

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

// Drawn by OpenGL, pictures stay in the memory of the graphics processor that has decoded them.
constexpr char kDecodeIntoPlace[] = "auto-safe";
constexpr char kDecodeAndCopy[] = "auto-copy-safe";

void MpvPlayer::drawBySoftware()
{
    m_picture.stop();
    m_driver.reset();
    (void)m_picture.start(std::make_unique<SoftwareRenderer>(m_mpv->get()));
}

/// For the first file, as loading a driver takes a while; the library has no output of pictures
/// then, so that none is lost.
void MpvPlayer::chooseRenderer()
{
    if (!m_choice || m_driver) {
        return;
    }
    const OpenGlOffer offer = offeredOpenGl(*m_choice);
    if (!offer.driver) {
        qCInfo(logPlayback, "pictures are drawn by the processor: %ls", qUtf16Printable(offer.why));
        m_choice.reset();
        return;
    }
    m_picture.stop();
    m_picture.setPatience(m_choice->firstFrame);
    m_driver = offer.driver;
    decodeFor(kDecodeIntoPlace);
    if (m_picture.start(std::make_unique<OpenGlRenderer>(m_mpv->get(), m_driver, *m_choice))) {
        qCInfo(logPlayback, "pictures are drawn by OpenGL: %ls", qUtf16Printable(offer.why));
    } else {
        leaveOpenGl(u"the player library cannot use it"_s);
    }
}

void MpvPlayer::decodeFor(const char* way)
{
    if (m_mayDecodeByGraphics) {
        m_mpv->set("hwdec", QByteArray(way));
    }
}

/// For good, and remembered. The library gives up the picture of a clip when what draws it goes,
/// and with it a clip that has nothing else: so it lets go of it first, and has it back afterwards.
/// The sound goes on.
void MpvPlayer::leaveOpenGl(const QString& reason)
{
    const QString name = m_driver->name();
    qCInfo(logErrors, "OpenGL is not used any more: %ls (%ls)", qUtf16Printable(reason),
           qUtf16Printable(name));
    const RendererChoice choice = *std::exchange(m_choice, std::nullopt);
    choice.remember(name); // first, as a driver that hangs would hold up what follows
    decodeFor(kDecodeAndCopy);
    dropNext();
    m_picture.hold();
    if (m_phase == Empty) {
        drawBySoftware();
    } else {
        m_pictureIsOff = true;
        ++m_pauseSerial; // without any track the library believes that the clip has ended
        m_mpv->command({"set", "vid", "no"}, idOf(PictureOff, m_load));
    }
}

void MpvPlayer::pictureIsOff()
{
    drawBySoftware();
    m_pictureIsOff = false;
    if (m_phase == Ready && !m_reloading) {
        bringPictureBack();
    }
    m_mpv->set("vid", QByteArray("auto")); // of the next clip; the one that is open keeps its own
    if (m_reloading) {
        reload();
    } else if (m_phase == Opening) {
        const std::optional<double> wish = m_seekWhenReady;
        load(QString(m_fileName));
        m_seekWhenReady = wish;
    }
}

/// A clip with sound has gone on meanwhile; any other one stands, and is sought to its place.
void MpvPlayer::bringPictureBack()
{
    if (m_pictureTrack == 0) {
        return;
    }
    m_mpv->set("vid", QByteArray::number(m_pictureTrack));
    const bool hasSound = std::ranges::any_of(m_tracks, [](const MediaTrack& track) {
        return track.kind == MediaTrack::Sound && track.chosen;
    });
    if (m_state == Running && hasSound) {
        m_picture.beginWithNextFrame();
        return;
    }
    readAgain();
    if (m_state == Running) {
        setPaused(false);
    }
}

PictureFacts MpvPlayer::pictureFacts() const
{
    const bool byGraphics = m_decoder != u"no";
    return {.openGlDriver = m_driver ? QString::fromLatin1(m_driver->renderer()) : QString(),
            .decoder = byGraphics ? m_decoder : QString()};
}

} // namespace orvanta
