#include "tags/mp4length.h"

#include "base/bytes.h"
#include "tags/atomheader.h"
#include "tags/atomsource.h"
#include "tags/byterange.h"

namespace {

/// More atoms side by side are no song but an attack.
constexpr int maxAtoms = 10'000;

/// The body of the first atom of that name, at most up to the end of `in`.
std::optional<ByteRange> bodyOfAtomIn(const AtomSource &source, const ByteRange &in, AtomName name)
{
    qint64 offset = in.location;
    for (int i = 0; i < maxAtoms && offset <= in.end() - AtomHeader::plainLength; ++i) {
        const AtomHeader header = AtomHeader::at(source, offset, in.end());
        const auto left = static_cast<quint64>(in.end() - offset);
        const auto size = static_cast<qint64>(qMin(header.size, left));
        if (header.name == name)
            return ByteRange{offset + header.length(), size - header.length()};
        offset += size;
    }
    return {};
}

/// By the body of a 'mvhd'.
std::optional<std::chrono::duration<double>> lengthInHeader(ByteReader header)
{
    const bool isWide = header.u8() == 1;
    header.skip(3 + 2 * (isWide ? 8 : 4)); // flags, and the times of making and change
    const quint32 unitsASecond = header.u32();
    const quint64 units = isWide ? header.u64() : header.u32();
    const quint64 unknown = isWide ? ~quint64(0) : ~quint32(0);
    if (unitsASecond == 0 || units == 0 || units == unknown)
        return {};
    return std::chrono::duration<double>(static_cast<double>(units) / unitsASecond);
}

} // namespace

std::optional<std::chrono::milliseconds> lengthOfMP4(const AtomSource &source)
{
    constexpr qint64 headerLength = 32; // of which no version needs more
    const auto movie = bodyOfAtomIn(source, {0, source.length()}, atomName("moov"));
    const auto header = movie ? bodyOfAtomIn(source, *movie, atomName("mvhd")) : std::nullopt;
    if (!header)
        return {};
    const QByteArrayView bytes = source.view(header->location, qMin(header->length, headerLength));
    const auto length = lengthInHeader(ByteReader(bytes));
    // No sound takes less than a byte a second.
    if (!length || length->count() > static_cast<double>(source.length()))
        return {};
    return std::chrono::round<std::chrono::milliseconds>(*length);
}
