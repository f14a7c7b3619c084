// An open file of the operating system, and the few operations that the writers of files need.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <chrono>
#include <optional>
#include <sys/stat.h>
#include <utility>

namespace orvanta {

/// Owns a file descriptor. Every one is close-on-exec, so started programs hold no locks.
class Descriptor
{
public:
    Descriptor() = default;
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        other.close();
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    /// open(2) that never waits for a device or a pipe. Check isOpen(), errno says why not.
    [[nodiscard]] static Descriptor open(const QByteArray& path, int flags, mode_t mode = 0);

    /// Takes over a descriptor that a call of the system has given, close-on-exec; negative: none.
    [[nodiscard]] static Descriptor of(int number);

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }
    void close();

    /// flock(2), started again when a signal interrupts it.
    [[nodiscard]] bool lock(int operation) const;
    /// Waits for the lock, but not longer than this: another program may hold it as long as it
    /// likes. False without the lock, at once where the file system knows none.
    [[nodiscard]] bool lockWithin(std::chrono::milliseconds patience, int operation) const;
    /// Nothing when the status cannot be had.
    [[nodiscard]] std::optional<struct stat> status() const;
    /// The whole content; nothing when reading fails.
    [[nodiscard]] std::optional<QByteArray> readAll() const;
    /// Writes everything, or says false: part of it may be written then.
    [[nodiscard]] bool writeAt(qint64 offset, QByteArrayView bytes) const;

private:
    int m_number = -1;
};

[[nodiscard]] std::optional<struct stat> statusOf(const QByteArray& path);
[[nodiscard]] bool isSameFile(const struct stat& a, const struct stat& b);

} // namespace orvanta
