#include "app/edithistory.h"

#include "base/background.h"

#include <numeric>
#include <utility>

namespace {
constexpr std::size_t mostChanges = 50;
/// Of the pictures and replaced tags that all changes hold. The latest change can be undone
/// whatever it holds.
constexpr qint64 mostHeldBytes = qint64(256) * 1024 * 1024;

qint64 heldBytesOf(const std::deque<TagEditResult> &results)
{
    return std::accumulate(
        results.begin(), results.end(), qint64(0),
        [](qint64 sum, const TagEditResult &result) { return sum + result.heldBytes; });
}
} // namespace

EditHistory::EditHistory(TagEditing &editing)
    : mEditing(editing)
{
    connect(&editing, &TagEditing::busyChanged, this, &EditHistory::changed);
}

void EditHistory::change(const TagChange &change, const WriteOptions &options,
                         const TagEditing::Then &then)
{
    mEditing.change(change, options, [this, then](const TagEditResult &result) {
        add(result);
        if (then)
            then(result);
    });
}

void EditHistory::add(const TagEditResult &result)
{
    if (result.changed.empty())
        return;
    destroyInBackground(std::exchange(mRedo, {}));
    keep(mUndo, result);
}

void EditHistory::undo(const WriteOptions &options)
{
    revertLast(mUndo, mRedo, options);
}

void EditHistory::redo(const WriteOptions &options)
{
    revertLast(mRedo, mUndo, options);
}

void EditHistory::revertLast(Results &from, Results &to, const WriteOptions &options)
{
    if (mEditing.isBusy() || mIsStale || from.empty())
        return;
    const TagEditResult last = std::move(from.back());
    from.pop_back();
    mEditing.revert(last, options, [this, &to](const TagEditResult &reverted) {
        if (!reverted.changed.empty())
            keep(to, reverted);
    });
}

void EditHistory::keep(Results &results, const TagEditResult &result)
{
    results.push_back(result);
    while (results.size() > 1
           && (results.size() > mostChanges || heldBytesOf(results) > mostHeldBytes))
        results.pop_front();
    Q_EMIT changed();
}

void EditHistory::songsWillChange()
{
    mIsStale = true;
    Q_EMIT changed();
}

void EditHistory::songsChanged(const SongList &songs)
{
    SongsByPath byPath;
    for (const Results *results : {&mUndo, &mRedo})
        for (const TagEditResult &result : *results)
            for (const ChangedSong &each : result.changed)
                byPath.insert(each.song->path(), nullptr);
    if (!byPath.isEmpty())
        for (const auto &song : songs)
            if (const auto place = byPath.find(song->path()); place != byPath.end())
                *place = song;
    adoptSongs(mUndo, byPath);
    adoptSongs(mRedo, byPath);
    mIsStale = false;
    Q_EMIT changed();
}

void EditHistory::adoptSongs(Results &results, const SongsByPath &byPath)
{
    for (TagEditResult &result : results) {
        for (ChangedSong &each : result.changed)
            each.song = byPath.value(each.song->path());
        result.changed.removeIf([](const ChangedSong &each) { return !each.song; });
    }
    std::erase_if(results, [](const TagEditResult &result) { return result.changed.empty(); });
}

QString EditHistory::nameOfLast(const Results &results) const
{
    return results.empty() || mIsStale || mEditing.isBusy() ? QString() : results.back().name;
}
