#pragma once

#include "itunes/scriptrunner.h"

#include <QDeadlineTimer>
#include <QString>

#include <chrono>

class QProcess;

/// Runs scripts by the program osascript, each in a child process of its own. The text goes to its
/// standard input: no shell and no argument list sees it.
class OsascriptRunner : public ScriptRunner {
public:
    /// A script that runs for longer is ended. Long playlists take their time.
    static constexpr std::chrono::seconds timeLimit{20};
    /// The same for what is asked while a song waits to be written.
    static constexpr std::chrono::milliseconds playerTimeLimit{1500};
    /// A longer result is none.
    static constexpr qint64 maxBytesOfResult = 64LL * 1024 * 1024;
    /// After a script had to be ended, the program is taken to be stuck: for so long nothing is
    /// asked, so that a run over many songs does not wait for each.
    static constexpr std::chrono::seconds restAfterTimeout{60};

    explicit OsascriptRunner(QString program, std::chrono::milliseconds limit = timeLimit);

    std::optional<QString> run(const QString &script) override;
    bool isApplicationRunning(const QString &name) override;

private:
    using Limit = std::chrono::milliseconds;
    [[nodiscard]] std::optional<QString> run(const QString &script, Limit limit);
    [[nodiscard]] std::optional<QByteArray> resultOf(QProcess &process, Limit limit);

    QString mProgram;
    std::chrono::milliseconds mTimeLimit;
    QDeadlineTimer mRest{0};
};
