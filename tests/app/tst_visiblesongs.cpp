#include "app/visiblesongs.h"

#include "app/songfilter.h"
#include "base/texts.h"
#include "songs/cachedinfotag.h"
#include "support/plaintag.h"
#include "support/songs.h"
#include "support/table.h"

#include <QRandomGenerator>
#include <QSignalSpy>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Texts that are often nearly alike, of what orders differ by: case, numbers, signs around the
/// digits, characters of one, two, three and four bytes, and halves of such.
QString randomText(QRandomGenerator &random)
{
    static const QStringList pieces =
        u"a A b 0 00 7 10 / : é É ß ss ẞ ı İ Σ ς 中 \U0001F3B5 \U00010400 \U00010428 \uFFFD "
        "commonbeginning 99999999999999999999"_s.split(u' ')
        + QStringList{u" "_s, QChar(0xD801), QChar(0xDC00), QChar(0), QChar(1)};
    if (random.bounded(8) == 0)
        return random.bounded(2) ? QString() : u""_s;
    QString text = random.bounded(3) == 0 ? u"the same for all "_s : u""_s;
    for (int count = random.bounded(4); count >= 0; --count)
        text += pieces.at(random.bounded(pieces.size()));
    return random.bounded(200) == 0 ? text + QString(600, u'9') : text;
}

std::shared_ptr<SongFile> randomSong(QRandomGenerator &random)
{
    auto song = std::make_shared<SongFile>(u"/nowhere/song"_s, ReadOptions());
    PlainTag::Fields fields;
    for (const char *name : {"title", "artist", "album", "genre", "lyrics"})
        fields.insert(QLatin1String(name), randomText(random));
    for (const char *name : {"track", "year", "index", "bpm", "version"}) {
        static const QStringList numbers{{},       u""_s,    u"3"_s,          u"10/12"_s,
                                         u"-7"_s,  u"/2"_s,  u"2147483647"_s, u"-2147483648"_s,
                                         u"2.4"_s, u"2.10"_s};
        fields.insert(QLatin1String(name), numbers.at(random.bounded(numbers.size())));
    }
    fields.insert(u"art"_s, QString::number(random.bounded(3)));
    fields.insert(u"compilation"_s, random.bounded(2) ? u"1"_s : QString());
    if (random.bounded(50) > 0)
        song->adoptInfotag(std::make_unique<PlainTag>(fields));
    song->setActivityStatus(static_cast<SongStatus>(random.bounded(5)));
    return song;
}

SongList randomSongs(int count)
{
    QRandomGenerator random(1);
    SongList songs;
    for (int i = 0; i < count; ++i)
        songs.push_back(randomSong(random));
    return songs;
}

QList<SongKeyColumn> columnsOf(const SongKeys &keys, const SongKeyList &wanted)
{
    QList<SongKeyColumn> columns;
    for (const SongKey key : wanted)
        columns.append(keys.column(key));
    return columns;
}

} // namespace

