// The program with the window. Started by the program of main.cpp, which has checked the command
// line already.

#include "base/inplacefile.h"
#include "base/log.h"
#include "base/texts.h"
#include "cli/commandline.h"
#include "demo/samplesites.h"
#include "demo/samplesongs.h"
#include "gui/icons.h"
#include "gui/session.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace {

int runWindow(const QStringList &paths)
{
    if (SingleInstance::handOver(paths))
        return ExitStatus::done;
    recoverInterruptedWrites();
    Engine engine;
    engine.start(Engine::Definitions::Live);
    Session session(engine);
    session.listen();
    session.openPaths(paths);
    return QApplication::exec();
}

/// Sample songs and sites, and settings of their own: nothing of the user's is touched.
int runDemo()
{
    const QTemporaryDir folder;
    const QString songs = folder.filePath(QStringLiteral("Demo"));
    QString error =
        folder.isValid() && QDir().mkpath(songs) ? makeSampleSongs(songs) : folder.errorString();
    SampleSites sites;
    if (error.isEmpty() && !sites.listen())
        error = QStringLiteral("no port of this machine can be listened on");
    if (!error.isEmpty()) {
        std::fprintf(stderr, "tagwright: demo: %s\n", qUtf8Printable(error));
        return ExitStatus::someFailed;
    }
    Engine engine(Engine::Pages::InMemory, folder.filePath(QStringLiteral("settings")));
    engine.definitions.useDefinitions(sites.definitions(engine.definitions.liveResources()));
    engine.start(Engine::Definitions::Fixed);
    Session session(engine);
    session.openMainWindow(songs);
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    const Arguments arguments = parseCommandLine(argc, argv).arguments;
    const QApplication app(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Tagwright"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tagwright"));
    QGuiApplication::setWindowIcon(icon(QStringLiteral("tagwright")));
    installDiagnostics(arguments.verbose ? Diagnostics::ToStandardErrorToo
                                         : Diagnostics::ToLogFile);
    installTexts(TextLanguage::OfTheSystem);
    return arguments.command == Command::Demo ? runDemo() : runWindow(arguments.paths);
}
