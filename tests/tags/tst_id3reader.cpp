#include "base/bytes.h"
#include "support/bytesliteral.h"
#include "support/tempfiles.h"
#include "tags/genretable.h"
#include "tags/id3reader.h"
#include "tags/id3writer.h"
#include "tags/songbytes.h"
#include "tags/synchsafe.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

QByteArray number(quint32 value, int bytes = 4)
{
    ByteWriter writer;
    writer.u32(value);
    return writer.data().last(bytes);
}

QByteArray tag(int major, const QByteArray &frames, int flags = 0)
{
    const auto size = SynchSafe::synchSafe(static_cast<quint32>(frames.size()));
    return "ID3" + QByteArray(1, char(major)) + '\0' + char(flags) + number(size) + frames;
}

QByteArray frame(const char *id, const QByteArray &body, int flags = 0)
{
    return id + number(quint32(body.size())) + number(quint32(flags), 2) + body;
}

QByteArray safeFrame(const char *id, const QByteArray &body, int flags = 0)
{
    const auto size = SynchSafe::synchSafe(static_cast<quint32>(body.size()));
    return id + number(size) + number(quint32(flags), 2) + body;
}

QByteArray frame22(const char *id, const QByteArray &body)
{
    return id + number(quint32(body.size()), 3) + body;
}

QByteArray deflated(const QByteArray &plain)
{
    return qCompress(plain).sliced(4);
}

QString shown(const FrameContent &content)
{
    if (const auto *strings = std::get_if<QStringList>(&content))
        return strings->join(u'+');
    if (const auto *block = std::get_if<TextBlock>(&content))
        return block->text.value_or(QString());
    if (const auto *image = std::get_if<ID3Image>(&content))
        return QStringLiteral("%1 bytes").arg(image->data.size());
    return u'#' + QString::fromLatin1(std::get<QByteArray>(content).left(12).toHex());
}

/// The frames of the tag, its version and "!" after a problem; or why it cannot be read.
QString readTag(const QByteArray &bytes, const ReadOptions &options)
try {
    ID3Contents contents;
    ID3Reader::getAttributesFromID3v2(bytes, options, contents);
    QStringList lines;
    for (const auto &[id, content] : contents.frames.entries())
        lines +=
            QStringLiteral("%1=%2").arg(QString(id).replace(QChar::Null, u'?'), shown(content));
    return lines.join(u' ') + (contents.encounteredProblem ? QStringLiteral("!") : QString());
} catch (const MalformedData &malformed) {
    return malformed.reason();
}

const QByteArray title = frame("TIT2", "\0Song"_bytes);
const QByteArray private300 = QByteArray(288, 'p'); // 288 has another sync-safe reading

} // namespace

class TestID3Reader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void readsFrames_data();
    void readsFrames();
    void discards();
    void standardWritesEveryFrameBack();
    void bombsAreRefused();
    void readsFiles_data();
    void readsFiles();
};

void TestID3Reader::initTestCase()
{
    GenreTable::install({QStringLiteral("Blues"), QStringLiteral("Rock")});
}

