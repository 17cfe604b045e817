#include "base/overwrite.h"

#include "base/descriptor.h"
#include "base/fileattributes.h"
#include "base/filecopy.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <memory>
#include <ranges>

namespace {
/// The bytes of a song as they were: those about to be lost are in its journal, the others are
/// still where they were.
class OldBytes {
public:
    OldBytes(int song, const SavedBytes &savedBytes, const WritePlan &plan)
        : mSong(song)
        , mSavedBytes(savedBytes.file)
        , mSaved(savedRanges(plan, savedBytes.from))
    {
    }

    /// Copies a range of the old bytes to where it shall be in the song.
    [[nodiscard]] std::error_code copyTo(qint64 newOffset, FileRange range) const
    {
        return forEachPart(range, [&](int file, qint64 shift, FileRange part) {
            return copyRange(file, part.offset + shift, mSong,
                             newOffset + part.offset - range.offset, part.length);
        });
    }

    [[nodiscard]] std::error_code read(FileRange range, char *into) const
    {
        return forEachPart(range, [&](int file, qint64 shift, FileRange part) {
            return readAt(file, part.offset + shift, into + part.offset - range.offset,
                          part.length);
        });
    }

    [[nodiscard]] std::error_code restore() const
    {
        for (const SavedRange &saved : mSaved)
            if (const auto error = copyTo(saved.range.offset, saved.range))
                return error;
        return {};
    }

private:
    /// Calls with the file that holds a part, how much further on it stands there, and the part.
    template<typename Call>
    std::error_code forEachPart(FileRange range, Call call) const
    {
        qint64 done = range.offset;
        for (const auto &[saved, at] : mSaved) {
            const FileRange part = range.intersected(saved);
            if (part.length == 0)
                continue;
            if (const auto error = call(mSong, 0, {done, part.offset - done}))
                return error;
            if (const auto error = call(mSavedBytes, at - saved.offset, part))
                return error;
            done = part.end();
        }
        return call(mSong, 0, {done, range.end() - done});
    }

    int mSong;
    int mSavedBytes;
    std::vector<SavedRange> mSaved;
};

/// Takes the room that the song needs to grow, so that a full disk shows up while all its bytes
/// are there.
std::error_code reserve(int song, const WritePlan &plan)
{
    if (plan.newSize <= plan.oldSize)
        return {};
    return {::posix_fallocate(song, plan.oldSize, plan.newSize - plan.oldSize),
            std::generic_category()};
}

/// How the kept ranges of a plan can be moved within the song itself.
enum class Moves {
    Front, ///< all to the front: the first one goes first
    End, ///< all to the end: the last one goes first
    No
};

/// Where all ranges move the same way, none is overwritten before its turn. Blocks that the journal
/// can share are better taken from there.
Moves movesOf(const WritePlan &plan)
{
    const auto allKept = [&plan](auto holds) {
        return std::ranges::all_of(plan.writes, [&](const PlannedWrite &write) {
            return !write.bytes.isEmpty() || holds(write.range.offset - write.keptOffset);
        });
    };
    if (!allKept([](qint64 shift) { return shift % shareableAlignment != 0; }))
        return Moves::No;
    if (allKept([](qint64 shift) { return shift < 0; }))
        return Moves::Front;
    return allKept([](qint64 shift) { return shift > 0; }) ? Moves::End : Moves::No;
}

/// Carries out what is planned. What the journal shares with the song would have to be read from
/// the disk again, so that it is read from the song where that is possible.
std::error_code writeAll(int song, const OldBytes &old, const WritePlan &plan)
{
    const Moves moves = movesOf(plan);
    const auto carryOut = [&](const PlannedWrite &write) {
        const FileRange &range = write.range;
        if (!write.bytes.isEmpty())
            return writeAt(song, range.offset, write.bytes);
        if (moves == Moves::No)
            return old.copyTo(range.offset, {write.keptOffset, range.length});
        return moveRange(song, write.keptOffset, range.offset, range.length);
    };
    const auto carryOutEach = [&](const auto &writes) -> std::error_code {
        for (const PlannedWrite &write : writes)
            if (const auto error = carryOut(write))
                return error;
        return {};
    };
    return moves == Moves::End ? carryOutEach(plan.writes | std::views::reverse)
                               : carryOutEach(plan.writes);
}

/// Compares a song chunk by chunk with its old and its new bytes.
class Examination {
public:
    Examination(int song, const OldBytes &old, const WritePlan &plan, qint64 size)
        : mSong(song)
        , mOld(old)
        , mPlan(plan)
        , mSize(size)
    {
        state.isOld = size == plan.oldSize;
        state.isNew = size == plan.newSize;
        state.isForeign = size < std::min(plan.oldSize, plan.newSize)
            || size > std::max(plan.oldSize, plan.newSize);
    }

