#include "base/bytes.h"
#include "itunes/playlistentries.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    for (const auto format : {PlaylistFormat::M3U, PlaylistFormat::PLS, PlaylistFormat::XSPF})
        try {
            if (playlistEntries(bytes, format).contains(QString()))
                __builtin_trap();
        } catch (const MalformedData &) { // what it may refuse with
        }
    return 0;
}