void TestID3Reader::readsFrames_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("logs");
    QTest::addColumn<QString>("inClassic");
    QTest::addColumn<QString>("inStandard");
    const auto row = [](const char *name, const QByteArray &bytes, const char *inClassic,
                        const char *inStandard, const QStringList &logs = {}) {
        QTest::newRow(name) << bytes << logs << QString::fromLatin1(inClassic)
                            << QString::fromLatin1(inStandard);
    };
    const auto both = [&row](const char *name, const QByteArray &bytes, const char *frames) {
        row(name, bytes, frames, frames);
    };

    both("text, and padding after it", tag(3, title + QByteArray(30, '\0')), "TIT2=Song");
    both("several strings, several frames",
         tag(3, frame("TPE1", "\0A\0B\0"_bytes) + frame("TPE1", "\0C"_bytes)), "TPE1=A+B TPE1=C");
    both("TYER is stored as TDRC", tag(3, frame("TYER", "\0002004"_bytes)), "TDRC=2004");
    both("a single genre is expanded", tag(3, frame("TCON", "\0(1)"_bytes)), "TCON=Rock");
    both("several genres are not", tag(4, frame("TCON", "\0(1)\0(0)"_bytes)), "TCON=(1)+(0)");
    both("unknown frames with their flags", tag(3, frame("PRIV", "own"_bytes, 0x4000)),
         "PRIV=#40006f776e");
    both("lyrics", tag(3, frame("USLT", "\0eng\0Words"_bytes)), "USLT=Words");
    both("picture", tag(3, frame("APIC", "\0image/png\0\3\0\x89P"_bytes)), "[image]=2 bytes");
    both("plain sizes in v2.4", tag(4, frame("PRIV", private300) + title),
         "PRIV=#000070707070707070707070 TIT2=Song");
    both("unknown version", tag(5, title), "cannot read ID3v2.5.0");
    both("no bytes at all", ""_bytes, "");
    row("a picture of v2.2 in v2.3", tag(3, frame("PIC", "\0"_bytes).insert(3, '\0')),
        "getAttributesFromID3v23", "PIC?=#000000",
        {QStringLiteral("classic: *** ID3v23 'PIC' recognized but no handler")});

    row("a year of zeros is dropped", tag(3, frame("TYER", "\0000000"_bytes)), "",
        "TDRC=#00000030303030");
    row("a track of zero is dropped",
        tag(3, frame("TRCK", "\0000/12"_bytes) + frame("TRCK", "\0003/12"_bytes)), "TRCK=3/12",
        "TRCK=#000000302f3132 TRCK=3/12");
    row("an empty text is dropped", tag(3, frame("TIT2", "\0"_bytes)), "", "TIT2=#000000");
    row("lyrics without text are dropped", tag(3, frame("USLT", "\0engOnly\0"_bytes)), "",
        "USLT=#000000656e674f6e6c7900");
    row("a short picture is skipped", tag(3, frame("APIC", "\0\0\0\0"_bytes)), "",
        "APIC=#000000000000");
    row("a link to a picture", tag(3, frame("APIC", "\0-->\0\3\0url"_bytes)), "[image]=3 bytes",
        "APIC=#0000002d2d3e00030075726c");
    row("an ID of v2.2 in v2.3", tag(3, frame("TT2", "\0A"_bytes).insert(3, '\0')), "TT2=A",
        "TIT2=A");

    row("sync-safe sizes in v2.3", tag(3, safeFrame("PRIV", private300) + title),
        "PRIV=#000070707070707070707070 TIT2=Song", "PRIV=#000070707070707070707070 TIT2=Song");
    row("the last of v2.4, sizes ambiguous", tag(4, title + safeFrame("PRIV", private300)),
        "TIT2=Song PRIV=#000070707070707070707070", "TIT2=Song PRIV=#000070707070707070707070");
    row("a size that leads nowhere", tag(3, title + "PRIV" + number(200) + number(0, 2) + "abc"),
        "TIT2=Song PRIV=#0000616263!", "TIT2=Song PRIV=#0000616263!",
        {QStringLiteral("*** id3v23 'PRIV' invalid size (Song)")});
    row("a frame over the tag's end", tag(3, title + "PRIV" + number(100) + number(0, 2) + "abc"),
        "TIT2=Song!", "TIT2=Song!", {QStringLiteral("*** id3v23 'PRIV' overrun (Song)")});

    row("both readings of a v2.4 size fit",
        tag(4,
            safeFrame("PRIV", QByteArray(256, 'p'))
                + safeFrame("TIT2", '\0' + QByteArray(300, 'A'))),
        "PRIV=#000070707070707070707070 AAAA=#414141414141414141414141!",
        qPrintable(QStringLiteral("PRIV=#000070707070707070707070 TIT2=") + QString(300, u'A')),
        {QStringLiteral("classic: *** id3v23 'AAAA' invalid size ((null))")});
    row("an unsynchronised v2.3 tag",
        tag(3, frame("PRIV", "\xFF\xE0"_bytes).insert(11, '\0'), 0x80), "PRIV=#0000ff00",
        "PRIV=#0000ffe0", {QStringLiteral("classic: *** ID3V2.4 UNSYNCHRONIZED ***")});
    row("an unsynchronised v2.4 frame",
        tag(4, frame("APIC", "\0image/png\0\3\0\xFF\0\xE0"_bytes, 0x0002)), "[image]=3 bytes",
        "[image]=2 bytes");
    row("an unknown unsynchronised frame stays as it is",
        tag(4, frame("PRIV", "\xFF\0\xE0"_bytes, 0x0002)), "PRIV=#0002ff00e0", "PRIV=#0002ff00e0");
    row("only the v2.4 tag says that its frames are unsynchronised",
        tag(4, frame("PRIV", "\xFF\0\xE0"_bytes), 0x80), "PRIV=#0000ff00e0", "PRIV=#0000ffe0",
        {QStringLiteral("classic: *** ID3V2.4 UNSYNCHRONIZED ***")});
    row("extended header of v2.4", tag(4, "\0\0\0\6\1\0"_bytes + title, 0x40), "", "TIT2=Song");
    both("extended header of v2.3", tag(3, "\0\0\0\6\0\0\0\0\0\0"_bytes + title, 0x40),
         "TIT2=Song");
    row("extended header beyond the tag", tag(3, number(5000) + title, 0x40), "!", "!",
        {QStringLiteral("*** EXTENDER HEADER 5000 bytes ( >29, IGNORED ) ***")});
    row("data length indicator equal to the size",
        tag(4, frame("PRIV", "\0\0\0\4"_bytes, 1) + "body"), "PRIV=#0004626f6479",
        "PRIV=#000100000004",
        {QStringLiteral("classic: *** id3v23 'PRIV' length indicator used OK ((null))")});

    both(
        "v2.2",
        tag(2, frame22("TT2", "\0Song"_bytes) + frame22("COM", "\0c"_bytes) + QByteArray(20, '\0')),
        "TT2=Song COM=#0063");
    both("v2.2 picture and lyrics",
         tag(2, frame22("PIC", "\0JPG\3\0\xFF\xD8"_bytes) + frame22("ULT", "\0eng\0Words"_bytes)),
         "[image]=2 bytes ULT=Words");
    row("a repeated v2.2 text", tag(2, frame22("TT2", "\0A"_bytes) + frame22("TT2", "\0B"_bytes)),
        "TT2=B", "TT2=A TT2=B");
    row("v2.2 year and track that say nothing",
        tag(2, frame22("TYE", "\000999"_bytes) + frame22("TRK", "\0/3"_bytes)), "",
        "TYE=#00393939 TRK=#002f33");
    row("a v2.2 frame of size 0", tag(2, frame22("TT2", ""_bytes) + frame22("TP1", "\0A"_bytes)),
        "", "TT2=# TP1=A");
    both("a v2.2 frame over the tag's end is cut",
         tag(2, "TT2"_bytes + number(9, 3) + "\0Ab"_bytes), "TT2=Ab!");
    both("a v2.2 frame header at the tag's end",
         tag(2, frame22("TP1", "\0A"_bytes) + "TT2"_bytes + number(9, 3)), "TP1=A!");
    row("a v2.2 picture too short", tag(2, frame22("PIC", "\0JPG"_bytes)),
        "getAttributesFromID3v22", "getAttributesFromID3v22",
        {QStringLiteral("initWithID3v22Frame insufficient data"),
         QStringLiteral("ID3v22 PIC nil ((null)/(null))")});

    // Classic takes a packed body for text.
    const QByteArray packed = deflated("\0Song"_bytes);
    row("compressed v2.3", tag(3, frame("TIT2", number(5) + packed, 0x80)), "*", "TIT2=Song");
    row("compressed v2.4", tag(4, frame("TIT2", number(5) + packed, 0x09)), "*", "TIT2=Song");
    row("grouped", tag(3, frame("TIT2", "g\0Song"_bytes, 0x20)), "*", "TIT2=#00206700536f6e67",
        {QStringLiteral("classic: id3v23StringsIn encoding 103 (no encoding byte)")});
    row("damaged compression is kept raw", tag(3, frame("TIT2", number(5) + "\0no"_bytes, 0x80)),
        "*", "TIT2=#008000000005006e6f!",
        {QStringLiteral("standard: *** id3v23 'TIT2' cannot be unpacked ((null))")});
    row("a claimed size is not believed", tag(3, frame("TIT2", number(0xFFFFFFFF) + packed, 0x80)),
        "*", "TIT2=Song",
        {QStringLiteral("classic: id3v23StringsIn encoding 255 (no encoding byte)")});
}

