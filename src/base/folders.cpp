#include "base/folders.h"

#include <QDir>

namespace {
/// The folder that the variable names; a missing or relative value counts as unset.
QString baseFolder(const char *variable, const QString &fallback)
{
    const QString value = qEnvironmentVariable(variable);
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value)
                                       : QDir::homePath() + QLatin1Char('/') + fallback;
}
} // namespace

QString dataFolder()
{
    return baseFolder("XDG_DATA_HOME", QStringLiteral(".local/share"))
        + QStringLiteral("/tagwright");
}

QString stateFolder()
{
    return baseFolder("XDG_STATE_HOME", QStringLiteral(".local/state"))
        + QStringLiteral("/tagwright");
}

QString cacheFolder()
{
    return baseFolder("XDG_CACHE_HOME", QStringLiteral(".cache")) + QStringLiteral("/tagwright");
}

QString songInfoFolder()
{
    return baseFolder("XDG_CACHE_HOME", QStringLiteral(".cache"))
        + QStringLiteral("/Tagwright Song Info");
}

QString settingsFile()
{
    return baseFolder("XDG_CONFIG_HOME", QStringLiteral(".config"))
        + QStringLiteral("/tagwright/tagwright.conf");
}
