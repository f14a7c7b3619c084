// Preloaded: makes a system call fail as a bad disk makes it fail. By these variables:
//   FAULT_CALL   write, short, sync, rename, lock, make, truncate, folder, link
//   FAULT_ERRNO  the number of the error; "short" takes none
//   FAULT_AT     the call that fails, from 1
//   FAULT_STAYS  1: all later ones fail, too
//   FAULT_BELOW  only calls about files below this folder count
//   FAULT_HIT    this file is made when a call has failed

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

static const char* setting(const char* name)
{
    const char* value = getenv(name);
    return value != nullptr ? value : "";
}

static bool isBelow(const char* path)
{
    const char* folder = setting("FAULT_BELOW");
    return path != nullptr && *folder != 0 && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

static bool isBelow(int file)
{
    char link[64];
    char path[4096] = {};
    std::strcpy(link, "/proc/self/fd/");
    char digits[16] = {};
    int at = 15;
    for (int rest = file; at > 0 && (rest > 0 || at == 15); rest /= 10) {
        digits[--at] = static_cast<char>('0' + rest % 10);
    }
    std::strcat(link, digits + at);
    return file >= 0 && ::readlink(link, path, sizeof path - 1) > 0 && isBelow(path);
}

static void noteHit()
{
    const auto made = syscall(SYS_openat, AT_FDCWD, setting("FAULT_HIT"), O_CREAT | O_WRONLY, 0666);
    if (made >= 0) {
        syscall(SYS_close, made);
    }
}

/// Counts a call of this kind and says whether it is one that fails.
template <typename Place> static bool isFaulty(const char* call, Place place)
{
    static int count = 0;
    if (std::strcmp(setting("FAULT_CALL"), call) != 0 || !isBelow(place)) {
        return false;
    }
    const int at = std::atoi(setting("FAULT_AT"));
    const bool fails = ++count == at || (count > at && *setting("FAULT_STAYS") == '1');
    if (fails) {
        noteHit();
        errno = std::atoi(setting("FAULT_ERRNO"));
    }
    return fails;
}

template <typename Function> static Function real(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

extern "C" {

ssize_t write(int file, const void* bytes, size_t size)
{
    if (isFaulty("write", file)) {
        return -1;
    }
    const bool isShort = size > 1 && isFaulty("short", file);
    return real(&write, "write")(file, bytes, isShort ? size / 2 : size);
}

ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t at)
{
    if (isFaulty("write", file)) {
        return -1;
    }
    const bool isShort = size > 1 && isFaulty("short", file);
    return real(&pwrite64, "pwrite64")(file, bytes, isShort ? size / 2 : size, at);
}

ssize_t pwrite(int file, const void* bytes, size_t size, off_t at)
{
    return pwrite64(file, bytes, size, at);
}

ssize_t writev(int file, const iovec* parts, int count)
{
    return isFaulty("write", file) ? -1 : real(&writev, "writev")(file, parts, count);
}

int fsync(int file)
{
    return isFaulty("sync", file) ? -1 : real(&fsync, "fsync")(file);
}

int fdatasync(int file)
{
    return isFaulty("sync", file) ? -1 : real(&fdatasync, "fdatasync")(file);
}

int rename(const char* from, const char* to) noexcept
{
    return isFaulty("rename", to) ? -1 : real(&rename, "rename")(from, to);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept
{
    return isFaulty("rename", to) ? -1
                                  : real(&renameat, "renameat")(fromFolder, from, toFolder, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned flags) noexcept
{
    return isFaulty("rename", to)
               ? -1
               : real(&renameat2, "renameat2")(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept
{
    return isFaulty("link", to) ? -1 : real(&link, "link")(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    return isFaulty("link", to) ? -1
                                : real(&linkat, "linkat")(fromFolder, from, toFolder, to, flags);
}

int flock(int file, int operation) noexcept
{
    return isFaulty("lock", file) ? -1 : real(&flock, "flock")(file, operation);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return isFaulty("truncate", file) ? -1 : real(&ftruncate64, "ftruncate64")(file, size);
}

int ftruncate(int file, off_t size) noexcept
{
    return ftruncate64(file, size);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    return isFaulty("folder", path) ? -1 : real(&mkdir, "mkdir")(path, mode);
}

static mode_t modeOf(int flags, va_list list)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE ? va_arg(list, mode_t) : 0;
}

static bool mayMake(int flags)
{
    return (flags & (O_CREAT | O_TRUNC)) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

int open64(const char* path, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = modeOf(flags, list);
    va_end(list);
    if (mayMake(flags) && isFaulty("make", path)) {
        return -1;
    }
    return real(&open64, "open64")(path, flags, mode);
}

int open(const char* path, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = modeOf(flags, list);
    va_end(list);
    return open64(path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = modeOf(flags, list);
    va_end(list);
    if (mayMake(flags) && isFaulty("make", path)) {
        return -1;
    }
    return real(&openat64, "openat64")(folder, path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = modeOf(flags, list);
    va_end(list);
    return openat64(folder, path, flags, mode);
}

} // extern "C"
