#include "base/resources.h"

#include "base/folders.h"

#include <QFile>

std::optional<QByteArray> resourceData(const QString &name)
{
    for (const QString &path :
         {dataFolder() + QLatin1Char('/') + name, QStringLiteral(":/") + name}) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            return file.readAll();
    }
    return std::nullopt;
}
