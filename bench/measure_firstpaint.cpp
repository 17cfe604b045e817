// How long the window takes, as main_window.cpp starts it: "first" until something of it was
// painted, "whole" until its songs table was. Ends then; started and timed from outside. "once"
// opens and closes it as a user does, who finds it then where it was.

#include "untilpainted.h"

#include "base/log.h"
#include "base/texts.h"
#include "gui/mainwindow.h"
#include "gui/songtable.h"
#include "gui/windowprogram.h"

#include <QTimer>

#include <cstdio>

namespace {

template<typename Painted>
int run(int &argc, char **argv)
{
    const UntilPainted<Painted> app(argc, argv);
    installDiagnostics(Diagnostics::ToLogFile);
    installTexts(TextLanguage::OfTheSystem);
    return runWindow({});
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 2 && qstrcmp(argv[1], "first") == 0)
        return run<MainWindow>(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], "whole") == 0)
        return run<SongTable>(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], "once") == 0) {
        const QApplication app(argc, argv);
        QTimer::singleShot(1000, &app, &QApplication::closeAllWindows);
        return runWindow({});
    }
    std::fputs("measure_firstpaint once|first|whole\n", stderr);
    return 2;
}
