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

/// At most `most` bytes; nothing when there would be more, or when the data are damaged.
std::optional<QByteArray> inflated(QByteArrayView deflated, qsizetype most)
{
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
    return status == Z_STREAM_END ? std::optional(plain) : std::nullopt;
}

/// What the frame claims of its decompressed size is not believed.
std::optional<QByteArray> inflatedFrame(QByteArrayView body, qsizetype &inflationLeft)
{
    const auto plain = inflated(body, qMin(inflationLeft, bestRatio * body.size()));
    if (plain)
        inflationLeft -= plain->size();
    return plain;
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
    return format.isCompressed ? inflatedFrame(body, inflationLeft)
                               : std::optional(body.toByteArray());
}
