#include "tags/mpeglength.h"

#include "base/bytes.h"
#include "tags/byterange.h"
#include "tags/id3v2header.h"
#include "tags/mpegframe.h"
#include "tags/songbytes.h"

#include <QtEndian>

namespace {

using std::chrono::milliseconds;

/// The first frame is looked for in the first of these that has one.
constexpr qint64 stretches[] = {16 << 10, 128 << 10};
/// So many frames in a row are no chance.
constexpr int framesInARow = 3;

/// Some encoders leave a tag behind another.
constexpr int maxTagsInFront = 4;

qint64 endOfTagsInFront(const SongBytes &song)
{
    qint64 end = 0;
    for (int i = 0; i < maxTagsInFront; ++i) {
        const auto header = ID3v2Header::headerIn(song.read(end, ID3v2Header::length));
        if (!header)
            break;
        const int lengths = (header->flags & ID3v2Header::footer) != 0 ? 2 : 1;
        end += lengths * ID3v2Header::length + header->size;
    }
    return end;
}

/// Bytes of an APE tag that ends where `bytes` do, at most `room`.
qint64 apeTagLength(QByteArrayView bytes, qint64 room)
{
    constexpr qsizetype footerLength = 32;
    constexpr quint32 hasHeader = 1U << 31;
    if (bytes.size() < footerLength || !bytes.last(footerLength).startsWith("APETAGEX"))
        return 0;
    const QByteArrayView footer = bytes.last(footerLength);
    const qint64 length = qFromLittleEndian<quint32>(footer.data() + 12)
        + ((qFromLittleEndian<quint32>(footer.data() + 20) & hasHeader) != 0 ? footerLength : 0);
    return length <= room ? length : 0;
}

/// Where the frames that begin at `start` or behind it end: in front of the tags at the file's end.
qint64 endOfFrames(const SongBytes &song, qint64 start)
{
    constexpr qint64 id3v1Length = 128;
    constexpr qint64 footersLength = id3v1Length + 32;
    const qint64 from = qMax(start, song.size() - footersLength);
    QByteArray tail = song.read(from, footersLength);
    if (tail.size() >= id3v1Length && tail.last(id3v1Length).startsWith("TAG"))
        tail.chop(id3v1Length);
    const qint64 end = from + tail.size();
    return end - apeTagLength(tail, end - start);
}

/// The frames at the front of what was read of them.
struct FirstFrames {
    MPEGFrame first;
    qsizetype offset = 0; ///< of the first
    double meanBitrate = 0; ///< bits a second
    int count = 0;
    bool isToEnd = false; ///< whether they end where the bytes do
};

/// The frames from `offset` on; nothing when there is none there.
std::optional<FirstFrames> framesAt(QByteArrayView bytes, qsizetype offset)
{
    const auto first = MPEGFrame::headerIn(bytes.sliced(offset));
    if (!first)
        return {};
    FirstFrames frames{.first = *first, .offset = offset};
    double bitrates = 0;
    qsizetype at = offset;
    for (auto frame = first; frame && frame->isLike(*first);
         frame = at < bytes.size() ? MPEGFrame::headerIn(bytes.sliced(at)) : std::nullopt) {
        bitrates += frame->bitrate;
        at += frame->length();
        ++frames.count;
    }
    frames.meanBitrate = bitrates / frames.count;
    frames.isToEnd = at == bytes.size();
    return frames;
}

std::optional<FirstFrames> framesIn(QByteArrayView bytes, bool isWhole)
{
    for (qsizetype at = bytes.indexOf('\xFF'); at >= 0; at = bytes.indexOf('\xFF', at + 1)) {
        const auto frames = framesAt(bytes, at);
        if (frames && (frames->count >= framesInARow || (isWhole && frames->isToEnd)))
            return frames;
    }
    return {};
}

/// How many frames there are, as an encoder says in a first frame that holds nothing else.
struct Counts {
    quint32 frames = 0;
    quint32 bytes = 0; ///< of all the frames; 0 where it is not said
};

/// Behind "Xing" or "Info".
Counts xingCounts(ByteReader reader)
{
    constexpr quint32 hasFrames = 1;
    constexpr quint32 hasBytes = 2;
    const quint32 flags = reader.u32();
    Counts counts;
    if ((flags & hasFrames) != 0)
        counts.frames = reader.u32();
    if ((flags & hasBytes) != 0)
        counts.bytes = reader.u32();
    return counts;
}

/// Behind "VBRI".
Counts vbriCounts(ByteReader reader)
{
    reader.skip(2 + 2 + 2); // version, delay, quality
    Counts counts;
    counts.bytes = reader.u32();
    counts.frames = reader.u32();
    return counts;
}

/// `frame` is the first frame and what follows it. Throws MalformedData where that ends early.
std::optional<Counts> countsIn(QByteArrayView frame, const MPEGFrame &header)
{
    constexpr qsizetype vbriOffset = MPEGFrame::headerLength + 32; // whatever the frame
    constexpr qsizetype nameLength = 4;
    ByteReader xing(frame);
    xing.skip(header.offsetOfCounts());
    const QByteArrayView name = xing.bytes(nameLength);
    if (name == "Xing" || name == "Info")
        return xingCounts(xing);
    ByteReader vbri(frame);
    vbri.skip(vbriOffset);
    return vbri.bytes(nameLength) == "VBRI" ? std::optional(vbriCounts(vbri)) : std::nullopt;
}

/// How many frames there are in `bytes` by what the encoder said, of a song that may have been cut
/// or joined to another since. 0 where it cannot be so.
double framesByCounts(const Counts &counts, const MPEGFrame &frame, qint64 bytes)
{
    constexpr double tolerance = 1.0 / 16; // what tags and padding may make
    const double frames = counts.frames;
    const double counted = counts.bytes > 0 ? counts.bytes : static_cast<double>(bytes);
    if (frames * frame.leastLength() > counted)
        return 0;
    const double share = static_cast<double>(bytes) / counted;
    return share < 1 - tolerance || share > 1 + tolerance ? frames * share : frames;
}

std::optional<milliseconds> inMilliseconds(double seconds)
{
    if (seconds <= 0)
        return {};
    return std::chrono::round<milliseconds>(std::chrono::duration<double>(seconds));
}

/// `read` is the front of the frames, `left` what there is from there to their end.
std::optional<milliseconds> lengthOf(const FirstFrames &frames, QByteArrayView read, qint64 left)
{
    const qint64 bytes = left - frames.offset;
    const MPEGFrame &first = frames.first;
    try {
        if (const auto counts = countsIn(read.sliced(frames.offset), first))
            if (const double count = framesByCounts(*counts, first, bytes); count > 0)
                return inMilliseconds(count * first.samples / first.sampleRate);
    } catch (const MalformedData &) { // too short for a count
    }
    return inMilliseconds(static_cast<double>(bytes) * 8 / frames.meanBitrate);
}

} // namespace

std::optional<milliseconds> lengthOfMPEGAudio(const SongBytes &song)
{
    const qint64 start = endOfTagsInFront(song);
    const qint64 left = endOfFrames(song, start) - start;
    for (const qint64 stretch : stretches) {
        const QByteArray read = song.read(start, qMin(stretch, left));
        if (const auto frames = framesIn(read, read.size() == left))
            return lengthOf(*frames, read, left);
    }
    return {};
}
