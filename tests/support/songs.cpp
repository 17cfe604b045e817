#include "support/songs.h"

#include <QBuffer>

std::shared_ptr<SongFile> writtenSong(const QString &path, const SongFields &fields)
{
    writeFile(path, mpegFrames(50));
    const auto song = SongFile::songWithPath(path);
    AudioInfoTag &tag = *song->infotag();
    tag.setTitle(fields.title);
    tag.setArtist(fields.artist);
    tag.setAlbum(fields.album);
    tag.setYear(fields.year);
    tag.setTrack(fields.track);
    tag.setGenres(fields.genres);
    tag.setIsPartOfCompilation(fields.isCompilation);
    if (!fields.picture.isEmpty())
        tag.addImage(ID3Image::imageWithData(fields.picture, mimeTypeBySignature(fields.picture)));
    const auto outcome = song->writeToOriginalPath({}, nullptr);
    if (outcome.kind == InPlaceFile::Outcome::Kind::Failed)
        qFatal("cannot write %s: %s", qPrintable(path), qPrintable(outcome.error));
    song->uncacheInfotag();
    return song;
}

QByteArray plainPicture(int width, int height, const char *format, Qt::GlobalColor color)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return encoded(image, format);
}

QByteArray encoded(const QImage &image, const char *format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, quality);
    return bytes;
}
