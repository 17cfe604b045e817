#include "base/resources.h"

#include "base/descriptor.h"
#include "base/fileattributes.h"
#include "base/folders.h"
#include "base/log.h"

#include <QFile>

#include <fcntl.h>

namespace {

/// No resource comes near; a larger file would only fill the memory.
constexpr qint64 largestFile = qint64(32) << 20;

/// Opened so that a pipe of that name holds nothing up.
std::optional<QByteArray> fileInDataFolder(const QString &name)
{
    const QString path = dataFolder() + QLatin1Char('/') + name;
    const Descriptor opened(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!opened)
        return std::nullopt;
    const auto attributes = FileAttributes::of(opened.get());
    QFile file;
    if (attributes && attributes->isRegular() && attributes->size <= largestFile
        && file.open(opened.get(), QIODevice::ReadOnly))
        return file.read(largestFile);
    qCWarning(logBase, "%s is no file of at most 32 MB and is not used", qUtf8Printable(path));
    return std::nullopt;
}

} // namespace

std::optional<QByteArray> resourceData(const QString &name)
{
    if (auto ofUser = fileInDataFolder(name))
        return ofUser;
    QFile builtIn(QStringLiteral(":/") + name);
    return builtIn.open(QIODevice::ReadOnly) ? std::optional(builtIn.readAll()) : std::nullopt;
}
