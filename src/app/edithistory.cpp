#include "app/edithistory.h"

namespace {
/// The values of many songs, pictures among them, are held for each.
constexpr std::size_t mostChanges = 50;
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
    if (results.size() > mostChanges)
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
