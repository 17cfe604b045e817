#include "reader.h"

#include "itunes/playlistentries.h"

void read(const QByteArray &bytes)
{
    for (const auto format : {PlaylistFormat::M3U, PlaylistFormat::PLS, PlaylistFormat::XSPF})
        refusing([&] { verify(!playlistEntries(bytes, format).contains(QString())); });
}
