// Reads every file below the folders named as arguments with a fuzz target: the kept inputs as a
// test, without libFuzzer.
#include "reader.h"

#include <QDirIterator>
#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        QDirIterator files(QString::fromLocal8Bit(argv[i]), QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            verify(file.open(QIODevice::ReadOnly));
            read(file.readAll());
            ++inputs;
        }
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}
