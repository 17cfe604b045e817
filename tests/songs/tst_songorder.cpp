#include "songs/songorder.h"
#include "support/plaintag.h"
#include "support/table.h"

using namespace Qt::StringLiterals;
using namespace SongOrder;

using Fields = PlainTag::Fields;

namespace {

std::shared_ptr<SongFile> songWith(const Fields &fields)
{
    auto song = std::make_shared<SongFile>(u"/nowhere/song.mp3"_s, ReadOptions());
    song->adoptInfotag(std::make_unique<PlainTag>(fields));
    song->setActivityStatus(static_cast<SongStatus>(fields.value(u"status"_s).toInt()));
    return song;
}

} // namespace

class TestSongOrder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// Equal columns leave the order to the next one of the chain.
    void nextColumnsDecide()
    {
        const Fields song{
            {u"artist"_s, u"alpha 9"_s}, {u"album"_s, u"b"_s}, {u"track"_s, u"2/12"_s}};
        for (const auto &[column, later] : {std::pair(u"artist"_s, u"Alpha 10"_s),
                                            {u"album"_s, u"C"_s},
                                            {u"track"_s, u"10/12"_s}}) {
            Fields other = song;
            other[column] = later;
            other[u"title"_s] = u"a"_s; // no part of the chain
            for (const Comparison comparison : {compareArtist, compareYear, compareArt}) {
                QCOMPARE(comparison(*songWith(song), *songWith(other)), -1);
                QCOMPARE(comparison(*songWith(other), *songWith(song)), 1);
            }
        }
        QCOMPARE(compareArtist(*songWith(song), *songWith(song)), 0);
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
