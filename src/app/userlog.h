#pragma once

#include <QObject>
#include <QString>

/// What a line of the user's log is about, and so its colour.
enum class LogColor { Plain, Change, Error, Cancel, Finished };

/// The lines that the user reads while songs are gathered.
class UserLog : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    void addLog(const QString &line, LogColor color) { Q_EMIT lineAdded(line, color); }

Q_SIGNALS:
    void lineAdded(const QString &line, LogColor color);
};
