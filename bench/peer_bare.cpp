// What starting any Qt program costs.
#include <QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    return 0;
}
