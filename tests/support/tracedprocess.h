#pragma once

#include <functional>

/// What is done to a process at one of the system calls by which it changes files.
struct Disturbance {
    enum class Kind {
        None,
        KillBefore, ///< the call is not made
        KillHalfway, ///< the call writes half of what it should
        KillAfter,
        Fail, ///< the call is not made and reports `error`
        FailFromThere, ///< this call and every later one, as if the disk had died
        Halve ///< the call writes half of what it should and says so
    };
    Kind kind = Kind::None;
    int at = 0; ///< which call, from 0 on
    int error = 0;
};

struct TracedRun {
    int calls = 0; ///< system calls that change files, until the process ended
    bool wasKilled = false;
    int status = 0; ///< what the function returned; -1 when killed or crashed
};

/// One system call of the process that has been made.
struct TracedCall {
    long number;
    int pid;
    int fd; ///< its first argument
};

using Observer = std::function<void(const TracedCall &)>;

/// Tracing works as far as this code knows the registers of the processor.
bool canTrace();

/// Runs the function in a process of its own (a fork of this one) and disturbs it there.
TracedRun runTraced(const std::function<int()> &function, Disturbance disturbance,
                    const Observer &observer = {});
