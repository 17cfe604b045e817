// The program with the window. Started by the program of main.cpp, which has checked the command
// line already.

#include "base/log.h"
#include "base/texts.h"
#include "cli/commandline.h"
#include "gui/clearindicators.h"
#include "gui/windowprogram.h"

#include <QApplication>

int main(int argc, char **argv)
{
    const Arguments arguments = parseCommandLine(argc, argv).arguments;
    const QApplication app(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Tagwright"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tagwright"));
    useClearIndicators();
    installDiagnostics(arguments.verbose ? Diagnostics::ToStandardErrorToo
                                         : Diagnostics::ToLogFile);
    installTexts(TextLanguage::OfTheSystem);
    return arguments.command == Command::Demo ? runDemoWindow() : runWindow(arguments.paths);
}
