#include "support/id3bytes.h"
#include "support/table.h"
#include "tags/genretable.h"
#include "tags/id3v1writer.h"
#include "tags/id3writer.h"

using namespace Qt::StringLiterals;
using std::optional;

namespace {

using Entries = std::vector<FrameStore::Entry>;

FrameStore storeOf(const Entries &entries)
{
    FrameStore store;
    for (const auto &entry : entries)
        store.addObject(entry.content, entry.id);
    return store;
}

FrameStore::Entry text(const QString &id, const QString &string)
{
    return {id, QStringList(string)};
}

FrameStore::Entry picture(const QByteArray &data, const QString &mimeType, int type = 0,
                          const optional<QString> &description = {})
{
    ID3Image image = ID3Image::imageWithData(data, mimeType);
    image.pictureType = type;
    image.description = description;
    return {audioImageFrame, image};
}

const WriteOptions classic;
const WriteOptions standard{.dialect = ID3Dialect::standard()};
const WriteOptions accurate{.v24Sizes = FrameSizes::Accurate};
const WriteOptions standardAccurate{.dialect = ID3Dialect::standard(),
                                    .v24Sizes = FrameSizes::Accurate};

TagPieces::Made made(const FrameStore &store, int major, const WriteOptions &options)
{
    using ID3Writer::Version;
    if (major == 2)
        return ID3Writer::dataForID3v22(store, options);
    return ID3Writer::dataForID3V23orV24(store, major == 4 ? Version::V24 : Version::V23, options);
}

} // namespace

