#include "app/review.h"

#include "app/albumtaking.h"

#include <algorithm>
#include <utility>

Review::Review(GatherContext &context, SongWriting &writing, const TagEditing &editing,
               EditHistory &history)
    : mContext(context)
    , mWriting(writing)
    , mHistory(history)
{
    connect(&editing, &TagEditing::songChanged, this, &Review::adoptFileOf);
}

Review::~Review() = default;

int Review::rowOf(quint64 id) const
{
    const auto found =
        std::lower_bound(mSongs.begin(), mSongs.end(), id,
                         [](const ReviewedSong &song, quint64 wanted) { return song.id < wanted; });
    const bool isThere = found != mSongs.end() && found->id == id;
    return isThere ? static_cast<int>(found - mSongs.begin()) : -1;
}

int Review::rowOf(const SongFile &song) const
{
    return rowOf(mIDs.value(&song, 0));
}

// ---- which songs are kept

void Review::add(const SongOutcome &outcome)
{
    auto song = reviewedSong(outcome);
    const int earlier = rowOf(*outcome.song);
    if (!song || (earlier >= 0 && at(earlier).isBusy()))
        return;
    if (earlier >= 0)
        remove(earlier);
    song->id = mNextID++;
    mIDs[song->song.get()] = song->id;
    mSongs.push_back(*std::move(song));
    keep(mSongs.back());
    mToWrite += mSongs.back().waits() ? 1 : 0;
    Q_EMIT songAdded(count() - 1);
    makeRoom();
}

void Review::keep(ReviewedSong &song)
{
    for (SongValues *values : {&song.change.before, &song.change.after, &song.change.inFile})
        mPictures.share(values->pictures);
    song.bytes = bytesOf(song);
    mBytes += song.bytes;
}

void Review::drop(const ReviewedSong &song)
{
    for (const SongValues *values : {&song.change.before, &song.change.after, &song.change.inFile})
        mPictures.drop(values->pictures);
    mBytes -= song.bytes;
}

void Review::change(int row, const std::function<void(ReviewedSong &)> &how)
{
    ReviewedSong &song = mSongs[static_cast<std::size_t>(row)];
    mToWrite -= song.waits() ? 1 : 0;
    how(song);
    mToWrite += song.waits() ? 1 : 0;
    Q_EMIT songChanged(row);
}

void Review::changeValues(int row, const std::function<void(ReviewedSong &)> &how)
{
    change(row, [&](ReviewedSong &song) {
        drop(song);
        how(song);
        keep(song);
    });
}

void Review::remove(int row)
{
    Q_EMIT songToBeRemoved(row);
    const ReviewedSong &song = at(row);
    mToWrite -= song.waits() ? 1 : 0;
    drop(song);
    mIDs.remove(song.song.get());
    mSongs.erase(mSongs.begin() + row);
    Q_EMIT songRemoved(row);
}

/// The last song stays whatever its size: it is the one that the user waits for.
void Review::makeRoom()
{
    const auto isTooMuch = [this] { return mBytes + mPictures.bytes() > mMostBytes; };
    for (int row = 0; isTooMuch() && row + 1 < count();)
        at(row).isDecided() ? remove(row) : void(++row);
    if (std::exchange(mIsFull, isTooMuch()) != mIsFull)
        Q_EMIT fullChanged(mIsFull);
}

void Review::skip(const QList<int> &rows)
{
    for (const int row : rows)
        if (at(row).state == ReviewState::Open)
            change(row, [](ReviewedSong &song) { song.state = ReviewState::Skipped; });
    makeRoom();
}

void Review::clearDecided()
{
    for (int row = count() - 1; row >= 0; --row)
        if (at(row).isDecided())
            remove(row);
    makeRoom();
}

void Review::accept(int row, Asset field, bool isAccepted)
{
    if (at(row).isBusy() || !at(row).changes.testFlag(field))
        return;
    change(row, [=](ReviewedSong &song) {
        song.accepted.setFlag(field, isAccepted);
        if (song.state == ReviewState::Skipped)
            song.state = ReviewState::Open;
    });
}

// ---- another album

