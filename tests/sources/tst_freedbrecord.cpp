#include "sources/freedbrecord.h"

#include <QTest>

using namespace Qt::StringLiterals;
using Text = std::optional<QString>;

class TestFreeDBRecord : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fieldsAreRead_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<Text>("artist");
        QTest::addColumn<Text>("name");
        QTest::addColumn<Text>("year");
        QTest::addColumn<Text>("genre");
        QTest::addColumn<QStringList>("tracks"); // empty: none set
        const auto titled = [](const char *name, const char *record, const Text &artist,
                               const Text &album) {
            QTest::newRow(name) << QByteArray(record) << artist << album << Text() << Text()
                                << QStringList();
        };
        const auto with = [](const char *name, const char *record, const Text &year,
                             const Text &genre, const QStringList &tracks) {
            QTest::newRow(name) << QByteArray(record) << Text() << Text() << year << genre
                                << tracks;
        };
        titled("artist and name", "DTITLE=Various / Hits\n", u"Various"_s, u"Hits"_s);
        titled("no delimiter: artist and name alike", "DTITLE=Hits", u"Hits"_s, u"Hits"_s);
        titled("first delimiter counts", "DTITLE=A / B / C\r\n", u"A"_s, u"B / C"_s);
        titled("slash without blanks is no delimiter", "DTITLE=Ac/Dc\n", u"Ac/Dc"_s, u"Ac/Dc"_s);
        titled("title that begins with a blank is ignored", "DTITLE= Various / Hits\n", {}, {});
        titled("empty title is ignored", "DTITLE=\nDTITLE=Hits\n", {}, {});
        titled("further lines of a title are not joined", "DTITLE=Long /\nDTITLE= Name\n",
               u"Long /"_s, u"Long /"_s);
        titled("title is cleaned", "DTITLE=LANTERNS, THE / Greatest Hits**\n", u"The Lanterns"_s,
               u"Greatest Hits"_s);
        titled("nothing behind the key", "DTITLE=", {}, {});
        titled("keys are in capitals", "dtitle=A / B\n", {}, {});
        with("year and genre", "DYEAR=1998\rDGENRE=Folk / Rock\r", u"1998"_s, u"Folk/Rock"_s, {});
        with("empty year is none", "DYEAR=\nDGENRE=\n", {}, {}, {});
        with("year that begins with a blank counts", "DYEAR= 1998\n", u" 1998"_s, {}, {});
        with("tracks in the order of their numbers", "TTITLE1=Two\nTTITLE0=One\nTTITLE10=No\n", {},
             {}, {u"One"_s, u"Two"_s});
        with("missing number ends the list", "TTITLE0=One\nTTITLE1=Two\nTTITLE3=Four\n", {}, {},
             {u"One"_s, u"Two"_s});
        with("empty title ends the list", "TTITLE0=One\nTTITLE1=\nTTITLE2=Three\n", {}, {},
             {u"One"_s});
        with("track title that begins with a blank counts", "TTITLE0= One\n", {}, {}, {u"One"_s});
        with("first line of a number counts", "TTITLE0=One\nTTITLE0=Uno\n", {}, {}, {u"One"_s});
        with("number written otherwise is another", "TTITLE00=No\nTTITLE=No\n", {}, {}, {});
        with("key behind half a key", "TTITLETTITLE0=One", {}, {}, {u"One"_s});
        with("no titles, no list", "EXTT0=x\n", {}, {}, {});
    }
    void fieldsAreRead()
    {
        QFETCH(QByteArray, record);
        QFETCH(QStringList, tracks);
        const AlbumInfo album = albumWithFreeDBData(record).value();
        QTEST(album.artist(), "artist");
        QTEST(album.name(), "name");
        QTEST(album.year(), "year");
        QTEST(album.genre(), "genre");
        QCOMPARE(album.trackNames().has_value(), !tracks.isEmpty());
        QCOMPARE(album.trackNames().value_or(QStringList()), tracks);
    }

    void endlessLineIsCut()
    {
        QCOMPARE(albumWithFreeDBData("DYEAR=" + QByteArray(10'000, '1'))->year()->size(), 4096);
    }

    void nothingWithoutData()
    {
        QVERIFY(!albumWithFreeDBData(QByteArrayView()));
        QVERIFY(!albumWithFreeDBData("").value().name());
    }

    void recordIsReadInItsEncoding()
    {
        QCOMPARE(albumWithFreeDBData("DTITLE=Caf\xE9")->name(), u"Café"_s);
        QCOMPARE(albumWithFreeDBData("DTITLE=Caf\xC3\xA9", u"UTF-8"_s)->name(), u"Café"_s);
    }

    /// Looking for each number from the front again would take minutes here.
    void endlessRecordIsReadOnceFromTheFront()
    {
        QByteArray record;
        for (int track = 0; record.size() < 2'000'000; ++track)
            record += "TTITLE" + QByteArray::number(track) + "=x\n";
        const int tracks = albumWithFreeDBData(record)->numberOfTracks();
        QVERIFY(tracks > 10'000 && tracks < 200'000);
    }
};

QTEST_GUILESS_MAIN(TestFreeDBRecord)
#include "tst_freedbrecord.moc"
