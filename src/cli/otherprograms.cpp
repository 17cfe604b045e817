#include "cli/otherprograms.h"

#include "base/ownprogram.h"
#include "cli/commandline.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

Program programFor(const Arguments &arguments)
{
    switch (arguments.command) {
    case Command::Show:
        return Program::This;
    case Command::None:
        return Program::Window;
    case Command::Demo:
        return arguments.headless || !hasDisplay() ? Program::Full : Program::Window;
    default:
        return Program::Full;
    }
}

bool hasDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return !qEnvironmentVariableIsEmpty("DISPLAY")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

int becomeProgram(Program program, int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QString path =
        pathOfOwnProgram(program == Program::Window ? QStringLiteral("tagwright-window")
                                                    : QStringLiteral("tagwright-full"));
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
