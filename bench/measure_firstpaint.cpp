// How long a window takes to its first painting: "bare", an empty main window of Qt, or "main",
// ours with all that stands behind it. Ends once it was painted; started and timed from outside.

#include "base/log.h"
#include "base/texts.h"
#include "gui/icons.h"
#include "gui/windowprogram.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace {

/// Ends the program when a main window was painted.
class UntilPainted : public QObject {
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && qobject_cast<QMainWindow *>(watched))
            QTimer::singleShot(0, [] { std::_Exit(0); });
        return false;
    }
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return std::fputs("measure_firstpaint bare|main\n", stderr), 2;
    QApplication app(argc, argv);
    UntilPainted painted;
    app.installEventFilter(&painted);
    if (qstrcmp(argv[1], "bare") == 0) {
        QMainWindow window;
        window.resize(1120, 720);
        window.show();
        return QApplication::exec();
    }
    QGuiApplication::setWindowIcon(icon(QStringLiteral("tagwright")));
    installDiagnostics(Diagnostics::ToLogFile);
    installTexts(TextLanguage::OfTheSystem);
    return runWindow({});
}
