#include "itunes/libraryreader.h"
#include "itunes/tracklocation.h"

#include <QBuffer>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QBuffer buffer;
    buffer.setData(reinterpret_cast<const char *>(data), int(size));
    buffer.open(QIODevice::ReadOnly);
    const LibraryReading reading = readLibraryFile(&buffer);
    if (!reading.library && reading.problem.isEmpty())
        __builtin_trap();
    if (reading.library)
        for (const LibraryTrack &track : reading.library->tracks())
            if (pathOfLocation(track.location).value_or(u"/"_qs).contains(u"/../"))
                __builtin_trap();
    return 0;
}