void TestID3Reader::readsFrames()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, logs);
    for (const QString &dialect : {QStringLiteral("classic"), QStringLiteral("standard")}) {
        const bool isClassic = dialect == u"classic";
        for (QString log : logs) {
            const bool isForOne = log.startsWith(u"classic: ") || log.startsWith(u"standard: ");
            if (!isForOne || log.startsWith(dialect))
                QTest::ignoreMessage(QtWarningMsg,
                                     qPrintable(isForOne ? log.section(u' ', 1) : log));
        }
        const QString read =
            readTag(bytes, {.dialect = isClassic ? ID3Dialect::classic() : ID3Dialect::standard()});
        if (!isClassic)
            QTEST(read, "inStandard");
        else if (*static_cast<const QString *>(QTest::qData("inClassic", qMetaTypeId<QString>()))
                 != u"*")
            QTEST(read, "inClassic");
    }
}

void TestID3Reader::discards()
{
    const ReadOptions regenerating{.dialect = ID3Dialect::standard(),
                                   .malformed = MalformedInfo::Discard,
                                   .unrecognized = UnrecognizedInfo::Discard};
    const QByteArray frames =
        title + frame("PRIV", "own") + frame("COMM", "c") + frame("TRCK", "\0000"_bytes);
    QCOMPARE(readTag(tag(3, frames), regenerating), QStringLiteral("TIT2=Song COMM=#000063"));
    QTest::ignoreMessage(QtWarningMsg, "*** id3v23 'COMM' invalid size (Song)");
    QCOMPARE(readTag(tag(3, title + "COMM" + number(200) + number(0, 2) + "abc"), regenerating),
             QStringLiteral("TIT2=Song!"));
    QTest::ignoreMessage(QtWarningMsg, "initWithID3v22Frame insufficient data");
    QTest::ignoreMessage(QtWarningMsg, "ID3v22 PIC nil ((null)/(null))");
    QCOMPARE(
        readTag(tag(2, frame22("PIC", "\0JPG"_bytes) + frame22("TT2", "\0A"_bytes)), regenerating),
        QStringLiteral("TT2=A!"));
}

