#include "companions/cdcreate/file_copy.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace orvanta {

constexpr mode_t kFileMode = 0644;

static QString withReason(const QString& file)
{
    return file + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(errno));
}

BoxFailure targetFailure(const QString& target)
{
    const BoxProblem problem = errno == ENOSPC || errno == EDQUOT ? BoxProblem::NoRoom
                               : errno == EFBIG                   ? BoxProblem::TooLarge
                               : errno == EEXIST                  ? BoxProblem::Exists
                                                                  : BoxProblem::Unwritable;
    return BoxFailure(problem, withReason(target));
}

Descriptor openSource(const BoxFile& file)
{
    Descriptor source = Descriptor::open(QFile::encodeName(file.source), O_RDONLY);
    const auto status = source.isOpen() ? source.status() : std::nullopt;
    if (!status) {
        throw BoxFailure(BoxProblem::Unreadable, withReason(file.source));
    }
    if (!S_ISREG(status->st_mode) || status->st_size != file.size) {
        throw BoxFailure(BoxProblem::Unreadable, file.source); // it was one when it was gathered
    }
    return source;
}

qsizetype readAt(const Descriptor& file, const QString& name, qint64 offset, char* to,
                 qsizetype size)
{
    qsizetype done = 0;
    while (done < size) {
        const ssize_t count =
            ::pread(file.number(), to + done, static_cast<std::size_t>(size - done), offset + done);
        if (count < 0 && errno != EINTR) {
            throw BoxFailure(BoxProblem::Unreadable, withReason(name));
        }
        if (count == 0) {
            break;
        }
        done += std::max<ssize_t>(count, 0);
    }
    return done;
}

static Descriptor newFile(const QString& target)
{
    Descriptor file =
        Descriptor::open(QFile::encodeName(target), O_RDWR | O_CREAT | O_EXCL, kFileMode);
    if (!file.isOpen()) {
        throw targetFailure(target);
    }
    return file;
}

namespace {

struct Copying
{
    const BoxFile& file;
    QString target;
    Descriptor from;
    Descriptor to;
    CopyPace pace;
    BoxWork& work;
    qint64 done = 0;
    qint64 former = 0; // where the bytes before the last ones begin

    [[nodiscard]] bool isDone() const { return done >= file.size; }
    void advance(qint64 bytes)
    {
        constexpr unsigned kWait =
            SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
        ::sync_file_range(to.number(), done, bytes, SYNC_FILE_RANGE_WRITE);
        if (pace == CopyPace::AsWritten && done > former) {
            ::sync_file_range(to.number(), former, done - former, kWait);
        }
        former = std::exchange(done, done + bytes);
        work.add(bytes);
    }
};

} // namespace

static bool sharesBlocks(const Copying& copying)
{
    return ::ioctl(copying.to.number(), FICLONE, copying.from.number()) == 0;
}

/// Goes as far as the kernel does it alone. What it refuses may be between two file systems, of a
/// kind that cannot, or an error that reading and writing meet again and tell apart.
static void copyInKernel(Copying& copying)
{
    constexpr qint64 kKernelChunk = 1 << 24;
    while (!copying.isDone()) {
        off_t in = copying.done;
        off_t out = copying.done;
        const auto size =
            static_cast<std::size_t>(std::min(kKernelChunk, copying.file.size - copying.done));
        const ssize_t count =
            ::copy_file_range(copying.from.number(), &in, copying.to.number(), &out, size, 0);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return;
        }
        copying.advance(count);
    }
}

static void copyByHand(Copying& copying)
{
    std::vector<char> buffer(kCopyChunk);
    while (!copying.isDone()) {
        const qint64 left = std::min<qint64>(kCopyChunk, copying.file.size - copying.done);
        const qsizetype count =
            readAt(copying.from, copying.file.source, copying.done, buffer.data(), left);
        if (count == 0) { // shorter meanwhile
            throw BoxFailure(BoxProblem::Unreadable, copying.file.source);
        }
        if (!copying.to.writeAt(copying.done, {buffer.data(), count})) {
            throw targetFailure(copying.target);
        }
        copying.advance(count);
    }
}

/// Copies bear the time of what they are copies of: the newest of several is found by it.
static void takeTime(const Copying& copying)
{
    if (const auto status = copying.from.status()) {
        const std::array<timespec, 2> times = {status->st_mtim, status->st_mtim};
        ::futimens(copying.to.number(), times.data());
    }
}

CopyKind copyFile(const BoxFile& source, const QString& target, CopyPace pace, BoxWork& work)
{
    Copying copying = {source, target, openSource(source), newFile(target), pace, work};
    const bool isShared = sharesBlocks(copying);
    if (isShared) {
        work.add(source.size);
    } else {
        ::posix_fadvise(copying.from.number(), 0, 0, POSIX_FADV_SEQUENTIAL);
        copyInKernel(copying);
        copyByHand(copying);
    }
    takeTime(copying);
    return isShared ? CopyKind::Shared : CopyKind::Copied;
}

void writeFile(const QByteArray& content, const QString& target)
{
    if (!newFile(target).writeAt(0, content)) {
        throw targetFailure(target);
    }
}

void compareFiles(const BoxFile& source, const QString& copy, bool fromDisk,
                  const std::function<void(qint64)>& isRead)
{
    const Descriptor original = openSource(source);
    const Descriptor written = Descriptor::open(QFile::encodeName(copy), O_RDONLY);
    const auto status = written.isOpen() ? written.status() : std::nullopt;
    if (!status || status->st_size != source.size) {
        throw BoxFailure(BoxProblem::Different, copy);
    }
    if (fromDisk) {
        ::posix_fadvise(written.number(), 0, 0, POSIX_FADV_DONTNEED);
    }
    std::vector<char> one(kCopyChunk);
    std::vector<char> other(kCopyChunk);
    for (qint64 done = 0; done < source.size;) {
        const qsizetype count = readAt(original, source.source, done, one.data(), kCopyChunk);
        const qsizetype same = readAt(written, copy, done, other.data(), kCopyChunk);
        if (count == 0 || count != same ||
            std::memcmp(one.data(), other.data(), static_cast<std::size_t>(count)) != 0) {
            throw BoxFailure(BoxProblem::Different, copy);
        }
        done += count;
        isRead(count);
    }
}

} // namespace orvanta
