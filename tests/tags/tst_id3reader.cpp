#include "base/bytes.h"
#include "support/id3bytes.h"
#include "support/table.h"
#include "support/tempfiles.h"
#include "tags/genretable.h"
#include "tags/id3reader.h"
#include "tags/songbytes.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray deflated(const QByteArray &plain)
{
    return qCompress(plain).sliced(4);
}

/// The frames of the tag, and "!" after a problem; or why it cannot be read.
QString readTag(const QByteArray &bytes, const ReadOptions &options)
try {
    ID3Contents contents;
    ID3Reader::getAttributesFromID3v2(bytes, options, contents);
    return shown(contents.frames) + (contents.encounteredProblem ? u"!"_s : QString());
} catch (const MalformedData &malformed) {
    return malformed.reason();
}

const QByteArray title = frame("TIT2", "\0Song"_ba);
const QByteArray private300 = QByteArray(288, 'p'); // 288 has another sync-safe reading

} // namespace

class TestID3Reader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { GenreTable::install({u"Blues"_s, u"Rock"_s}); }
    void readsFrames_data();
    void readsFrames();
    void discards();
    void bombsAreRefused();
    void readsFiles_data();
    void readsFiles();
};

void TestID3Reader::readsFrames_data()
{
    const Table<QByteArray, QStringList, QString, QString> add("bytes", "logs", "inClassic",
                                                               "inStandard");
    const auto row = [&add](const char *name, const QByteArray &bytes, const char *inClassic,
                            const char *inStandard, const QStringList &logs = {}) {
        add(name, bytes, logs, QString::fromLatin1(inClassic), QString::fromLatin1(inStandard));
    };
    const auto both = [&row](const char *name, const QByteArray &bytes, const char *frames,
                             const QStringList &logs = {}) {
        row(name, bytes, frames, frames, logs);
    };
    const auto tagOf = [](int major, const char *id, const QByteArray &body, int flags = 0) {
        return id3Tag(major, major == 2 ? frame22(id, body) : frame(id, body, flags));
    };

    both("text, and padding after it", id3Tag(3, title + QByteArray(30, '\0')), "TIT2=Song");
    both("several strings, several frames",
         id3Tag(3, frame("TPE1", "\0A\0B\0"_ba) + frame("TPE1", "\0C"_ba)), "TPE1=A+B TPE1=C");
    both("TYER is stored as TDRC", tagOf(3, "TYER", "\0002004"_ba), "TDRC=2004");
    both("a single genre is expanded", tagOf(3, "TCON", "\0(1)"_ba), "TCON=Rock");
    both("several genres are not", tagOf(4, "TCON", "\0(1)\0(0)"_ba), "TCON=(1)+(0)");
    both("unknown frames with their flags", tagOf(3, "PRIV", "own"_ba, 0x4000), "PRIV=#40006f776e");
    both("unknown version", id3Tag(5, title), "cannot read ID3v2.5.0");
    both("no bytes at all", ""_ba, "");
    row("a picture of v2.2 in v2.3", tagOf(3, "PIC", "\0"_ba).insert(13, '\0'),
        "getAttributesFromID3v23", "PIC?=#000000",
        {u"classic: *** ID3v23 'PIC' recognized but no handler"_s});
    row("an ID of v2.2 in v2.3", tagOf(3, "TT2", "\0A"_ba).insert(13, '\0'), "TT2=A", "TIT2=A");

    row("a year of zeros is dropped", tagOf(3, "TYER", "\0000000"_ba), "", "TDRC=#00000030303030");
    row("a track of zero is dropped", tagOf(3, "TRCK", "\0000/12"_ba), "", "TRCK=#000000302f3132");
    row("an empty text is dropped", tagOf(3, "TIT2", "\0"_ba), "", "TIT2=#000000");
    row("empty lyrics", tagOf(3, "USLT", "\0engOnly\0"_ba), "", "USLT=#000000656e674f6e6c7900");
    row("a short picture is skipped", tagOf(3, "APIC", "\0\0\0\0"_ba), "", "APIC=#000000000000");
    row("a picture whose description has no encoding",
        tagOf(3, "APIC", "\x09image/png\0\3d\0\x89P"_ba), "[image]=0 bytes",
        "APIC=#000009696d6167652f706e67");
    row("a link to a picture", tagOf(3, "APIC", "\0-->\0\3\0url"_ba), "[image]=3 bytes",
        "APIC=#0000002d2d3e00030075726c");

    const char *privateAndTitle = "PRIV=#000070707070707070707070 TIT2=Song";
    both("plain sizes in v2.4", id3Tag(4, frame("PRIV", private300) + title), privateAndTitle);
    both("safe sizes in v2.3", id3Tag(3, safeFrame("PRIV", private300) + title), privateAndTitle);
    both("the last of v2.4, sizes ambiguous", id3Tag(4, title + safeFrame("PRIV", private300)),
         "TIT2=Song PRIV=#000070707070707070707070");
    both("a size that leads nowhere", id3Tag(3, title + "PRIV" + number(200) + "\0\0abc"_ba),
         "TIT2=Song PRIV=#0000616263!", {u"*** id3v23 'PRIV' invalid size (Song)"_s});
    both("a frame over the tag's end", id3Tag(3, title + "PRIV" + number(100) + "\0\0abc"_ba),
         "TIT2=Song!", {u"*** id3v23 'PRIV' overrun (Song)"_s});
    row("both readings of a v2.4 size fit",
        id3Tag(4,
               safeFrame("PRIV", QByteArray(256, 'p'))
                   + safeFrame("TIT2", '\0' + QByteArray(300, 'A'))),
        "PRIV=#000070707070707070707070 AAAA=#414141414141414141414141!",
        ("PRIV=#000070707070707070707070 TIT2=" + QByteArray(300, 'A')).constData(),
        {u"classic: *** id3v23 'AAAA' invalid size ((null))"_s});

    const QString unsynchronised = u"classic: *** ID3V2.4 UNSYNCHRONIZED ***"_s;
    row("an unsynchronised v2.3 tag",
        id3Tag(3, frame("PRIV", "\xFF\xE0"_ba).insert(11, '\0'), 0x80), "PRIV=#0000ff00",
        "PRIV=#0000ffe0", {unsynchronised});
    row("an unsynchronised v2.4 frame", tagOf(4, "APIC", "\0image/png\0\3\0\xFF\0\xE0"_ba, 0x0002),
        "[image]=3 bytes", "[image]=2 bytes");
    both("an unknown unsynchronised frame stays as it is",
         tagOf(4, "PRIV", "\xFF\0\xE0"_ba, 0x0002), "PRIV=#0002ff00e0");
    row("only the v2.4 tag says that its frames are unsynchronised",
        id3Tag(4, frame("PRIV", "\xFF\0\xE0"_ba), 0x80), "PRIV=#0000ff00e0", "PRIV=#0000ffe0",
        {unsynchronised});
    row("extended header of v2.4", id3Tag(4, "\0\0\0\6\1\0"_ba + title, 0x40), "", "TIT2=Song");
    both("extension of v2.3", id3Tag(3, "\0\0\0\6\0\0\0\0\0\0"_ba + title, 0x40), "TIT2=Song");
    both("extended header beyond the tag", id3Tag(3, number(5000) + title, 0x40), "!",
         {u"*** EXTENDER HEADER 5000 bytes ( >29, IGNORED ) ***"_s});
    row("data length indicator equal to the size",
        id3Tag(4, frame("PRIV", "\0\0\0\4"_ba, 1) + "body"), "PRIV=#0004626f6479",
        "PRIV=#000100000004", {u"classic: *** id3v23 'PRIV' length indicator used OK ((null))"_s});

    both("v2.2",
         id3Tag(2, frame22("TT2", "\0Song"_ba) + frame22("COM", "\0c"_ba) + QByteArray(20, '\0')),
         "TT2=Song COM=#0063");
    row("a repeated v2.2 text", id3Tag(2, frame22("TT2", "\0A"_ba) + frame22("TT2", "\0B"_ba)),
        "TT2=B", "TT2=A TT2=B");
    row("a v2.2 year that says nothing", tagOf(2, "TYE", "\000999"_ba), "", "TYE=#00393939");
    row("a v2.2 track that says nothing", tagOf(2, "TRK", "\0/3"_ba), "", "TRK=#002f33");
    row("a v2.2 frame of size 0", tagOf(2, "TT2", ""_ba), "", "TT2=#");
    both("a v2.2 frame over the tag's end is cut", id3Tag(2, "TT2\0\0\x09\0Ab"_ba), "TT2=Ab!");
    both("a v2.2 header at the end", id3Tag(2, frame22("TP1", "\0A"_ba) + "TT2\0\0\x09"_ba),
         "TP1=A!");
    row("a v2.2 link to a picture", tagOf(2, "PIC", "\0-->\3\0url"_ba), "[image]=3 bytes",
        "PIC=#002d2d3e030075726c");
    both("a v2.2 picture too short", tagOf(2, "PIC", "\0JPG"_ba), "getAttributesFromID3v22",
         {u"initWithID3v22Frame insufficient data"_s, u"ID3v22 PIC nil ((null)/(null))"_s});

    // Classic takes a packed body for text.
    const QByteArray packed = deflated("\0Song"_ba);
    row("compressed v2.3", tagOf(3, "TIT2", number(5) + packed, 0x80), "*", "TIT2=Song");
    row("compressed v2.4", tagOf(4, "TIT2", number(5) + packed, 0x09), "*", "TIT2=Song");
    row("grouped", tagOf(3, "TIT2", "g\0Song"_ba, 0x20), "*", "TIT2=#00206700536f6e67",
        {u"classic: id3v23StringsIn encoding 103 (no encoding byte)"_s});
    row("damaged compression is kept raw", tagOf(3, "TIT2", number(5) + "\0no"_ba, 0x80), "*",
        "TIT2=#008000000005006e6f!",
        {u"standard: *** id3v23 'TIT2' cannot be unpacked ((null))"_s});
    row("a claimed size is not believed", tagOf(3, "TIT2", number(0xFFFFFFFF) + packed, 0x80), "*",
        "TIT2=Song", {u"classic: id3v23StringsIn encoding 255 (no encoding byte)"_s});
}

