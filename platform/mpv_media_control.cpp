#include "platform/mpv_media_control.h"

#include "platform/mpv_player.h"

namespace orvanta {

MpvMediaControl::MpvMediaControl(QObject* parent)
    : MpvMediaControl(MpvOptionList(), parent)
{}

MpvMediaControl::MpvMediaControl(const MpvOptionList& extraOptions, QObject* parent)
    : MediaControl(parent),
      d(std::make_unique<Private>(*this, extraOptions))
{}

MpvMediaControl::~MpvMediaControl() = default;

QString MpvMediaControl::FileName() const
{
    return d->fileName();
}

void MpvMediaControl::setFileName(const QString& path)
{
    if (path.isEmpty()) {
        d->unload();
    } else {
        d->load(path);
    }
}

double MpvMediaControl::CurrentPosition() const
{
    return d->position();
}

void MpvMediaControl::setCurrentPosition(double seconds)
{
    d->seek(seconds, MpvSeek::Exact);
}

void MpvMediaControl::previewPosition(double seconds)
{
    d->seek(seconds, MpvSeek::KeyFrame);
}

double MpvMediaControl::Duration() const
{
    return d->duration();
}

MediaControl::State MpvMediaControl::CurrentState() const
{
    return d->state();
}

void MpvMediaControl::Run()
{
    d->run();
}

void MpvMediaControl::Pause()
{
    d->pause();
}

void MpvMediaControl::Stop()
{
    d->stop();
}

void MpvMediaControl::setVolume(int hundredthsOfDecibel)
{
    d->setVolume(hundredthsOfDecibel);
}

int MpvMediaControl::Volume() const
{
    return d->volume();
}

bool MpvMediaControl::isReady() const
{
    return d->isReady();
}

bool MpvMediaControl::isOpening() const
{
    return d->isOpening();
}

PictureSource* MpvMediaControl::picture()
{
    return &d->picture();
}

void checkMediaLibrary()
{
    const MpvHandle handle;
}

} // namespace orvanta
