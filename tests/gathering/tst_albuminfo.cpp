#include "gathering/albuminfo.h"

#include "support/table.h"

namespace {
AlbumInfo albumOf(const QStringList &tracks)
{
    AlbumInfo album(QStringLiteral("Lanterns"), QStringLiteral("Night"));
    album.setTrackNames(tracks);
    return album;
}
} // namespace

class AlbumInfoTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleansNames_data()
    {
        const Table<QString, QString> row("name", "cleaned");
        row("stars at the end go", u"Greatest Hits**"_qs, u"Greatest Hits"_qs);
        row("stars elsewhere stay", u"*Hits* Live"_qs, u"*Hits* Live"_qs);
        row("shouting ends", u"ABBA GOLD"_qs, u"Abba Gold"_qs);
        row("an article goes to the front", u"Best, The"_qs, u"The Best"_qs);
        row("a space keeps the stars off the end", u"Hits* "_qs, u"Hits*"_qs);
        row("ends are trimmed", u" Night\n"_qs, u"Night"_qs);
    }
    void cleansNames()
    {
        QFETCH(QString, name);
        QTEST(*AlbumInfo(QStringLiteral("x"), name).name(), "cleaned");
    }

    void cleansTheOtherTextsWhenAsked()
    {
        AlbumInfo album({}, {});
        album.setArtist(u"Lanterns, The"_qs);
        album.setGenres(u"rock / POP"_qs);
        album.setYear(u" 1999 "_qs);
        album.setTrackNames(QStringList{u"ONE "_qs, u"two"_qs});
        album.cleanUpStrings();
        QCOMPARE(*album.artist(), u"The Lanterns"_qs);
        QVERIFY(!album.genre()->contains(u' '));
        QCOMPARE(*album.year(), u" 1999 "_qs);
        QCOMPARE(*album.trackNames(), (QStringList{u"One"_qs, u"Two"_qs}));
        QVERIFY(!album.name());
    }

    void findsTracks_data()
    {
        const Table<QStringList, QString, int, int> row("tracks", "title", "strictly", "loosely");
        const QStringList three{u"Dawn"_qs, u"The Dusk"_qs, u"Dusk (Live)"_qs};
        row("whatever case and article", three, u"dusk"_qs, 2, 2);
        row("a part of a track", three, u"Live"_qs, 0, 3);
        row("a track is a part of it", three, u"Dawn Chorus"_qs, 0, 1);
        row("the last part that fits", three, u"us"_qs, 0, 3);
        row("of equal titles the last", {u"Dawn"_qs, u"dawn"_qs}, u"Dawn"_qs, 2, 2);
        row("an exact one before a later part", {u"Dawn"_qs, u"Dawn II"_qs}, u"Dawn"_qs, 1, 1);
        row("nothing is part of an empty title", three, {}, 0, 0);
        row("an empty track is part of none", {QString()}, u"Dawn"_qs, 0, 0);
        row("no tracks", {}, u"Dawn"_qs, 0, 0);
    }
    void findsTracks()
    {
        QFETCH(QStringList, tracks);
        QFETCH(QString, title);
        QTEST(albumOf(tracks).numberOfTrackNamed(title, Substrings::Refuse), "strictly");
        QTEST(albumOf(tracks).numberOfTrackNamed(title, Substrings::Allow), "loosely");
    }

    void tellsWhatItHolds()
    {
        AlbumInfo album({}, {});
        QCOMPARE(album.assets(), Assets(AssetTrack)); // always counted
        album = albumOf({u"One"_qs});
        album.setYear(u"1999"_qs);
        QCOMPARE(album.assets(), AssetTrack | AssetArtist | AssetAlbumName | AssetYear);
        QCOMPARE(album.matchToDesiredAssets({}), -1.0F);
        QCOMPARE(album.matchToDesiredAssets(AssetYear | AssetTrack), 1.0F);
        QCOMPARE(album.matchToDesiredAssets(AssetYear | AssetBPM | AssetLyrics | AssetTrack), 0.5F);
    }

    void describesItself()
    {
        AlbumInfo album = albumOf({u"Dawn"_qs, u"Dusk"_qs});
        QVERIFY(
            album.description().endsWith(u" AlbumInfo 'Night' by Lanterns (1:Dawn, 2:Dusk)>"_qs));
        album.setArtist({});
        album.setYear(u"1999"_qs);
        album.setGenres(u"Rock"_qs);
        album.setArtURLString(u"http://x/a.jpg"_qs);
        album.setLyrics(u"la"_qs, u"Dawn"_qs);
        album.incDuplicates();
        QVERIFY(album.description().contains(
            u"'Night' by (null) lyrics (1 songs) year=1999 genre=Rock dupes=1"
            " cover=http://x/a.jpg (1:Dawn, 2:Dusk)>"_qs));
    }
};

QTEST_GUILESS_MAIN(AlbumInfoTest)
#include "tst_albuminfo.moc"
