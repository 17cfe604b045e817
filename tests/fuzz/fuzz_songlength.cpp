#include "reader.h"

#include "tags/songbytes.h"
#include "tags/songlength.h"

#include <QTemporaryFile>

// No song is said to play longer than a second for each of its bytes.
void read(const QByteArray &bytes)
{
    static QTemporaryFile file;
    verify((file.isOpen() || file.open()) && file.resize(0) && file.seek(0));
    verify(file.write(bytes) == bytes.size() && file.flush());
    const auto song = SongBytes::open(file.fileName());
    const auto length = songLength(*song);
    verify(!length || *length <= std::chrono::seconds(bytes.size()));
}
