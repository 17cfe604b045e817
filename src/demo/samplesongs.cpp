#include "demo/samplesongs.h"

#include "base/inplacefile.h"
#include "base/resources.h"
#include "demo/samplepictures.h"
#include "tags/aacinfotag.h"
#include "tags/mp3infotag.h"

#include <QDir>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A song's file and the fields that it has; an empty text is a gap.
struct SampleSong {
    QString file;
    QString title;
    QString artist;
    QString album{};
    QString year{};
    QString track{};
    QString genres{};
    bool isPartOfCompilation = false;
    bool hasCover = false; ///< that of the first sample album of its name
};

/// Each source of the sample sites is the only one that can fill some gap of theirs.
const std::vector<SampleSong> &songsOfGaps()
{
    static const QString mix = u"Midnight Parade of Small Stars"_s;
    static const std::vector<SampleSong> songs{
        {u"01 Low Water.mp3"_s, u"Low Water"_s, u"Nila Oster"_s},
        {u"02 Harbour Lights.m4a"_s,
         u"Harbour Lights"_s,
         u"Nila Oster"_s,
         u"Harbour Lights"_s,
         {},
         u"2"_s},
        {u"Bell Buoy.mp3"_s, u"Bell Buoy"_s, u"Halloran Quay"_s, u"Tidewrack"_s, u"1974"_s,
         u"7/7"_s, u"Folk-Rock"_s, false, true},
        {u"lanterns - neon rain.mp3"_s, u"Neon Rain"_s, u"Lanterns, The"_s},
        {u"lanterns - tram.m4a"_s, u"last tram home"_s, u"The Lanterns"_s, u"Paper Moons"_s},
        {u"Rue des Étoiles.mp3"_s, u"Rue des Étoiles"_s, u"Édouard Vael"_s},
        {u"La Niña.mp3"_s, u"La Niña y el Cañón"_s, u"Señora Malva"_s},
        {u"Static Bloom.mp3"_s, u"Static Bloom"_s, u"Kessa Mirowen"_s, u"Glass Orchard"_s},
        {u"Sodium Lights.mp3"_s, u"Sodium Lights"_s, u"Brindle Coast"_s, u"Brindle Coast"_s},
        {u"Mother's Almanac.m4a"_s, u"Mother's Almanac"_s, u"Fenwick & Daughters"_s},
        {.file = u"Caravan at Dawn.m4a"_s,
         .title = u"Caravan at Dawn"_s,
         .artist = u"Ferran Ostrow"_s,
         .album = u"The Salt Road"_s,
         .genres = u"Soundtrack"_s},
        {.file = u"Borrowed Telescope.mp3"_s,
         .title = u"Borrowed Telescope"_s,
         .artist = u"Opal Verhoeven"_s,
         .album = mix,
         .isPartOfCompilation = true},
        {.file = u"Night Bus.m4a"_s,
         .title = u"Night Bus to Saturn"_s,
         .artist = u"The Tin Moths"_s,
         .album = mix,
         .isPartOfCompilation = true},
        {u"Garage Tape 3.mp3"_s, u"Garage Tape 3"_s, u"Somebody's Cousins"_s},
    };
    return songs;
}

const std::vector<SampleSong> &songsOfNoTitle()
{
    static const std::vector<SampleSong> songs{
        {u"Track 03.mp3"_s, {}, u"Halloran Quay"_s, u"Tidewrack"_s, {}, u"3/7"_s},
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

ID3Image coverOf(const QString &albumName)
{
    const auto &albums = sampleAlbums();
    const auto album = std::find_if(albums.begin(), albums.end(), [&](const SampleAlbum &each) {
        return each.name == albumName;
    });
    return ID3Image::imageWithData(samplePicture(*album, 500, PictureFormat::JPEG),
                                   u"image/jpeg"_s);
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
    if (song.isPartOfCompilation)
        tag.setIsPartOfCompilation(true);
    if (song.hasCover)
        tag.addImage(coverOf(song.album));
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

QString makeFolder(const QString &path, const std::vector<SampleSong> &songs)
{
    if (!QDir().mkpath(path))
        return path + u": cannot be made"_s;
    for (const SampleSong &song : songs) {
        QString error = makeSong(QDir(path).filePath(song.file), song);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

} // namespace

QString makeSampleSongs(const QString &folder)
{
    const QDir parent(folder);
    QString error = makeFolder(parent.filePath(songsWithGaps), songsOfGaps());
    return error.isEmpty() ? makeFolder(parent.filePath(songsWithoutTitles), songsOfNoTitle())
                           : error;
}
