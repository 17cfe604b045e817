#include "songs/librarytag.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

class TestLibraryTag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsOfSongsAreTakenUnchanged()
    {
        const auto tag = tagWithiTunesTrackInfo({{u"Kind"_s, u"MPEG audio file"_s},
                                                 {u"Name"_s, u" Neon Rain"_s},
                                                 {u"Artist"_s, u"Lanterns, The"_s},
                                                 {u"Genre"_s, u"(17)"_s}});
        QVERIFY(tag);
        QCOMPARE(tag->title(), u" Neon Rain"_s);
        QCOMPARE(tag->artist(), u"Lanterns, The"_s);
        QVERIFY(tag->genres());
        QVERIFY(tag->isLazy());
        QVERIFY(!tag->tagHasBeenModified());
        QVERIFY(!tagWithiTunesTrackInfo({{u"Kind"_s, u"QuickTime movie file"_s}}));
        QVERIFY(!tagWithiTunesTrackInfo({{u"Name"_s, u"Neon Rain"_s}}));
    }

    void numbers_data()
    {
        const Table<QVariantMap, QString, QString> row("track", "year", "number");
        row("the first year that counts", {{u"Year"_s, 1}}, u"1"_s, {});
        row("the last year that counts", {{u"Year"_s, 2049LL}}, u"2049"_s, {});
        row("no year before", {{u"Year"_s, 0}}, {}, {});
        row("no year after", {{u"Year"_s, 2050}}, {}, {});
        row("a year as text", {{u"Year"_s, u"1987 (live)"_s}}, u"1987"_s, {});
        row("number and count", {{u"Track Number"_s, 3}, {u"Track Count"_s, 12}}, {}, u"3/12"_s);
        row("a count that cannot be", {{u"Track Number"_s, 5}, {u"Track Count"_s, 3}}, {}, u"5"_s);
        row("no number", {{u"Track Number"_s, 0}, {u"Track Count"_s, 3}}, {}, {});
    }

    void numbers()
    {
        QFETCH(QVariantMap, track);
        QFETCH(QString, year);
        QFETCH(QString, number);
        track.insert(u"Kind"_s, u"MPEG audio file"_s);
        const auto tag = tagWithiTunesTrackInfo(track);
        QVERIFY(tag);
        QCOMPARE(tag->year().value_or(QString()), year);
        QCOMPARE(tag->track().value_or(QString()), number);
    }
};

QTEST_GUILESS_MAIN(TestLibraryTag)
#include "tst_librarytag.moc"
