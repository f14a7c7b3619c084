#include "tests/kill/killed.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orvanta::kill {

static void demand(bool holds, const char* what)
{
    if (!holds) {
        std::perror(what);
        std::exit(2);
    }
}

/// Those that open only count when they may make a file.
static bool changesFiles(const __ptrace_syscall_info& call)
{
    constexpr std::array<long, 27> kCalls = {
        SYS_write,     SYS_pwrite64,  SYS_writev,         SYS_pwritev,   SYS_rename,   SYS_renameat,
        SYS_renameat2, SYS_unlink,    SYS_unlinkat,       SYS_ftruncate, SYS_truncate, SYS_link,
        SYS_linkat,    SYS_symlink,   SYS_symlinkat,      SYS_mkdir,     SYS_mkdirat,  SYS_rmdir,
        SYS_fsync,     SYS_fdatasync, SYS_fallocate,      SYS_fchmod,    SYS_fchown,   SYS_sendfile,
        SYS_utimensat, SYS_flock,     SYS_copy_file_range};
    const auto number = static_cast<long>(call.entry.nr);
    if (number == SYS_openat) {
        return (call.entry.args[2] & (O_CREAT | O_TRUNC)) != 0;
    }
    return std::ranges::find(kCalls, number) != kCalls.end();
}

static pid_t startTraced(const Work& work)
{
    const pid_t child = fork();
    if (child == 0) {
        demand(ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0, "tracing");
        raise(SIGSTOP);
        work();
        _exit(0);
    }
    int status = 0;
    demand(child > 0 && waitpid(child, &status, 0) == child && WIFSTOPPED(status),
           "a traced child");
    demand(ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) ==
               0,
           "tracing system calls");
    return child;
}

/// Goes on to the next entry into a system call; false when the child has ended.
static bool reachesCall(pid_t child, __ptrace_syscall_info& call)
{
    int signal = 0;
    for (;;) {
        int status = 0;
        ptrace(PTRACE_SYSCALL, child, nullptr, signal);
        demand(waitpid(child, &status, 0) == child, "waiting");
        if (!WIFSTOPPED(status)) {
            demand(WIFEXITED(status) && WEXITSTATUS(status) == 0, "work that ends well");
            return false;
        }
        signal = WSTOPSIG(status) == (SIGTRAP | 0x80) ? 0 : WSTOPSIG(status);
        ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof call, &call);
        if (signal == 0 && call.op == PTRACE_SYSCALL_INFO_ENTRY) {
            return true;
        }
    }
}

static void killNow(pid_t child)
{
    ::kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

bool killAtWrite(const Work& work, int number)
{
    const pid_t child = startTraced(work);
    __ptrace_syscall_info call = {};
    while (reachesCall(child, call)) {
        number -= changesFiles(call) ? 1 : 0;
        if (number == 0) {
            killNow(child);
            return true;
        }
    }
    return false;
}

int countWrites(const Work& work)
{
    const pid_t child = startTraced(work);
    __ptrace_syscall_info call = {};
    int count = 0;
    while (reachesCall(child, call)) {
        count += changesFiles(call) ? 1 : 0;
    }
    return count;
}

void killAfter(const Work& work, std::chrono::microseconds delay)
{
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    demand(child > 0, "a child");
    std::this_thread::sleep_for(delay);
    killNow(child);
}

} // namespace orvanta::kill
