#include "platform/process/file_lock.h"

#include "core/log.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace orvanta {

static int openLockFile(const QString& file)
{
    const QByteArray path = QFile::encodeName(file);
    const int descriptor = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor >= 0) {
        return descriptor;
    }
    const QByteArray folder = QFile::encodeName(QFileInfo(file).absolutePath());
    return ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

FileLock::FileLock(const QString& file)
    : m_descriptor(openLockFile(file))
{}

FileLock::~FileLock()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

FileLock::Outcome FileLock::tryLock()
{
    int result = -1;
    do {
        result = ::flock(m_descriptor, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    if (result == 0) {
        return Outcome::Held;
    }
    if (errno == EWOULDBLOCK) {
        return Outcome::Busy;
    }
    qCInfo(logErrors, "a lock is not available: %s", std::strerror(errno));
    return Outcome::Unavailable;
}

FileLock::Outcome FileLock::lockWithin(std::chrono::milliseconds patience)
{
    constexpr std::chrono::milliseconds kPause(5);
    const auto end = std::chrono::steady_clock::now() + patience;
    Outcome outcome = tryLock();
    while (outcome == Outcome::Busy && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
        outcome = tryLock();
    }
    return outcome;
}

void FileLock::setMark(bool marked)
{
    // The file's length is the mark. A folder standing in for the file has none to change.
    if (::ftruncate(m_descriptor, marked ? 1 : 0) != 0) {
        qCInfo(logErrors, "a lock file cannot be marked: %s", std::strerror(errno));
    }
}

bool FileLock::isMarked() const
{
    struct stat status = {};
    return ::fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0;
}

} // namespace orvanta