void TestID3Reader::readsFrames()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, logs);
    QFETCH(QString, inClassic);
    for (const QString &dialect : {u"classic"_s, u"standard"_s}) {
        for (const QString &log : logs) {
            if (!log.contains(u": ") || log.startsWith(dialect))
                QTest::ignoreMessage(QtWarningMsg, qPrintable(log.section(u": "_s, -1)));
        }
        const bool isClassic = dialect == u"classic";
        const QString read =
            readTag(bytes, {.dialect = isClassic ? ID3Dialect::classic() : ID3Dialect::standard()});
        if (!isClassic)
            QTEST(read, "inStandard");
        else if (inClassic != u"*")
            QCOMPARE(read, inClassic);
    }
}

void TestID3Reader::discards()
{
    const ReadOptions regenerating{.dialect = ID3Dialect::standard(),
                                   .malformed = MalformedInfo::Discard,
                                   .unrecognized = UnrecognizedInfo::Discard};
    const QByteArray frames =
        title + frame("PRIV", "own") + frame("COMM", "c") + frame("TRCK", "\0000"_ba);
    QCOMPARE(readTag(id3Tag(3, frames), regenerating), u"TIT2=Song COMM=#000063"_s);
    QTest::ignoreMessage(QtWarningMsg, "*** id3v23 'COMM' invalid size (Song)");
    const QByteArray lost = title + "COMM" + number(200) + "\0\0abc"_ba;
    QCOMPARE(readTag(id3Tag(3, lost), regenerating), u"TIT2=Song!"_s);
    QTest::ignoreMessage(QtWarningMsg, "initWithID3v22Frame insufficient data");
    QTest::ignoreMessage(QtWarningMsg, "ID3v22 PIC nil ((null)/(null))");
    const QByteArray short22 = frame22("PIC", "\0JPG"_ba) + frame22("TT2", "\0A"_ba);
    QCOMPARE(readTag(id3Tag(2, short22), regenerating), u"TT2=A!"_s);
}

