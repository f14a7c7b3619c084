// The media control over libmpv.
#pragma once

#include "platform/media/media_control.h"
#include "platform/media/mpv_options.h"

#include <memory>

namespace orvanta {

/// Plays the absolute paths of regular files, and nothing else, through libmpv.
class MpvMediaControl : public MediaControl
{
    Q_OBJECT

public:
    /// Raises 53 when the player library cannot be used (wrong version, mpv_create fails).
    explicit MpvMediaControl(QObject* parent = nullptr);
    /// The same with further options of the library (name, value), for measurements and tests.
    explicit MpvMediaControl(const MpvOptionList& extraOptions, QObject* parent = nullptr);
    ~MpvMediaControl() override;

    [[nodiscard]] QString FileName() const override;
    void setFileName(const QString& path) override;
    [[nodiscard]] double CurrentPosition() const override;
    void setCurrentPosition(double seconds) override;
    void previewPosition(double seconds) override;
    [[nodiscard]] double Duration() const override;
    [[nodiscard]] State CurrentState() const override;
    void Run() override;
    void Pause() override;
    void Stop() override;
    void setVolume(int hundredthsOfDecibel) override;
    [[nodiscard]] int Volume() const override;
    [[nodiscard]] bool isReady() const override;
    [[nodiscard]] bool isOpening() const override;
    [[nodiscard]] PictureSource* picture() override;

private:
    class Private;
    std::unique_ptr<Private> m_player;
};

/// Checks the player library: raises 53 when its version does not fit or it cannot be started.
void checkMediaLibrary();

} // namespace orvanta
