#include "cli/fullprogram.h"

#include "cli/commandline.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

QString pathOfFullProgram()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + QStringLiteral("/tagwright-full");
    return QFileInfo::exists(beside)
        ? beside
        : folder + QStringLiteral("/../libexec/tagwright/tagwright-full");
}

} // namespace

int runFullProgram(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QString path = pathOfFullProgram();
#ifdef Q_OS_UNIX
    execv(QFile::encodeName(path).constData(), argv);
#else
    const int status = QProcess::execute(path, QCoreApplication::arguments().mid(1));
    if (status >= 0)
        return status;
#endif
    std::fprintf(stderr, "tagwright: %s cannot be started\n", QFile::encodeName(path).constData());
    return ExitStatus::someFailed;
}
