#include "base/texts.h"

#include "gathering/choicerecorder.h"
#include "support/table.h"

namespace {
/// "name|year|genre|art|source|track,track"; trailing parts may be missing, empty ones are absent.
AlbumInfo albumFrom(const QString &row)
{
    const QStringList parts = row.split(u'|');
    const auto part = [&](qsizetype index) {
        const QString text = parts.value(index);
        return text.isEmpty() ? std::nullopt : std::optional(text);
    };
    AlbumInfo album({}, part(0));
    album.setYear(part(1));
    album.setGenres(part(2));
    album.setArtURLString(part(3));
    album.setSourceInterfaceName(part(4).value_or(QString()));
    if (const auto tracks = part(5))
        album.setTrackNames(tracks->split(u','));
    return album;
}

AlbumList albumsFrom(const QString &rows)
{
    AlbumList albums;
    for (const QString &row : rows.split(u';', Qt::SkipEmptyParts))
        albums << albumFrom(row);
    return albums;
}

/// "name/year/genre/art/duplicates" of each.
QString shown(const AlbumList &albums)
{
    QStringList rows;
    for (const AlbumInfo &album : albums) {
        rows << QStringList{album.name().value_or(QString()), album.year().value_or(QString()),
                            album.genre().value_or(QString()),
                            album.artURLString().value_or(QString()),
                            QString::number(album.duplicates())}
                    .join(u'/');
    }
    return rows.join(u';');
}

AlbumInfo albumWith(const QStringList &tracks)
{
    AlbumInfo album(u"Lanterns"_qs, u"Night"_qs);
    album.setTrackNames(tracks);
    return album;
}

QString namesOf(const AlbumList &albums)
{
    QStringList names;
    for (const AlbumInfo &album : albums)
        names << album.name().value_or(QString());
    return names.join(u',');
}
} // namespace

class AlbumListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void cleansTexts()
    {
        for (const auto &[name, cleaned] : {std::pair{u"Greatest Hits**"_qs, u"Greatest Hits"_qs},
                                            {u"*Hits* Live"_qs, u"*Hits* Live"_qs},
                                            {u"ABBA GOLD"_qs, u"Abba Gold"_qs},
                                            {u"Hits* "_qs, u"Hits*"_qs}})
            QCOMPARE(*AlbumInfo({}, name).name(), cleaned);
        AlbumInfo album({}, {});
        album.setArtist(u"Lanterns, The"_qs);
        album.setYear(u" 1999 "_qs);
        album.setTrackNames(QStringList{u"ONE "_qs, u"two"_qs});
        album.cleanUpStrings();
        QCOMPARE(*album.artist(), u"The Lanterns"_qs);
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
    }
    void findsTracks()
    {
        QFETCH(QStringList, tracks);
        QFETCH(QString, title);
        QTEST(albumWith(tracks).numberOfTrackNamed(title, Substrings::Refuse), "strictly");
        QTEST(albumWith(tracks).numberOfTrackNamed(title, Substrings::Allow), "loosely");
    }

    void tellsWhatItHolds()
    {
        AlbumInfo album({}, {});
        QCOMPARE(album.assets(), Assets(AssetTrack)); // always counted
        album = albumWith({u"One"_qs});
        album.setYear(u"1999"_qs);
        QCOMPARE(album.assets(), AssetTrack | AssetArtist | AssetAlbumName | AssetYear);
        QCOMPARE(album.matchToDesiredAssets({}), -1.0F);
        QCOMPARE(album.matchToDesiredAssets(AssetYear | AssetTrack), 1.0F);
        QCOMPARE(album.matchToDesiredAssets(AssetYear | AssetBPM | AssetLyrics | AssetTrack), 0.5F);
    }

    void describesItself()
    {
        AlbumInfo album = albumWith({u"Dawn"_qs, u"Dusk"_qs});
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

    void mergesAlbums_data()
    {
        const Table<QString, QString, QString> row("albums", "title", "merged");
        row("the same name, the earliest year",
            u"Abbey Road|1987;abbey road|1969;Abbey Road (Remastered)|2009"_qs, {},
            u"Abbey Road/1969///1;Abbey Road (Remastered)/2009///0"_qs);
        row("years of 1600 and before or from 3000 on are none", u"K|1600;K|3000;B|1601;B|2999"_qs,
            {}, u"K/1600///1;B/1601///1"_qs);
        row("genre and artwork from the last that has them", u"K;K||Rock|u1;K||Pop|;K|||u2"_qs, {},
            u"K//Pop/u2/3"_qs);
        row("albums without the title go, what they taught stays",
            u"K|1990|||s|Dawn;B|1980|||s|Dusk;K|1985|Rock||s|Dusk"_qs, u"dawn"_qs,
            u"K/1985/Rock//0"_qs);
        row("a title on no album drops none", u"K|||||Dawn;B|||||Dusk"_qs, u"Noon"_qs,
            u"K////0;B////0"_qs);
        row("albums without a name are of one name", u"|1990;K;||Rock"_qs, {},
            u"/1990/Rock//1;K////0"_qs);
    }
    void mergesAlbums()
    {
        QFETCH(QString, albums);
        QFETCH(QString, title);
        AlbumList list = albumsFrom(albums);
        simplifyAlbumArray(list, title.isEmpty() ? std::nullopt : std::optional(title));
        QTEST(shown(list), "merged");
    }

    void keepsAlbumsOfTheRightLength()
    {
        for (const auto &[tracks, kept] :
             {std::pair{2, u"B,D"_qs}, {3, u"K,B,C,D"_qs}, {0, u"C"_qs}}) {
            AlbumList list = albumsFrom(u"K|||||1;B|||||1,2;C;D|||||3,4"_qs);
            eliminateAlbumsWithDifferentNumberOfTracks(list, tracks);
            QCOMPARE(namesOf(list), kept);
        }
    }

    void keepsAlbumsOfTheRightName_data()
    {
        const Table<QString, QString, QString, QString> row("albums", "wanted", "strictly",
                                                            "loosely");
        row("one is equal", u"Night;Night Live;The Night"_qs, u"night"_qs, u"Night,The Night"_qs,
            u"Night,The Night"_qs);
        row("one overlaps", u"Night Live;Day;"_qs, u"Night"_qs, u"Night Live,Day"_qs,
            u"Night Live"_qs);
        row("it overlaps one", u"Night;Day"_qs, u"Night Live"_qs, u"Night,Day"_qs, u"Night"_qs);
        row("one without a name may be any", u"Day;|1990;Night Live"_qs, u"Night"_qs,
            u"Day,,Night Live"_qs, u",Night Live"_qs);
        row("none fits", u"Day;Dusk"_qs, u"Night"_qs, u"Day,Dusk"_qs, u"Day,Dusk"_qs);
        row("nothing is part of an empty name", u"Day;Dusk"_qs, {}, u"Day,Dusk"_qs, u"Day,Dusk"_qs);
    }
    void keepsAlbumsOfTheRightName()
    {
        QFETCH(QString, albums);
        QFETCH(QString, wanted);
        AlbumList list = albumsFrom(albums);
        eliminateAlbumsWithoutDesiredName(list, wanted, Substrings::Refuse);
        QTEST(namesOf(list), "strictly");
        list = albumsFrom(albums);
        eliminateAlbumsWithoutDesiredName(list, wanted, Substrings::Allow);
        QTEST(namesOf(list), "loosely");
        list = albumsFrom(albums);
        eliminateAlbumsWithoutDesiredName(list, {}, Substrings::Allow);
        QCOMPARE(list.size(), albumsFrom(albums).size());
    }

    void filtersByWhatTheTagSays()
    {
        const std::optional<QString> night = u"Night"_qs;
        const AlbumList all = albumsFrom(u"Night|||||One;Day|||||One,Two;Dusk|||||Three,Four"_qs);
        // Title and album; title alone; length alone where the title is looked for.
        for (const auto &[trustsTitle, album, kept] : {std::tuple{true, night, u"Night"_qs},
                                                       {true, std::nullopt, u"Night,Day"_qs},
                                                       {false, night, u"Day,Dusk"_qs}}) {
            AlbumList list = all;
            filterAlbums(list, {trustsTitle, u"One"_qs, album, 2}, Substrings::Refuse);
            QCOMPARE(namesOf(list), kept);
        }
    }

    void tellsWhatItDrops()
    {
        using enum AlbumFate;
        AlbumList list =
            albumsFrom(u"K|||||One;Night|||||One;Night|||||One;B|||||Two;;C|||||Two"_qs);
        QStringList dropped;
        const DropListener listener = [&](const AlbumInfo &album, AlbumFate fate) {
            dropped << *album.name() + QString::number(static_cast<int>(fate));
        };
        filterAlbums(list, {true, u"One"_qs, u"Night Live"_qs, 0}, Substrings::Allow, listener);
        filterAlbums(list = albumsFrom(u"K|||||1;B|||||1,2"_qs), {false, {}, {}, 2}, {}, listener);
        QStringList expected;
        for (const auto &[name, fate] : {std::pair{u"B"_qs, TitleNotOnAlbum},
                                         {u"C"_qs, TitleNotOnAlbum},
                                         {u"Night"_qs, Merged},
                                         {u"K"_qs, OtherName},
                                         {u"K"_qs, OtherNumberOfTracks}})
            expected << name + QString::number(static_cast<int>(fate));
        QCOMPARE(dropped, expected);
    }

    void keepsSoManyCandidatesAndTheChosenOne()
    {
        AlbumList list(ChoiceRecorder::mostCandidates + 50, albumWith({u"One"_qs}));
        for (AlbumInfo &album : list)
            album.setName(QString(1000, u'n'));
        ChoiceRecorder recorder;
        recorder.begin(list);
        recorder.end(list, AlbumPick::Best, {list.last(), {}}, true);
        const QList<AlbumCandidate> kept = recorder.record().candidates;
        QCOMPARE(kept.size(), ChoiceRecorder::mostCandidates + 1);
        QCOMPARE(kept.last().fate, AlbumFate::Chosen);
        QCOMPARE(kept.last().album->size(), ChoiceRecorder::longestText);
    }

    void choosesAnAlbum_data()
    {
        const Table<QString, int, QString, QString> row("albums", "method", "chosen", "problem");
        const QString two = u"K|1999;B|1998"_qs;
        row("no method, nothing chosen, no message", two, 0, {}, {});
        row("the earliest year", two, 1, u"B"_qs, {});
        row("of a year the one with most tracks; short years do not count",
            u"K|1999||||1;B|99||||1,2,3;C|1999||||1,2;D|1999||||3,4"_qs, 1, u"C"_qs, {});
        row("years of 1700 and before do not count", u"K|1700;B|1701"_qs, 1, u"B"_qs, {});
        row("2040, from which the search starts, is chosen for want of another",
            u"K|2041;B|2040"_qs, 1, u"B"_qs, {});
        row("no usable year", u"K|2041;|;C|99"_qs, 1, {},
            u"3 albums found for Lanterns – %1, but none with a usable year: 'K', '', 'C'"_qs);
        row("most agreement, the first of equals", u"K;B;B;C;C"_qs, 2, u"B"_qs, {});
    }
    void choosesAnAlbum()
    {
        QFETCH(QString, albums);
        QFETCH(int, method);
        AlbumList list = albumsFrom(albums);
        simplifyAlbumArray(list, {});
        const AlbumChoice choice =
            chooseAlbum(list, static_cast<AlbumPick>(method), {u"Lanterns"_qs, u"%1"_qs});
        QTEST(choice.album ? choice.album->name().value_or(QString()) : QString(), "chosen");
        QTEST(choice.problem.value_or(QString()), "problem");
    }

    void ordersArtworkBySource()
    {
        const AlbumList list = albumsFrom(u"K|||u1|S2;B|||u2|S1;C||||S1;D|||u3|S1;E|||u4|S3"_qs);
        QCOMPARE(namesOf(artworkCandidates(list, {u"S1"_qs, u"S2"_qs})), u"D,B,K"_qs);
    }

    void takesAlbumsOfLyricsAlone()
    {
        AlbumList list = albumsFrom(u"K||||S2;B|1999|||S1;C||||S1;D||||S1"_qs);
        for (AlbumInfo &album : list) {
            if (album.name() != u"D"_qs)
                album.setLyrics(u"la"_qs, u"Dawn"_qs);
        }
        QCOMPARE(namesOf(takeLyricsAlbums(list, {u"S1"_qs, u"S2"_qs})), u"C,K"_qs);
        QCOMPARE(namesOf(list), u"B,D"_qs);
    }
};

QTEST_GUILESS_MAIN(AlbumListTest)
#include "tst_albumlist.moc"
