#include "gui/windowprogram.h"

#include "base/inplacefile.h"
#include "base/interrupt.h"
#include "demo/sampleground.h"
#include "gui/icons.h"
#include "gui/session.h"

#include <QApplication>

#include <cstdio>

namespace {
/// An interrupt closes the windows, so that what was begun on songs is completed.
int runEventLoop(const Interrupt &interrupt)
{
    QObject::connect(&interrupt, &Interrupt::interrupted, qApp, &QApplication::quit,
                     Qt::QueuedConnection);
    return QApplication::exec();
}
} // namespace

int runWindow(const QStringList &paths)
{
    if (SingleInstance::handOver(paths))
        return 0;
    const Interrupt interrupt;
    Engine engine;
    Session session(engine);
    if (paths.isEmpty())
        session.paintMainWindow();
    QGuiApplication::setWindowIcon(icon(QStringLiteral("tagwright"))); // drawn at many sizes
    recoverInterruptedWrites();
    engine.start(Engine::Definitions::Live);
    session.listen();
    session.openPaths(paths);
    return runEventLoop(interrupt);
}

int runDemoWindow()
{
    const Interrupt interrupt; // before there is a folder that has to go
    SampleGround ground;
    if (!ground.error().isEmpty()) {
        std::fprintf(stderr, "tagwright: demo: %s\n", qUtf8Printable(ground.error()));
        return 1;
    }
    QGuiApplication::setWindowIcon(icon(QStringLiteral("tagwright")));
    Session session(ground.engine());
    session.openMainWindow(ground.songs());
    return runEventLoop(interrupt);
}
