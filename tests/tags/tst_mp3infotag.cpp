#include "support/tempfiles.h"
#include "tags/genretable.h"
#include "tags/mp3infotag.h"

#include <QTemporaryDir>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Kind = InPlaceFile::Outcome::Kind;

const QByteArray audio = mpegFrames(20);
const auto tag22 = "ID3\2\0\0\0\0\0\x15TT2\0\0\x04\0OldTP1\0\0\x05\0Band"_ba;
const auto tag23 = "ID3\3\0\0\0\0\0\x1ATIT2\0\0\0\5\0\0\0Old\0\0\0\0\0\0\0\0\0\0\0\0"_ba;
const auto tag24 = "ID3\4\0\0\0\0\0\x0FTIT2\0\0\0\5\0\0\0Old\0"_ba;

QByteArray id3v1Tag()
{
    return "TAGOld"_ba + QByteArray(87, '\0') + "1999by me"_ba + QByteArray(23, '\0')
        + "\0\x07\x01"_ba;
}

WriteOptions optionsOf(bool standard)
{
    return {.dialect = standard ? ID3Dialect::standard() : ID3Dialect::classic(),
            .v24Sizes = FrameSizes::Accurate};
}

ReadOptions readOptionsOf(bool standard)
{
    return {.dialect = optionsOf(standard).dialect};
}

} // namespace

class tst_MP3InfoTag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyFieldComesBack_data();
    void everyFieldComesBack();
    void settersOfEachVersion_data();
    void settersOfEachVersion();
    void firstStringIsTheField();
    void picturesComeBackAsTheyWere();
    void unchangedStandardTagsStayAsTheyAre_data();
    void unchangedStandardTagsStayAsTheyAre();
    void frontTagGoesWhenNoFieldIsLeft();
    void id3v1InsideTheOtherTagIsNone();
    void changedFilesAreRefused_data();
    void changedFilesAreRefused();
    void lockedFilesAreRefused();

private:
    [[nodiscard]] QString fileWith(const QByteArray &bytes) const
    {
        const QString path = mFolder.filePath(u"song.mp3"_s);
        writeFile(path, bytes);
        return path;
    }

    QTemporaryDir mFolder;
};

void tst_MP3InfoTag::initTestCase()
{
    GenreTable::install({u"Blues"_s, u"Rock"_s});
}

void tst_MP3InfoTag::everyFieldComesBack_data()
{
    QTest::addColumn<QByteArray>("front");
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QString>("version");
    for (const bool standard : {false, true}) {
        const char *dialect = standard ? "standard" : "classic";
        const auto row = [dialect](const char *name, const QByteArray &front, const QByteArray &end,
                                   const QString &version) {
            QTest::addRow("%s, %s", name, dialect) << front << end << version;
        };
        row("2.2", tag22, {}, u"2.2.0"_s);
        row("2.3", tag23, {}, u"2.3.0"_s);
        row("2.4", tag24, {}, u"2.4.0"_s);
        row("1.1", {}, id3v1Tag(), u"2.3.0"_s);
        row("2.3 and 1.1", tag23, id3v1Tag(), u"2.3.0"_s);
        row("none", {}, {}, u"2.3.0"_s);
    }
}

