#include "tags/mp3infotag.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_AudioInfoTag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void trackNumbers_data();
    void trackNumbers();
    void artistNames_data();
    void artistNames();
    void titleFromPathname_data();
    void titleFromPathname();
    void titleFromPathnameIsNoModification();
    void matchString_data();
    void matchString();
    void lazyTagsCountAsUnmodified();
    void playlistIndexNeedsAPlaylist();
    void imagesAreRemovedOneByOne();
};

void tst_AudioInfoTag::trackNumbers_data()
{
    QTest::addColumn<QString>("track");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("count");
    QTest::newRow("number and count") << u"7/12"_s << 7 << 12;
    QTest::newRow("number alone counts twice") << u"7"_s << 7 << 7;
    QTest::newRow("nothing before the slash") << u"/12"_s << 0 << 12;
    QTest::newRow("nothing behind the slash") << u"7/"_s << 7 << 7;
    QTest::newRow("absent") << u""_s << 0 << 0;
    QTest::newRow("blanks and signs") << u" +7/ -1"_s << 7 << -1;
    QTest::newRow("words") << u"A7"_s << 0 << 0;
    QTest::newRow("more than an int") << u"99999999999/1"_s << 2147483647 << 1;
}

void tst_AudioInfoTag::trackNumbers()
{
    QFETCH(QString, track);
    MP3InfoTag tag;
    tag.setTrack(track);
    QTEST(tag.trackNumber(), "number");
    QTEST(tag.numberOfTracksOnAlbum(), "count");
}

void tst_AudioInfoTag::artistNames_data()
{
    QTest::addColumn<QString>("artist");
    QTest::addColumn<QString>("normalized");
    QTest::addColumn<QString>("reversed");
    QTest::newRow("one word") << u"Sting"_s << u"Sting"_s << u"Sting"_s;
    QTest::newRow("article behind")
        << u"Lanterns, The"_s << u"The Lanterns"_s << u"Lanterns, The"_s;
    QTest::newRow("article in front")
        << u"The Lanterns"_s << u"The Lanterns"_s << u"Lanterns, The"_s;
    QTest::newRow("words behind the first name")
        << u"Smith, John Band"_s << u"John Smith Band"_s << u"Smith, John Band"_s;
    QTest::newRow("three words") << u"Nila van Oster"_s << u"Nila van Oster"_s
                                 << u"Oster, Nila van"_s;
    QTest::newRow("several blanks") << u"Smith,   John"_s << u"John Smith"_s << u"Smith,   John"_s;
    QTest::newRow("nothing behind the comma") << u"Smith,"_s << u" Smith"_s << u"Smith,"_s;
    QTest::newRow("blank at the end") << u"Smith "_s << u"Smith "_s << u", Smith"_s;
}

void tst_AudioInfoTag::artistNames()
{
    QFETCH(QString, artist);
    MP3InfoTag tag;
    QVERIFY(!tag.normalizedArtist() && !tag.reversedArtist());
    tag.setArtist(artist);
    QTEST(tag.normalizedArtist().value(), "normalized");
    QTEST(tag.reversedArtist().value(), "reversed");
}

void tst_AudioInfoTag::titleFromPathname_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("title");
    QTest::newRow("extension of three letters") << u"/music/01 Song.mp3"_s << u"01 Song"_s;
    QTest::newRow("longer extensions stay") << u"/music/  Intro.flac "_s << u"Intro.flac"_s;
    QTest::newRow("four characters stay") << u"/music/.mp3"_s << u".mp3"_s;
    QTest::newRow("five characters do not") << u"a.mp3"_s << u"a"_s;
}

void tst_AudioInfoTag::titleFromPathname()
{
    QFETCH(QString, path);
    MP3InfoTag tag;
    tag.gatherTagsFromPathname(path);
    QTEST(tag.title().value(), "title");
    tag.gatherTagsFromPathname(u"/another.mp3"_s);
    QTEST(tag.title().value(), "title");
}

void tst_AudioInfoTag::titleFromPathnameIsNoModification()
{
    MP3InfoTag tag;
    tag.gatherTagsFromPathname(u"/music/Song.mp3"_s);
    QVERIFY(!tag.tagHasBeenModified());
    tag.setArtist(u"Nila Oster"_s);
    QVERIFY(tag.tagHasBeenModified());
}

void tst_AudioInfoTag::matchString_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("matches");
    QTest::newRow("title") << u"HARBOUR"_s << true;
    QTest::newRow("artist") << u"oster"_s << true;
    QTest::newRow("album") << u"Sea"_s << true;
    QTest::newRow("genre") << u"folk"_s << true;
    QTest::newRow("year") << u"2007"_s << true;
    QTest::newRow("lyrics are not looked at") << u"la la"_s << false;
    QTest::newRow("nothing holds an empty text") << u""_s << false;
}

void tst_AudioInfoTag::matchString()
{
    QFETCH(QString, text);
    MP3InfoTag tag;
    tag.setTitle(u"Harbour Lights"_s);
    tag.setArtist(u"Nila Oster"_s);
    tag.setAlbum(u"Sea Songs"_s);
    tag.setGenres(u"Folk"_s);
    tag.setYear(u"2007"_s);
    tag.setLyrics(u"la la"_s);
    QTEST(tag.matchString(text), "matches");
    QVERIFY(!MP3InfoTag().matchString(text));
}

void tst_AudioInfoTag::lazyTagsCountAsUnmodified()
{
    MP3InfoTag tag;
    tag.setTitle(u"Song"_s);
    tag.setIsLazy(true);
    QVERIFY(tag.isLazy() && !tag.tagHasBeenModified());
    tag.setTitle(u"Song"_s);
    tag.setIsLazy(false);
    QVERIFY(!tag.isLazy() && tag.tagHasBeenModified());
}

void tst_AudioInfoTag::playlistIndexNeedsAPlaylist()
{
    MP3InfoTag tag;
    QCOMPARE(tag.playlistIndex(), 2147483647);
    tag.setPlayList(u"Evening"_s, 4);
    QCOMPARE(tag.playlistIndex(), 4);
    tag.setPlayList({}, 5);
    QCOMPARE(tag.playlistIndex(), 2147483647);
}

void tst_AudioInfoTag::imagesAreRemovedOneByOne()
{
    MP3InfoTag tag;
    QVERIFY(!tag.removeImageAtIndex(0) && !tag.tagHasBeenModified());
    for (const char *data : {"first", "second", "third"})
        QVERIFY(tag.addImage(ID3Image::imageWithData(data, u"image/png"_s)));
    QVERIFY(tag.removeImageAtIndex(1));
    QCOMPARE(tag.images().at(1).data, "third");
    tag.removeAllImages();
    QCOMPARE(tag.numberOfImages(), 0);
}

QTEST_GUILESS_MAIN(tst_AudioInfoTag)
#include "tst_audioinfotag.moc"
