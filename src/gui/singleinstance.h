#pragma once

#include <QLocalServer>
#include <QObject>
#include <QStringList>

/// One running program a user: a second start hands its paths to the first one and ends.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    SingleInstance() = default;

    /// Hands the paths, made absolute, to the program that runs; whether there is one that took
    /// them. Waits for it no longer than a user does.
    [[nodiscard]] static bool handOver(const QStringList &paths);
    /// Takes what later starts hand over. False when that cannot be: another program was faster.
    [[nodiscard]] bool listen();

Q_SIGNALS:
    /// A later start; without paths the window is to come to the front.
    void startedAgain(const QStringList &paths);

private:
    void take();

    QLocalServer mServer;
};
