#pragma once

#include "app/edithistory.h"
#include "app/engine.h"
#include "app/review.h"
#include "app/songlist.h"
#include "app/tagedit.h"
#include "app/visiblesongs.h"
#include "gathering/librarylending.h"

#include <QObject>
#include <QSet>

/// Connects what the window shows: the songs of the chosen source, those that are selected, and
/// the run that gathers for them. The parts of the window know this and not each other.
class MainController : public QObject {
    Q_OBJECT

public:
    /// The engine must be started and outlive this.
    explicit MainController(Engine &engine);

    [[nodiscard]] Engine &engine() { return mEngine; }
    [[nodiscard]] PrefsController &prefs() { return mEngine.prefs; }
    [[nodiscard]] LoadedSongs &songs() { return mSongs; }
    /// Those of them that the table shows, and in which order.
    [[nodiscard]] VisibleSongs &shownSongs() { return mShownSongs; }
    [[nodiscard]] WorkList &workList() { return mWorkList; }
    /// By which everyone changes tags.
    [[nodiscard]] TagEditing &editing() { return mEditing; }
    [[nodiscard]] Review &review() { return mReview; }
    [[nodiscard]] const EditHistory &history() const { return mHistory; }

    // Where the songs come from. Each remembers its choice and loads it.
    void setSongLibraryFolder(const QString &path);
    void setiTunesLibrary();
    void setSongLibraryPlaylist(const QString &name);
    /// Loads the chosen source anew.
    void rescan();

    /// In the order in which the list shows them.
    [[nodiscard]] const SongList &selectedSongs() const { return mSelectedSongs; }
    void setSelectedSongs(SongList songs);

    /// Changes songs, which the user has seen, so that it can be undone. `then` may be empty.
    void change(const TagChange &change, const TagEditing::Then &then = {});
    /// The same for songs that were changed in another way.
    void addChange(const TagEditResult &result);
    void undo() { mHistory.undo(prefs().writeOptions()); }
    void redo() { mHistory.redo(prefs().writeOptions()); }

    /// Starts a run over the selected songs, or adds them to the one under way.
    void beginGathering() { gather(mSelectedSongs); }
    /// The same over any songs.
    void gather(const SongList &songs);
    void stopGathering() { mWorkList.stopGathering(); }

    /// Looks again at the songs of these files, which somebody else changed.
    void refreshSongs(const QSet<QString> &paths);
    /// To be called by whoever changed these songs, or what is told of them.
    void tellChanged(const SongList &songs);

Q_SIGNALS:
    /// What was begun on the shown songs, such as a text being edited, is to be completed now.
    void sourceWillChange();
    /// A source is being loaded; LoadedSongs::source() has its titles.
    void sourceChanged();
    void playlistNotFound(const QString &name);
    void selectionChanged();
    /// Songs of the list have another tag, status or path.
    void songsChanged(const SongList &songs);
    /// Other changes can be undone or redone now, or songs are being changed.
    void historyChanged();
    /// A run began, was added to, or ended: of any song the status may be another.
    void gatheringChanged();

private:
    void load(const SongSource &source);
    void loadFinished();
    void songFinished(const SongOutcome &outcome);
    void songEdited(const std::shared_ptr<SongFile> &song);
    void pauseForReview(bool isFull);
    void renewHistory();
    void forgetLibrary();
    void addToLibrary(qsizetype count);
    void lendFromLoadedSongs();
    void tellEdited();
    void connectShownSongs();

    Engine &mEngine;
    LoadedSongs mSongs;
    VisibleSongs mShownSongs{mSongs};
    LibraryLending mLibrary;
    GatherContext mContext;
    WorkList mWorkList;
    TagEditing mEditing;
    EditHistory mHistory;
    Review mReview;
    SongList mEdited; ///< of which is told on the next turn, since they come by the hundred
    QTimer mTellsEdited;
    SongList mSelectedSongs;
    bool mHistoryIsStale = false; ///< its records are not yet those of the list
    bool mLibraryIsStale = false; ///< other songs are loaded than those that lend
};
