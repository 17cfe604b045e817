#include "base/savedbytes.h"

#include "base/checksum.h"
#include "base/descriptor.h"
#include "base/filecopy.h"

#include <memory>

namespace {
/// Ranges from here on are shared where that is possible: shorter ones are sooner copied.
constexpr qint64 leastShared = shareableAlignment;

/// Reads a range piece by piece and calls with the offset and the bytes of each.
template<typename Use>
std::error_code forEachPiece(int file, FileRange range, Use use)
{
    constexpr qint64 bufferSize = 262144;
    if (range.length <= 0)
        return {};
    const auto size = std::min(range.length, bufferSize);
    const auto buffer = std::make_unique_for_overwrite<char[]>(static_cast<size_t>(size));
    for (qint64 done = 0; done < range.length; done += size) {
        const qint64 count = std::min(size, range.length - done);
        if (const auto error = readAt(file, range.offset + done, buffer.get(), count))
            return error;
        if (const auto error = use(range.offset + done, QByteArrayView(buffer.get(), count)))
            return error;
    }
    return {};
}

/// Bytes that the files share are only read, for the checksum.
std::error_code saveRange(int song, const SavedRange &saved, int journal, Checksum &checksum)
{
    const FileRange &range = saved.range;
    const qint64 shift = saved.at - range.offset;
    FileRange shared = {range.end(), 0};
    if (range.length >= leastShared)
        shared = shareRange(song, range, journal, saved.at);
    const auto add = [&](qint64, QByteArrayView bytes) {
        checksum.add(bytes);
        return std::error_code();
    };
    const auto copy = [&](qint64 offset, QByteArrayView bytes) {
        checksum.add(bytes);
        return writeAt(journal, offset + shift, bytes);
    };
    if (const auto error = forEachPiece(song, {range.offset, shared.offset - range.offset}, copy))
        return error;
    if (const auto error = forEachPiece(song, shared, add))
        return error;
    return forEachPiece(song, {shared.end(), range.end() - shared.end()}, copy);
}
} // namespace

std::vector<SavedRange> savedRanges(const WritePlan &plan, qint64 from)
{
    std::vector<SavedRange> ranges;
    for (const FileRange &lost : plan.lostRanges()) {
        if (lost.length >= leastShared)
            from +=
                (lost.offset % shareableAlignment - from % shareableAlignment + shareableAlignment)
                % shareableAlignment;
        ranges.push_back({lost, from});
        from += lost.length;
    }
    return ranges;
}

std::error_code saveBytes(int song, const WritePlan &plan, const SavedBytes &saved,
                          quint64 &checksum)
{
    Checksum sum;
    for (const SavedRange &range : savedRanges(plan, saved.from))
        if (const auto error = saveRange(song, range, saved.file, sum))
            return error;
    checksum = sum.value();
    return {};
}

std::error_code checksumOf(const SavedBytes &saved, const WritePlan &plan, quint64 &checksum)
{
    Checksum sum;
    for (const auto &[range, at] : savedRanges(plan, saved.from)) {
        const auto error =
            forEachPiece(saved.file, {at, range.length}, [&](qint64, QByteArrayView bytes) {
                sum.add(bytes);
                return std::error_code();
            });
        if (error)
            return error;
    }
    checksum = sum.value();
    return {};
}
