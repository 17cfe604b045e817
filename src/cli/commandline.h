#pragma once

#include "cli/arguments.h"

#include <QByteArray>

/// Exit statuses of the program.
namespace ExitStatus {
inline constexpr int done = 0;
inline constexpr int someFailed = 1;
inline constexpr int wrongArguments = 2;
} // namespace ExitStatus

/// The command line, read. With `text` there is nothing to run: print it (to standard error when
/// the status is not 0) and end with `exitStatus`.
struct ParsedCommandLine {
    Arguments arguments;
    QByteArray text;
    int exitStatus = ExitStatus::done;
};

[[nodiscard]] ParsedCommandLine parseCommandLine(int argc, const char *const *argv);