void TestID3Reader::standardWritesEveryFrameBack()
{
    const auto frames = [](const QByteArray &picture) {
        return frame("TRCK", "\0000/12"_bytes) + frame("USLT", "\0engOnly\0"_bytes)
            + frame("APIC", "\0-->\0\3\0url"_bytes) + picture + frame("TIT2", "e\0Song"_bytes, 0x60)
            + frame("TXXX", "\0a\0b"_bytes) + frame("COM", "\0eng\0c"_bytes).insert(3, ' ')
            + frame("TPE1", "\1\xFF\xFE\1A"_bytes);
    };
    const QByteArray frames22 = frame22("TYE", "\0000"_bytes) + frame22("TT2", ""_bytes)
        + frame22("PIC", "\0PNG\3ab\0"_bytes) + frame22("PIC", "\0PNG\3a\0\x89P"_bytes)
        + frame22("TT2", "\0A"_bytes) + frame22("TT2", "\0B"_bytes);
    const auto read = [](const QByteArray &bytes) {
        ID3Contents contents;
        ID3Reader::getAttributesFromID3v2(bytes, {.dialect = ID3Dialect::standard()}, contents);
        return contents.frames;
    };
    const WriteOptions options{.dialect = ID3Dialect::standard(), .v24Sizes = FrameSizes::Accurate};
    const auto written = [&options](const FrameStore &store, int major) {
        const auto made = major == 2
            ? ID3Writer::dataForID3v22(store, options)
            : ID3Writer::dataForID3V23orV24(
                store, major == 4 ? ID3Writer::Version::V24 : ID3Writer::Version::V23, options);
        return made.pieces.join();
    };
    // Each version's own way of writing such a description.
    const QByteArray pictures[]{"\1PNG\0\3\xFE\xFF\1A\0\0\x89P"_bytes,
                                "\2PNG\0\3\1A\0\0\x89P"_bytes};
    for (const int major : {2, 3, 4}) {
        const FrameStore store =
            read(tag(major, major == 2 ? frames22 : frames(frame("APIC", pictures[major - 3]))));
        QCOMPARE(store.entries().size(), major == 2 ? 6 : 8);
        QVERIFY(read(written(store, major)) == store);
    }
}

