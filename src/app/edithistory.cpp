#include "app/edithistory.h"

#include <numeric>

namespace {
constexpr std::size_t mostChanges = 50;
/// Of the pictures that all changes hold. The latest change can be undone whatever it holds.
constexpr qint64 mostPictureBytes = qint64(256) * 1024 * 1024;

qint64 pictureBytesOf(const std::deque<TagEditResult> &results)
{
    return std::accumulate(
        results.begin(), results.end(), qint64(0),
        [](qint64 sum, const TagEditResult &result) { return sum + result.pictureBytes; });
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
    mEditing.change(change, options,
                    [this, then, generation = mGeneration](const TagEditResult &result) {
                        if (generation == mGeneration && !result.changed.empty()) {
                            mRedo.clear();
                            keep(mUndo, result);
                        }
                        if (then)
                            then(result);
                    });
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
    if (mEditing.isBusy() || from.empty())
        return;
    const TagEditResult last = std::move(from.back());
    from.pop_back();
    mEditing.revert(last, options,
                    [this, &to, generation = mGeneration](const TagEditResult &reverted) {
                        if (generation == mGeneration && !reverted.changed.empty())
                            keep(to, reverted);
                    });
}

void EditHistory::keep(Results &results, const TagEditResult &result)
{
    results.push_back(result);
    while (results.size() > 1
           && (results.size() > mostChanges || pictureBytesOf(results) > mostPictureBytes))
        results.pop_front();
    Q_EMIT changed();
}

void EditHistory::clear()
{
    mUndo.clear();
    mRedo.clear();
    ++mGeneration;
    Q_EMIT changed();
}

QString EditHistory::nameOfLast(const Results &results) const
{
    return results.empty() || mEditing.isBusy() ? QString() : results.back().name;
}