class tst_ID3Writer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { GenreTable::install({u"Blues"_s, u"Rock"_s, u"Rock/Pop"_s}); }

    void frames_data()
    {
        const Table<FrameStore, int, WriteOptions, QByteArray> add("store", "major", "options",
                                                                   "expected");
        const auto row = [&add](const char *name, const Entries &entries, int major,
                                const WriteOptions &options, const QByteArray &frames) {
            add(name, storeOf(entries), major, options, id3Tag(major, frames));
        };
        const Entries title{text(u"TIT2"_s, u"Süd"_s)};
        const QByteArray titleFrame = frame("TIT2", u"\0Süd\0"_s.toLatin1());
        row("2.3 text in Latin-1", title, 3, classic, titleFrame);
        row("2.2 text in Latin-1 has no terminator", {text(u"TT2"_s, u"Sü"_s)}, 2, classic,
            "TT2\0\0\x03\0S\xFC"_ba);
        row("2.3 without frames", {}, 3, classic, {});

        const Entries names{{u"TPE1"_s, QStringList{u"Ab"_s, u"Ω"_s}}};
        const auto bigEndian = "TPE1\0\0\0\x0B\0\0\x02\0A\0b\0\0\x03\xA9\0\0"_ba;
        row("2.3 classic Unicode has encoding 2", names, 3, classic, bigEndian);
        row("2.4 Unicode has encoding 2", names, 4, standard, bigEndian);
        row("2.3 standard Unicode has marks", names, 3, standard,
            frame("TPE1", "\1\xFE\xFF\0A\0b\0\0\xFE\xFF\x03\xA9\0\0"_ba));
        const Entries names22{{u"TP1"_s, QStringList{u"Ω"_s, u"Ab"_s}}};
        row("2.2 classic Unicode: no mark", names22, 2, classic, frame22("TP1", "\1\x03\xA9"_ba));
        row("2.2 standard Unicode", names22, 2, standard, frame22("TP1", "\1\xFE\xFF\x03\xA9"_ba));

        const Entries year{text(u"TDRC"_s, u"2007"_s)};
        row("2.3 year is TYER", year, 3, standard, frame("TYER", "\0002007\0"_ba));
        row("2.4 year is TDRC", year, 4, standard, frame("TDRC", "\0002007\0"_ba));

        row("lyrics", {{u"USLT"_s, TextBlock{u"la"_s, u"d"_s, u"deu"_s}}}, 3, classic,
            "USLT\0\0\0\x08\0\0\0deud\0la"_ba);
        row("lyrics without language", {{u"USLT"_s, TextBlock{u"la"_s, {}, {}}}}, 4, classic,
            frame("USLT", "\0eng\0la"_ba));
        row("lyrics with an odd language", {{u"ULT"_s, TextBlock{u"la"_s, {}, u"en"_s}}}, 2,
            classic, frame22("ULT", "\0\0\0\0\0la"_ba));
        const TextBlock greek{u"Ω"_s, {}, u"gre"_s};
        row("2.3 classic", {{u"USLT"_s, greek}}, 3, classic, frame("USLT", "\2gre\0\0\x03\xA9"_ba));
        row("2.3 standard Unicode lyrics", {{u"USLT"_s, greek}}, 3, standard,
            frame("USLT", "\1gre\xFE\xFF\0\0\xFE\xFF\x03\xA9"_ba));
        row("2.2 classic lyrics", {{u"ULT"_s, greek}}, 2, classic,
            "ULT\0\0\x08\1gre\0\0\x03\xA9"_ba);

        row("raw frames keep their flags", {{u"PRIV"_s, "\x40\x20own\0er"_ba}}, 3, classic,
            frame("PRIV", "own\0er"_ba, 0x4020));
        row("2.2 raw frames", {{u"COM"_s, "\0engx"_ba}}, 2, classic, frame22("COM", "\0engx"_ba));
        const Entries mixed{text(u"TT2"_s, u"a"_s), text(u"TIT2"_s, u"b"_s)};
        row("2.3 leaves out IDs of three characters", mixed, 3, classic, frame("TIT2", "\0b\0"_ba));
        row("2.2 leaves out IDs of four characters", mixed, 2, standard, frame22("TT2", "\0a"_ba));
        row("short IDs are filled up where nothing is lost", {{u"XY"_s, "\0\0z"_ba}}, 3, standard,
            "XY\0\0\0\0\0\x01\0\0z"_ba);

        const FrameStore::Entry noFlags{u"PRIV"_s, "x"_ba};
        row("2.3 unknown content leaves its ID", {noFlags, title[0]}, 3, classic,
            "PRIV" + titleFrame);
        row("2.3 unknown content is left out", {noFlags, title[0]}, 3, standard, titleFrame);
        row("2.2 text that is no Unicode leaves its ID behind",
            {text(u"TT2"_s, QString(QChar(0xD800)))}, 2, classic, "TT2"_ba);

        const Entries pictures{picture("two", u"image/png"_s, 3, u"front"_s), title[0]};
        row("classic pictures stand last, bare", pictures, 3, classic,
            titleFrame + "APIC\0\0\0\x10\0\0\0image/png\0\0\0two"_ba);
        row("standard pictures keep place and details", pictures, 3, standard,
            frame("APIC", "\0image/png\0\3front\0two"_ba) + titleFrame);
        row("2.2 pictures", {picture("two", u"image/jpeg"_s, 3, u"f"_s)}, 2, classic,
            "PIC\0\0\x09\0JPG\0\0two"_ba);
        row("2.2 standard pictures", {picture("two", u"image/jpeg"_s, 3, u"f"_s)}, 2, standard,
            frame22("PIC", "\0JPG\3f\0two"_ba));
        row("2.2 pictures without a format are left out", {picture("two", {})}, 2, classic, {});
        row("2.2 pictures without data go", {picture({}, u"image/png"_s)}, 2, classic, {});

        const QByteArray longBody = '\0' + QByteArray(200, 'x') + '\0';
        const Entries comment{text(u"TALB"_s, QString(200, u'x'))};
        row("2.4 plain sizes", comment, 4, standard, frame("TALB", longBody));
        row("2.4 accurate sizes", comment, 4, accurate, safeFrame("TALB", longBody));
        row("2.3 sizes are always plain", comment, 3, standardAccurate, frame("TALB", longBody));
        row("2.4 plain size of a picture", {picture(QByteArray(124, 'p'), {})}, 4, standard,
            frame("APIC", "\0\0\0\0"_ba + QByteArray(124, 'p')));
        row("2.4 accurate size of a picture", {picture(QByteArray(300, 'p'), u"image/png"_s)}, 4,
            accurate, "APIC\0\0\x02\x39\0\0\0image/png\0\0\0"_ba + QByteArray(300, 'p'));
    }

    void frames()
    {
        QFETCH(FrameStore, store);
        QFETCH(int, major);
        QFETCH(WriteOptions, options);
        QFETCH(QByteArray, expected);
        QCOMPARE(made(store, major, options).pieces.join().toHex(' '), expected.toHex(' '));
    }

    void bigPicturesAreNotCopiedTogether()
    {
        const QByteArray raw(1'000'000, 'r');
        const auto tag = made(storeOf({text(u"TIT2"_s, u"a"_s), {u"GEOB"_s, raw}}), 3, classic);
        QCOMPARE(tag.pieces.back().constData(), raw.constData());
        QCOMPARE(tag.pieces.join().mid(6, 4), "\0\x3D\x04\x55"_ba);
        QVERIFY2(made({}, 4, standard).pieces.isEmpty(), "a tag without frames is none");
    }

    void tooMuchIsRefused()
    {
        const QByteArray half(1 << 27, 'r');
        const FrameStore twoHalves = storeOf({{u"GEOB"_s, half}, {u"GEOB"_s, half}});
        for (const int major : {3, 4}) {
            const auto tag = made(twoHalves, major, standardAccurate);
            QVERIFY(tag.pieces.isEmpty() && !tag.error.isEmpty());
        }
        const QByteArray data(1 << 24, 'p');
        for (const auto &entry : {picture(data, u"image/png"_s), {u"GEO"_s, data}})
            QVERIFY(!made(storeOf({entry}), 2, classic).error.isEmpty());
        const auto largest = made(storeOf({{u"GEO"_s, data.chopped(1)}}), 2, classic);
        QCOMPARE(largest.pieces.join().mid(10, 6), "GEO\xFF\xFF\xFF"_ba);
    }

    void id3v11()
    {
        // Made is what stands from the year on; the comment, which is never filled, is left out.
        const auto tagOf = [](const Entries &entries, const WriteOptions &options = classic) {
            FrameStore store = storeOf(entries);
            store.addObject(QStringList{QString(40, u'é')}, u"TIT2"_s);
            store.addObject(QStringList{u"Ω Band"_s}, u"TPE1"_s);
            const QByteArray tag = ID3Writer::dataForID3v11(store, options.dialect, {});
            const auto texts =
                "TAG"_ba + QByteArray(30, '\xE9') + "? Band"_ba + QByteArray(54, '\0');
            const bool isRight = tag.startsWith(texts) && tag.mid(97, 28) == QByteArray(28, '\0');
            return isRight ? tag.mid(93, 4) + tag.mid(125) : tag;
        };
        const FrameStore::Entry track = text(u"TRCK"_s, u"3/12"_s);
        const FrameStore::Entry year = text(u"TDRC"_s, u"2007-05-01"_s);
        QCOMPARE(tagOf({year, track, text(u"TCON"_s, u"rock"_s)}), "2007\0\x03\x01"_ba);
        QCOMPARE(tagOf({text(u"TCO"_s, u"Blues/Rock"_s)}), "\0\0\0\0\0\0\0"_ba);
        QCOMPARE(tagOf({text(u"TCON"_s, u"Sea Song"_s)}), "\0\0\0\0\0\0\xFF"_ba);
        QCOMPARE(tagOf({track}), "\0\0\0\0\0\0\xFF"_ba); // no track without a year
        QCOMPARE(tagOf({track}, standard), "\0\0\0\0\0\x03\xFF"_ba);
        QCOMPARE(tagOf({year, text(u"TRCK"_s, u" 3"_s)}), "2007\0\0\xFF"_ba);
        QCOMPARE(tagOf({text(u"TYE"_s, u"1999"_s), text(u"TRK"_s, u"260"_s)}), "1999\0\x04\xFF"_ba);
    }

    void versionsAfterID3v1()
    {
        const auto versions = [](const Entries &entries) {
            const FrameStore store = storeOf(entries);
            return ID3Writer::writeVersion(store, u"1.0"_s, ID3Dialect::classic()) + u' '
                + ID3Writer::writeVersion(store, u"1.0"_s, ID3Dialect::standard());
        };
        const auto year = text(u"TDRC"_s, u"2007"_s);
        for (const Entries &fits :
             {Entries{text(u"TIT2"_s, u"Süd"_s), text(u"TRCK"_s, u"3"_s), year},
              {text(u"TCON"_s, u"ROCK"_s)},
              {text(u"TCON"_s, u"Rock/Pop"_s)},
              {}})
            QCOMPARE(versions(fits), u"1.1 1.1"_s);
        const Entries tooMuch{picture("x", u"image/png"_s),    text(u"TIT2"_s, QString(31, u'x')),
                              text(u"TPE1"_s, u"Ω"_s),         text(u"TDRC"_s, u"2007-"_s),
                              {u"COMM"_s, "\0\0\0eng\0x"_ba},  text(u"TRCK"_s, u"3/12"_s),
                              text(u"TCON"_s, u"Blues/Rock"_s)};
        for (const auto &entry : tooMuch)
            QCOMPARE(versions({entry}), u"2.3.0 2.3.0"_s);
        const Entries lostInSilence{{u"USLT"_s, TextBlock{u"la"_s, {}, {}}},
                                    text(u"TBPM"_s, u"96"_s),
                                    text(u"TCMP"_s, u"1"_s),
                                    text(u"TRCK"_s, u"256"_s)};
        for (const auto &entry : lostInSilence)
            QCOMPARE(versions({entry}), u"1.1 2.3.0"_s);
    }
};

QTEST_GUILESS_MAIN(tst_ID3Writer)
#include "tst_id3writer.moc"
