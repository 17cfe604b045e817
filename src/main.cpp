// The program that users start. It reads the command line and shows tags itself, with nothing
// loaded but QtCore; everything else is done by the full program, which it becomes.

#include "base/inplacefile.h"
#include "base/log.h"
#include "base/texts.h"
#include "cli/commandline.h"
#include "cli/fullprogram.h"
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
    if (arguments.command != Command::Show)
        return runFullProgram(argc, argv);

    const QCoreApplication app(argc, argv);
    installDiagnostics(arguments.verbose ? Diagnostics::ToStandardErrorToo
                                         : Diagnostics::ToLogFile);
    installTexts();
    recoverInterruptedWrites();
    Report report(arguments.json ? ReportFormat::JsonLines : ReportFormat::Text);
    return runShow(arguments, report);
}
