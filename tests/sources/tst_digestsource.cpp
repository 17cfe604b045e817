#include "sources/digestsource.h"

#include "base/propertylist.h"
#include "base/texts.h"
#include "sources/ckdigestinterface.h"
#include "sources/fredocoversinterface.h"
#include "support/sourcesearch.h"
#include "support/table.h"
#include "support/tempfiles.h"
#include "text/digesttable.h"

#include <QProcess>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

using Song = SearchedSong;

const QString builtInKey = u"nilaosterharbourlights"_s;

QStringList pictures(const AlbumList &albums)
{
    QStringList addresses;
    for (const AlbumInfo &album : albums)
        addresses << album.artURLString().value_or(QString());
    return addresses;
}

std::shared_ptr<CoverDigest> ckDigest()
{
    return std::make_shared<CoverDigest>(QString::fromLatin1(CKDigestInterface::digest));
}
} // namespace

class TestDigestSource : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_DATA_HOME", mFolder->path().toUtf8());
        QVERIFY(QDir(mFolder->path()).mkdir(u"tagwright"_s));
        mDigest = mFolder->filePath(u"tagwright/ckdigest.bplist"_s);
    }

    void searches_data()
    {
        // addresses: of CKDigest's pictures; FredoCovers has ".png" behind each
        const Table<Song, QString, QStringList> row("song", "prefix", "addresses");
        const QString site = u"http://a.example/"_s;
        const QStringList salt{u"http://a.example/salt"_s};
        row("artist and title", {}, site, salt);
        row("simplified names", {.artist = u"NILA"_s, .album = u"oster & salt-iron"_s}, site, salt);
        row("compilation by its title", {.isCompilation = true}, site,
            {u"http://a.example/comp"_s});
        row("value that is no text", {.album = u"Number"_s}, site, {});
        row("path that leads to another host", {.album = u"Away"_s}, u"http://a"_s, {});
        row("prefix that leaves the host to the digest", {.album = u"Other"_s}, u"http:"_s,
            {u"http://b.example/x"_s});
        row("no prefix", {}, {}, {});
        row("no artist", {.artist = {}}, site, {});
        row("no album", {.album = {}}, site, {});
    }
    void searches()
    {
        QFETCH(Song, song);
        QFETCH(QString, prefix);
        QFETCH(QStringList, addresses);
        const QVariantMap paths{{u"nilaostersaltiron"_s, u"salt"_s},
                                {u"saltiron"_s, u"comp"_s},
                                {u"nilaosternumber"_s, 7},
                                {u"nilaosteraway"_s, u"@b.example/"_s},
                                {u"nilaosterother"_s, u"//b.example/x"_s}};
        writeFile(mDigest, PropertyList::toBinary(paths));
        const QVariantMap definition{{u"prefix"_s, prefix}, {u"suffix"_s, u".png"_s}};
        SampleSiteScene scene;
        QCOMPARE(pictures(scene.search<CKDigestInterface>(song, definition, ckDigest())),
                 addresses);
        for (QString &address : addresses)
            address += u".png";
        QCOMPARE(pictures(scene.search<FredoCoversInterface>(song, definition, ckDigest())),
                 addresses);
    }

    /// What the user put there and cannot be used still hides the built-in digest, unless it is no
    /// file or would fill the memory.
    void digestsOfTheUser()
    {
        const QByteArray good = PropertyList::toBinary(QVariantMap{{u"a"_s, u"b"_s}});
        for (const QByteArray &bytes :
             {good, good.chopped(1), QByteArray(5000, '\xFF'), QByteArray(),
              PropertyList::toBinary(QVariantList{u"a"_s})}) {
            writeFile(mDigest, bytes);
            QVERIFY(!ckDigest()->pathOf(builtInKey));
        }
        QVERIFY(QFile::resize(mDigest, (32 << 20) + 1));
        QVERIFY(ckDigest()->pathOf(builtInKey));
        QVERIFY(QFile::remove(mDigest));
        QCOMPARE(::mkfifo(QFile::encodeName(mDigest).constData(), 0600), 0);
        QVERIFY(ckDigest()->pathOf(builtInKey));
    }

    void tablesAreRead_data()
    {
        const Table<QByteArray, QVariantMap, QList<int>> row("table", "paths", "badLines");
        row("artist, album, path", "X.\tB\tc", {{u"xb"_s, u"c"_s}}, {});
        row("compilation", "\tB\tc\n", {{u"b"_s, u"c"_s}}, {});
        row("empty lines, remarks, a mark, carriage returns",
            "\xEF\xBB\xBF# x\r\n\r\n  \nX\tB\tc\r\n#1\tB\tc\r\n",
            {{u"xb"_s, u"c"_s}, {u"1b"_s, u"c"_s}}, {});
        row("said twice", "X\tB\tc\nx\tb\tc\n", {{u"xb"_s, u"c"_s}}, {});
        row("two paths", "X\tB\tc\nx\tb\td\n", {{u"xb"_s, u"c"_s}}, {2});
        row("fields missing, too many, empty, no UTF-8",
            "X\tB\nX\tB\tc\td\nX\t\tc\nX\tB\t \nX\xFF\tB\tc\nX\tB\tc", {{u"xb"_s, u"c"_s}},
            {1, 2, 3, 4, 5});
    }
    void tablesAreRead()
    {
        QFETCH(QByteArray, table);
        const DigestTable digest = digestOfTable(table);
        QList<int> badLines;
        for (const DigestTable::Problem &problem : digest.problems)
            badLines << problem.line;
        QTEST(digest.paths, "paths");
        QTEST(badLines, "badLines");
    }

    void toolMakesWhatTheProgramReads()
    {
        const QString table = mFolder->filePath(u"table.txt"_s);
        writeFile(table, "Nila Oster\tThe First (Disk 1)\tx\n");
        QCOMPARE(makeDigest({table, mDigest}), 0);
        QCOMPARE(ckDigest()->pathOf(u"nilaosterthefirstdisc1"_s), u"x"_s); // by a simplifier
        QCOMPARE(makeDigest({table, mFolder->filePath(u"no/such/folder"_s)}), 1);
        QCOMPARE(makeDigest({table + u"x"_s, mDigest}), 2);
        QCOMPARE(makeDigest({u"--definitions"_s, table, table, mDigest}), 2);
        writeFile(table, "Nila Oster\tThe First\tx\nNila Oster\n");
        QCOMPARE(makeDigest({table, mDigest}), 2);
        QVERIFY(mErrors.startsWith(table.toUtf8() + ":2: "));
        QVERIFY(ckDigest()->pathOf(u"nilaosterthefirstdisc1"_s)); // the old one is still there
    }

private:
    int makeDigest(const QStringList &arguments)
    {
        QProcess tool;
        tool.start(QFileInfo(qEnvironmentVariable("TAGWRIGHT_PROGRAM")).path()
                       + u"/tagwright-makedigest"_s,
                   arguments);
        if (!tool.waitForFinished())
            return -1;
        mErrors = tool.readAllStandardError();
        return tool.exitCode();
    }

    std::unique_ptr<QTemporaryDir> mFolder;
    QString mDigest; ///< a user's
    QByteArray mErrors; ///< of the tool
};

QTEST_GUILESS_MAIN(TestDigestSource)
#include "tst_digestsource.moc"
