// The full program: every command but "show". Started by the program of main.cpp, which has
// checked the command line already.

#include "base/inplacefile.h"
#include "base/log.h"
#include "base/texts.h"
#include "cli/commandline.h"
#include "cli/democommand.h"
#include "cli/gathercommand.h"
#include "cli/sitescommand.h"
#include "cli/writingcommands.h"

#include <QCoreApplication>

namespace {

int runCommand(const Arguments &arguments, Report &report)
{
    switch (arguments.command) {
    case Command::Set:
        return runSet(arguments, report);
    case Command::Regenerate:
        return runRegenerate(arguments, report);
    case Command::Gather:
        return runGather(arguments, report);
    case Command::Sites:
        return runSites(arguments, report);
    case Command::Demo:
        return runDemo(report);
    case Command::Show:
    case Command::None:
        break; // the other programs' business
    }
    return ExitStatus::wrongArguments;
}

} // namespace

int main(int argc, char **argv)
{
    const Arguments arguments = parseCommandLine(argc, argv).arguments;
    const QCoreApplication app(argc, argv);
    installDiagnostics(arguments.verbose ? Diagnostics::ToStandardErrorToo
                                         : Diagnostics::ToLogFile);
    installTexts();
    recoverInterruptedWrites();
    Report report(arguments.json ? ReportFormat::JsonLines : ReportFormat::Text);
    return runCommand(arguments, report);
}
