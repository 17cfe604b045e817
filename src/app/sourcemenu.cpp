#include "app/sourcemenu.h"

#include "itunes/itunesinterface.h"
#include "itunes/librarylocation.h"
#include "itunes/systemrunner.h"

#include <QStringList>

namespace {

/// Of other special playlists, such as those of films, there is none.
QString imageOfPlaylist(const QString &specialKind, bool isSmart)
{
    if (specialKind == QLatin1String("Party Shuffle"))
        return QStringLiteral("Menu-PartyShuffle");
    if (specialKind == QLatin1String("none"))
        return isSmart ? QStringLiteral("Menu-SmartPlaylist") : QStringLiteral("Menu-Playlist");
    return {};
}

QList<SourceMenuEntry> playlistEntries(iTunesInterface &itunes)
{
    using enum SourceMenuEntry::Kind;
    if (!itunes.isiTunesRunning())
        return {{Hint, qtTrId("iTunesNotRunning")}};
    QList<SourceMenuEntry> entries;
    for (const QStringList &playlist : itunes.playlistsInfo().value_or(QList<QStringList>())) {
        if (playlist.size() != 3)
            continue;
        const QString image = imageOfPlaylist(playlist[1], playlist[2] == QLatin1String("true"));
        if (!image.isEmpty())
            entries.append({Playlist, playlist[0], image});
    }
    if (entries.isEmpty())
        entries.append({Hint, qtTrId("iTunesIsBusy")});
    return entries;
}

} // namespace

QList<SourceMenuEntry> sourceMenuEntries(const MovedFolders &movedFolders)
{
    using enum SourceMenuEntry::Kind;
    QList<SourceMenuEntry> entries;
    if (LibraryLocation().canGetMusicLibraryDictionary())
        entries << SourceMenuEntry{Library, qtTrId("iTunesLibrary"), QStringLiteral("Menu-Library")}
                << SourceMenuEntry{};
    const auto runner = systemScriptRunner(usualMusicPlaces(movedFolders));
    iTunesInterface itunes(*runner);
    return entries + playlistEntries(itunes);
}
