#include "gui/windowprogram.h"

#include "base/inplacefile.h"
#include "demo/samplesites.h"
#include "demo/samplesongs.h"
#include "gui/session.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

int runWindow(const QStringList &paths)
{
    if (SingleInstance::handOver(paths))
        return 0;
    recoverInterruptedWrites();
    Engine engine;
    engine.start(Engine::Definitions::Live);
    Session session(engine);
    session.listen();
    session.openPaths(paths);
    return QApplication::exec();
}

int runDemoWindow()
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
        return 1;
    }
    Engine engine(Engine::Pages::InMemory, folder.filePath(QStringLiteral("settings")));
    engine.definitions.useDefinitions(sites.definitions(engine.definitions.liveResources()));
    engine.start(Engine::Definitions::Fixed);
    Session session(engine);
    session.openMainWindow(songs);
    return QApplication::exec();
}
