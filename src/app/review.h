#pragma once

#include "app/edithistory.h"
#include "app/picturepool.h"
#include "app/reviewedsong.h"

#include <deque>
#include <map>

/// The songs that were gathered, for the user to look at: what was found can be refused field by
/// field or taken from another album, before it is written or afterwards. Files are written, and
/// given their old values back, as by any other edit.
///
/// Memory is bounded: songs that are decided make room for new ones, the oldest first; when none
/// is left, isFull() asks for the run to be paused.
class Review : public QObject {
    Q_OBJECT

public:
    /// About 9000 songs with a dozen candidates each: what is gathered in a night.
    static constexpr qint64 mostBytes = qint64{128} * 1024 * 1024;

    /// All must outlive the review.
    Review(GatherContext &context, SongWriting &writing, const TagEditing &editing,
           EditHistory &history);
    ~Review() override;
    void setMostBytes(qint64 bytes) { mMostBytes = bytes; }

    [[nodiscard]] int count() const { return static_cast<int>(mSongs.size()); }
    [[nodiscard]] const ReviewedSong &at(int row) const
    {
        return mSongs[static_cast<std::size_t>(row)];
    }
    /// Another list takes these records for their paths.
    [[nodiscard]] SongList songs() const;
    /// Songs that are open and have changes to be written.
    [[nodiscard]] int countToWrite() const { return mToWrite; }
    [[nodiscard]] bool isFull() const { return mIsFull; }

    /// Takes what there is to decide about a song, in place of an earlier round with it.
    void add(const SongOutcome &outcome);
    void accept(int row, Asset field, bool isAccepted);
    /// Applies another of the candidates to the song, as gathering would have; its fields and
    /// their sources follow later.
    void takeCandidate(int row, qsizetype candidate);
    /// Has the files be as accepted: of a song that was written, fields that were refused since
    /// get their old values back. Each file is compared with what it held when it was gathered.
    void write(const QList<int> &rows, const WriteOptions &options);
    void skip(const QList<int> &rows);
    /// Forgets the songs about which nothing is to be decided any more.
    void clearDecided();

Q_SIGNALS:
    void songAdded(int row);
    void songChanged(int row);
    void songToBeRemoved(int row);
    void songRemoved(int row);
    void fullChanged(bool isFull);
    /// It was busy and is not any more, or the other way round.
    void songTouched(const std::shared_ptr<SongFile> &song);

private:
    [[nodiscard]] int rowOf(quint64 id) const;
    [[nodiscard]] int rowOf(const SongFile &song) const;
    void keep(ReviewedSong &song);
    void drop(const ReviewedSong &song);
    void change(int row, const std::function<void(ReviewedSong &)> &how);
    /// The same where values may change, and with them what is held in memory.
    void changeValues(int row, const std::function<void(ReviewedSong &)> &how);
    void remove(int row);
    void makeRoom();
    void albumApplied(quint64 id);
    [[nodiscard]] TagValues valuesToWrite(const SongFile &file, const AudioInfoTag &tag);
    void tellWritten(const QList<quint64> &ids, const TagEditResult &result);
    void adoptFileOf(const std::shared_ptr<SongFile> &file);

    GatherContext &mContext;
    SongWriting &mWriting;
    EditHistory &mHistory;
    std::deque<ReviewedSong> mSongs; ///< in the order of their ids
    QHash<const SongFile *, quint64> mIDs;
    std::map<quint64, std::unique_ptr<SongInfoTask>> mTasks; ///< of songs that take another album
    PicturePool mPictures;
    qint64 mBytes = 0; ///< without the pictures
    qint64 mMostBytes = mostBytes;
    quint64 mNextID = 1;
    int mToWrite = 0;
    bool mIsFull = false;
};
