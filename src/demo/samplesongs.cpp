#include "demo/samplesongs.h"

#include "base/inplacefile.h"
#include "base/resources.h"
#include "tags/aacinfotag.h"
#include "tags/mp3infotag.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// A song's name and the fields that it has; an empty text is a gap.
struct SampleSong {
    QString file;
    QString title;
    QString artist;
    QString album;
    QString year;
    QString track;
    QString genres;
};

const std::vector<SampleSong> &sampleSongs()
{
    static const std::vector<SampleSong> songs{
        {u"01 Low Water.mp3"_s, u"Low Water"_s, u"Nila Oster"_s, {}, {}, {}, {}},
        {u"02 Harbour Lights.m4a"_s,
         u"Harbour Lights"_s,
         u"Nila Oster"_s,
         u"Harbour Lights"_s,
         {},
         u"2"_s,
         {}},
        {u"Fog Signal.mp3"_s, {}, u"Nila Oster"_s, {}, {}, {}, u"Folk"_s},
        {u"lanterns - neon rain.mp3"_s, u"Neon Rain"_s, u"Lanterns, The"_s, {}, {}, {}, {}},
        {u"Last Tram Home.m4a"_s,
         u"last tram home"_s,
         u"The Lanterns"_s,
         u"Paper Moons"_s,
         {},
         {},
         {}},
        {u"Rue des Étoiles.mp3"_s, u"Rue des Étoiles"_s, u"Édouard Vael"_s, {}, {}, {}, {}},
        {u"Garage Tape 3.mp3"_s, u"Garage Tape 3"_s, u"Somebody's Cousins"_s, {}, {}, {}, {}},
        {u"Slack Tide.mp3"_s, u"Slack Tide"_s, u"Nila Oster"_s, u"Harbour Lights"_s, u"2007"_s,
         u"6/6"_s, u"Folk"_s},
    };
    return songs;
}

/// Four seconds of silence: MPEG-1 layer III frames of 128 kbit/s at 44.1 kHz, whose side
/// information and data are all zero.
QByteArray mpegSilence()
{
    constexpr int frameBytes = 417;
    constexpr int frames = 153;
    const QByteArray header = QByteArray::fromHex("fffb9064");
    return (header + QByteArray(frameBytes - header.size(), '\0')).repeated(frames);
}

QString makeFile(const QString &path, const QByteArray &sound, AudioInfoTag &tag,
                 const SampleSong &song)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(sound) < 0 || !file.flush())
        return path + u": "_s + file.errorString();
    file.close();

    tag.setTitle(song.title);
    tag.setArtist(song.artist);
    tag.setAlbum(song.album);
    tag.setYear(song.year);
    tag.setTrack(song.track);
    tag.setGenres(song.genres);
    const WriteOptions options{.dialect = ID3Dialect::standard()};
    return tag.modifySongFileAtPath(path, options).error;
}

QString makeSong(const QString &path, const SampleSong &song)
{
    if (path.endsWith(u".mp3")) {
        MP3InfoTag tag;
        return makeFile(path, mpegSilence(), tag, song);
    }
    AACInfoTag tag;
    return makeFile(path, resourceData(u"silence.m4a"_s).value_or(QByteArray()), tag, song);
}

} // namespace

QString makeSampleSongs(const QString &folder)
{
    for (const SampleSong &song : sampleSongs()) {
        QString error = makeSong(QDir(folder).filePath(song.file), song);
        if (!error.isEmpty())
            return error;
    }
    return {};
}