void TestID3Reader::bombsAreRefused()
{
    const ReadOptions standard{.dialect = ID3Dialect::standard()};
    const QByteArray bomb = number(1) + deflated(QByteArray(70 << 20, '\0'));
    QTest::ignoreMessage(QtWarningMsg, "*** id3v23 'TIT2' cannot be unpacked ((null))");
    QVERIFY(readTag(id3Tag(3, frame("TIT2", bomb, 0x80)), standard).startsWith(u"TIT2=#0080"));
    // What is inflated in vain counts as well: the last frame, which is sound, comes too late.
    const QByteArray vain = number(1) + deflated(QByteArray(33 << 20, '\0')).chopped(6);
    const QByteArray sound = frame("TPE1", number(5) + deflated("\0Band"_ba), 0x80);
    for (int i = 0; i < 2; ++i)
        QTest::ignoreMessage(QtWarningMsg, "*** id3v23 'TIT2' cannot be unpacked ((null))");
    QTest::ignoreMessage(QtWarningMsg, "*** id3v23 'TPE1' cannot be unpacked ((null))");
    const QByteArray tag = id3Tag(3, frame("TIT2", vain, 0x80).repeated(2) + sound);
    QVERIFY(readTag(tag, standard).contains(u"TPE1=#0080"));
    QCOMPARE(readTag(id3Tag(3, frame("PRIV", "").repeated(10'001)), {}), u"too many frames"_s);
}

void TestID3Reader::readsFiles_data()
{
    const Table<QByteArray, QString, QStringList> row("bytes", "frames", "logs");
    const auto field = [](const QByteArray &text) { return text.leftJustified(30, '\0'); };
    const QByteArray texts = "TAG" + field("Title ") + field("Artist") + field("Album");
    const QByteArray v11 = texts + "1001" + QByteArray(28, 'c') + "\0\7\1"_ba;
    row("ID3v2 alone", id3Tag(3, title) + QByteArray(200, 'a'), u"2.3.0 25 0 TIT2=Song"_s, {});
    row("ID3v1.1", QByteArray(200, 'a') + v11,
        QStringLiteral("1.1 0 128 TIT2=Title TPE1=Artist TALB=Album TDRC=1001 "
                       "COMM=#000000656e67006363636363 TRCK=7 TCON=Rock"),
        {});
    row("ID3v1, year not above 1000, unknown genre", texts + "1000" + QByteArray(28, '\0') + "xx\2",
        u"1.0 0 128 TIT2=Title TPE1=Artist TALB=Album"_s, {});
    row("both: nothing is taken from ID3v1", id3Tag(4, title) + QByteArray(200, 'a') + v11,
        u"2.4.0 25 128 TIT2=Song"_s, {});
    row("no tag", QByteArray(128, 'a'), u"none 0 0 "_s, {});
    row("127 bytes", QByteArray(127, 'a'), u"unreadable"_s,
        {u"MP3 only 127 bytes in %1"_s, u"%1: file too small"_s});
    row("a size of 6", id3Tag(3, QByteArray(6, '\0')) + QByteArray(200, 'a'), u"unreadable"_s,
        {u"MP3 tag length > file length: %1"_s, u"%1: bad size tag"_s});
    row("a size beyond the file", id3Tag(3, QByteArray(400, '\0')).first(300), u"unreadable"_s,
        {u"MP3 tag length > file length: %1"_s, u"%1: bad size tag"_s});
    row("a size that is not sync-safe is no tag",
        id3Tag(3, title).replace(6, 1, "\x80") + QByteArray(200, 'a'), u"none 0 0 "_s, {});
}

void TestID3Reader::readsFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, logs);
    QTemporaryDir folder;
    const QString path = folder.filePath(u"a.mp3"_s);
    writeFile(path, bytes);
    for (const QString &log : logs)
        QTest::ignoreMessage(QtWarningMsg, qPrintable(log.arg(path)));
    const auto contents = ID3Reader::contentsOf(*SongBytes::open(path), {});
    QString read = u"unreadable"_s;
    if (contents)
        read = u"%1 %2 %3 "_s.arg(contents->readVersion.value_or(u"none"_s))
                   .arg(contents->id3v2Range.length)
                   .arg(contents->id3v1Range.length)
            + shown(contents->frames);
    QTEST(read, "frames");
}

QTEST_GUILESS_MAIN(TestID3Reader)
#include "tst_id3reader.moc"
