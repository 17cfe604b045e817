#pragma once

#include "cli/commandline.h"
#include "cli/jsonwriter.h"

#include <QJsonObject>
#include <QString>

#include <functional>

enum class ReportFormat { Text, JsonLines };

/// What a command tells: JSON Lines or text on standard output, errors on standard error, and
/// the exit status that follows from them.
class Report {
public:
    explicit Report(ReportFormat format);
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;
    ~Report();

    [[nodiscard]] ReportFormat format() const { return mFormat; }

    /// One line of JSON.
    void object(const QJsonObject &object);
    /// The same, written straight into the line.
    void object(const std::function<void(JsonWriter &)> &write);
    /// One line (or several) of text, without the last line end.
    void text(const QString &lines);
    /// What has been printed is handed on now, not when the buffer is full.
    void flush();

    /// One line on standard error that names the path and the reason; the exit status becomes 1.
    void error(const QString &path, const QString &reason);
    /// The same of something that is no failure of this run.
    void note(const QString &path, const QString &reason);
    void setFailed() { mFailed = true; }

    /// Prints what is left. A standard output that cannot be written (a full disk) is a failure
    /// too.
    [[nodiscard]] int finish();

private:
    void print(const QByteArray &bytes);

    ReportFormat mFormat;
    bool mFailed = false;
};
