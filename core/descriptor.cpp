#include "core/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace orvanta {

Descriptor Descriptor::open(const QByteArray& path, int flags, mode_t mode)
{
    Descriptor file;
    do {
        file.m_number = ::open(path.constData(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, mode);
    } while (file.m_number < 0 && errno == EINTR);
    return file;
}

Descriptor Descriptor::of(int number)
{
    Descriptor file;
    file.m_number = number;
    return file;
}

void Descriptor::close()
{
    if (isOpen()) {
        ::close(std::exchange(m_number, -1));
    }
}

bool Descriptor::lock(int operation) const
{
    int result = 0;
    do {
        result = flock(m_number, operation);
    } while (result < 0 && errno == EINTR);
    return result == 0;
}

bool Descriptor::lockWithin(std::chrono::milliseconds patience, int operation) const
{
    constexpr std::chrono::milliseconds kPause(1);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!lock(operation | LOCK_NB)) {
        if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

std::optional<struct stat> Descriptor::status() const
{
    struct stat status = {};
    return fstat(m_number, &status) == 0 ? std::optional(status) : std::nullopt;
}

static ssize_t readSome(int file, char* to, qint64 size, qint64 offset)
{
    ssize_t count = 0;
    do {
        count = pread(file, to, static_cast<std::size_t>(size), offset);
    } while (count < 0 && errno == EINTR);
    return count;
}

std::optional<QByteArray> Descriptor::readAll() const
{
    const std::optional<struct stat> before = status();
    if (!before) {
        return std::nullopt;
    }
    QByteArray bytes(before->st_size, Qt::Uninitialized);
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t count = readSome(m_number, bytes.data() + done, bytes.size() - done, done);
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) { // shorter meanwhile
            break;
        }
        done += count;
    }
    bytes.truncate(done);
    return bytes;
}

bool Descriptor::writeAt(qint64 offset, QByteArrayView bytes) const
{
    while (!bytes.isEmpty()) {
        const ssize_t count =
            pwrite(m_number, bytes.data(), static_cast<std::size_t>(bytes.size()), offset);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        const qint64 done = std::max<ssize_t>(count, 0);
        bytes = bytes.sliced(done);
        offset += done;
    }
    return true;
}

std::optional<struct stat> statusOf(const QByteArray& path)
{
    struct stat status = {};
    return stat(path.constData(), &status) == 0 ? std::optional(status) : std::nullopt;
}

bool isSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace orvanta
