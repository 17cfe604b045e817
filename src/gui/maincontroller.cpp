#include "gui/maincontroller.h"

#include "app/runcontext.h"
#include "app/songsources.h"
#include "app/usersources.h"
#include "itunes/librarylocation.h"

#include <utility>

MainController::MainController(Engine &engine)
    : mEngine(engine)
    , mSongs(engine.infoCache, engine.log)
    , mLibrary({})
    , mContext(runContext(engine, mLibrary))
    , mWorkList(mContext, engine.itunes, engine.log)
{
    mWorkList.setInfoCache(&engine.infoCache);
    connect(&mSongs, &LoadedSongs::loadFinished, this, &MainController::loadFinished);
    connect(&mWorkList, &WorkList::songStarted, this,
            [this](const std::shared_ptr<SongFile> &song) { tellChanged({song}); });
    connect(&mWorkList, &WorkList::songFinished, this, &MainController::songFinished);
    connect(&mWorkList, &WorkList::runFinished, this, &MainController::gatheringChanged);
}

void MainController::setSongLibraryFolder(const QString &path)
{
    if (const auto source = folderSource(path)) {
        prefs().setLibraryDirectory(path);
        load(*source);
    }
}

void MainController::setiTunesLibrary()
{
    if (const auto source = usersLibrary(prefs())) {
        prefs().setiTunesLibrary();
        load(*source);
    }
}

void MainController::setSongLibraryPlaylist(const QString &name)
{
    prefs().setLibraryPlaylist(name);
    load(usersPlaylist(prefs(), name));
}

void MainController::rescan()
{
    LibraryLocation location;
    switch (chosenSourceKind(prefs(), mEngine.itunes, location)) {
    case SourceKind::Folder:
        return setSongLibraryFolder(chosenFolder(prefs(), location));
    case SourceKind::Playlist:
        return setSongLibraryPlaylist(prefs().libraryPlaylist());
    case SourceKind::Library:
        return setiTunesLibrary();
    }
}

/// Songs that wait for their gathering keep their records.
void MainController::load(const SongSource &source)
{
    Q_EMIT sourceWillChange();
    setSelectedSongs({});
    mSongs.load(source, prefs().readOptions(), mWorkList.songs());
    Q_EMIT sourceChanged();
}

void MainController::loadFinished()
{
    mLibraryIsStale = true;
    if (!mWorkList.isRunning())
        lendFromLoadedSongs();
}

void MainController::lendFromLoadedSongs()
{
    if (std::exchange(mLibraryIsStale, false))
        mLibrary = LibraryLending(mSongs.allSongs());
}

void MainController::setSelectedSongs(SongList songs)
{
    mSelectedSongs = std::move(songs);
    Q_EMIT selectionChanged();
}

SongList MainController::visibleSongs() const
{
    return mVisibleSongs ? mVisibleSongs() : mSongs.allSongs();
}

void MainController::beginGathering()
{
    if (!mWorkList.isRunning()) {
        GatherContext context = runContext(mEngine, mLibrary);
        mContext.definitions = std::move(context.definitions);
        mContext.identifying = std::move(context.identifying);
        lendFromLoadedSongs();
    }
    SongList ready;
    for (const auto &song : mSelectedSongs)
        if (song->activityStatus() == SongStatus::Ready)
            ready.push_back(song);
    mWorkList.beginGathering(ready, prefs().gatheringOptions(), prefs().writeOptions());
    tellChanged(ready);
    Q_EMIT gatheringChanged();
}

/// No task is in hand just now, so the songs that lend may be others from here on.
void MainController::songFinished(const SongOutcome &outcome)
{
    if (outcome.changed)
        ++mTotalSongsModified;
    lendFromLoadedSongs();
    tellChanged({outcome.song});
}

void MainController::tellChanged(const SongList &songs)
{
    if (!songs.empty())
        Q_EMIT songsChanged(songs);
}
