#include "gathering/fingerprintrun.h"

#include <QCoreApplication>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 60s;
/// No fingerprint of two minutes comes near.
constexpr qint64 longestFingerprint = 64 << 10;
constexpr qsizetype longestReason = 200;

} // namespace

FingerprintRun::FingerprintRun(const QString &program, const QString &song)
{
    mProcess.setProgram(program);
    mProcess.setArguments({song});
    mProcess.setStandardInputFile(QProcess::nullDevice());
    mPatience.setSingleShot(true);
    connect(&mPatience, &QTimer::timeout, &mProcess, &QProcess::kill);
    connect(&mProcess, &QProcess::readyReadStandardOutput, this, &FingerprintRun::stopFlood);
    connect(&mProcess, &QProcess::finished, this, &FingerprintRun::end);
    const auto failed = [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) // after all others finished() follows
            end();
    };
    // Queued, since a program that is not there fails inside start().
    connect(&mProcess, &QProcess::errorOccurred, this, failed, Qt::QueuedConnection);
}

FingerprintRun::~FingerprintRun()
{
    mProcess.disconnect(this);
    mProcess.kill();
    mProcess.waitForFinished();
}

void FingerprintRun::start()
{
    mPatience.start(patience);
    mProcess.start(QIODevice::ReadOnly);
}

void FingerprintRun::cancel()
{
    mProcess.kill();
}

void FingerprintRun::stopFlood()
{
    if (mProcess.bytesAvailable() > longestFingerprint)
        mProcess.kill();
}

void FingerprintRun::end()
{
    mPatience.stop();
    const bool hasRun = mProcess.error() == QProcess::UnknownError;
    if (hasRun && mProcess.exitCode() == 0)
        mFingerprint = mProcess.read(longestFingerprint).trimmed();
    if (!hasRun)
        mProblem = mProcess.errorString();
    else if (mFingerprint.isEmpty())
        mProblem = QString::fromUtf8(mProcess.readAllStandardError().left(longestReason)).trimmed();
    if (mFingerprint.isEmpty() && mProblem.isEmpty())
        mProblem = qtTrId("ErrorNoSound");
    Q_EMIT finished();
}
