#include "itunes/itunesinterface.h"

std::optional<QString>
iTunesInterface::refreshAndGetPathOfSongWithID(int, const std::optional<QString> &)
{
    return {};
}

std::optional<QString> iTunesInterface::refreshAndGetPathOfSongWithTitle(const QString &,
                                                                         const QString &)
{
    return {};
}
