#include "support/tempfiles.h"
#include "tags/filetype.h"
#include "tags/id3reader.h"

#include <QTemporaryDir>
#include <QTest>

class TestID3Reader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsASong();
};

void TestID3Reader::readsASong()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.mp3"));
    writeFile(path,
              QByteArray("ID3\x03\0\0\0\0\0\x0f"
                         "TIT2\0\0\0\x05\0\0\0Song",
                         25)
                  + mpegFrames(50));
    const auto song = SongBytes::open(path);
    QVERIFY(song);
    QCOMPARE(FileType::songDataType(*song), FileType::SongDataType::MPEGAudio);
    const auto contents = ID3Reader::contentsOf(*song, {});
    QVERIFY(contents);
    QCOMPARE(contents->frames.firstStringForFrameID(u"TIT2", u"TT2"), QStringLiteral("Song"));
    QCOMPARE(contents->readVersion, QStringLiteral("2.3.0"));
}

QTEST_GUILESS_MAIN(TestID3Reader)
#include "tst_id3reader.moc"