    std::error_code look(const PlannedWrite &write)
    {
        return look(write.range, [&](FileRange chunk) -> std::error_code {
            const qint64 from = chunk.offset - write.range.offset;
            if (write.bytes.isEmpty())
                return mOld.read({write.keptOffset + from, chunk.length}, mAfter->data());
            std::copy_n(write.bytes.constData() + from, chunk.length, mAfter->data());
            return {};
        });
    }

    /// The end that a shorter song loses. Until the new size is on the disk, parts of it may hold
    /// zeros, since a file system clears the rest of its last block.
    std::error_code lookAtCutEnd()
    {
        const qint64 length = std::max<qint64>(mPlan.oldSize - mPlan.newSize, 0);
        return look({mPlan.newSize, length}, [&](FileRange) -> std::error_code {
            mAfter->fill('\0');
            return {};
        });
    }

    SongState state;

private:
    static constexpr qint64 bufferSize = 65536;
    using Buffer = std::array<char, bufferSize>;

    /// What of the range lies in the song is compared; beyond its end there is nothing to tell.
    template<typename ReadNew>
    std::error_code look(FileRange range, ReadNew readNew)
    {
        range = range.intersected({0, mSize});
        for (qint64 done = 0; done < range.length && !state.isForeign; done += bufferSize) {
            const FileRange chunk = {range.offset + done,
                                     std::min(bufferSize, range.length - done)};
            if (const auto error = readAt(mSong, chunk.offset, mNow->data(), chunk.length))
                return error;
            // Where the old song had ended there are zeros until the new bytes are written.
            mBefore->fill('\0');
            if (const auto error =
                    mOld.read(chunk.intersected({0, mPlan.oldSize}), mBefore->data()))
                return error;
            if (const auto error = readNew(chunk))
                return error;
            compare(chunk.length);
        }
        return {};
    }

    void compare(qint64 length)
    {
        const char *now = mNow->data();
        const char *before = mBefore->data();
        const char *after = mAfter->data();
        for (qint64 i = 0; i < length; ++i) {
            const bool old = now[i] == before[i];
            const bool changed = now[i] == after[i];
            state.isOld = state.isOld && old;
            state.isNew = state.isNew && changed;
            state.isForeign = state.isForeign || (!old && !changed);
            state.evidence += old != changed ? 1 : 0;
        }
    }

    int mSong;
    const OldBytes &mOld;
    const WritePlan &mPlan;
    qint64 mSize;
    std::unique_ptr<Buffer> mNow = std::make_unique<Buffer>();
    std::unique_ptr<Buffer> mBefore = std::make_unique<Buffer>();
    std::unique_ptr<Buffer> mAfter = std::make_unique<Buffer>();
};

} // namespace

std::error_code overwrite(int song, const SavedBytes &savedBytes, const WritePlan &plan)
{
    if (const auto error = reserve(song, plan))
        return error;
    if (const auto error = writeAll(song, OldBytes(song, savedBytes, plan), plan))
        return error;
    if (plan.newSize < plan.oldSize)
        if (const auto error = setSize(song, plan.newSize))
            return error;
    return syncData(song);
}

std::error_code rollBack(int song, const SavedBytes &savedBytes, const WritePlan &plan)
{
    // The size first: it gives back the room that the growth took, which the bytes may need.
    if (const auto error = setSize(song, plan.oldSize))
        return error;
    if (const auto error = OldBytes(song, savedBytes, plan).restore())
        return error;
    return syncAll(song);
}

std::error_code examine(int song, const SavedBytes &savedBytes, const WritePlan &plan,
                        SongState &state)
{
    const auto attributes = FileAttributes::of(song);
    if (!attributes)
        return lastError();
    const OldBytes old(song, savedBytes, plan);
    Examination examination(song, old, plan, attributes->size);
    for (const PlannedWrite &write : plan.writes)
        if (const auto error = examination.look(write))
            return error;
    if (const auto error = examination.lookAtCutEnd())
        return error;
    state = examination.state;
    return {};
}
