#include "songs/songorder.h"
#include "support/plaintag.h"
#include "support/table.h"

using namespace Qt::StringLiterals;
using namespace SongOrder;

using Fields = PlainTag::Fields;
Q_DECLARE_METATYPE(SongOrder::Comparison)

namespace {

std::shared_ptr<SongFile> songWith(const Fields &fields)
{
    auto song = std::make_shared<SongFile>(u"/nowhere/song.mp3"_s, ReadOptions());
    song->adoptInfotag(std::make_unique<PlainTag>(fields));
    song->setActivityStatus(static_cast<SongStatus>(fields.value(u"status"_s).toInt()));
    return song;
}

/// Of each column two values, the one that comes first and the one that comes last; a value that
/// is null stands for none.
const QHash<QString, QPair<QString, QString>> &columns()
{
    static const QPair texts{u"alpha 9"_s, u"Alpha 10"_s};
    static const QHash<QString, QPair<QString, QString>> values{
        {u"artist"_s, texts},
        {u"title"_s, texts},
        {u"album"_s, texts},
        {u"genre"_s, texts},
        {u"track"_s, {u"2/12"_s, u"10/12"_s}},
        {u"year"_s, {u"2005"_s, u"1999"_s}},
        {u"lyrics"_s, {u"la"_s, QString()}},
        {u"art"_s, {u"2"_s, u"1"_s}},
        {u"status"_s, {u"4"_s, u"0"_s}},
        {u"index"_s, {u"2"_s, u"10"_s}},
        {u"bpm"_s, {u"90"_s, u"120"_s}},
        {u"compilation"_s, {u"1"_s, QString()}},
        {u"version"_s, {u"2.2.0"_s, u"2.3.0"_s}}};
    return values;
}

} // namespace

class TestSongOrder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void chain_data()
    {
        const Table<Comparison, QString> row("comparison", "keys");
        row("index", compareIndex, u"index title artist album"_s);
        row("compilation", compareCompilation, u"compilation album track title artist"_s);
        row("artist", compareArtist, u"artist album track"_s);
        row("title", compareTitle, u"title artist album"_s);
        row("album", compareAlbum, u"album track title artist"_s);
        row("track", compareTrack, u"track album title artist"_s);
        row("year", compareYear, u"year album artist track"_s);
        row("genre", compareGenre, u"genre album artist"_s);
        row("lyrics", compareLyrics, u"lyrics album track title artist"_s);
        row("art", compareArt, u"art artist album track"_s);
        row("read version", compareReadVersion, u"version album artist"_s);
        row("BPM", compareBPM, u"bpm title artist album"_s);
        row("activity", compareActivity, u"status"_s);
    }

    /// For each key: songs equal in all keys before it, with every other column saying the
    /// opposite.
    void chain()
    {
        QFETCH(Comparison, comparison);
        QFETCH(QString, keys);
        const QStringList columnsInOrder = keys.split(u' ');
        for (qsizetype deciding = 0; deciding <= columnsInOrder.size(); ++deciding) {
            Fields fields;
            Fields others;
            for (auto column = columns().cbegin(); column != columns().cend(); ++column) {
                const qsizetype place = columnsInOrder.indexOf(column.key());
                const auto [first, last] = column.value();
                const bool isEqual = place >= 0 && place < deciding;
                fields.insert(column.key(), isEqual || place == deciding ? first : last);
                others.insert(column.key(), place == deciding ? last : first);
            }
            const int expected = deciding < columnsInOrder.size() ? -1 : 0;
            QCOMPARE(comparison(*songWith(fields), *songWith(others)), expected);
            QCOMPARE(comparison(*songWith(others), *songWith(fields)), -expected);
        }
    }

    void comesFirst_data()
    {
        const Table<Comparison, QString, QString, QString> row("comparison", "column", "first",
                                                               "second"); // null: none
        row("a missing text comes last", rawCompareTitle, u"title"_s, u"Zebra"_s, {});
        row("an empty text is not missing", rawCompareAlbum, u"album"_s, u""_s, u"A"_s);
        row("a missing track comes last", rawCompareTrack, u"track"_s, u"99"_s, {});
        row("a missing year comes last", rawCompareYear, u"year"_s, u"1"_s, {});
        row("the year of a date counts", rawCompareYear, u"year"_s, u"2005-03"_s, u"2004-11"_s);
        row("a missing BPM counts as 0", rawCompareBPM, u"bpm"_s, {}, u"60"_s);
        row("versions are texts", rawCompareReadVersion, u"version"_s, u"2.10"_s, u"2.4"_s);
        row("songs of no playlist come last", rawCompareIndex, u"index"_s, u"7"_s, {});
    }

    void comesFirst()
    {
        QFETCH(Comparison, comparison);
        QFETCH(QString, column);
        QFETCH(QString, first);
        QFETCH(QString, second);
        const auto firstSong = songWith({{column, first}});
        const auto secondSong = songWith({{column, second}});
        QCOMPARE(comparison(*firstSong, *secondSong), -1);
        QCOMPARE(comparison(*secondSong, *firstSong), 1);
        QCOMPARE(comparison(*secondSong, *secondSong), 0);
    }

    void songsWithoutTagCountAsEmpty()
    {
        SongFile noSong(u"/nowhere/song"_s, {});
        for (const Comparison comparison :
             {compareArtist, compareTrack, compareLyrics, compareIndex, compareArt,
              compareCompilation, compareReadVersion}) {
            QCOMPARE(comparison(noSong, *songWith({})), 0);
        }
    }
};

QTEST_GUILESS_MAIN(TestSongOrder)
#include "tst_songorder.moc"
