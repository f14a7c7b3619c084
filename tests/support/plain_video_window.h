// A video window without widgets: its mirror fields are filled by the control's events, as the real
// window fills them.
#pragma once

#include "core/numbers.h"
#include "platform/media/media_control.h"
#include "playback/video_window.h"

#include <cmath>

namespace orvanta::test {

class PlainVideoWindow : public QObject, public VideoWindow
{
public:
    explicit PlainVideoWindow(MediaControl& control)
        : m_control(control)
    {
        connect(&control, &MediaControl::position, this, [this] {
            m_mirror.VideoPosition = decimalText(m_control.CurrentPosition());
            m_mirror.VideoPositionUpdated = true;
        });
        connect(&control, &MediaControl::positionChange, this,
                [this](double oldSeconds, double newSeconds) {
                    const double length = m_control.Duration();
                    if (std::trunc(oldSeconds) == std::trunc(length) && newSeconds == 0) {
                        m_mirror.VideoEnded = true;
                    }
                });
        connect(&control, &MediaControl::openComplete, this, [this] { m_control.Run(); });
        connect(&control, &MediaControl::stateChange, this,
                [this](MediaControl::State, MediaControl::State state) {
                    m_mirror.VideoState = state;
                });
    }

    int outOfSight = 0;
    int prepared = 0;
    bool windowShown = false;
    int showCalls = 0;
    QString stillPicture = QStringLiteral("(never set)");

    [[nodiscard]] VideoMirror& mirror() override { return m_mirror; }
    void prepareForMedia() override { ++prepared; }
    void moveOutOfSight() override { ++outOfSight; }
    void setStillPicture(const QString& file) override { stillPicture = file; }
    void showWindow(bool show) override
    {
        windowShown = show;
        ++showCalls;
    }

private:
    MediaControl& m_control;
    VideoMirror m_mirror;
};

} // namespace orvanta::test
