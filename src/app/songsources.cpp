#include "app/songsources.h"

#include "base/folderwalk.h"
#include "base/namedpaths.h"
#include "itunes/libraryreader.h"

#include <QFileInfo>

#include <limits>
#include <utility>

namespace {

void readFolder(const QString &path, EntrySink &sink)
{
    walkFolder(path,
               {
                   .file = [&sink](const QString &file) { sink.add({file}); },
                   .problem = [&sink](const QString &name,
                                      const QString &reason) { sink.problem(name, reason); },
                   .goesOn = [&sink] { return sink.goesOn(); },
               });
}

void readPaths(const QStringList &paths, EntrySink &sink)
{
    forEachPath(
        paths,
        [&sink](const FoundPath &found) {
            const bool isNamed = found.origin == FoundPath::Origin::Named;
            sink.add({.path = found.path,
                      .proof = isNamed ? SongProof::None : SongProof::NameOrContents});
        },
        [&sink](const QString &path, const QString &reason) { sink.problem(path, reason); },
        [&sink] { return sink.goesOn(); });
}

/// Streams have no file.
void readLibrary(const QString &path, const MovedFolders &moved, EntrySink &sink)
{
    const LibraryReading reading = readLibraryFile(path);
    if (!reading.problem.isEmpty())
        sink.problem(path, reading.problem);
    if (!reading.library)
        return;
    for (const LibraryTrack &track : reading.library->tracks())
        if (const auto file = pathOfLocation(track.location, moved))
            if (!sink.add({*file, track.id}))
                return;
}

void readPlaylist(const QString &name, const TracksOfPlaylist &tracksOfPlaylist, EntrySink &sink)
{
    const auto tracks = tracksOfPlaylist(name);
    if (!tracks)
        return sink.problem(name, qtTrId("PlaylistNotFoundMessage").arg(name));
    int position = 0;
    for (const TrackIdentifiers &track : *tracks) {
        ++position; // tracks without a file count, too
        if (!track.location.isEmpty()
            && !sink.add({track.location, track.databaseID.toInt(), position}))
            return;
    }
}

QList<TrackIdentifiers> tracksOneByOne(iTunesInterface &itunes, int playlist, int count)
{
    QList<TrackIdentifiers> tracks;
    for (int track = 1; track <= count; ++track)
        tracks << itunes.identifiersForTrackIndex(track, playlist).value_or(TrackIdentifiers());
    return tracks;
}

} // namespace

std::optional<SongSource> folderSource(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.isDir())
        return std::nullopt;
    const QString path = info.absoluteFilePath(); // summaries are kept by absolute paths
    SongSource source;
    source.kind = SourceKind::Folder;
    source.name = path;
    source.windowTitle = qtTrId("WindowTitleDirectory").arg(path);
    source.progressText = qtTrId("ScanningDirectory");
    source.readEntries = [path](EntrySink &sink) { readFolder(path, sink); };
    return source;
}

SongSource pathsSource(const QStringList &paths)
{
    SongSource source;
    source.kind = SourceKind::Folder;
    source.progressText = qtTrId("ScanningDirectory");
    source.readEntries = [paths](EntrySink &sink) { readPaths(paths, sink); };
    return source;
}

SongSource librarySource(const QString &libraryFile, const MovedFolders &moved)
{
    SongSource source;
    source.kind = SourceKind::Library;
    source.name = libraryFile;
    source.windowTitle = qtTrId("WindowTitleLibrary");
    source.progressText = qtTrId("ScanningiTunesLibrary");
    source.order = SongOrder::compareArtist;
    source.readEntries = [libraryFile, moved](EntrySink &sink) {
        readLibrary(libraryFile, moved, sink);
    };
    return source;
}

SongSource playlistSource(const QString &name, TracksOfPlaylist tracksOfPlaylist)
{
    SongSource source;
    source.kind = SourceKind::Playlist;
    source.name = name;
    source.windowTitle = qtTrId("WindowTitlePlaylist").arg(name);
    source.progressText = qtTrId("LoadingPlaylist").arg(name);
    source.order = SongOrder::compareIndex;
    source.readEntries = [name, tracks = std::move(tracksOfPlaylist)](EntrySink &sink) {
        readPlaylist(name, tracks, sink);
    };
    return source;
}

std::optional<QList<TrackIdentifiers>> tracksOfPlaylist(iTunesInterface &itunes,
                                                        const QString &name)
{
    const int index = name.isEmpty() ? -1 : itunes.indexOfPlaylist(name);
    if (index < 1 || index == std::numeric_limits<int>::max())
        return std::nullopt;
    const int count = itunes.numberOfTracksInPlaylistIndex(index);
    if (count >= 0)
        itunes.displayPlaylist(name);
    if (auto tracks = itunes.identifiersForPlaylistIndex(index))
        return tracks;
    return count < 0 ? std::nullopt : std::optional(tracksOneByOne(itunes, index, count));
}
