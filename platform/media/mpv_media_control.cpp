#include "platform/media/mpv_media_control.h"

#include "platform/media/mpv_player.h"

namespace orvanta {

MpvMediaControl::MpvMediaControl(QObject* parent)
    : MpvMediaControl(MpvOptionList(), parent)
{}

MpvMediaControl::MpvMediaControl(const MpvOptionList& extraOptions, QObject* parent)
    : MediaControl(parent),
      m_player(std::make_unique<Private>(*this, extraOptions))
{}

MpvMediaControl::~MpvMediaControl() = default;

QString MpvMediaControl::FileName() const
{
    return m_player->fileName();
}

void MpvMediaControl::setFileName(const QString& path)
{
    if (path.isEmpty()) {
        m_player->unload();
    } else {
        m_player->load(path);
    }
}

double MpvMediaControl::CurrentPosition() const
{
    return m_player->position();
}

void MpvMediaControl::setCurrentPosition(double seconds)
{
    m_player->seek(seconds, MpvSeek::Exact);
}

void MpvMediaControl::previewPosition(double seconds)
{
    m_player->seek(seconds, MpvSeek::KeyFrame);
}

double MpvMediaControl::Duration() const
{
    return m_player->duration();
}

MediaControl::State MpvMediaControl::CurrentState() const
{
    return m_player->state();
}

void MpvMediaControl::Run()
{
    m_player->run();
}

void MpvMediaControl::Pause()
{
    m_player->pause();
}

void MpvMediaControl::Stop()
{
    m_player->stop();
}

void MpvMediaControl::setVolume(int hundredthsOfDecibel)
{
    m_player->setVolume(hundredthsOfDecibel);
}

int MpvMediaControl::Volume() const
{
    return m_player->volume();
}

bool MpvMediaControl::isReady() const
{
    return m_player->isReady();
}

bool MpvMediaControl::isOpening() const
{
    return m_player->isOpening();
}

PictureSource* MpvMediaControl::picture()
{
    return &m_player->picture();
}

void checkMediaLibrary()
{
    const MpvHandle handle;
}

} // namespace orvanta
