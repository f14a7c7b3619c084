// The preview player of the packet editor's brake clip.
#pragma once

#include "platform/media/media_control.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

class QVBoxLayout;

namespace orvanta {

/// A second media control with its picture. It is made when the first clip is opened, so that an
/// editor that is only for clip lists starts none.
class PreviewPane : public QWidget
{
    Q_OBJECT

public:
    using Factory = std::function<std::unique_ptr<MediaControl>()>;

    /// volume: hundredths of a decibel, read when a clip is opened.
    PreviewPane(Factory factory, std::function<int()> volume, QWidget* parent = nullptr);
    ~PreviewPane() override;

    /// Opens an existing file; the empty text shows none. The clip does not run by itself.
    void openFile(const QString& path);
    /// Shows the picture near this place while a slider is held, and the one right there when it
    /// rests. Seconds.
    void previewAt(double seconds);
    /// Stops, goes to this place exactly, and runs. Seconds.
    void runFrom(double seconds);
    /// Halts the clip that runs, or lets it go on; without a clip nothing happens.
    void toggle();
    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] bool isRunning() const;

    [[nodiscard]] QSize sizeHint() const override { return {400, 225}; }

Q_SIGNALS:
    void opened(double durationSeconds);
    /// There is no clip: what was to be opened is not there, or cannot be played.
    void closed();
    void durationChanged(double durationSeconds);
    void positionChanged(double seconds);
    /// The clip starts to run.
    void runs();
    void stateChanged();

protected:
    // A click on the picture halts the clip or lets it go on.
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void makeControl();
    void showExactly();
    void run();

    Factory m_factory;
    std::function<int()> m_volume;
    std::unique_ptr<MediaControl> m_control;
    QWidget* m_surface = nullptr;
    QVBoxLayout* m_layout;
    QTimer m_rest; // runs out when the held slider has not moved for a moment
    double m_heldSeconds = 0;
};

} // namespace orvanta
