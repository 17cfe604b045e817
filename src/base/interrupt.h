#pragma once

#include <QObject>

/// Turns the first SIGINT or SIGTERM into a signal of the event loop; a second one ends the
/// process as usual. One instance at a time.
class Interrupt : public QObject {
    Q_OBJECT

public:
    explicit Interrupt(QObject *parent = nullptr);
    ~Interrupt() override;

Q_SIGNALS:
    void interrupted();
};
