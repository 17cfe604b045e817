#include "gathering/librarylending.h"

#include "songs/cachedinfotag.h"
#include "support/cases.h"
#include "support/songs.h"

namespace {
/// "album|artist|year|genre|picture width"; empty parts are absent.
SongFields fieldsFrom(const QString &row)
{
    const QStringList parts = row.split(u'|');
    SongFields fields{.artist = parts.value(1),
                      .album = parts.value(0),
                      .year = parts.value(2),
                      .genres = parts.value(3)};
    if (const int width = parts.value(4).toInt())
        fields.picture = plainPicture(width, 300);
    return fields;
}

/// "year|genre|names of the songs whose pictures are offered".
QString shown(const LendingOffers &offers)
{
    QStringList names;
    for (const auto &song : offers.pictures)
        names << QFileInfo(song->path()).baseName();
    return QStringList{offers.year.value_or(QString()), offers.genres.value_or(QString()),
                       names.join(u',')}
        .join(u'|');
}
} // namespace

class LibraryLendingTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir mFolder;

    /// Songs named 0, 1, 2 and so on.
    SongList libraryFrom(const QString &rows)
    {
        SongList library;
        for (const QString &row : rows.split(u';')) {
            const QString path = mFolder.filePath(u"%1.mp3"_qs.arg(library.size()));
            library.push_back(writtenSong(path, fieldsFrom(row)));
        }
        return library;
    }

    static Borrower borrowerOf(const QString &album)
    {
        Borrower borrower;
        borrower.album = album;
        borrower.artist = u"Ann"_qs;
        borrower.wanted = lendableAssets;
        return borrower;
    }

private Q_SLOTS:
    void lends_data()
    {
        const Table<QString, QString> row("library", "offers");
        addCases(row, "lending");
    }
    void lends()
    {
        QFETCH(QString, library);
        LibraryLending lending(libraryFrom(library));
        Borrower borrower = borrowerOf(u"Night"_qs);
        borrower.artwork = {100, 1000, NonSquare::Refuse};
        QTEST(shown(lending.offersTo(borrower)), "offers");
    }

    void whatHasNoAlbumLendsNothing()
    {
        SongList library = libraryFrom(u"|Ann|1999"_qs);
        const QString path = mFolder.filePath(u"page.mp3"_qs);
        writeFile(path, QByteArray("<html>").repeated(2000));
        library.push_back(SongFile::songWithPath(path));
        LibraryLending lending(library);
        QCOMPARE(shown(lending.offersTo(borrowerOf({}))), u"||"_qs);
    }

    void onACompilationArtistsDoNotMatter()
    {
        LibraryLending lending(libraryFrom(u"Hits|Bob|1999;Hits||2000|Pop"_qs));
        Borrower borrower = borrowerOf(u"Hits"_qs);
        borrower.isCompilation = true;
        borrower.artist.reset();
        QCOMPARE(shown(lending.offersTo(borrower)), u"1999|Pop|"_qs);
        borrower.wanted = AssetGenre;
        QCOMPARE(shown(lending.offersTo(borrower)), u"|Pop|"_qs);
    }

    void aSongLendsNothingToItself()
    {
        const SongList library = libraryFrom(u"Night|Ann|1999;Night|Ann|2000"_qs);
        LibraryLending lending(library);
        Borrower borrower = borrowerOf(u"Night"_qs);
        borrower.song = library[0].get();
        QCOMPARE(shown(lending.offersTo(borrower)), u"2000||"_qs);
    }

    void excludedSongsLendOnlyWhereThereIsNothing()
    {
        const SongList library = libraryFrom(u"Night|Ann|1999|Rock|300;Night|Ann||Pop|300"_qs);
        LibraryLending lending(library, {SongFile::songWithPath(library[0]->path())});
        Borrower borrower = borrowerOf(u"Night"_qs);
        QCOMPARE(shown(lending.offersTo(borrower)), u"1999|Rock|0,1"_qs);
        borrower.present = lendableAssets;
        QCOMPARE(shown(lending.offersTo(borrower)), u"|Pop|1"_qs);
    }

    void readingLeavesSongsAsTheyWere()
    {
        const SongList library = libraryFrom(u"Night|Ann|1999;Night|Ann|2000"_qs);
        library[0]->setActivityStatus(SongStatus::Pending);
        const AudioInfoTag *held = library[1]->infotag();
        LibraryLending lending(library);
        using namespace std::chrono_literals;
        while (!lending.readTagsFor(1ms)) { }
        QVERIFY(!library[0]->hasInfotagCached());
        QCOMPARE(library[0]->activityStatus(), SongStatus::Pending);
        QCOMPARE(library[1]->infotag(), held);
    }

    void aChangedSongIsFoundUnderItsNewAlbum()
    {
        const SongList library = libraryFrom(u"Night|Ann|1999;Night|Ann|2000"_qs);
        LibraryLending lending(library);
        lending.songChanged(library[0]); // before its tag was read
        QCOMPARE(shown(lending.offersTo(borrowerOf(u"Night"_qs))), u"1999||"_qs);
        library[0]->infotag()->setAlbum(u"Day"_qs);
        lending.songChanged(library[0]);
        QCOMPARE(shown(lending.offersTo(borrowerOf(u"Night"_qs))), u"2000||"_qs);
        QCOMPARE(shown(lending.offersTo(borrowerOf(u"Day"_qs))), u"1999||"_qs);
        library[0]->infotag()->setAlbum(u"Night"_qs);
        lending.songChanged(library[0]);
        QCOMPARE(shown(lending.offersTo(borrowerOf(u"Night"_qs))), u"1999||"_qs);
    }

    void theFileLendsThePictureOfASummary()
    {
        CachedInfo summary;
        summary.album = u"Night"_qs;
        summary.artist = u"Ann"_qs;
        summary.numberOfArtworks = 1;
        const SongList library = libraryFrom(u"Night|Ann|||300"_qs);
        library[0]->adoptInfotag(tagWithCachedInfo(std::make_shared<const CachedInfo>(summary)));
        LibraryLending lending(library);
        QCOMPARE(shown(lending.offersTo(borrowerOf(u"Night"_qs))), u"||0"_qs);
        QCOMPARE(firstPictureOf(*library[0])->data, plainPicture(300, 300));
        QVERIFY(library[0]->infotag()->isLazy());
    }
};

QTEST_GUILESS_MAIN(LibraryLendingTest)
#include "tst_librarylending.moc"
