#include "tags/songlength.h"

#include "base/bytes.h"
#include "tags/atomsource.h"
#include "tags/filetype.h"
#include "tags/mp4length.h"
#include "tags/mpeglength.h"
#include "tags/songbytes.h"

namespace {

/// What the file begins with by the name of its first atom, behind a tag that does not belong
/// there.
bool beginsWithAtom(const SongBytes &song, qint64 start)
{
    constexpr qint64 sizeLength = 4;
    const QByteArray name = song.read(start + sizeLength, 4);
    return name == "ftyp" || name == "moov" || name == "mdat" || name == "free" || name == "skip"
        || name == "wide";
}

} // namespace

std::optional<std::chrono::milliseconds> songLength(const SongBytes &song)
{
    const qint64 start = FileType::strayID3v2TagLength(song);
    try {
        if (beginsWithAtom(song, start))
            return lengthOfMP4(AtomSource::ofSong(song, start));
        return lengthOfMPEGAudio(song);
    } catch (const MalformedData &) {
        return {};
    }
}

std::optional<std::chrono::milliseconds> songLengthAt(const QString &path)
{
    const auto bytes = SongBytes::open(path);
    return bytes ? songLength(*bytes) : std::nullopt;
}
