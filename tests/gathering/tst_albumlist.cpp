#include "base/texts.h"

#include "gathering/albumlist.h"
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
    AlbumInfo album;
    album.setName(part(0));
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
        row("what an album has stays", u"K||Rock|u1;K||Pop|u2"_qs, {}, u"K//Rock/u1/1"_qs);
        row("albums without the title go, what they taught stays",
            u"K|1990|||s|Dawn;B|1980|||s|Dusk;K|1985|Rock||s|Dusk"_qs, u"dawn"_qs,
            u"K/1985/Rock//0"_qs);
        row("a part of the title is enough", u"K|||||Dawn II;B|||||Dusk"_qs, u"Dawn"_qs,
            u"K////0"_qs);
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

    void keepsAlbumsOfTheRightLength_data()
    {
        const Table<int, QString> row("tracks", "kept");
        row("as many tracks", 2, u"B,D"_qs);
        row("none fits, all stay", 3, u"K,B,C,D"_qs);
        row("no tracks at all", 0, u"C"_qs);
    }
    void keepsAlbumsOfTheRightLength()
    {
        QFETCH(int, tracks);
        AlbumList list = albumsFrom(u"K|||||1;B|||||1,2;C;D|||||3,4"_qs);
        eliminateAlbumsWithDifferentNumberOfTracks(list, tracks);
        QTEST(namesOf(list), "kept");
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

    void filtersByWhatTheTagSays_data()
    {
        const Table<bool, QString, QString> row("trustsTitle", "album", "kept");
        row("title and album", true, u"Night"_qs, u"Night"_qs);
        row("title alone", true, {}, u"Night,Day"_qs);
        row("length alone where the title is looked for", false, u"Night"_qs, u"Day,Dusk"_qs);
    }
    void filtersByWhatTheTagSays()
    {
        QFETCH(bool, trustsTitle);
        QFETCH(QString, album);
        AlbumList list = albumsFrom(u"Night|||||One;Day|||||One,Two;Dusk|||||Three,Four"_qs);
        filterAlbums(
            list,
            {trustsTitle, u"One"_qs, album.isEmpty() ? std::nullopt : std::optional(album), 2},
            Substrings::Refuse);
        QTEST(namesOf(list), "kept");
    }

    void choosesAnAlbum_data()
    {
        const Table<QString, int, QString, QString> row("albums", "method", "chosen", "problem");
        const QString two = u"K|1999;B|1998"_qs;
        row("none of none", {}, 1, {}, {});
        row("one, whatever the method", u"K"_qs, 1, u"K"_qs, {});
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
