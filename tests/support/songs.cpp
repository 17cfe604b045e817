#include "support/songs.h"

#include "support/tempfiles.h"
#include "tags/mp3infotag.h"

void makeSong(const QString &path, const SampleFields &fields)
{
    writeFile(path, mpegFrames(40));
    MP3InfoTag tag;
    tag.setTitle(fields.title);
    tag.setArtist(fields.artist);
    tag.setAlbum(fields.album);
    const auto outcome = tag.modifySongFileAtPath(path, {.dialect = ID3Dialect::standard()});
    if (outcome.kind == InPlaceFile::Outcome::Kind::Failed)
        qFatal("cannot make %s: %s", qPrintable(path), qPrintable(outcome.error));
}
