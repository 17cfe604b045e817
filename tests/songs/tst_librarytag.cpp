#include "songs/librarytag.h"

#include <QTest>

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

    void numbers()
    {
        const auto yearAndTrack = [](QVariantMap track) {
            track.insert(u"Kind"_s, u"MPEG audio file"_s);
            const auto tag = tagWithiTunesTrackInfo(track);
            return tag->year().value_or(u"-"_s) + u' ' + tag->track().value_or(u"-"_s);
        };
        QCOMPARE(yearAndTrack({{u"Year"_s, 1}}), u"1 -"_s);
        QCOMPARE(yearAndTrack({{u"Year"_s, 2049LL}}), u"2049 -"_s);
        for (const int none : {0, 2050})
            QCOMPARE(yearAndTrack({{u"Year"_s, none}}), u"- -"_s);
        QCOMPARE(yearAndTrack({{u"Year"_s, u"1987 (live)"_s}}), u"1987 -"_s);
        QCOMPARE(yearAndTrack({{u"Track Number"_s, 3}, {u"Track Count"_s, 12}}), u"- 3/12"_s);
        QCOMPARE(yearAndTrack({{u"Track Number"_s, 5}, {u"Track Count"_s, 3}}), u"- 5"_s);
        QCOMPARE(yearAndTrack({{u"Track Number"_s, 0}, {u"Track Count"_s, 3}}), u"- -"_s);
    }
};

QTEST_GUILESS_MAIN(TestLibraryTag)
#include "tst_librarytag.moc"
