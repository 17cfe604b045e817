#include "support/tracedprocess.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#ifdef __x86_64__

namespace {
using Kind = Disturbance::Kind;
using Registers = user_regs_struct;

// Not write and writev: logs and the sanitizers' own checks use them, songs and journals never.
constexpr std::array changing = {
    SYS_pwrite64,  SYS_pwritev,  SYS_ftruncate,      SYS_truncate, SYS_fallocate, SYS_fsync,
    SYS_fdatasync, SYS_mkdir,    SYS_mkdirat,        SYS_rename,   SYS_renameat,  SYS_renameat2,
    SYS_unlink,    SYS_unlinkat, SYS_utimensat,      SYS_fchmod,   SYS_ioctl,     SYS_sendfile,
    SYS_link,      SYS_linkat,   SYS_copy_file_range};

bool fails(Kind kind)
{
    return kind == Kind::Fail || kind == Kind::FailFromThere;
}

/// Reading changes nothing, but may fail.
bool isCounted(const Registers &registers, Kind kind)
{
    const auto number = static_cast<long>(registers.orig_rax);
    if (number == SYS_openat)
        return (registers.rdx & O_CREAT) != 0;
    if (number == SYS_pread64)
        return fails(kind);
    return std::find(changing.begin(), changing.end(), number) != changing.end();
}

void halveLength(Registers &registers)
{
    const auto number = static_cast<long>(registers.orig_rax);
    auto &length = number == SYS_fallocate ? registers.r10 : registers.rdx;
    if ((number == SYS_pwrite64 || number == SYS_fallocate) && length > 1)
        length /= 2;
}

class Tracer {
public:
    Tracer(pid_t pid, Disturbance disturbance, const Observer &observer)
        : mPid(pid)
        , mDisturbance(disturbance)
        , mObserver(observer)
    {
    }

    TracedRun run()
    {
        int status = 0;
        ::waitpid(mPid, &status, 0); // the child stops itself
        ::ptrace(PTRACE_SETOPTIONS, mPid, nullptr, PTRACE_O_EXITKILL | PTRACE_O_TRACESYSGOOD);
        long signal = 0;
        while (true) {
            ::ptrace(PTRACE_SYSCALL, mPid, nullptr, signal);
            ::waitpid(mPid, &status, 0);
            if (!WIFSTOPPED(status))
                break;
            const bool isCall = WSTOPSIG(status) == (SIGTRAP | 0x80);
            signal = isCall ? 0 : WSTOPSIG(status);
            if (isCall)
                stopped();
        }
        mRun.wasKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        mRun.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return mRun;
    }

private:
    void stopped()
    {
        ::ptrace(PTRACE_GETREGS, mPid, nullptr, &mRegisters);
        mIsInside = !mIsInside;
        if (mIsInside)
            enter();
        else if (mIsOurs)
            leave();
    }

    void enter()
    {
        mCall = {static_cast<long>(mRegisters.orig_rax), mPid, static_cast<int>(mRegisters.rdi)};
        mIsOurs = isCounted(mRegisters, mDisturbance.kind);
        if (!mIsOurs)
            return;
        const int call = mRun.calls++;
        mIsDisturbed = call == mDisturbance.at
            || (mDisturbance.kind == Kind::FailFromThere && call > mDisturbance.at);
        if (mIsDisturbed)
            disturbEntry();
    }

    void disturbEntry()
    {
        const Kind kind = mDisturbance.kind;
        if (kind == Kind::KillBefore)
            ::kill(mPid, SIGKILL);
        if (fails(kind))
            mRegisters.orig_rax = ~0ULL;
        if (kind == Kind::KillHalfway || kind == Kind::Halve)
            halveLength(mRegisters);
        if (kind != Kind::KillBefore)
            ::ptrace(PTRACE_SETREGS, mPid, nullptr, &mRegisters);
    }

    void leave()
    {
        if (mIsDisturbed && fails(mDisturbance.kind)) {
            mRegisters.rax = static_cast<unsigned long long>(-mDisturbance.error);
            ::ptrace(PTRACE_SETREGS, mPid, nullptr, &mRegisters);
        }
        if (mObserver)
            mObserver(mCall);
        if (mIsDisturbed
            && (mDisturbance.kind == Kind::KillHalfway || mDisturbance.kind == Kind::KillAfter))
            ::kill(mPid, SIGKILL);
    }

    pid_t mPid;
    Disturbance mDisturbance;
    const Observer &mObserver;
    Registers mRegisters = {};
    TracedCall mCall = {};
    TracedRun mRun;
    bool mIsInside = false;
    bool mIsOurs = false;
    bool mIsDisturbed = false;
};
} // namespace

TracedRun runTraced(const std::function<int()> &function, Disturbance disturbance,
                    const Observer &observer)
{
    const pid_t pid = ::fork();
    if (pid == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            ::_exit(255);
        ::raise(SIGSTOP);
        ::_exit(function());
    }
    return Tracer(pid, disturbance, observer).run();
}

#else

TracedRun runTraced(const std::function<int()> &, Disturbance, const Observer &)
{
    return {};
}

#endif

bool canTrace()
{
    return runTraced([] { return 7; }, {}).status == 7;
}
