#include "core/ini_file.h"

#include "core/ini_lines.h"
#include "core/sibling_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <new>
#include <sys/file.h>
#include <unistd.h>

namespace orvanta {

constexpr qint64 kNsPerSecond = 1'000'000'000;
/// Time stamps of files move in steps of the kernel's tick, at most 10 ms.
constexpr qint64 kTickNs = 20'000'000;
/// Some file systems (FAT) count time in steps of two seconds.
constexpr qint64 kCoarseStepNs = 2'100'000'000;
constexpr qint64 kLargestFile = qint64{1} << 30;
constexpr std::chrono::seconds kForeignLockPatience(1);
/// After a lock was waited for in vain, for so long nobody waits for one on that file.
constexpr std::chrono::seconds kForeignLockMemory(10);
constexpr mode_t kNewFileMode = 0666;

namespace {

/// Files whose lock a foreign program keeps. One that it keeps for minutes would else cost each
/// read and write a second. Any thread.
class ForeignLocks
{
public:
    [[nodiscard]] std::chrono::milliseconds patience(const QByteArray& path)
    {
        const std::lock_guard guard(m_mutex);
        const auto found = m_seen.find(path);
        const bool isFresh =
            found != m_seen.end() && Clock::now() - found->second < kForeignLockMemory;
        return isFresh ? std::chrono::milliseconds(0) : kForeignLockPatience;
    }

    void note(const QByteArray& path, bool isLocked)
    {
        const std::lock_guard guard(m_mutex);
        if (isLocked) {
            m_seen.erase(path);
        } else {
            m_seen.try_emplace(path, Clock::now());
        }
    }

private:
    using Clock = std::chrono::steady_clock;

    std::mutex m_mutex;
    std::map<QByteArray, Clock::time_point> m_seen;
};

} // namespace

static qint64 nanoseconds(const timespec& time)
{
    return time.tv_sec * kNsPerSecond + time.tv_nsec;
}

bool FileState::isSameAs(const struct stat& status) const
{
    return inode == status.st_ino && size == status.st_size &&
           modifiedNs == nanoseconds(status.st_mtim) && changedNs == nanoseconds(status.st_ctim) &&
           device == status.st_dev;
}

static FileState stateOf(const struct stat& status)
{
    return {.device = status.st_dev,
            .inode = status.st_ino,
            .size = status.st_size,
            .modifiedNs = nanoseconds(status.st_mtim),
            .changedNs = nanoseconds(status.st_ctim)};
}

FileState stateWhenRead(const struct stat& status)
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    const bool isCoarse = status.st_mtim.tv_nsec == 0 && status.st_ctim.tv_nsec == 0;
    FileState state = stateOf(status);
    state.isFinal = state.changedNs + (isCoarse ? kCoarseStepNs : kTickNs) < nanoseconds(now);
    return state;
}

IniFile::IniFile(QByteArray path, Descriptor file)
    : m_path(std::move(path)),
      m_file(std::move(file))
{}

static bool mayBeOpened(const QByteArray& path)
{
    const std::optional<struct stat> there = statusOf(path);
    errno = EINVAL;
    return !there || S_ISREG(there->st_mode);
}

static Descriptor openOrCreate(const QByteArray& path, IniFile::Access access)
{
    const int flags = access == IniFile::Access::Change ? O_RDWR : O_RDONLY;
    Descriptor file = Descriptor::open(path, flags);
    if (file.isOpen() || errno != ENOENT || access == IniFile::Access::Read) {
        return file;
    }
    file = Descriptor::open(path, flags | O_CREAT | O_EXCL, kNewFileMode);
    return !file.isOpen() && errno == EEXIST ? Descriptor::open(path, flags) : std::move(file);
}

/// Goes on without a lock where the file system knows none or a foreign program keeps it: waiting
/// any longer would stop the whole program.
static void lockIfPossible(const Descriptor& file, const QByteArray& path, int operation)
{
    static ForeignLocks locks;
    const bool isLocked = file.lockWithin(locks.patience(path), operation);
    locks.note(path, isLocked || errno != EWOULDBLOCK);
}

std::optional<IniFile> IniFile::open(const QByteArray& path, Access access, Kind kind)
{
    constexpr int kAttempts = 1000;
    const int operation = access == Access::Change ? LOCK_EX : LOCK_SH;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (kind == Kind::Unknown && !mayBeOpened(path)) {
            return std::nullopt;
        }
        IniFile file(path, openOrCreate(path, access));
        if (!file.m_file.isOpen()) {
            return std::nullopt;
        }
        lockIfPossible(file.m_file, path, operation);
        if (file.isAtItsPath()) {
            return file;
        }
    }
    return std::nullopt;
}