void Review::takeCandidate(int row, qsizetype candidate)
{
    const ReviewedSong &song = at(row);
    if (song.isBusy() || candidate < 0 || candidate >= song.change.albums.size())
        return;
    if (const auto reason = prepareForAlbum(song)) {
        change(row, [&](ReviewedSong &each) { each.problem = *reason; });
        return adoptFileOf(song.song);
    }
    const AlbumInfo album = song.change.albums.at(candidate);
    const quint64 id = song.id;
    auto task = taskForAlbum(song, album, mContext);
    connect(task.get(), &SongInfoTask::finished, this, [this, id] { albumApplied(id); });
    song.song->setActivityStatus(SongStatus::Processing);
    task->gatherFrom(album);
    mTasks[id] = std::move(task);
    change(row, [=](ReviewedSong &each) {
        each.state = ReviewState::Applying;
        each.taken = candidate;
        each.problem.clear();
    });
}

/// Songs that take an album are busy, and stay.
void Review::albumApplied(quint64 id)
{
    const int row = rowOf(id);
    const std::shared_ptr<SongFile> file = at(row).song;
    SongInfoTask *task = mTasks.extract(id).mapped().release();
    task->deleteLater(); // not from inside its signal
    file->setDefaultActivityStatus();
    changeValues(row, [task](ReviewedSong &song) {
        song.state = ReviewState::Open;
        if (song.song->infotag())
            adoptAlbum(song, *task);
    });
    mWriting.forgetTag(file, SongWriting::Tag::Dropped, false);
    Q_EMIT songTouched(file);
}

// ---- writing

void Review::write(const QList<int> &rows, const WriteOptions &options)
{
    TagChange edit;
    QList<quint64> ids;
    for (const int row : rows) {
        if (at(row).isBusy() || !at(row).hasToBeWritten())
            continue;
        change(row, [](ReviewedSong &song) {
            song.state = ReviewState::Writing;
            song.problem.clear();
        });
        edit.songs.push_back(at(row).song);
        ids << at(row).id;
    }
    if (ids.isEmpty())
        return;
    edit.name = qtTrId("EditReview");
    edit.newValues = [this](SongFile &file, const AudioInfoTag &tag) {
        return valuesToWrite(file, tag);
    };
    mHistory.change(edit, options,
                    [this, ids](const TagEditResult &result) { tellWritten(ids, result); });
}

/// Nothing when the file is not what it was: then nobody has looked at what would be replaced.
TagValues Review::valuesToWrite(const SongFile &file, const AudioInfoTag &tag)
{
    const int row = rowOf(file);
    if (row < 0)
        return {};
    const ReviewedSong &song = at(row);
    if (differences(valuesOf(tag), song.change.inFile)) {
        change(row, [](ReviewedSong &each) { each.problem = qtTrId("ErrorSongChangedMeanwhile"); });
        return {};
    }
    return tagValues(replaced(song.change.before, song.change.after, song.accepted),
                     song.fieldsToWrite());
}

void Review::tellWritten(const QList<quint64> &ids, const TagEditResult &result)
{
    QHash<const SongFile *, QString> refused;
    for (const TagEditResult::Refusal &refusal : result.refused)
        refused[refusal.song.get()] = refusal.reason;
    for (const quint64 id : ids) {
        change(rowOf(id), [&](ReviewedSong &song) {
            song.state = song.written ? ReviewState::Written : ReviewState::Open;
            if (refused.contains(song.song.get()))
                song.problem = refused.value(song.song.get());
        });
    }
    makeRoom();
}

/// Our own writing comes by here, and what the user edited elsewhere.
void Review::adoptFileOf(const std::shared_ptr<SongFile> &file)
{
    const int row = rowOf(*file);
    const bool isInHand = file->activityStatus() == SongStatus::Processing;
    if (row < 0 || isInHand)
        return;
    const SongStatus status = file->activityStatus();
    const auto inFile = SongWriting::valuesInFile(*file);
    mWriting.forgetTag(file, SongWriting::Tag::Dropped, false);
    file->setActivityStatus(status);
    if (inFile && differences(*inFile, at(row).change.inFile))
        changeValues(row, [&](ReviewedSong &song) { adoptFile(song, *inFile); });
}

SongList Review::songs() const
{
    SongList songs;
    for (const ReviewedSong &song : mSongs)
        songs.push_back(song.song);
    return songs;
}
