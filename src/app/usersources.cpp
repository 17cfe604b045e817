#include "app/usersources.h"

#include "app/songsources.h"
#include "itunes/librarylocation.h"
#include "itunes/systemrunner.h"

#include <QDir>

namespace {
/// The first playlist that the user made and fills: others change by themselves.
std::optional<QString> suitablePlaylist(iTunesInterface &itunes)
{
    if (!itunes.isiTunesRunning())
        return std::nullopt;
    for (const QStringList &playlist : itunes.playlistsInfo().value_or(QList<QStringList>()))
        if (playlist.size() == 3 && playlist[1] == QLatin1String("none")
            && playlist[2] != QLatin1String("true"))
            return playlist[0];
    return std::nullopt;
}
} // namespace

std::optional<SongSource> usersLibrary(const PrefsController &prefs)
{
    const auto file = LibraryLocation().libraryFilePath();
    return file ? std::optional(librarySource(*file, prefs.movedFolders())) : std::nullopt;
}

SongSource usersPlaylist(const PrefsController &prefs, const QString &name)
{
    const MusicPlaces places = usualMusicPlaces(prefs.movedFolders());
    return playlistSource(name, [places](const QString &playlist) {
        const auto runner = systemScriptRunner(places);
        iTunesInterface itunes(*runner);
        return tracksOfPlaylist(itunes, playlist);
    });
}

SourceKind chosenSourceKind(PrefsController &prefs, iTunesInterface &itunes,
                            LibraryLocation &location)
{
    if (const auto kind = prefs.librarySource())
        return *kind;
    if (const auto playlist = suitablePlaylist(itunes))
        prefs.setLibraryPlaylist(*playlist);
    else if (location.canGetMusicLibraryDictionary())
        prefs.setiTunesLibrary();
    return prefs.librarySource().value_or(SourceKind::Folder);
}

QString chosenFolder(const PrefsController &prefs, LibraryLocation &location)
{
    QString folder = prefs.libraryDirectory();
    if (folder.isEmpty())
        folder =
            location.musicLibraryPath().value_or(QDir::homePath() + QStringLiteral("/Documents"));
    return folder;
}
