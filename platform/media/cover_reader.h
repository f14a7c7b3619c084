// The picture that a sound clip carries, its cover.
#pragma once

#include <QImage>
#include <QObject>
#include <QTimer>

#include <memory>

namespace orvanta {

class MpvHandle;

/// Reads it with a player of its own, which opens the same file as tightly as the first one, shows
/// and plays nothing and goes as soon as it has answered: in the first player a cover would be a
/// picture of the clip. Interface thread only, where it waits for nothing.
class CoverReader : public QObject
{
    Q_OBJECT

public:
    CoverReader();
    ~CoverReader() override;

    /// Reads the cover of a regular file; what was asked for before is forgotten.
    void read(const QString& path);
    void cancel();
    [[nodiscard]] bool isReading() const { return m_mpv != nullptr; }

Q_SIGNALS:
    /// Null for a file without one, or with one of more than 64 megapixels.
    void done(const QImage& cover);

private:
    void serveEvents();
    void finish(const QImage& cover);

    std::unique_ptr<MpvHandle> m_mpv; // only while it reads
    QTimer m_patience;
};

} // namespace orvanta