bool IniFile::isAtItsPath()
{
    const std::optional<struct stat> there = statusOf(m_path);
    const std::optional<struct stat> held = m_file.status();
    m_status = held.value_or(m_status);
    return there && held && isSameFile(*there, *held) && S_ISREG(held->st_mode);
}

std::optional<IniFile::Content> IniFile::read() const
{
    if (m_status.st_size > kLargestFile) {
        errno = EFBIG;
        return std::nullopt;
    }
    FileState state = stateWhenRead(m_status);
    try {
        std::optional<QByteArray> bytes = m_file.readAll();
        if (!bytes) {
            return std::nullopt;
        }
        const std::optional<struct stat> after = m_file.status();
        state.isFinal = state.isFinal && after && state.isSameAs(*after);
        return Content{std::move(*bytes), state};
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        return std::nullopt;
    }
}

/// Whether the bytes lie in one page of the file. The kernel writes page by page, and a kill can
/// come between two pages.
static bool liesInOnePage(qint64 offset, qint64 size)
{
    constexpr qint64 kPage = 4096;
    return offset / kPage == (offset + size - 1) / kPage;
}

/// The first character's length in UTF-8; one byte in other encodings.
static qsizetype firstCharacterLength(QByteArrayView line)
{
    qsizetype length = 1;
    while (length < std::min<qsizetype>(4, line.size()) &&
           (static_cast<unsigned char>(line[length]) & 0xC0U) == 0x80U) {
        ++length;
    }
    return length;
}

/// Writes the line as a comment and reveals it when it is whole.
static bool appendHidden(const Descriptor& file, qint64 offset, QByteArrayView line)
{
    const QByteArrayView first = line.first(firstCharacterLength(line));
    QByteArray hidden = line.toByteArray();
    std::fill_n(hidden.begin(), first.size(), ' ');
    hidden[0] = ';';
    return file.writeAt(offset, hidden) && file.writeAt(offset, first);
}

bool IniFile::append(qint64 size, QByteArrayView bytes) const
{
    const bool done =
        liesInOnePage(size, bytes.size()) ? m_file.writeAt(size, bytes) : appendLines(size, bytes);
    if (!done) {
        const int reason = errno;
        // Where this fails as well nothing is left to try: the first reason is the one to tell.
        [[maybe_unused]] const int cut = ftruncate(m_file.number(), size);
        errno = reason;
    }
    return done;
}

bool IniFile::appendLines(qint64 offset, QByteArrayView bytes) const
{
    for (qsizetype begin = 0; begin < bytes.size();) {
        const IniLine line = iniLineAt(bytes, begin);
        const QByteArrayView whole = bytes.sliced(begin, line.next - begin);
        const bool isPlain = line.end == line.begin || liesInOnePage(offset + begin, whole.size());
        if (isPlain ? !m_file.writeAt(offset + begin, whole)
                    : !appendHidden(m_file, offset + begin, whole)) {
            return false;
        }
        begin = line.next;
    }
    return true;
}

bool IniFile::replaceWith(QByteArrayView bytes)
{
    std::optional<SiblingFile> sibling = SiblingFile::create(realPath(m_path));
    if (!sibling) {
        return false;
    }
    sibling->takeOwnership(m_status);
    if (!sibling->writeAt(0, bytes) || !sibling->replaceTarget()) {
        const int reason = errno;
        sibling->remove();
        errno = reason;
        return false;
    }
    m_file = sibling->takeDescriptor();
    return true;
}

/// Sets the time of change to this very moment, in nanoseconds, where the system's own stamps are
/// milliseconds apart: no further change can hide behind the same time.
static bool stampPrecisely(const Descriptor& file, timespec& stamp)
{
    std::array<timespec, 2> times = {};
    times[0].tv_nsec = UTIME_OMIT;
    clock_gettime(CLOCK_REALTIME, &times[1]);
    stamp = times[1];
    return futimens(file.number(), times.data()) == 0;
}

std::optional<FileState> IniFile::stateAfterWriting() const
{
    timespec stamp = {};
    const bool isStamped = stampPrecisely(m_file, stamp);
    const std::optional<struct stat> status = m_file.status();
    if (!isStamped || !status || nanoseconds(status->st_mtim) != nanoseconds(stamp)) {
        return std::nullopt;
    }
    FileState state = stateOf(*status);
    state.isFinal = true;
    return state;
}

} // namespace orvanta
