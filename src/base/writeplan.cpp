#include "base/writeplan.h"

#include "base/descriptor.h"

#include <algorithm>
#include <memory>

namespace {
constexpr qint64 bufferSize = 65536;

/// Compares ranges of a file piece by piece, so that memory stays small.
class Comparison {
public:
    explicit Comparison(int file)
        : mFile(file)
        , mOld(std::make_unique_for_overwrite<char[]>(bufferSize))
        , mOther(std::make_unique_for_overwrite<char[]>(bufferSize))
    {
    }

    /// The part of `bytes` that differs from the file at `offset`, from the first byte to the
    /// last, relative to `offset`. What lies beyond `fileSize` differs.
    std::error_code differing(QByteArrayView bytes, qint64 offset, qint64 fileSize, FileRange &out)
    {
        const qint64 common = std::clamp<qint64>(fileSize - offset, 0, bytes.size());
        qint64 first = -1;
        qint64 end = bytes.size() > common ? bytes.size() : 0;
        for (qint64 done = 0; done < common; done += bufferSize) {
            const qint64 count = std::min(bufferSize, common - done);
            if (const auto error = readAt(mFile, offset + done, mOld.get(), count))
                return error;
            note(bytes.sliced(done, count), done, first, end);
        }
        if (first < 0)
            first = common;
        out = {first, std::max<qint64>(end - first, 0)};
        return {};
    }

    /// The first of `length` bytes at which the file differs between the two offsets; `length`
    /// when there is none.
    std::error_code firstDifference(qint64 offset, qint64 otherOffset, qint64 length, qint64 &out)
    {
        for (out = 0; out < length;) {
            const qint64 count = std::min(bufferSize, length - out);
            if (const auto error = readAt(mFile, offset + out, mOld.get(), count))
                return error;
            if (const auto error = readAt(mFile, otherOffset + out, mOther.get(), count))
                return error;
            const auto found = std::mismatch(mOld.get(), mOld.get() + count, mOther.get());
            out += found.first - mOld.get();
            if (found.first != mOld.get() + count)
                break;
        }
        return {};
    }

private:
    void note(QByteArrayView bytes, qint64 at, qint64 &first, qint64 &end) const
    {
        const auto forward = std::mismatch(bytes.begin(), bytes.end(), mOld.get());
        if (forward.first == bytes.end())
            return;
        if (first < 0)
            first = at + (forward.first - bytes.begin());
        const auto backward = std::mismatch(bytes.rbegin(), bytes.rend(),
                                            std::make_reverse_iterator(mOld.get() + bytes.size()));
        end = std::max(end, at + bytes.size() - (backward.first - bytes.rbegin()));
    }

    int mFile;
    std::unique_ptr<char[]> mOld;
    std::unique_ptr<char[]> mOther;
};

std::error_code planNewBytes(Comparison &comparison, const QByteArray &bytes, qint64 offset,
                             WritePlan &plan)
{
    FileRange part;
    if (const auto error = comparison.differing(bytes, offset, plan.oldSize, part))
        return error;
    if (part.length > 0)
        plan.writes.push_back({.range = {offset + part.offset, part.length},
                               .bytes = bytes.sliced(part.offset, part.length)});
    return {};
}

std::error_code planKeptRange(Comparison &comparison, const FileContents::Piece &piece,
                              qint64 offset, WritePlan &plan)
{
    if (piece.keptOffset < 0 || piece.keptLength < 0
        || piece.keptOffset > plan.oldSize - piece.keptLength)
        return fileBecameShorter();
    if (piece.keptOffset == offset)
        return {};
    const qint64 common = std::clamp<qint64>(plan.oldSize - offset, 0, piece.keptLength);
    qint64 first = 0;
    if (const auto error = comparison.firstDifference(offset, piece.keptOffset, common, first))
        return error;
    if (first < piece.keptLength)
        plan.writes.push_back({.range = {offset + first, piece.keptLength - first},
                               .bytes = {},
                               .keptOffset = piece.keptOffset + first});
    return {};
}
} // namespace

std::vector<FileRange> WritePlan::lostRanges() const
{
    std::vector<FileRange> lost;
    const auto add = [&](FileRange range) {
        range = range.intersected({0, oldSize});
        if (range.length == 0)
            return;
        if (!lost.empty() && lost.back().end() >= range.offset)
            lost.back().length = range.end() - lost.back().offset;
        else
            lost.push_back(range);
    };
    for (const PlannedWrite &write : writes)
        add(write.range);
    if (newSize < oldSize)
        add({newSize, oldSize - newSize});
    return lost;
}

std::error_code planWrite(int file, qint64 oldSize, const FileContents &contents, WritePlan &plan)
{
    plan = {.oldSize = oldSize, .newSize = contents.length(), .writes = {}};
    Comparison comparison(file);
    qint64 offset = 0;
    for (const FileContents::Piece &piece : contents.pieces()) {
        const auto error = piece.keptLength ? planKeptRange(comparison, piece, offset, plan)
                                            : planNewBytes(comparison, piece.bytes, offset, plan);
        if (error)
            return error;
        offset += piece.length();
    }
    return {};
}
