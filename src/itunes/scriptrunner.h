#pragma once

#include <QString>

#include <optional>

/// Runs scripts against the music library program. A run that does not end is ended by the
/// runner: nobody who asks waits for ever.
class ScriptRunner {
public:
    ScriptRunner() = default;
    ScriptRunner(const ScriptRunner &) = delete;
    ScriptRunner &operator=(const ScriptRunner &) = delete;
    virtual ~ScriptRunner() = default;

    /// The script's result as text, a number in decimal digits; nothing when it has no result or
    /// failed.
    virtual std::optional<QString> run(const QString &script) = 0;

    /// Whether an application of that name runs; it is not launched by the question.
    virtual bool isApplicationRunning(const QString &name) = 0;
};
