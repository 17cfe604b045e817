#include "cli/report.h"

#include "cli/terminaltext.h"

#include <QJsonDocument>

#include <cstdio>
#include <vector>

namespace {
/// Songs come by the thousand; their lines go out in pieces of this many bytes.
constexpr size_t outputBufferSize = 1 << 16;
} // namespace

Report::Report(ReportFormat format)
    : mFormat(format)
{
    static std::vector<char> buffer(outputBufferSize);
    std::setvbuf(stdout, buffer.data(), _IOFBF, buffer.size());
}

Report::~Report()
{
    std::fflush(stdout);
}

void Report::print(const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
}

void Report::object(const QJsonObject &object)
{
    print(QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
}

void Report::object(const std::function<void(JsonWriter &)> &write)
{
    JsonWriter json;
    write(json);
    print(json.json() + '\n');
}

void Report::text(const QString &lines)
{
    print(terminalText(lines).toUtf8() + '\n');
}

void Report::flush()
{
    std::fflush(stdout);
}

void Report::error(const QString &path, const QString &reason)
{
    mFailed = true;
    note(path, reason);
}

void Report::note(const QString &path, const QString &reason)
{
    std::fprintf(stderr, "%s: %s\n", terminalLine(path).toUtf8().constData(),
                 terminalLine(reason).toUtf8().constData());
}

int Report::finish()
{
    const bool isWritten = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    if (!isWritten)
        error(QStringLiteral("standard output"), QStringLiteral("cannot be written"));
    return mFailed ? ExitStatus::someFailed : ExitStatus::done;
}