void TestID3Reader::bombsAreRefused()
{
    const QByteArray bomb = number(1) + deflated(QByteArray(70 << 20, '\0'));
    QTest::ignoreMessage(QtWarningMsg, "*** id3v23 'TIT2' cannot be unpacked ((null))");
    QVERIFY(readTag(tag(3, frame("TIT2", bomb, 0x80)), {.dialect = ID3Dialect::standard()})
                .startsWith(u"TIT2=#0080"));
    QCOMPARE(readTag(tag(3, frame("PRIV", "").repeated(10'001)), {}),
             QStringLiteral("too many frames"));
}

void TestID3Reader::readsFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("logs");
    QTest::addColumn<QString>("frames");
    const auto row = [](const char *name, const QByteArray &bytes, const QString &frames,
                        const QStringList &logs = {}) {
        QTest::newRow(name) << bytes << logs << frames;
    };
    const auto field = [](const QByteArray &text) { return text.leftJustified(30, '\0'); };
    const QByteArray texts = "TAG" + field("Title ") + field("Artist") + field("Album");
    const QByteArray v11 = texts + "1001" + QByteArray(28, 'c') + "\0\7\1"_bytes;
    row("ID3v2 alone", tag(3, title) + QByteArray(200, 'a'),
        QStringLiteral("2.3.0 25 0 TIT2=Song"));
    row("ID3v1.1", QByteArray(200, 'a') + v11,
        QStringLiteral("1.1 0 128 TIT2=Title TPE1=Artist TALB=Album TDRC=1001 "
                       "COMM=#000000656e67006363636363 TRCK=7 TCON=Rock"));
    row("ID3v1, year not above 1000, unknown genre", texts + "1000" + QByteArray(28, '\0') + "xx\2",
        QStringLiteral("1.0 0 128 TIT2=Title TPE1=Artist TALB=Album"));
    row("both: nothing is taken from ID3v1", tag(4, title) + QByteArray(200, 'a') + v11,
        QStringLiteral("2.4.0 25 128 TIT2=Song"));
    row("no tag", QByteArray(128, 'a'), QStringLiteral("none 0 0 "));
    row("127 bytes", QByteArray(127, 'a'), QStringLiteral("unreadable"),
        {QStringLiteral("MP3 only 127 bytes in %1"), QStringLiteral("%1: file too small")});
    row("a size of 6", tag(3, QByteArray(6, '\0')) + QByteArray(200, 'a'),
        QStringLiteral("unreadable"),
        {QStringLiteral("MP3 tag length > file length: %1"), QStringLiteral("%1: bad size tag")});
    row("a size beyond the file", tag(3, QByteArray(400, '\0')).first(300),
        QStringLiteral("unreadable"),
        {QStringLiteral("MP3 tag length > file length: %1"), QStringLiteral("%1: bad size tag")});
    row("a size that is not sync-safe is no tag",
        tag(3, title).replace(6, 1, "\x80") + QByteArray(200, 'a'), QStringLiteral("none 0 0 "));
}

void TestID3Reader::readsFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, logs);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.mp3"));
    writeFile(path, bytes);
    for (const QString &log : logs)
        QTest::ignoreMessage(QtWarningMsg, qPrintable(log.arg(path)));
    const auto contents = ID3Reader::contentsOf(*SongBytes::open(path), {});
    QString read = QStringLiteral("unreadable");
    if (contents) {
        QStringList frames;
        for (const auto &[id, content] : contents->frames.entries())
            frames += id + u'=' + shown(content);
        read = QStringLiteral("%1 %2 %3 ")
                   .arg(contents->readVersion.value_or(QStringLiteral("none")))
                   .arg(contents->id3v2Range.length)
                   .arg(contents->id3v1Range.length)
            + frames.join(u' ');
    }
    QTEST(read, "frames");
}

QTEST_GUILESS_MAIN(TestID3Reader)
#include "tst_id3reader.moc"
