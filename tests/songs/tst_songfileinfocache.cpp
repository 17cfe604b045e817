#include "songs/songfileinfocache.h"

#include "base/bytes.h"
#include "base/gzip.h"
#include "songs/cachedinfotag.h"
#include "support/songs.h"

#include <QCryptographicHash>
#include <QImage>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {
constexpr auto dialect = ID3Dialect::classic();

QByteArray sealed(const QByteArray &content)
{
    return "twsongs1" + QCryptographicHash::hash(content, QCryptographicHash::Sha1) + content;
}

CacheBucket bucketOf(const QString &path, const QString &title, qint64 madeAt)
{
    auto info = std::make_shared<CachedInfo>();
    info->title = title;
    info->madeAt = madeAt;
    return {{path, info}};
}
} // namespace

class TestSongFileInfoCache : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(mFolder->path()).mkpath(u"Music"_s));
        mPath = mFolder->filePath(u"Music/song.mp3"_s);
        mFile = mFolder->filePath(u"cache/793.cache"_s);
        mSong = writtenSong(mPath,
                            {.title = u"Neon Rain"_s,
                             .genres = u""_s,
                             .isCompilation = true,
                             .picture = plainPicture(300, 200)});
        mSong->infotag()->setLyrics(u"la la ключ\n"_s.repeated(400));
    }

    void summaryComesBackFromDisk()
    {
        const AudioInfoTag &real = *mSong->infotag();
        store();
        const auto tag = tagWithCachedInfo(stored());
        QVERIFY(tag && tag->isLazy() && !tag->tagHasBeenModified());
        QCOMPARE(tag->title(), real.title());
        QCOMPARE(tag->lyrics(), real.lyrics());
        QVERIFY(!tag->artist() && !tag->genres() && !tag->bpm());
        QCOMPARE(tag->readVersion(), real.readVersion());
        QVERIFY(tag->isPartOfCompilation());
        QCOMPARE(tag->numberOfImages(), 1);
        QVERIFY(tag->images().isEmpty());
        QCOMPARE(tag->imageIconNoLargerThan(500, 500), real.imageIconNoLargerThan(28, 14));
        QVERIFY(!tagWithCachedInfo(nullptr));
    }

    void cachedTagCannotBeChanged()
    {
        auto info = std::make_shared<CachedInfo>();
        info->numberOfArtworks = 2;
        const auto tag = tagWithCachedInfo(info);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Cannot mutate .*!$"_s));
        tag->setTitle(u"x"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Cannot mutate .*!$"_s));
        tag->removeAllImages();
        QCOMPARE(tag->numberOfImages(), 2);
        QVERIFY(!tag->title() && !tag->tagHasBeenModified());
    }

    void changedSongHasNoSummary()
    {
        store();
        QVERIFY(stored());
        SongFileInfoCache cache(mFolder->filePath(u"cache"_s));
        QVERIFY(!cache.infoForSongFileAtPath(mPath, ID3Dialect::standard()));
        struct stat before = {};
        QCOMPARE(::stat(mPath.toUtf8().constData(), &before), 0);
        const timespec times[] = {before.st_atim, before.st_mtim};
        QTest::qWait(20); // the file system's clock is coarse
        writeFile(mPath, fileContents(mPath));
        ::utimensat(AT_FDCWD, mPath.toUtf8().constData(), times, 0);
        QVERIFY(!stored()); // although the modification date is the old one
    }

    void damagedFileCostsOnlyTime()
    {
        store();
        const QByteArray sound = fileContents(mFile);
        QList<QByteArray> damaged{QByteArray(), sound + '\0', "twsongs9" + sound.mid(8)};
        for (qsizetype i = 0; i < sound.size(); i += 97)
            damaged << sound.first(i) << QByteArray(sound).replace(i, 1, "\x5c");
        for (const QByteArray &content : sealedDamage(sound.mid(28)))
            damaged << content;
        for (const QByteArray &file : damaged) {
            if (file == sound)
                continue;
            writeFile(mFile, file);
            QTest::ignoreMessage(QtWarningMsg, qPrintable(u"Couldn't unarchive %1"_s.arg(mFile)));
            QVERIFY(!stored());
        }
        QFile::remove(mFile);
        QCOMPARE(::mkfifo(qPrintable(mFile), 0600), 0); // whoever opened it would wait
        QTest::ignoreMessage(QtWarningMsg, qPrintable(u"Couldn't unarchive %1"_s.arg(mFile)));
        QVERIFY(!stored());
        QTest::ignoreMessage(QtWarningMsg, qPrintable(u"Couldn't unarchive %1"_s.arg(mFile)));
        store();
        QVERIFY(stored());
    }

    void fileOfAnotherVersionIsRebuilt()
    {
        store();
        const QByteArray version = TAGWRIGHT_VERSION;
        writeFile(mFile, sealed(fileContents(mFile).mid(28).replace(version, "9.9.9")));
        QTest::failOnWarning(QRegularExpression(u"."_s));
        QVERIFY(!stored());
        store();
        QVERIFY(stored());
    }

    /// Each of two programs keeps what the other stored; of one song, what was stored later.
    void twoProgramsShareTheFolder()
    {
        const QString other = mFolder->filePath(u"Music/other.mp3"_s);
        writtenSong(other, {.title = u"Other"_s});
        SongFileInfoCache first(mFolder->filePath(u"cache"_s));
        SongFileInfoCache second(mFolder->filePath(u"cache"_s));
        QVERIFY(!first.infoForSongFileAtPath(mPath, dialect));
        QVERIFY(!second.infoForSongFileAtPath(mPath, dialect));
        first.storeInfo(*summary(mPath), mPath);
        second.storeInfo(*summary(other), other);
        second.detach();
        first.detach();
        QVERIFY(stored() && stored(other));

        CacheBucket bucket = bucketOf(u"a"_s, u"ours"_s, 2);
        mergeInto(bucket, bucketOf(u"a"_s, u"earlier"_s, 1));
        QCOMPARE(bucket.value(u"a"_s)->title, u"ours"_s);
        mergeInto(bucket, bucketOf(u"a"_s, u"later"_s, 3));
        QCOMPARE(bucket.value(u"a"_s)->title, u"later"_s);
    }

    void writesAWhileAfterTheLastStore()
    {
        SongFileInfoCache cache(mFolder->filePath(u"cache"_s));
        QVERIFY(!cache.isDirty());
        cache.storeInfo(*summary(mPath), mPath);
        QVERIFY(cache.isDirty() && !QFile::exists(mFile));
        QTRY_VERIFY(!cache.isDirty());
        QVERIFY(stored());
        QCOMPARE(QDir(mFolder->filePath(u"cache"_s)).entryList(QDir::Files).size(), 1);
    }

    void folderThatCannotBeMadeIsLoggedOnce()
    {
        SongFileInfoCache cache(mPath + u"/cache"_s); // below a file
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^couldn't serialize <"_s));
        QTest::failOnWarning(QRegularExpression(u"."_s));
        for (int i = 0; i < 3; ++i) {
            cache.storeInfo(*summary(mPath), mPath);
            cache.detach();
        }
        QVERIFY(cache.infoForSongFileAtPath(mPath, dialect)); // in memory it is kept
    }

    void threadsAskWhileItIsWritten()
    {
        SongFileInfoCache cache(mFolder->filePath(u"cache"_s));
        std::atomic<bool> stops = false;
        std::vector<std::jthread> threads;
        for (int i = 0; i < 3; ++i)
            threads.emplace_back([&] {
                while (!stops)
                    std::ignore = cache.infoForSongFileAtPath(mPath, dialect);
            });
        for (int i = 0; i < 50; ++i) {
            cache.storeInfo(*summary(mPath), mPath);
            if (i % 5 == 0)
                cache.detach();
        }
        stops = true;
    }

    void gzipIsUndoneUpToALimit()
    {
        const QByteArray text = QByteArray("la la la ").repeated(10'000);
        const QByteArray packed = compressedData(text);
        QVERIFY(packed.size() < text.size() / 50);
        QCOMPARE(decompressedData(packed + packed + "rest", 1'000'000), text + text);
        QCOMPARE(decompressedData(packed, 40'000), text.first(40'000));
        QVERIFY(text.startsWith(decompressedData(packed.first(packed.size() / 2), 1'000'000)));
        QCOMPARE(decompressedData(text, 10), text); // no gzip
    }

private:
    /// Under a right checksum.
    static QList<QByteArray> sealedDamage(const QByteArray &content)
    {
        QList<QByteArray> files;
        for (qsizetype i = 0; i + 1 < content.size(); i += 13)
            files << sealed(content.first(i));
        return files << sealed("\x83"
                               "\x67"
                               "0.1.0/2"
                               "\x80"
                               "\xbf\x61"
                               "a"
                               "\xa1\x64icon\x05\xff")
                     << sealed(QByteArray(100'000, '\x9f'));
    }

    std::optional<CachedInfo> summary(const QString &path)
    {
        const auto song = path == mPath ? mSong : SongFile::songWithPath(path);
        return CachedInfoTag::infoDictForTag(*song->infotag(), path, dialect);
    }

    void store()
    {
        SongFileInfoCache(mFolder->filePath(u"cache"_s)).storeInfo(*summary(mPath), mPath);
    }

    CachedInfoPointer stored(const QString &path = {})
    {
        SongFileInfoCache cache(mFolder->filePath(u"cache"_s));
        return cache.infoForSongFileAtPath(path.isEmpty() ? mPath : path, dialect);
    }

    std::unique_ptr<QTemporaryDir> mFolder;
    QString mPath;
    QString mFile;
    std::shared_ptr<SongFile> mSong;
};

QTEST_GUILESS_MAIN(TestSongFileInfoCache)
#include "tst_songfileinfocache.moc"
