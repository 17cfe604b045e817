#include "base/filecopy.h"

#include "base/descriptor.h"

#include <algorithm>
#include <fcntl.h>
#include <memory>
#include <sys/ioctl.h>

#ifdef __linux__
#include <linux/fs.h>
#endif

namespace {
/// Larger buffers copy no faster, and copying within the kernel (copy_file_range, sendfile) costs
/// more processor time than this where blocks cannot be shared.
constexpr qint64 bufferSize = 262144;

enum class CopyOrder { FromFront, FromEnd };

std::error_code copyThroughBuffer(int from, qint64 fromOffset, int to, qint64 toOffset,
                                  qint64 length, CopyOrder order = CopyOrder::FromFront)
{
    if (length <= 0)
        return {};
    const auto size = std::min(length, bufferSize);
    const auto buffer = std::make_unique_for_overwrite<char[]>(static_cast<size_t>(size));
    for (qint64 done = 0; done < length;) {
        const qint64 count = std::min(size, length - done);
        const qint64 at = order == CopyOrder::FromFront ? done : length - done - count;
        if (const auto error = readAt(from, fromOffset + at, buffer.get(), count))
            return error;
        if (const auto error = writeAt(to, toOffset + at, {buffer.get(), count}))
            return error;
        done += count;
    }
    return {};
}

bool shareBlocks([[maybe_unused]] int from, [[maybe_unused]] qint64 fromOffset,
                 [[maybe_unused]] int to, [[maybe_unused]] qint64 toOffset,
                 [[maybe_unused]] qint64 length)
{
#ifdef FICLONERANGE
    file_clone_range range = {.src_fd = from,
                              .src_offset = static_cast<quint64>(fromOffset),
                              .src_length = static_cast<quint64>(length),
                              .dest_offset = static_cast<quint64>(toOffset)};
    return ::ioctl(to, FICLONERANGE, &range) == 0;
#else
    return false;
#endif
}

qint64 alignedUp(qint64 offset)
{
    return (offset + shareableAlignment - 1) / shareableAlignment * shareableAlignment;
}
} // namespace

FileRange shareRange(int from, FileRange range, int to, qint64 toOffset)
{
    const FileRange none = {range.end(), 0};
    if ((range.offset - toOffset) % shareableAlignment != 0)
        return none;
    const qint64 head = alignedUp(range.offset) - range.offset;
    const qint64 length = (range.length - head) / shareableAlignment * shareableAlignment;
    if (length <= 0 || !shareBlocks(from, range.offset + head, to, toOffset + head, length))
        return none;
    return {range.offset + head, length};
}

std::error_code copyRange(int from, qint64 fromOffset, int to, qint64 toOffset, qint64 length)
{
    const FileRange shared = shareRange(from, {fromOffset, length}, to, toOffset);
    const qint64 head = shared.offset - fromOffset;
    if (const auto error = copyThroughBuffer(from, fromOffset, to, toOffset, head))
        return error;
    const qint64 done = head + shared.length;
    return copyThroughBuffer(from, fromOffset + done, to, toOffset + done, length - done);
}

std::error_code moveRange(int file, qint64 fromOffset, qint64 toOffset, qint64 length)
{
    if (toOffset < fromOffset)
        return copyThroughBuffer(file, fromOffset, file, toOffset, length);
    // Nobody reads ahead for reads that go backwards.
    ::posix_fadvise(file, fromOffset, length, POSIX_FADV_WILLNEED);
    return copyThroughBuffer(file, fromOffset, file, toOffset, length, CopyOrder::FromEnd);
}
