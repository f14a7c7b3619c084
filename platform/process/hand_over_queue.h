// The queue in section "ftl" of the settings through which launches hand their command lines over.
#pragma once

#include "platform/process/file_lock.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace orvanta {

/// The queued line that names no file but asks for the lesson that was on last. A file of this name
/// is queued with its whole path.
inline constexpr char16_t kContinueLine[] = u"--continue";

class HandOverQueue
{
public:
    /// settingsFile: the path of orvanta.ini. The lock file queue.lock lies beside it.
    explicit HandOverQueue(QString settingsFile);

    /// Launch side: waits until "wr" is "0" (after 5 s it says so once on standard error, and sets
    /// it to "0" itself as soon as no living process holds the queue's lock), then appends the
    /// lines as one atomic replacement under the queue's lock. False, at once, where the settings
    /// cannot be written: nothing is queued. Raises 13 when "num" is no number, 9 when it is
    /// negative, 6 when it grows over 32767.
    bool append(const QStringList& lines);

    /// "num" is neither "0" nor absent. One cheap read, for the tick.
    [[nodiscard]] bool hasEntries() const;

    /// "num" as it stands.
    [[nodiscard]] QString countText() const;
    /// Whether the last drain could reset the queue. What could not be is still there.
    [[nodiscard]] bool wasReset() const { return m_wasReset; }

    /// Drain side: takes the lock, sets "wr" = "1", gives the lines in order to open, and resets
    /// "num" and "wr" to "0" on every way out. Raises 13 when "num" is no number and 9 when it is
    /// negative (after the reset).
    template <typename Open> void drain(Open&& open)
    {
        const Drain guard(*this);
        open(guard.lines());
    }

private:
    class Drain
    {
    public:
        explicit Drain(const HandOverQueue& queue);
        ~Drain();
        Drain(const Drain&) = delete;
        Drain& operator=(const Drain&) = delete;
        /// Keys without a text hand nothing over and are left out.
        [[nodiscard]] QStringList lines() const;

    private:
        const HandOverQueue& m_queue;
        FileLock m_lock;
    };

    [[nodiscard]] QString lockFile() const;
    [[nodiscard]] bool isFree() const;
    void waitUntilFree() const;
    void freeAfterKilledDrain() const;
    [[nodiscard]] bool freeWhenNobodyHolds() const;
    enum class Appending
    {
        Done,
        Busy, // since the queue was seen free
        Refused,
    };
    [[nodiscard]] Appending tryAppend(const QStringList& lines) const;

    QString m_settingsFile;
    mutable bool m_wasReset = true;
};

/// The folder that a queued line names: itself, or with the folder switch, "/f" (any case) and
/// behind it an absolute path or an existing folder. No switch when the whole line is itself an
/// existing path.
[[nodiscard]] std::optional<QString> folderOfLine(const QString& line);

} // namespace orvanta
