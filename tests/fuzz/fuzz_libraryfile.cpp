#include "reader.h"

#include "itunes/libraryreader.h"
#include "itunes/tracklocation.h"

#include <QBuffer>

void read(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    const LibraryReading reading = readLibraryFile(&buffer);
    verify(reading.library || !reading.problem.isEmpty());
    if (reading.library)
        for (const LibraryTrack &track : reading.library->tracks())
            verify(!pathOfLocation(track.location).value_or(u"/"_qs).contains(u"/../"));
}
