#include "support/id3bytes.h"
#include "support/table.h"
#include "support/tempfiles.h"
#include "tags/genretable.h"
#include "tags/tagfactory.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Kind = InPlaceFile::Outcome::Kind;

const QByteArray audio = mpegFrames(20);
const QByteArray tag22 = id3Tag(2, frame22("TT2", "\0Old"_ba) + frame22("TP1", "\0Band"_ba));
const QByteArray tag23 = id3Tag(3, frame("TIT2", "\0Old\0"_ba) + QByteArray(11, '\0'));
const QByteArray tag24 = id3Tag(4, frame("TIT2", "\0Old\0"_ba));
const QByteArray id3v1 =
    "TAGOld"_ba.leftJustified(93, '\0') + "1999by me"_ba.leftJustified(32, '\0') + "\0\x07\x01"_ba;
const QByteArray mp4Head = number(20) + "ftypM4A ";

WriteOptions optionsOf(bool standard)
{
    return {.dialect = standard ? ID3Dialect::standard() : ID3Dialect::classic(),
            .v24Sizes = FrameSizes::Accurate};
}

std::unique_ptr<MP3InfoTag> tagAt(const QString &path, bool standard)
{
    return tagOfFile(path, {.dialect = optionsOf(standard).dialect});
}

} // namespace

