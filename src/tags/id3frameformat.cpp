#include "tags/id3frameformat.h"

#include "base/bytes.h"
#include "tags/id3strings.h"
#include "tags/id3unsynchronisation.h"

#define ZLIB_CONST
#include <zlib.h>

#include <memory>

ID3FrameFormat ID3FrameFormat::format(int major, quint16 flags)
{
    const auto has = [flags](int flag) { return (flags & flag) != 0; };
    if (major == 4)
        return {has(0x08), has(0x04), has(0x40), has(0x02), has(0x01)};
    return {has(0x80), has(0x40), has(0x20), false, false};
}

namespace {

/// zlib's best ratio is about 1,030.
constexpr qsizetype bestRatio = 1024;

/// Nothing when there would be more than `inflationLeft`, or when the data are damaged: also what
/// was inflated in vain counts, since it took its time. What the frame claims of its decompressed
/// size is not believed.
std::optional<QByteArray> inflated(QByteArrayView deflated, qsizetype &inflationLeft)
{
    const qsizetype most = qMin(inflationLeft, bestRatio * deflated.size());
    z_stream stream{};
    if (inflateInit(&stream) != Z_OK)
        return {};
    const std::unique_ptr<z_stream, int (*)(z_stream *)> ending(&stream, inflateEnd);
    stream.next_in = reinterpret_cast<const Bytef *>(deflated.data());
    stream.avail_in = static_cast<uInt>(deflated.size());
    QByteArray plain;
    int status = Z_OK;
    while (status == Z_OK && plain.size() < most) {
        constexpr qsizetype step = 1 << 16;
        const qsizetype had = plain.size();
        plain.resize(had + qMin(step, most - had));
        stream.next_out = reinterpret_cast<Bytef *>(plain.data() + had);
        stream.avail_out = static_cast<uInt>(plain.size() - had);
        status = inflate(&stream, Z_NO_FLUSH);
        plain.chop(stream.avail_out);
    }
    inflationLeft -= plain.size();
    return status == Z_STREAM_END ? std::optional(plain) : std::nullopt;
}

} // namespace

std::optional<QByteArray> plainFrameBody(QByteArrayView body, const ID3FrameFormat &format,
                                         int major, qsizetype &inflationLeft)
{
    constexpr qsizetype sizeField = 4; // the decompressed size, or the data length indicator
    const bool hasSizeField = format.hasDataLength || (format.isCompressed && major == 3);
    if (format.isEncrypted || format.isGrouped || (hasSizeField && body.size() < sizeField))
        return {};
    if (hasSizeField)
        body = body.sliced(sizeField);
    QByteArray plain;
    if (format.isUnsynchronised) {
        plain = ID3Unsynchronisation::undone(body);
        body = plain;
    }
    return format.isCompressed ? inflated(body, inflationLeft) : std::optional(body.toByteArray());
}
