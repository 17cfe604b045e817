// The program that users start. It reads the command line and shows tags itself, with nothing
// loaded but QtCore; everything else is done by the full program or the one with the window, which
// it becomes.

#include "base/inplacefile.h"
#include "base/log.h"
#include "base/texts.h"
#include "cli/commandline.h"
#include "cli/otherprograms.h"
#include "cli/showcommand.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    const ParsedCommandLine parsed = parseCommandLine(argc, argv);
    if (!parsed.text.isEmpty()) {
        std::FILE *out = parsed.exitStatus == ExitStatus::done ? stdout : stderr;
        std::fputs(parsed.text.constData(), out);
        return parsed.exitStatus;
    }
    const Arguments &arguments = parsed.arguments;
    const Program program = programFor(arguments);
    if (program == Program::Window && !hasDisplay()) {
        std::fputs("tagwright: there is no display to open a window on; "
                   "\"tagwright --help\" lists what works without one\n",
                   stderr);
        return ExitStatus::wrongArguments;
    }
    if (program != Program::This)
        return becomeProgram(program, argc, argv);

    const QCoreApplication app(argc, argv);
    installDiagnostics(arguments.verbose ? Diagnostics::ToStandardErrorToo
                                         : Diagnostics::ToLogFile);
    installTexts();
    recoverInterruptedWrites();
    Report report(arguments.json ? ReportFormat::JsonLines : ReportFormat::Text);
    return runShow(arguments, report);
}
