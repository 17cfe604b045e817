#include "base/texts.h"

#include "gathering/choicerecorder.h"
#include "support/cases.h"

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
        const Table<QString, QString, int, int> row("tracks", "title", "strictly", "loosely");
        addCases(row, "foundtracks");
    }
    void findsTracks()
    {
        QFETCH(QString, tracks);
        QFETCH(QString, title);
        const AlbumInfo album = albumWith(tracks.split(u','));
        QTEST(album.numberOfTrackNamed(title, Substrings::Refuse), "strictly");
        QTEST(album.numberOfTrackNamed(title, Substrings::Allow), "loosely");
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

    void mergesAlbums_data()
    {
        const Table<QString, QString, QString> row("albums", "title", "merged");
        addCases(row, "mergedalbums");
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
        addCases(row, "albumnames");
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
        addCases(row, "chosenalbums");
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
