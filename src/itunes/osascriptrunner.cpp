#include "itunes/osascriptrunner.h"

#include "base/log.h"
#include "itunes/scripttext.h"

#include <QProcess>

#include <algorithm>
#include <csignal>
#include <unistd.h>
#include <utility>

namespace {

constexpr qsizetype maxBytesOfReason = 1000;
/// Between two looks at what a script says on standard error, which wakes nobody.
constexpr int step = 100; // milliseconds

/// Ends the script with all that it started.
void endGroup(QProcess &process)
{
    if (process.processId() > 0)
        ::kill(static_cast<pid_t>(-process.processId()), SIGKILL);
    process.waitForFinished();
}

bool isOfPlayer(const QString &script)
{
    return script == ScriptText::pause || script == ScriptText::resume
        || script == ScriptText::ofResource(QStringLiteral("iTunes_play_currently_playing"));
}

bool isFailed(const QProcess &process)
{
    return process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0;
}

} // namespace

OsascriptRunner::OsascriptRunner(QString program, std::chrono::milliseconds limit)
    : mProgram(std::move(program))
    , mTimeLimit(limit)
{
}

std::optional<QString> OsascriptRunner::run(const QString &script)
{
    return run(script,
               isOfPlayer(script) ? std::min<Limit>(playerTimeLimit, mTimeLimit) : mTimeLimit);
}

std::optional<QString> OsascriptRunner::run(const QString &script, Limit limit)
{
    if (!mRest.hasExpired())
        return std::nullopt;
    QProcess process;
    process.setChildProcessModifier([] { ::setpgid(0, 0); });
    process.start(mProgram, {QStringLiteral("-")});
    process.write(script.toUtf8());
    process.closeWriteChannel();
    auto result = resultOf(process, limit);
    // No result prints nothing, an empty text an empty line.
    if (!result || !result->endsWith('\n'))
        return std::nullopt;
    result->chop(1);
    return QString::fromUtf8(*result);
}

std::optional<QByteArray> OsascriptRunner::resultOf(QProcess &process, Limit limit)
{
    const QDeadlineTimer deadline(limit);
    QByteArray result;
    QByteArray reason;
    while (process.state() != QProcess::NotRunning && result.size() <= maxBytesOfResult
           && !deadline.hasExpired()) {
        process.waitForReadyRead(std::min(step, static_cast<int>(deadline.remainingTime())));
        result += process.readAllStandardOutput();
        reason = (reason + process.readAllStandardError()).left(maxBytesOfReason);
    }
    if (process.state() != QProcess::NotRunning) {
        if (deadline.hasExpired())
            mRest.setRemainingTime(restAfterTimeout);
        endGroup(process);
        qCWarning(logItunes, "a script was ended: it ran too long or gave too much");
        return std::nullopt;
    }
    if (isFailed(process)) {
        qCWarning(logItunes, "a script failed: %s", reason.constData());
        return std::nullopt;
    }
    return result += process.readAllStandardOutput();
}

bool OsascriptRunner::isApplicationRunning(const QString &name)
{
    const auto script =
        ScriptText::filled(u"return application \"%@\" is running", {ScriptArgument(name)});
    return script
        && run(*script, std::min<Limit>(playerTimeLimit, mTimeLimit)) == QStringLiteral("true");
}