void tst_MP3InfoTag::everyFieldComesBack()
{
    QFETCH(QByteArray, front);
    QFETCH(QByteArray, end);
    QFETCH(QString, version);
    const bool standard = QByteArray(QTest::currentDataTag()).endsWith("standard");
    const QString path = fileWith(front + audio + end);
    const auto tag = MP3InfoTag::tagWithPath(path, readOptionsOf(standard));
    tag->setTitle(u"Süd"_s);
    tag->setArtist(u"Ωμέγα"_s);
    tag->setAlbum(u"夜"_s);
    tag->setYear(u"2007"_s);
    tag->setTrack(u"3/12"_s);
    tag->setGenres(u"Rock/Sea Song"_s);
    tag->setBPM(u"96"_s);
    tag->setLyrics(u"λα\nla la"_s);
    tag->setIsPartOfCompilation(true);
    tag->addImage(ID3Image::imageWithData(QByteArray(200'000, 'p'), u"image/png"_s));
    QCOMPARE(tag->modifySongFileAtPath(path, optionsOf(standard)).error, QString());
    QVERIFY(!tag->tagHasBeenModified());
    QCOMPARE(tag->writeVersion(), version);

    const auto again = MP3InfoTag::tagWithPath(path, readOptionsOf(standard));
    QCOMPARE(again->readVersion(), version);
    QCOMPARE(again->title(), tag->title());
    QCOMPARE(again->artist(), tag->artist());
    QCOMPARE(again->album(), tag->album());
    QCOMPARE(again->year(), tag->year());
    QCOMPARE(again->track(), tag->track());
    QCOMPARE(again->genres(), tag->genres());
    QCOMPARE(again->bpm(), tag->bpm());
    QCOMPARE(again->lyrics(), tag->lyrics());
    QVERIFY(again->isPartOfCompilation() && !again->encounteredProblemDecoding());
    QCOMPARE(again->images().value(0).data, tag->images().value(0).data);

    const QByteArray written = fileContents(path);
    QCOMPARE(written.mid(again->id3v2Range().length, audio.size()), audio);
    QCOMPARE(again->id3v1Range().length, end.size());
    QCOMPARE(written.size(), again->id3v2Range().length + audio.size() + end.size());
}

void tst_MP3InfoTag::settersOfEachVersion_data()
{
    QTest::addColumn<QByteArray>("front");
    QTest::addColumn<QStringList>("ids");
    QTest::newRow("2.2") << tag22 << QStringList{u"TT2"_s, u"TP1"_s, u"TYE"_s, u"TCP"_s, u"ULT"_s};
    QTest::newRow("2.4") << tag24 << QStringList{u"TIT2"_s, u"TDRC"_s, u"TCMP"_s, u"USLT"_s};
}

void tst_MP3InfoTag::settersOfEachVersion()
{
    QFETCH(QByteArray, front);
    const auto tag = MP3InfoTag::tagWithPath(fileWith(front + audio), {});
    for (const auto &year : {u"1999"_s, u"2007"_s}) {
        tag->setYear(year);
        tag->setLyrics(year);
        tag->setIsPartOfCompilation(true);
    }
    QStringList ids;
    for (const FrameStore::Entry &entry : tag->frames().entries())
        ids.append(entry.id);
    QTEST(ids, "ids");
    QCOMPARE(tag->lyrics(), u"2007"_s);
    tag->setTitle({});
    tag->setLyrics({});
    tag->setIsPartOfCompilation(false);
    QVERIFY(!tag->title() && !tag->lyrics() && !tag->isPartOfCompilation());
}

void tst_MP3InfoTag::firstStringIsTheField()
{
    const auto twoTitles = "TIT2\0\0\0\5\0\0\0A\0B\0TIT2\0\0\0\3\0\0\0C\0"_ba;
    const auto tag =
        MP3InfoTag::tagWithPath(fileWith("ID3\3\0\0\0\0\0\x1C"_ba + twoTitles + audio), {});
    QCOMPARE(tag->title(), u"A"_s);
    tag->setTitle(u"D"_s);
    QCOMPARE(tag->frames().entries().size(), 2U);
    QCOMPARE(tag->title(), u"D"_s);
    tag->setTitle({});
    QVERIFY(tag->frames().isEmpty());
}

void tst_MP3InfoTag::picturesComeBackAsTheyWere()
{
    const auto options = optionsOf(true);
    for (const QByteArray &front : {tag22, tag23, tag24}) {
        const QString path = fileWith(front + audio);
        const auto tag = MP3InfoTag::tagWithPath(path, readOptionsOf(true));
        for (const auto &[type, description] : {std::pair(3, u"vorn"_s), {4, u"Rückseite Ω"_s}}) {
            ID3Image image = ID3Image::imageWithData("\x89PNG\r\n\x1A\n\0x"_ba, u"image/png"_s);
            image.pictureType = type;
            image.description = description;
            tag->addImage(image);
        }
        tag->setBPM(u"96"_s);
        QCOMPARE(tag->modifySongFileAtPath(path, options).kind, Kind::Written);
        const auto again = MP3InfoTag::tagWithPath(path, readOptionsOf(true));
        QCOMPARE(again->numberOfImages(), 2);
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(again->images()[i].pictureType, tag->images()[i].pictureType);
            QCOMPARE(again->images()[i].description, tag->images()[i].description);
            QCOMPARE(again->images()[i].data, tag->images()[i].data);
        }
    }
}

void tst_MP3InfoTag::unchangedStandardTagsStayAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("tag");
    const auto row = [](const char *name, int major, const QByteArray &frames) {
        const char size[] = {static_cast<char>(frames.size() / 128),
                             static_cast<char>(frames.size() % 128)};
        QTest::newRow(name) << "ID3"_ba + static_cast<char>(major) + "\0\0\0\0"_ba
                + QByteArray(size, sizeof size) + frames;
    };
    row("2.2", 2, "TT2\0\0\x05\x01\xFE\xFF\x03\xA9PIC\0\0\x0B\0PNG\3back\0xCOM\0\0\6\0eng\0x"_ba);
    const auto frames23 = "PRIV\0\0\0\5\x40\0own\0zAPIC\0\0\0\x0F\0\0\0image/png\0\3d\0x"
                          "TIT2\0\0\0\7\0\0\1\xFE\xFF\x03\xA9\0\0TXXX\0\0\0\4\0\0\0k\0v"
                          "USLT\0\0\0\x0C\0\0\1eng\xFE\xFF\0\0\xFE\xFF\x03\xA9"
                          "COMM\0\0\0\6\0\0\0eng\0cPRIV\0\0\0\3\0\0o\0y"_ba;
    row("2.3", 3, frames23);
    const auto frames24 = "TPE1\0\0\0\5\0\0\0A\0B\0TDRC\0\0\0\6\0\0\0"
                          "2007\0"
                          "RVA2\0\0\0\4\0\0t\0\1\2PIC\0\0\0\0\1\0\0x"_ba;
    row("2.4", 4, frames24);
}

void tst_MP3InfoTag::unchangedStandardTagsStayAsTheyAre()
{
    QFETCH(QByteArray, tag);
    const QByteArray song = tag + audio + id3v1Tag();
    const QString path = fileWith(song);
    const auto read = MP3InfoTag::tagWithPath(path, readOptionsOf(true));
    const auto outcome = read->modifySongFileAtPath(path, optionsOf(true));
    QCOMPARE(outcome.error, QString());
    const qsizetype tagAndAudio = tag.size() + audio.size();
    QCOMPARE(fileContents(path).first(tagAndAudio).toHex(' '), song.first(tagAndAudio).toHex(' '));
}

void tst_MP3InfoTag::frontTagGoesWhenNoFieldIsLeft()
{
    for (const bool standard : {false, true}) {
        const QString path = fileWith(tag24 + audio);
        const auto tag = MP3InfoTag::tagWithPath(path, readOptionsOf(standard));
        tag->setTitle({});
        QCOMPARE(tag->modifySongFileAtPath(path, optionsOf(standard)).kind, Kind::Written);
        QCOMPARE(fileContents(path), (standard ? ""_ba : "ID3\4\0\0\0\0\0\0"_ba) + audio);
    }
}

void tst_MP3InfoTag::id3v1InsideTheOtherTagIsNone()
{
    const auto frame =
        "TIT2\0\0\1\1\0\0\0"_ba + QByteArray(128, 'x') + "TAG"_ba + QByteArray(125, 'x');
    const QString path = fileWith("ID3\3\0\0\0\0\2\x0B"_ba + frame);
    const auto tag = MP3InfoTag::tagWithPath(path, {});
    QCOMPARE(tag->id3v1Range(), ByteRange());
    tag->setTitle(u"Short"_s);
    QCOMPARE(tag->modifySongFileAtPath(path, {}).error, QString());
    QCOMPARE(fileContents(path), "ID3\3\0\0\0\0\0\x11TIT2\0\0\0\7\0\0\0Short\0"_ba);
}

void tst_MP3InfoTag::changedFilesAreRefused_data()
{
    QTest::addColumn<QByteArray>("now");
    QTest::newRow("cut short") << audio.first(100);
    QTest::newRow("tag longer than the file") << tag24.first(8) + "\x7F\x7F"_ba + audio.first(200);
    QTest::newRow("unknown version") << "ID3\5\0\0\0\0\0\x0F"_ba + audio;
    QTest::newRow("MP4") << "\0\0\0\x14"
                            "ftypM4A "_ba
            + audio;
    QTest::newRow("MP4 behind a tag") << tag24
            + "\0\0\0\x14"
              "ftypM4A "_ba
            + audio;
}

void tst_MP3InfoTag::changedFilesAreRefused()
{
    QFETCH(QByteArray, now);
    const QString path = fileWith(tag24 + audio);
    const auto tag = MP3InfoTag::tagWithPath(path, {});
    tag->setTitle(u"New"_s);
    writeFile(path, now);
    const auto outcome = tag->modifySongFileAtPath(path, {});
    QCOMPARE(outcome.kind, Kind::Failed);
    QVERIFY(!outcome.error.isEmpty() && tag->tagHasBeenModified());
    QCOMPARE(fileContents(path), now);
}

void tst_MP3InfoTag::lockedFilesAreRefused()
{
    MP3InfoTag tag;
    tag.setTitle(u"New"_s);
    QCOMPARE(tag.modifySongFileAtPath(mFolder.path(), {}).kind, Kind::Failed);
    QCOMPARE(tag.modifySongFileAtPath(mFolder.filePath(u"none.mp3"_s), {}).kind, Kind::Failed);
}

QTEST_GUILESS_MAIN(tst_MP3InfoTag)
#include "tst_mp3infotag.moc"
