#include "support/tempfiles.h"

#include <QFile>

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray fileContents(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

QByteArray mpegFrames(int frames)
{
    return (QByteArray::fromHex("fffb9000") + QByteArray(413, '\0')).repeated(frames);
}
