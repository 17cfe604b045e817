#pragma once

#include <QObject>
#include <QProcess>
#include <QTimer>

/// Has the program that decodes songs tell what one sounds like.
class FingerprintRun : public QObject {
    Q_OBJECT

public:
    /// `program`: its path.
    FingerprintRun(const QString &program, const QString &song);
    ~FingerprintRun() override;

    /// finished() follows on a later turn, exactly once, at the latest after a minute.
    void start();
    /// May come at any time; finished() still follows, if it was started.
    void cancel();
    /// Empty when there is none.
    [[nodiscard]] const QByteArray &fingerprint() const { return mFingerprint; }
    /// Why there is none, for the user.
    [[nodiscard]] const QString &problem() const { return mProblem; }

Q_SIGNALS:
    void finished();

private:
    void stopFlood();
    void end();

    QProcess mProcess;
    QTimer mPatience;
    QByteArray mFingerprint;
    QString mProblem;
};
