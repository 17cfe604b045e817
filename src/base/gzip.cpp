#include "base/gzip.h"

#include <algorithm>
#include <array>
#include <zlib.h>

namespace {
constexpr qsizetype chunkSize = 32768;
/// What zlib adds to the window size (15) for gzip's header and trailer.
constexpr int gzipWindow = 15 + 16;

bool isGzip(QByteArrayView bytes)
{
    return bytes.startsWith("\x1f\x8b");
}

/// zlib reads through a pointer to bytes that it does not change.
void setInput(z_stream &stream, QByteArrayView bytes)
{
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
}

/// The next piece of what the stream holds; an empty one at its end or at damage.
QByteArrayView nextChunk(z_stream &stream, std::array<char, chunkSize> &chunk, int &status)
{
    stream.next_out = reinterpret_cast<Bytef *>(chunk.data());
    stream.avail_out = static_cast<uInt>(chunk.size());
    status = ::inflate(&stream, Z_NO_FLUSH);
    return QByteArrayView(chunk).first(chunkSize - static_cast<qsizetype>(stream.avail_out));
}

/// What follows the end of a member is another one, or nothing of ours.
bool beginsAnotherMember(z_stream &stream)
{
    const auto rest = QByteArrayView(reinterpret_cast<const char *>(stream.next_in),
                                     static_cast<qsizetype>(stream.avail_in));
    return isGzip(rest) && ::inflateReset(&stream) == Z_OK;
}
} // namespace

QByteArray compressedData(const QByteArray &bytes)
{
    constexpr int memoryLevel = 8;
    z_stream stream = {};
    if (::deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, gzipWindow, memoryLevel,
                       Z_DEFAULT_STRATEGY)
        != Z_OK)
        return bytes;
    setInput(stream, bytes);
    QByteArray out(static_cast<qsizetype>(::deflateBound(&stream, stream.avail_in)),
                   Qt::Uninitialized);
    stream.next_out = reinterpret_cast<Bytef *>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    const int status = ::deflate(&stream, Z_FINISH);
    out.truncate(static_cast<qsizetype>(stream.total_out));
    ::deflateEnd(&stream);
    return status == Z_STREAM_END ? out : bytes;
}

QByteArray decompressedData(const QByteArray &bytes, qsizetype maxSize)
{
    z_stream stream = {};
    if (!isGzip(bytes) || ::inflateInit2(&stream, gzipWindow) != Z_OK)
        return bytes;
    setInput(stream, bytes);
    QByteArray out;
    std::array<char, chunkSize> chunk;
    int status = Z_OK;
    do {
        const QByteArrayView piece = nextChunk(stream, chunk, status);
        out += piece.first(std::min(piece.size(), maxSize - out.size()));
        if (status == Z_STREAM_END && beginsAnotherMember(stream))
            status = Z_OK;
    } while (status == Z_OK && out.size() < maxSize);
    ::inflateEnd(&stream);
    return out;
}