class TestVisibleSongs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    /// Keys give the very order of the comparisons, also after some songs changed.
    void keysSortAsTheComparisonsDo()
    {
        SongList songs = randomSongs(600);
        SongKeys keys;
        QRandomGenerator random(2);
        QList<quint32> positions(static_cast<qsizetype>(songs.size()));
        std::iota(positions.begin(), positions.end(), 0U);
        std::reverse(positions.begin(), positions.end());
        for (const SongColumnInfo &column : songColumns()) {
            const SongKeyList wanted = keysOfOrder(column.column);
            for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
                QVERIFY(keys.makeKeys(songs, wanted));
                QList<quint32> expected = positions;
                const int sign = order == Qt::AscendingOrder ? -1 : 1;
                std::stable_sort(expected.begin(), expected.end(), [&](quint32 one, quint32 two) {
                    return column.order(*songs[one], *songs[two]) == sign;
                });
                const auto sorted =
                    sortedSongs({wanted, columnsOf(keys, wanted), positions, order});
                QVERIFY2(sorted.positions == expected, column.identifier);
                for (qsizetype i = 0; i < wanted.size(); ++i)
                    keys.setRanks(wanted[i], sorted.ranks[i]);
                const auto changed = static_cast<std::size_t>(random.bounded(600));
                songs[changed]->adoptInfotag(randomSong(random)->hasInfotagCached()
                                                 ? std::make_unique<PlainTag>(PlainTag::Fields{
                                                     {u"title"_s, randomText(random)}})
                                                 : nullptr);
                keys.songChanged(static_cast<qsizetype>(changed), *songs[changed]);
            }
        }
    }

    void filterMatchesAsTheTagDoes()
    {
        const SongList songs = randomSongs(800);
        SongKeys keys;
        QVERIFY(keys.makeKeys(songs, keysOfFilter()));
        QRandomGenerator random(3);
        int found = 0;
        for (int i = 0; i < 150; ++i) {
            const QString text = randomText(random) + (i < 50 ? u""_s : randomText(random));
            if (text.isEmpty())
                continue;
            const auto match = songsThatMatch(text, columnsOf(keys, keysOfFilter()));
            for (std::size_t song = 0; song < songs.size(); ++song) {
                const AudioInfoTag *tag = songs[song]->infotag();
                QVERIFY2(match[song] == (tag && tag->matchString(text)), qPrintable(text));
                found += match[song] ? 1 : 0;
            }
        }
        QVERIFY(found > 500);
    }

    void searchingAndSorting_data()
    {
        const Table<int> row("copies");
        row("at once", 1);
        row("in the background", 1'000);
    }

    void searchingAndSorting()
    {
        QFETCH(int, copies);
        SongFileInfoCache cache({});
        UserLog log;
        LoadedSongs loaded(cache, log);
        VisibleSongs visible(loaded);
        visible.sortBy({SongColumn::Title, Qt::DescendingOrder});
        load(loaded, copies);
        QTRY_COMPARE(runsOf(visible), u"take 10, take 9, apple"_s);

        QSignalSpy changes(&visible, &VisibleSongs::rowsChanged);
        visible.setFilter(u"nothing"_s);
        visible.setFilter(u"TAKE"_s); // what is typed later counts
        QTRY_COMPARE(runsOf(visible), u"take 10, take 9"_s);
        QTRY_VERIFY(!visible.isBusy());
        QVERIFY(changes.size() <= 2);
        QCOMPARE(visible.rowOf(*visible.songAt(copies)), copies);
        const auto apple = loaded.allSongs()[1];
        QCOMPARE(visible.rowOf(*apple), -1);

        visible.sortBy({SongColumn::Title, Qt::AscendingOrder});
        visible.setFilter({});
        QTRY_COMPARE(runsOf(visible), u"apple, take 9, take 10"_s);

        CachedInfo renamed;
        renamed.title = u"zebra"_s;
        apple->adoptInfotag(tagWithCachedInfo(std::make_shared<const CachedInfo>(renamed)));
        QSignalSpy repaints(&visible, &VisibleSongs::songsChangedInRows);
        visible.songsChanged({apple});
        QCOMPARE(repaints, (QList<QVariantList>{{visible.rowOf(*apple), visible.rowOf(*apple)}}));
        visible.sortAgain(SongColumn::Artist); // it is not sorted by that
        QVERIFY(!visible.isBusy() && visible.rowOf(*apple) < visible.size() - 1);
        visible.sortAgain(SongColumn::Title);
        QTRY_COMPARE(visible.songAt(visible.size() - 1), apple);
    }

private:
    /// Three songs, each so many times.
    void load(LoadedSongs &loaded, int copies)
    {
        static const QStringList titles{u"take 9"_s, u"apple"_s, u"take 10"_s};
        for (const QString &title : titles)
            writtenSong(mFolder.filePath(title + u".mp3"_s), {.title = title});
        SongSource source;
        source.readEntries = [this, copies](EntrySink &sink) {
            for (int i = 0; i < copies; ++i)
                for (const QString &title : titles)
                    sink.add({mFolder.filePath(title + u".mp3"_s)});
        };
        QSignalSpy finished(&loaded, &LoadedSongs::loadFinished);
        loaded.load(source, {});
        QVERIFY(finished.wait(30'000));
    }

    /// The titles from the top on, those that follow each other once.
    static QString runsOf(const VisibleSongs &visible)
    {
        QStringList titles;
        for (const auto &song : visible.songs())
            titles << song->infotag()->title().value_or(QString());
        titles.erase(std::unique(titles.begin(), titles.end()), titles.end());
        return titles.join(u", ");
    }

    QTemporaryDir mFolder;
};

QTEST_GUILESS_MAIN(TestVisibleSongs)
#include "tst_visiblesongs.moc"
