#include "support/id3bytes.h"
#include "support/table.h"
#include "support/tempfiles.h"
#include "tags/filetype.h"

using namespace Qt::StringLiterals;

namespace {

using FileType::SongDataType;
using enum SongDataType;

QByteArray id3v2(int major, int size)
{
    return id3Tag(major, QByteArray(size, 't'));
}

QByteArray mp4(int size)
{
    return "moovudtamdia" + QByteArray(size - 12, 'x');
}

} // namespace

class TestFileType : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sniffs_data()
    {
        const Table<QByteArray, SongDataType> row("bytes", "type");
        const QByteArray filler(8192, 'x');
        row("MPEG frames", mpegFrames(50), MPEGAudio);
        row("frames of another sample rate index", mpegFrames(50).replace('\x90', "\x9C"), Unknown);
        row("frames of bitrate 15 are none", mpegFrames(50).replace('\x90', "\xF0"), Unknown);
        row("too few frames", mpegFrames(20) + filler, Unknown);
        row("frames too far apart", (mpegFrames(1) + QByteArray(600, 'x')).repeated(400), Unknown);
        row("frames after filler, near at last", QByteArray(20'000, 'x') + mpegFrames(400),
            MPEGAudio);
        row("frames after an ID3v2 tag", id3v2(3, 30'000) + mpegFrames(400), MPEGAudio);
        row("frames after a tag of 380 kB are too far", id3v2(3, 380'000) + mpegFrames(2000),
            Unknown);
        row("a tag longer than the file is scanned",
            id3v2(3, 20).replace(7, 1, "\x7F") + mpegFrames(50), MPEGAudio);
        row("a tag of size 6 is scanned", id3v2(3, 6) + mpegFrames(50), MPEGAudio);
        row("4096 bytes", mp4(4096), Unknown);
        row("5000 bytes of MP4", mp4(5000), MP4);
        row("words in several blocks", "moov" + filler + "udta" + filler + "mdia" + filler, MP4);
        row("a word over the end of a block",
            QByteArray(4094, 'x') + mp4(5000).replace("udta", "xxxx") + filler, Unknown);
        row("a word at the last place that is looked at",
            "moovudta" + QByteArray(4091 - 8, 'x') + "mdia" + filler, MP4);
        row("a word further on", "moovudta" + QByteArray(4092 - 8, 'x') + "mdia" + filler, Unknown);
        row("the words with nine frames", mp4(12) + mpegFrames(9) + filler, MP4);
        row("the words with ten frames", mp4(12) + mpegFrames(10) + filler, Unknown);
        row("MP4 after 499,999 bytes", QByteArray(503'808, 'x') + mp4(9000), Unknown);
    }

    void sniffs()
    {
        QFETCH(QByteArray, bytes);
        writeFile(path(), bytes);
        QTEST(FileType::songDataType(*SongBytes::open(path())), "type");
    }

    void claims()
    {
        QVERIFY(FileType::claimsToBeMP3(u"/a/b.MP3") && FileType::claimsToBeMP3(u"b.x.mp2"));
        QVERIFY(!FileType::claimsToBeMP3(u"/a.mp3/b") && !FileType::claimsToBeMP3(u"/a/.mp3"));
        QVERIFY(FileType::claimsToBeAAC(u"b.m4P") && !FileType::claimsToBeAAC(u"b.mp4"));
        QVERIFY(FileType::claimsToBeOGG(u"b.Ogg"));
    }

    void removesStrayTags()
    {
        const auto removed = [this](const QByteArray &bytes, const QString &log) {
            writeFile(path(), bytes);
            if (!log.isEmpty())
                QTest::ignoreMessage(QtWarningMsg, qPrintable(log + path()));
            const bool isRemoved = FileType::removeID3v2TagFromFileAtPath(path(), KeepTime::No);
            const qsizetype length = bytes.size() - fileContents(path()).size();
            return isRemoved == (length > 0) && bytes.endsWith(fileContents(path())) ? length : -1;
        };
        QCOMPARE(removed(id3v2(4, 20) + "mp4", u"** Removed ID3 tag from AAC at "_s), 30);
        QVERIFY2(removed(id3v2(3, 20) + "mp4", {}) == 0, "only tags of v2.4 are removed");
        QCOMPARE(removed(id3v2(4, 20), u"removeID3 invalid tag size: "_s), 0);
        QCOMPARE(removed(id3v2(4, 0), u"removeID3 file only 10 bytes: "_s), 0);
        QCOMPARE(removed("moov, and more"_ba, {}), 0);
    }

    void readsStretches()
    {
        QByteArray bytes(200'000, '\0');
        for (qsizetype i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<char>(i * 7 + i / 251);
        QVERIFY(!SongBytes::open(mFolder.path()) && !SongBytes::open(path() + u"not there"_s));
        writeFile(path(), bytes);
        const auto song = SongBytes::open(path());
        using Stretch = std::pair<int, int>;
        for (const auto &[offset, length] :
             {Stretch(199'872, 128), Stretch(5, 100'000), Stretch(199'999, 10), Stretch(200'000, 1),
              Stretch(300'000, 1), Stretch(0, 500'000)}) {
            QCOMPARE(song->read(offset, length), bytes.mid(offset, length));
            QCOMPARE(song->view(offset, length).toByteArray(), bytes.mid(offset, length));
        }
    }

private:
    [[nodiscard]] QString path() const { return mFolder.filePath(u"song"_s); }
    QTemporaryDir mFolder;
};

QTEST_GUILESS_MAIN(TestFileType)
#include "tst_filetype.moc"
