#include "base/log.h"

#include "base/folders.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QMutex>

#include <cstdio>

Q_LOGGING_CATEGORY(logBase, "tagwright.base")
Q_LOGGING_CATEGORY(logText, "tagwright.text")
Q_LOGGING_CATEGORY(logTags, "tagwright.tags")
Q_LOGGING_CATEGORY(logItunes, "tagwright.itunes")
Q_LOGGING_CATEGORY(logSongs, "tagwright.songs")
Q_LOGGING_CATEGORY(logGathering, "tagwright.gathering")
Q_LOGGING_CATEGORY(logSources, "tagwright.sources", QtInfoMsg)
Q_LOGGING_CATEGORY(logApp, "tagwright.app")
Q_LOGGING_CATEGORY(logDemo, "tagwright.demo")
Q_LOGGING_CATEGORY(logCli, "tagwright.cli")
Q_LOGGING_CATEGORY(logGui, "tagwright.gui")

namespace {
/// Two files of this size at most: enough for a night's run, too little to fill a disk.
constexpr qint64 maxLogSize = 1'000'000;

/// The log file, shared by all threads under its mutex.
class LogFile {
public:
    void write(const QByteArray &line)
    {
        const QMutexLocker locker(&mMutex);
        if (mFile.isOpen() && mFile.size() + line.size() > maxLogSize)
            startAnew();
        if (!mFile.isOpen() && !open())
            return;
        mFile.write(line);
        mFile.flush();
    }

private:
    bool open()
    {
        const QString folder = stateFolder();
        if (!QDir().mkpath(folder))
            return false;
        mFile.setFileName(folder + QStringLiteral("/tagwright.log"));
        return mFile.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
    }

    void startAnew()
    {
        const QString name = mFile.fileName();
        mFile.close();
        QFile::remove(name + QStringLiteral(".1"));
        QFile::rename(name, name + QStringLiteral(".1"));
    }

    QMutex mMutex;
    QFile mFile;
};

Diagnostics &destination()
{
    static Diagnostics where = Diagnostics::ToLogFile;
    return where;
}

void writeMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    static LogFile file;
    const QByteArray text = qFormatLogMessage(type, context, message).toUtf8();
    file.write(QDateTime::currentDateTime().toString(Qt::ISODateWithMs).toLatin1() + ' ' + text
               + '\n');
    if (destination() == Diagnostics::ToStandardErrorToo || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", text.constData());
}
} // namespace

void installDiagnostics(Diagnostics where)
{
    destination() = where;
    qSetMessagePattern(QStringLiteral("%{category}: %{message}"));
    qInstallMessageHandler(writeMessage);
}
