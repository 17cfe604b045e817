// The program with the window. Started by the program of main.cpp, which has checked the command
// line already.

#include "base/inplacefile.h"
#include "base/log.h"
#include "base/texts.h"
#include "cli/commandline.h"
#include "gui/icons.h"
#include "gui/mainwindow.h"

#include <QApplication>
#include <QTimer>

int main(int argc, char **argv)
{
    const Arguments arguments = parseCommandLine(argc, argv).arguments;
    const QApplication app(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Tagwright"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tagwright"));
    QApplication::setWindowIcon(icon(QStringLiteral("tagwright")));
    installDiagnostics(arguments.verbose ? Diagnostics::ToStandardErrorToo
                                         : Diagnostics::ToLogFile);
    installTexts(TextLanguage::OfTheSystem);
    recoverInterruptedWrites();

    Engine engine;
    engine.start(Engine::Definitions::Live);
    MainController controller(engine);
    MainWindow window(controller);
    window.show();
    // The window comes first, its songs afterwards.
    QTimer::singleShot(0, &controller, &MainController::rescan);
    return QApplication::exec();
}
