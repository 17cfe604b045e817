#include "cli/fullprogram.h"

#include "base/ownprogram.h"
#include "cli/commandline.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

int runFullProgram(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QString path = pathOfOwnProgram(QStringLiteral("tagwright-full"));
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
