#include "support/cases.h"
#include "support/id3bytes.h"
#include "support/mp4bytes.h"
#include "support/tempfiles.h"
#include "tags/songbytes.h"
#include "tags/songlength.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

/// What a program of that name prints. A failure ends the test.
QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

/// Milliseconds; 0 for none.
qint64 lengthOfFile(const QString &path)
{
    const auto song = SongBytes::open(path);
    return song ? songLength(*song).value_or(std::chrono::milliseconds(0)).count() : -1;
}

QByteArray movieOf(const QByteArray &header)
{
    return atom("ftyp", "M4A ") + atom("moov", atom("free") + header)
        + atom("mdat", QByteArray(500, 'x'));
}

QByteArray movieHeader(quint32 unitsASecond, quint32 units)
{
    return atom("mvhd", QByteArray(12, '\0') + number(unitsASecond) + number(units));
}

QByteArray wideMovieHeader(quint32 unitsASecond, quint32 high, quint32 low)
{
    return atom("mvhd",
                '\1' + QByteArray(19, '\0') + number(unitsASecond) + number(high) + number(low));
}

/// A first frame with such counts, and `frames` more.
QByteArray counted(const QByteArray &counts, int frames)
{
    return mpegFrames(1).replace(36, counts.size(), counts) + mpegFrames(frames);
}

QByteArray xing(quint32 frames, quint32 bytes)
{
    return counted("Xing" + number(bytes > 0 ? 3 : 1) + number(frames) + number(bytes), 100);
}

} // namespace

class TestSongLength : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isThatOfFFprobe_data()
    {
        const Table<QString, QString, int> row("file", "options", "tagSize");
        addCases(row, "songlengths");
        row("behind a tag of 3 MB", u"a.mp3"_s, u"-ac 2 -q:a 3"_s, 3'000'000);
    }

    void isThatOfFFprobe()
    {
        QFETCH(QString, file);
        QFETCH(QString, options);
        QFETCH(int, tagSize);
        const QString path = mFolder.filePath(file);
        outputOf(u"ffmpeg"_s,
                 u"-v error -y -f lavfi -i anoisesrc=a=0.1:d=7.3"_s.split(u' ')
                     + options.split(u' ') + QStringList{path});
        if (tagSize > 0)
            writeFile(path, id3Tag(3, QByteArray(tagSize, '\0')) + fileContents(path));
        const QByteArray theirs =
            outputOf(u"ffprobe"_s,
                     u"-v error -show_entries format=duration -of csv=p=0"_s.split(u' ')
                         + QStringList{path});
        const double difference = double(lengthOfFile(path)) - 1000 * theirs.trimmed().toDouble();
        QVERIFY2(std::abs(difference) < 2, QByteArray::number(difference).constData());
    }

    void isReckoned_data()
    {
        const Table<QByteArray, qint64> row("bytes", "milliseconds");
        const QByteArray tag = id3Tag(4, QByteArray(2000, '\0'));
        row("frames alone", mpegFrames(100), 2606);
        row("behind two tags", tag + tag + mpegFrames(100), 2606);
        row("behind 100 kB of filler", QByteArray(100'000, '\xFF') + mpegFrames(100), 2606);
        row("frames too far in are not looked for", QByteArray(140'000, '\0') + mpegFrames(9), 0);
        row("two frames alone", mpegFrames(2), 52);
        row("two frames in noise are none", mpegFrames(2) + QByteArray(500, 'x'), 0);
        row("in front of an APE tag",
            mpegFrames(100) + QByteArray(80'000, 'a') + "APETAGEX" + QByteArray::fromHex("d0070000")
                + QByteArray::fromHex("a0380100") + QByteArray(16, '\0'),
            2606);
        row("the encoder's count", xing(98, 0), 2560);
        row("more frames than can be", xing(2'000'000'000, 0), 2632);
        row("no frames", xing(0, 0), 2632);
        row("the rest of a song that was cut", xing(1010, 10 * 101 * 417), 2638);
        row("two songs joined", xing(50, 101 * 417 / 2), 2612);
        row("VBRI", counted("VBRI" + QByteArray(6, '\0') + number(101 * 417) + number(98), 100),
            2560);
        row("a movie", movieOf(movieHeader(1000, 61'500)), 61'500);
        row("a movie of 64 bits", movieOf(wideMovieHeader(1000, 0, 61'500)), 61'500);
        row("a movie behind a tag", tag + movieOf(movieHeader(600, 600)), 1000);
        row("no units", movieOf(movieHeader(0, 61'500)), 0);
        row("an unknown length", movieOf(movieHeader(1, 0xFFFF'FFFF)), 0);
        row("longer than its bytes can be", movieOf(wideMovieHeader(1, 0x7FFF'FFFF, 0)), 0);
        row("a header cut short", movieOf(atom("mvhd", QByteArray(15, '\0'))), 0);
        row("no movie", atom("ftyp", "M4A ") + atom("mdat", mpegFrames(50)), 0);
        row("nothing", {}, 0);
    }

    void isReckoned()
    {
        QFETCH(QByteArray, bytes);
        const QString path = mFolder.filePath(u"song"_s);
        writeFile(path, bytes);
        QTEST(lengthOfFile(path), "milliseconds");
    }

private:
    QTemporaryDir mFolder;
};

QTEST_GUILESS_MAIN(TestSongLength)

#include "tst_songlength.moc"
