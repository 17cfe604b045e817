#pragma once

#include "app/picturepool.h"
#include "app/tagvalues.h"
#include "app/userlog.h"
#include "base/progress.h"
#include "base/writejournal.h"
#include "songs/songfile.h"

#include <QTimer>

#include <deque>
#include <functional>

class SongFileInfoCache;
class iTunesInterface;

/// What is to change in some songs.
struct TagChange {
    /// The fields to change in the song and their new values, by the tag read from its file.
    using NewValues = std::function<TagValues(SongFile &song, const AudioInfoTag &tag)>;

    QString name; ///< such as "Change of the artist"
    SongList songs;
    NewValues newValues;

    static TagChange sameForAll(const QString &name, const SongList &songs,
                                const TagValues &values);
};

/// A song whose file was changed, with the values of the same fields before and now.
struct ChangedSong {
    std::shared_ptr<SongFile> song;
    TagValues before;
    TagValues now;
    std::shared_ptr<const ReplacedBytes> replaced = nullptr; ///< if not null, counts instead
};

struct TagEditResult {
    struct Refusal {
        std::shared_ptr<SongFile> song;
        QString reason;
    };

    QString name;
    QList<ChangedSong> changed; ///< not those that held these values already
    std::vector<Refusal> refused; ///< each was logged as well
    /// Of pictures and replaced bytes that `changed` holds, equal pictures counted once.
    qint64 heldBytes = 0;
    bool isCancelled = false; ///< some songs may not have been reached
};

/// Changes tags and writes them into their files, some songs a turn of the event loop. Changes
/// that come meanwhile wait for their turn.
///
/// Songs that are locked, have problems or are being gathered are refused with the reason. Each
/// song's file is read before it is changed, so that nothing is decided by an old summary.
class TagEditing : public QObject {
    Q_OBJECT

public:
    using Then = std::function<void(const TagEditResult &)>;

    /// All must outlive this; `cache` may be null.
    TagEditing(iTunesInterface &itunes, SongFileInfoCache *cache, UserLog &log);
    ~TagEditing() override;

    /// `then` is called on a later turn, exactly once.
    void change(const TagChange &change, const WriteOptions &options, Then then);
    /// Gives the songs the values or bytes that they had before. A song whose fields hold other
    /// values than the change gave them was changed by somebody else, and is refused.
    void revert(const TagEditResult &result, const WriteOptions &options, Then then);
    /// Ends the change in hand after the song in hand.
    void cancel();

    [[nodiscard]] bool isBusy() const { return !mJobs.empty(); }
    /// Of the change in hand, in songs.
    [[nodiscard]] Progress &progress() { return mProgress; }

Q_SIGNALS:
    /// Its file was written, or it was refused; either way what the list shows may have changed.
    void songChanged(const std::shared_ptr<SongFile> &song);
    /// isBusy() is another one now.
    void busyChanged();

private:
    struct Wanted {
        TagValues values;
        std::optional<TagValues> expected; ///< what stands there, unless somebody changed it
    };
    struct Job {
        SongList songs;
        std::function<Wanted(std::size_t index, const AudioInfoTag &tag)> wanted;
        /// Given back instead, where it is not null.
        std::function<std::shared_ptr<const ReplacedBytes>(std::size_t index)> replaced;
        WriteOptions options;
        Then then;
        TagEditResult result;
        PicturePool pictures; ///< of the result: those of an album are held once
        std::size_t done = 0;
    };

    void begin(Job job);
    void takeTurn();
    void finishJob();
    void changeNextSong(Job &job);
    void showByFile(SongFile &song);
    [[nodiscard]] std::optional<QString> edit(Job &job, const std::shared_ptr<SongFile> &song);
    [[nodiscard]] std::optional<QString> giveBack(Job &job, const std::shared_ptr<SongFile> &song,
                                                  const ReplacedBytes &replaced);
    [[nodiscard]] std::optional<QString> write(Job &job, const std::shared_ptr<SongFile> &song,
                                               const Wanted &wanted, const TagValues &before);
    void refuse(Job &job, const std::shared_ptr<SongFile> &song, const QString &reason);

    iTunesInterface &mItunes;
    SongFileInfoCache *mCache;
    UserLog &mLog;
    std::deque<Job> mJobs; ///< the first one is in hand
    std::optional<KeptJournal> mKeptJournal; ///< while songs are written
    Progress mProgress;
    QTimer mNextTurn;
};
