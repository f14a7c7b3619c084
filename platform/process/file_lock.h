// A lock between processes on a named file.
#pragma once

#include <QString>

#include <chrono>

namespace orvanta {

/// Opens the lock file (created when it is missing; where it cannot be created the folder itself
/// stands in for it). Closing, also by the process's death, gives the lock up. The descriptor is
/// close-on-exec, so started programs never hold the lock.
class FileLock
{
public:
    enum class Outcome
    {
        Held,
        Busy,
        Unavailable, // neither file nor folder can be locked
    };

    explicit FileLock(const QString& file);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Waits until the lock is free, but no longer than this.
    Outcome lockWithin(std::chrono::milliseconds patience);
    /// Takes the lock only when it is free now.
    Outcome tryLock();

    /// A mark in the lock file that outlives a killed holder. Use it only while holding the lock.
    void setMark(bool marked);
    [[nodiscard]] bool isMarked() const;

private:
    int m_descriptor = -1;
};

} // namespace orvanta