class tst_MP3InfoTag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { GenreTable::install({u"Blues"_s, u"Rock"_s}); }

    void settersOfEachVersion()
    {
        const auto framesAfter = [this](const QByteArray &front) {
            const auto tag = tagOfFile(fileWith(front + audio));
            for (const auto &year : {u"1999"_s, u"2007"_s}) {
                tag->setTitle(u"New"_s);
                tag->setYear(year);
                tag->setLyrics(year);
                tag->setIsPartOfCompilation(true);
            }
            return shown(tag->frames());
        };
        QCOMPARE(framesAfter(tag22), u"TT2=New TP1=Band TYE=2007 TCP=1 ULT=2007"_s);
        QCOMPARE(framesAfter(tag24), u"TIT2=New TDRC=2007 TCMP=1 USLT=2007"_s);
        // The first string is the field; what is emptied goes whole.
        const auto titles = frame("TIT2", "\0A\0B\0"_ba) + frame("TIT2", "\0C\0"_ba);
        QCOMPARE(framesAfter(id3Tag(3, titles)), u"TIT2=New TIT2=C TDRC=2007 TCMP=1 USLT=2007"_s);
        const auto tag =
            tagOfFile(fileWith(id3Tag(3, titles + frame("USLT", "\0eng\0x"_ba)) + audio));
        QCOMPARE(tag->title(), u"A"_s);
        tag->setTitle({});
        tag->setLyrics({});
        QVERIFY(tag->frames().isEmpty());
        tag->setIsPartOfCompilation(true);
        tag->setIsPartOfCompilation(false);
        QVERIFY(!tag->isPartOfCompilation());
    }

    void picturesComeBackAsTheyWere()
    {
        for (const QByteArray &front : {tag22, tag23, tag24}) {
            const QString path = fileWith(front + audio);
            const auto tag = tagAt(path, true);
            for (const auto &[type, description] :
                 {std::pair(3, u"vorn"_s), {4, u"Rückseite Ω\u4100\u0142"_s}}) {
                ID3Image image = ID3Image::imageWithData("\x89PNG\r\n\x1A\n\0x"_ba, u"image/png"_s);
                image.pictureType = type;
                image.description = description;
                tag->addImage(image);
            }
            tag->setBPM(u"96"_s);
            QCOMPARE(tag->modifySongFileAtPath(path, optionsOf(true)).kind, Kind::Written);
            auto read = tagAt(path, true)->images();
            for (ID3Image &image : read)
                image.textEncoding = 0;
            QCOMPARE(read, tag->images());
        }
    }

    void unchangedStandardTagsStayAsTheyAre()
    {
        const auto stays = [this](const QByteArray &tag) {
            const QString path = fileWith(tag + audio + id3v1);
            QCOMPARE(tagAt(path, true)->modifySongFileAtPath(path, optionsOf(true)).error,
                     QString());
            const QByteArray expected = tag + audio;
            QCOMPARE(fileContents(path).first(expected.size()).toHex(' '), expected.toHex(' '));
        };
        stays(id3Tag(2,
                     frame22("TT2", "\1\xFE\xFF\x03\xA9"_ba) + frame22("PIC", "\0PNG\3back\0x"_ba)
                         + frame22("PIC", "\0-->\3\0url"_ba) + frame22("PIC", "\0PNG\3ab\0"_ba)
                         + frame22("COM", "\0eng\0x"_ba) + frame22("TYE", "\0000"_ba)
                         + frame22("TT2", ""_ba) + frame22("TT2", "\0B"_ba)));
        const QByteArray notUnderstood = frame("TRCK", "\0000/12"_ba)
            + frame("USLT", "\0engOnly\0"_ba) + frame("APIC", "\0-->\0\3\0url"_ba)
            + frame("APIC", "\x09image/png\0\3d\0x"_ba) + frame("TXXX", "\0k\0v"_ba)
            + frame("COM", "\0eng\0c"_ba).insert(3, ' ') + frame("PIC", "\0\0x"_ba).insert(3, '\0')
            + frame("RVA2", "t\0\1\2"_ba);
        stays(id3Tag(3,
                     frame("PRIV", "own\0z"_ba, 0x4000) + frame("APIC", "\0image/png\0\3d\0x"_ba)
                         + frame("TIT2", "\1\xFE\xFF\x03\xA9\0\0"_ba) + notUnderstood
                         + frame("USLT", "\1eng\xFE\xFF\0\0\xFE\xFF\x03\xA9"_ba)
                         + frame("USLT", "\0\0\0\0\0la"_ba) + frame("PRIV", "o\0y"_ba)
                         + frame("TPE1", "e\0Band"_ba, 0x60)));
        stays(id3Tag(
            4, notUnderstood + frame("TPE1", "\0A\0B\0"_ba) + frame("TDRC", "\0002007\0"_ba)));
    }

    void filesAfterAWrite_data()
    {
        const Table<QByteArray, QString, QByteArray, QByteArray> row("file", "title", "classic",
                                                                     "standard");
        row("the last field is emptied", tag24 + audio, {}, "ID3\4\0\0\0\0\0\0"_ba + audio, audio);
        const QByteArray header = id3Tag(4, frame("TIT2", "\0Old\0"_ba), 0x10);
        const QByteArray footer = "3DI" + header.mid(3, 7);
        const QByteArray newTag = id3Tag(4, frame("TIT2", "\0New\0"_ba));
        row("a footer goes with its tag", header + footer + audio, u"New"_s,
            newTag + footer + audio, newTag + audio);
        row("audio is no footer", header + "3DI" + audio, u"New"_s, newTag + "3DI" + audio,
            newTag + "3DI" + audio);
        const QByteArray newV1 = QByteArray(id3v1).replace("Old", "New");
        row("what only ID3v1 holds stays", tag24 + audio + id3v1, u"New"_s,
            newTag + audio + "TAGNew"_ba.leftJustified(127, '\0') + '\xFF', newTag + audio + newV1);
        row("what is emptied goes from ID3v1", tag24 + audio + id3v1, {},
            "ID3\4\0\0\0\0\0\0"_ba + audio + "TAG"_ba.leftJustified(127, '\0') + '\xFF',
            audio + QByteArray(id3v1).replace("Old", "\0\0\0"_ba));
    }

    void filesAfterAWrite()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, title);
        for (const bool standard : {false, true}) {
            const QString path = fileWith(file);
            const auto tag = tagAt(path, standard);
            tag->setTitle(title);
            QCOMPARE(tag->modifySongFileAtPath(path, optionsOf(standard)).kind, Kind::Written);
            QTEST(fileContents(path), standard ? "standard" : "classic");
        }
    }

    void fileNamesReplaceNoTitleThatCannotBeRead()
    {
        const auto framesFrom = [this](const QByteArray &bytes) {
            const auto tag =
                tagWithPath(fileWith(bytes + audio), {.dialect = ID3Dialect::standard()});
            return shown(dynamic_cast<MP3InfoTag &>(*tag).frames());
        };
        QCOMPARE(framesFrom(id3Tag(3, frame("TIT2", "k\0"_ba, 0x40))), u"TIT2=#00406b00"_s);
        QCOMPARE(framesFrom(id3Tag(3, frame("TIT2", "\0"_ba))), u"TIT2=song"_s);
    }

    void id3v1InsideTheOtherTagIsNone()
    {
        const auto body = QByteArray(128, 'x') + "TAG" + QByteArray(125, 'x');
        const QString path = fileWith(id3Tag(3, frame("TIT2", '\0' + body)));
        const auto tag = tagOfFile(path);
        QCOMPARE(tag->id3v1Range(), ByteRange());
        tag->setTitle(u"Short"_s);
        QCOMPARE(tag->modifySongFileAtPath(path, {}).error, QString());
        QCOMPARE(fileContents(path), id3Tag(3, frame("TIT2", "\0Short\0"_ba)));
    }

    void changedFilesAreRefused()
    {
        const QString path = fileWith(tag24 + audio);
        const auto tag = tagOfFile(path);
        tag->setTitle(u"New"_s);
        const QByteArray beyondTheFile = tag24.first(8) + "\x7F\x7F"_ba + audio.first(200);
        const QByteArray unknownVersion = id3Tag(5, frame("TIT2", "\0Old\0"_ba)) + audio;
        for (const QByteArray &now : {audio.first(100), beyondTheFile, unknownVersion,
                                      mp4Head + audio, tag24 + mp4Head + audio}) {
            writeFile(path, now);
            const auto outcome = tag->modifySongFileAtPath(path, {});
            QCOMPARE(outcome.kind, Kind::Failed);
            QVERIFY(!outcome.error.isEmpty() && tag->tagHasBeenModified());
            QCOMPARE(fileContents(path), now);
        }
        const QString none = mFolder.filePath(u"none.mp3"_s);
        for (const QString &noFile : {mFolder.path(), none})
            QCOMPARE(tag->modifySongFileAtPath(noFile, {}).kind, Kind::Failed);
        QTest::ignoreMessage(QtWarningMsg, qPrintable(u"MP3 nil filehandle for "_s + none));
        QVERIFY(!tagWithPath(none, {}));
    }

private:
    [[nodiscard]] QString fileWith(const QByteArray &bytes) const
    {
        const QString path = mFolder.filePath(u"song.mp3"_s);
        writeFile(path, bytes);
        return path;
    }

    QTemporaryDir mFolder;
};

QTEST_GUILESS_MAIN(tst_MP3InfoTag)
#include "tst_mp3infotag.moc"
