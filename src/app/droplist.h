#pragma once

#include "app/prefscontroller.h"
#include "app/songsearch.h"
#include "app/userlog.h"
#include "base/progress.h"
#include "gathering/gathercontext.h"
#include "gathering/songinfotask.h"

#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>
#include <list>
#include <memory>

class iTunesInterface;

/// Songs that were dropped on the program: one after the other gets whatever it lacks, of every
/// kind, and is written back; nothing that is there is overwritten. The list lives from the first
/// song that is taken until all are done; further ones are added to it.
class DropList : public QObject {
    Q_OBJECT

public:
    /// All four must outlive the list.
    DropList(GatherContext &context, const PrefsController &prefs, iTunesInterface &itunes,
             UserLog &log);
    ~DropList() override;

    using Answer = std::function<void(bool isAnyTaken)>;
    /// A file, or a folder for every file in it at any depth. The answer comes on a later turn,
    /// once all of it was looked through: a folder may be on a disc that is slow or never answers.
    void openFile(const QString &path, Answer answer = {});
    /// Takes what claims by its name to be a song and is not in the list.
    bool addToDropList(const QString &path);
    /// Nothing further is begun; the song in hand is left as it is. Its end is told of.
    void cancel();

    [[nodiscard]] bool isActive() const { return !mDropList.isEmpty(); }
    /// The position of the song in hand among all of the list.
    [[nodiscard]] Progress &progress() { return mProgress; }
    /// Name of the file in hand, or that songs are looked for.
    [[nodiscard]] const QString &fileLine() const { return mFileLine; }
    [[nodiscard]] const QString &countLine() const { return mCountLine; }
    /// What the last song got.
    [[nodiscard]] const QString &achievementLine() const { return mAchievementLine; }

Q_SIGNALS:
    /// The lines or the progress changed.
    void changed();
    void songChanged(const std::shared_ptr<SongFile> &song);
    /// Every song is done, or the list was cancelled.
    void finished();

private:
    struct Search {
        std::shared_ptr<SongSearch> songs;
        Answer answer;
        bool isAnyTaken = false;
    };
    using Searches = std::list<Search>;

    void endSearch(Searches::iterator search);
    void abandonSearches();
    void begin();
    void processNextInDropList();
    void finishTask();
    void logAchievement(const AudioInfoTag &tag, Assets assets);
    void writeSong(SongFile &song);
    void showPosition();
    void processSong(const QString &path);
    void startTask(const std::shared_ptr<SongFile> &song);
    void end();

    GatherContext &mContext;
    const PrefsController &mPrefs;
    iTunesInterface &mItunes;
    UserLog &mLog;
    Searches mSearches;
    QStringList mDropList; ///< every path that was taken
    QSet<QString> mKnownPaths; ///< the same
    qsizetype mNext = 0; ///< position in mDropList of the first that was not begun
    std::unique_ptr<SongInfoTask> mCurrentDropTask;
    QTimer mNextStep;
    Progress mProgress;
    QString mFileLine;
    QString mCountLine;
    QString mAchievementLine;
    bool mIsCancelled = false;
};
