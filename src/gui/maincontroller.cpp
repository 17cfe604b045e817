#include "gui/maincontroller.h"

#include "app/runcontext.h"
#include "app/songsources.h"
#include "app/usersources.h"
#include "base/background.h"
#include "itunes/librarylocation.h"

#include <algorithm>
#include <utility>

MainController::MainController(Engine &engine)
    : mEngine(engine)
    , mSongs(engine.infoCache, engine.log)
    , mLibrary({})
    , mContext{engine.queue, engine.catalog, {}, mLibrary, {}}
    , mWorkList(mContext, engine.itunes, engine.log)
    , mEditing(engine.itunes, &engine.infoCache, engine.log)
    , mHistory(mEditing)
    , mReview(mContext, mWorkList.writing(), mEditing, mHistory)
{
    mWorkList.setInfoCache(&engine.infoCache);
    mWorkList.setKeepsChanges(true);
    connect(&mSongs, &LoadedSongs::cleared, this, &MainController::forgetLibrary);
    connect(&mSongs, &LoadedSongs::songsAdded, this, &MainController::addToLibrary);
    connect(&mSongs, &LoadedSongs::loadFinished, this, &MainController::loadFinished);
    connect(&mSongs, &LoadedSongs::problemFound, this, [this](const QString &subject) {
        if (mSongs.source().kind == SourceKind::Playlist && subject == mSongs.source().name)
            Q_EMIT playlistNotFound(subject);
    });
    connect(&mWorkList, &WorkList::songStarted, this,
            [this](const std::shared_ptr<SongFile> &song) { tellChanged({song}); });
    connect(&mWorkList, &WorkList::songFinished, this, &MainController::songFinished);
    connect(&mEditing, &TagEditing::songChanged, this, &MainController::songEdited);
    connect(&mReview, &Review::fullChanged, this, &MainController::pauseForReview);
    connect(&mReview, &Review::songTouched, this,
            [this](const std::shared_ptr<SongFile> &song) { tellChanged({song}); });
    connect(&mWorkList, &WorkList::runFinished, this, &MainController::gatheringChanged);
    connect(&mEditing, &TagEditing::busyChanged, this, &MainController::renewHistory);
    connect(&mWorkList.preparation(), &SongPreparation::finished, this,
            &MainController::gatheringChanged);
    connect(&mHistory, &EditHistory::changed, this, &MainController::historyChanged);
    mTellsEdited.setSingleShot(true);
    connect(&mTellsEdited, &QTimer::timeout, this, &MainController::tellEdited);
    connectShownSongs();
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

/// Songs that wait for their gathering, or are under review, keep their records.
void MainController::load(const SongSource &source)
{
    Q_EMIT sourceWillChange();
    setSelectedSongs({});
    mHistory.songsWillChange();
    mHistoryIsStale = true;
    SongList kept = mWorkList.songs();
    const SongList reviewed = mReview.songs();
    kept.insert(kept.end(), reviewed.begin(), reviewed.end());
    mSongs.load(source, prefs().readOptions(), kept);
    Q_EMIT sourceChanged();
}

/// The songs of a run under way lend until it is between two of them.
void MainController::forgetLibrary()
{
    mLibraryIsStale = mWorkList.isRunning();
    if (!mLibraryIsStale)
        destroyInBackground(std::exchange(mLibrary, LibraryLending({})));
}

void MainController::addToLibrary(qsizetype count)
{
    const SongList &songs = mSongs.allSongs();
    if (!mLibraryIsStale)
        std::for_each(songs.end() - count, songs.end(),
                      [this](const auto &song) { mLibrary.addSong(song); });
}

void MainController::loadFinished()
{
    renewHistory();
    if (!mWorkList.isRunning())
        lendFromLoadedSongs();
}

/// With records that are those of the list, once it is there and no change is of the old ones.
void MainController::renewHistory()
{
    if (!mSongs.isLoading() && !mEditing.isBusy() && std::exchange(mHistoryIsStale, false))
        mHistory.songsChanged(mSongs.allSongs());
}

void MainController::addChange(const TagEditResult &result)
{
    mHistory.add(result);
    mHistoryIsStale = true; // the songs may have been loaded anew meanwhile
    renewHistory();
}

void MainController::lendFromLoadedSongs()
{
    if (!mSongs.isLoading() && std::exchange(mLibraryIsStale, false))
        mLibrary = LibraryLending(mSongs.allSongs());
}

void MainController::setSelectedSongs(SongList songs)
{
    mSelectedSongs = std::move(songs);
    Q_EMIT selectionChanged();
}

/// A run takes its songs in the table's order.
void MainController::connectShownSongs()
{
    mWorkList.setVisibleSong(
        [this](int row) { return row < mShownSongs.size() ? mShownSongs.songAt(row) : nullptr; });
    connect(&mShownSongs, &VisibleSongs::rowsChanged, this,
            [this] { mWorkList.visibleSongsChanged(); });
    connect(this, &MainController::songsChanged, &mShownSongs, &VisibleSongs::songsChanged);
    const auto sortAgain = [this] { mShownSongs.sortAgain(SongColumn::Activity); };
    connect(&mWorkList, &WorkList::songStarted, this, sortAgain);
    connect(this, &MainController::gatheringChanged, this, sortAgain);
}

void MainController::change(const TagChange &change, const TagEditing::Then &then)
{
    mHistory.change(change, prefs().writeOptions(), [this, then](const TagEditResult &result) {
        if (!result.changed.empty())
            mShownSongs.clearSorting(); // the order holds no longer
        if (then)
            then(result);
    });
}

void MainController::tellEdited()
{
    tellChanged(std::exchange(mEdited, {}));
}

void MainController::gather(const SongList &songs)
{
    if (!mWorkList.isRunning()) {
        GatherContext context = runContext(mEngine, mLibrary);
        mContext.definitions = std::move(context.definitions);
        mContext.identifying = std::move(context.identifying);
        lendFromLoadedSongs();
    }
    SongList ready;
    for (const auto &song : songs) {
        song->clearPassingProblem();
        if (song->activityStatus() == SongStatus::Ready)
            ready.push_back(song);
    }
    const GatheringOptions options = prefs().gatheringOptions();
    mWorkList.beginGathering(ready, options, prefs().writeOptions(),
                             options.review ? WriteSongs::AfterReview : WriteSongs::Yes);
    Q_EMIT gatheringChanged();
}

/// No task is in hand just now, so the songs that lend may be others from here on.
void MainController::songFinished(const SongOutcome &outcome)
{
    mReview.add(outcome);
    if (outcome.changed)
        mShownSongs.clearSorting(); // the order holds no longer
    lendFromLoadedSongs();
    tellChanged({outcome.song});
}

void MainController::songEdited(const std::shared_ptr<SongFile> &song)
{
    mLibrary.songChanged(song);
    mEdited.push_back(song);
    mTellsEdited.start();
}

/// A run that writes makes room by itself: what is written is decided.
void MainController::pauseForReview(bool isFull)
{
    mWorkList.setPaused(isFull);
    if (isFull && mWorkList.isRunning())
        mEngine.log.addLog(qtTrId("LogPausedForReview").arg(mReview.countToWrite()),
                           LogColor::Plain);
}

void MainController::refreshSongs(const QSet<QString> &paths)
{
    SongList changed;
    for (const auto &song : mSongs.allSongs())
        if (song->activityStatus() != SongStatus::Processing && paths.contains(song->path())
            && song->refresh()) {
            mLibrary.songChanged(song);
            changed.push_back(song);
        }
    tellChanged(changed);
}

void MainController::tellChanged(const SongList &songs)
{
    if (!songs.empty())
        Q_EMIT songsChanged(songs);
}
