#include "itunes/trackcatalog.h"

#include "base/log.h"
#include "base/unicodeforms.h"
#include "itunes/libraryreader.h"
#include "itunes/playlistfile.h"
#include "itunes/scripttext.h"

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace {

/// A run over many songs does not look for the library file at each.
constexpr auto lookInterval = 5s;

const QString nameOfLibrary = QStringLiteral("Library");

QString inAnyCase(const QString &text)
{
    return ScriptText::withoutControls(text)
        .normalized(QString::NormalizationForm_C)
        .toCaseFolded();
}

CatalogPlaylist playlistOf(const LibraryPlaylist &list)
{
    CatalogPlaylist playlist;
    playlist.name = list.name;
    playlist.specialKind = list.specialKind;
    playlist.isLibrary = list.isMaster;
    playlist.isSmart = list.isSmart;
    playlist.list = &list;
    return playlist;
}

bool isLibrary(const CatalogPlaylist &playlist)
{
    return playlist.isLibrary;
}

} // namespace

TrackCatalog::TrackCatalog(MusicPlaces places)
    : mPlaces(std::move(places))
{
}

void TrackCatalog::refresh()
{
    mNextLook.setRemainingTime(0);
    mHasListedFiles = false;
    mPlaylists.clear();
    forgetTracks();
}

const LibraryFile *TrackCatalog::library()
{
    if (mNextLook.hasExpired())
        readLibrary();
    return mLibrary ? &*mLibrary : nullptr;
}

void TrackCatalog::readLibrary()
{
    mNextLook.setRemainingTime(lookInterval);
    const QString path = mLocation.libraryFilePath().value_or(QString());
    const auto file = FileAttributes::at(path).value_or(FileAttributes());
    if (path == mLibraryPath && file.isSameFile(mLibraryFile)
        && file.isUnchangedSince(mLibraryFile))
        return;
    mLibraryPath = path;
    mLibraryFile = file;
    mPlaylists.clear();
    mByTitle.clear();
    forgetTracks();
    mLibrary = mLocation.musicLibraryDictionary();
}

const std::vector<CatalogPlaylist> &TrackCatalog::playlists()
{
    static_cast<void>(library());
    if (mPlaylists.empty())
        listPlaylists();
    return mPlaylists;
}

void TrackCatalog::listPlaylists()
{
    if (mLibrary)
        for (const LibraryPlaylist &list : mLibrary->playlists())
            mPlaylists.push_back(playlistOf(list));
    const auto first = std::find_if(mPlaylists.begin(), mPlaylists.end(), isLibrary);
    if (first != mPlaylists.end())
        std::rotate(mPlaylists.begin(), first, first + 1);
    else
        mPlaylists.insert(mPlaylists.begin(), {nameOfLibrary, {}, true, false, nullptr, {}});

    if (!std::exchange(mHasListedFiles, true) && !mPlaces.playlistFolder.isEmpty())
        mPlaylistFiles = playlistFilesBelow(mPlaces.playlistFolder);
    for (const QString &path : std::as_const(mPlaylistFiles)) {
        CatalogPlaylist playlist;
        playlist.name = nameOfPlaylistFile(path);
        playlist.file = path;
        mPlaylists.push_back(playlist);
    }
}

int TrackCatalog::indexOf(const QString &name)
{
    const auto &lists = playlists();
    const auto found = std::find_if(lists.begin(), lists.end(), [&](const auto &playlist) {
        return ScriptText::withoutControls(playlist.name) == name;
    });
    if (found == lists.end())
        return name == nameOfLibrary ? 1 : 0;
    return static_cast<int>(found - lists.begin()) + 1;
}

const std::vector<CatalogTrack> *TrackCatalog::tracksOf(int index)
{
    const auto &lists = playlists();
    if (index < 1 || static_cast<size_t>(index) > lists.size())
        return nullptr;
    if (std::exchange(mTracksOf, index) != index)
        mHasReadTracks = readTracks(lists[static_cast<size_t>(index) - 1]);
    return mHasReadTracks ? &mTracks : nullptr;
}

bool TrackCatalog::readTracks(const CatalogPlaylist &playlist)
{
    mTracks.clear();
    if (!playlist.file.isEmpty())
        return readTracksOfFile(playlist.file);
    readTracksOfLibrary(playlist.list);
    return true;
}

bool TrackCatalog::readTracksOfFile(const QString &playlistFile)
{
    const PlaylistReading reading = readPlaylistFile(playlistFile, mPlaces.moved);
    if (!reading.playlist) {
        qCWarning(logItunes, "Could not read playlist %s (%s)", qUtf8Printable(playlistFile),
                  qUtf8Printable(reading.problem));
        return false;
    }
    if (const QStringList &missing = reading.playlist->missing; !missing.isEmpty())
        qCWarning(logItunes, "The playlist %s names %lld songs that are not there, such as %s",
                  qUtf8Printable(playlistFile), static_cast<long long>(missing.size()),
                  qUtf8Printable(missing.first()));
    for (const QString &path : reading.playlist->paths)
        mTracks.push_back({nullptr, path});
    return true;
}

/// Without a list, all tracks.
void TrackCatalog::readTracksOfLibrary(const LibraryPlaylist *list)
{
    if (!mLibrary)
        return;
    if (!list)
        for (const LibraryTrack &track : mLibrary->tracks())
            mTracks.push_back({&track, {}});
    else
        for (const int id : list->trackIDs)
            if (const LibraryTrack *track = mLibrary->trackWithID(id))
                mTracks.push_back({track, {}});
}

const LibraryTrack *TrackCatalog::trackWithID(int id)
{
    const LibraryFile *const file = library();
    const auto started = std::chrono::system_clock::to_time_t(mStarted);
    return file && mLibraryFile.modified.tv_sec < started ? file->trackWithID(id) : nullptr;
}

std::vector<const LibraryTrack *> TrackCatalog::tracksTitled(const QString &title)
{
    const LibraryFile *const file = library();
    if (file && mByTitle.isEmpty())
        for (const LibraryTrack &track : file->tracks())
            mByTitle.insert(inAnyCase(track.name), &track);
    const auto [begin, end] = std::as_const(mByTitle).equal_range(inAnyCase(title));
    return {begin, end};
}

std::optional<QString> TrackCatalog::pathOf(const CatalogTrack &track) const
{
    if (!track.info)
        return track.file;
    const auto path = pathOfLocation(track.info->location, mPlaces.moved);
    if (!path)
        return std::nullopt;
    const QString existing = existingForm(*path);
    return existing.isNull() ? path : existing;
}
