// An empty main window of Qt, and nothing else, until it was painted.

#include "untilpainted.h"

#include <QMainWindow>

int main(int argc, char **argv)
{
    const UntilPainted<QMainWindow> app(argc, argv);
    QMainWindow window;
    window.resize(1120, 720);
    window.show();
    return QApplication::exec();
}
