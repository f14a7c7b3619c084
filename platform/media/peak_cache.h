// Peaks that were found before, kept from start to start.
#pragma once

#include "platform/media/peaks.h"

#include <QString>

#include <optional>
#include <sys/stat.h>

namespace orvanta {

/// The most that all of it takes on the disk, bytes.
inline constexpr qint64 kMostCacheBytes = qint64{200} << 20;

/// One small file for each clip, by the clip's identity: another content is another clip. Nothing
/// here is needed; what is spoilt or cannot be written is found anew. For any thread.
class PeakCache
{
public:
    /// The folder is made when something is kept. most: bytes of all files.
    explicit PeakCache(QString folder, qint64 most = kMostCacheBytes)
        : m_folder(std::move(folder)),
          m_most(most)
    {}

    /// Below $XDG_CACHE_HOME.
    [[nodiscard]] static QString usualFolder();

    /// Nothing unless it was kept whole for exactly this clip. Counts as a use.
    [[nodiscard]] std::optional<Peaks> find(const struct stat& clip) const;
    /// Then removes what was used longest ago, until all takes no more than the most. A line in the
    /// log when it cannot be kept.
    void keep(const struct stat& clip, const Peaks& peaks) const;

private:
    [[nodiscard]] QString fileOf(const struct stat& clip) const;
    [[nodiscard]] bool write(const QString& file, const QByteArray& content) const;
    void makeRoom() const;

    QString m_folder;
    qint64 m_most;
};

} // namespace orvanta
