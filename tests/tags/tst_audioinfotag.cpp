#include "support/table.h"
#include "tags/mp3infotag.h"

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
    void matchString();
    void lazyTagsCountAsUnmodified();
    void playlistIndexNeedsAPlaylist();
    void imagesAreRemovedOneByOne();
};

void tst_AudioInfoTag::trackNumbers_data()
{
    const Table<QString, int, int> row("track", "number", "count");
    row("number and count", u"7/12"_s, 7, 12);
    row("number alone counts twice", u"7"_s, 7, 7);
    row("nothing before the slash", u"/12"_s, 0, 12);
    row("nothing behind the slash", u"7/"_s, 7, 7);
    row("absent", u""_s, 0, 0);
    row("blanks and signs", u" +7/ -1"_s, 7, -1);
    row("words", u"A7"_s, 0, 0);
    row("more than an int", u"99999999999/-99999999999"_s, 2147483647, -2147483647 - 1);
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
    const Table<QString, QString, QString> row("artist", "normalized", "reversed");
    row("one word", u"Sting"_s, u"Sting"_s, u"Sting"_s);
    row("article behind", u"Lanterns, The"_s, u"The Lanterns"_s, u"Lanterns, The"_s);
    row("article in front", u"The Lanterns"_s, u"The Lanterns"_s, u"Lanterns, The"_s);
    row("words behind the first name", u"Smith, John Band"_s, u"John Smith Band"_s,
        u"Smith, John Band"_s);
    row("three words", u"Nila van Oster"_s, u"Nila van Oster"_s, u"Oster, Nila van"_s);
    row("several blanks", u"Smith,   John"_s, u"John Smith"_s, u"Smith,   John"_s);
    row("nothing behind the comma", u"Smith,"_s, u" Smith"_s, u"Smith,"_s);
    row("blank at the end", u"Smith "_s, u"Smith "_s, u", Smith"_s);
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
    const Table<QString, QString> row("path", "title");
    row("extension of three letters", u"/music/01 Song.mp3"_s, u"01 Song"_s);
    row("longer extensions stay", u"/music/  Intro.flac "_s, u"Intro.flac"_s);
    row("four characters stay", u"/music/.mp3"_s, u".mp3"_s);
    row("five characters do not", u"a.mp3"_s, u"a"_s);
}

void tst_AudioInfoTag::titleFromPathname()
{
    QFETCH(QString, path);
    MP3InfoTag tag;
    tag.gatherTagsFromPathname(path);
    QVERIFY(!tag.tagHasBeenModified());
    QTEST(tag.title().value(), "title");
    tag.gatherTagsFromPathname(u"/another.mp3"_s);
    QTEST(tag.title().value(), "title");
}

void tst_AudioInfoTag::matchString()
{
    MP3InfoTag tag;
    tag.setTitle(u"Harbour Lights"_s);
    tag.setArtist(u"Nila Oster"_s);
    tag.setAlbum(u"Sea Songs"_s);
    tag.setGenres(u"Folk"_s);
    tag.setYear(u"2007"_s);
    tag.setLyrics(u"la la"_s);
    for (const auto &held : {u"HARBOUR"_s, u"oster"_s, u"Sea"_s, u"folk"_s, u"2007"_s}) {
        QVERIFY2(tag.matchString(held), qPrintable(held));
        QVERIFY(!MP3InfoTag().matchString(held));
    }
    QVERIFY2(!tag.matchString(u"la la"_s), "lyrics are not looked at");
    QVERIFY2(!tag.matchString(u""_s), "nothing holds an empty text");
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
