#include "gathering/albumscore.h"
#include "support/tempfiles.h"

#include <QRegularExpression>
#include <QTest>

namespace {

using Fields = QHash<QString, QString>;

/// "title = Neon Rain, year = 1988".
Fields fieldsIn(const QString &line)
{
    Fields fields;
    for (const QString &field : line.split(u", "_qs))
        fields[field.section(u" = "_qs, 0, 0)] = field.section(u" = "_qs, 1);
    return fields;
}

ScoredSong songOf(const Fields &fields)
{
    ScoredSong song;
    if (fields.contains(u"title"_qs))
        song.title = fields[u"title"_qs];
    song.artists = QStringList{fields[u"artist"_qs]};
    song.tracksOnAlbum = fields[u"tracks"_qs].toInt();
    if (fields.contains(u"length"_qs))
        song.duration = 1000 * fields[u"length"_qs].toInt();
    song.year = fields[u"year"_qs].toInt();
    song.isCompilation = fields.contains(u"compilation"_qs);
    song.allowSubstrings =
        fields.contains(u"substrings"_qs) ? Substrings::Allow : Substrings::Refuse;
    return song;
}

/// Of the cells source, album, artist, year, tracks, title and perhaps length.
AlbumInfo albumOf(const QStringList &cells)
{
    const auto cell = [&](qsizetype column) {
        return cells[column] == u"–"_qs ? std::nullopt : std::optional(cells[column]);
    };
    AlbumInfo album(cell(2), cell(1));
    album.setSourceInterfaceName(cells[0]);
    album.setYear(cell(3));
    if (const auto tracks = cell(4)) {
        QStringList titles(tracks->toInt(), u"Another"_qs);
        if (cells[5] != u"no"_qs)
            titles[1] = cells[5] == u"part"_qs ? u"Neon Rain (Live)"_qs : u"Neon Rain"_qs;
        album.setTrackNames(titles);
        if (cells.size() > 7)
            album.setTrackLengths({0, 1000 * cells[6].toInt()});
    }
    return album;
}

QString row(const AlbumInfo &album)
{
    return album.sourceInterfaceName() + u' ' + *album.name() + u' '
        + QString::number(album.score().value_or(-1));
}

} // namespace

class AlbumScoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void scoresTheDocumentedExamples()
    {
        const QByteArray page = fileContents(qEnvironmentVariable("TAGWRIGHT_TEST_DATA")
                                             + u"/../../docs/matching.md"_qs);
        const QStringList examples = QString::fromUtf8(page).split(u"\nSong: "_qs).mid(1);
        QVERIFY(examples.size() > 1);
        for (const QString &example : examples) {
            const QStringList lines = example.split(u'\n');
            AlbumList albums;
            QStringList expected;
            for (const QString &line : lines.filter(QRegularExpression(u"^\\| "_qs)).mid(2)) {
                const QStringList cells = line.mid(2).chopped(2).split(u" | "_qs);
                albums.prepend(albumOf(cells));
                expected << QStringList{cells[0], cells[1], cells.last()}.join(u' ');
            }
            rankByScore(albums, songOf(fieldsIn(lines[0])), {u"A"_qs, u"B"_qs, u"C"_qs});
            QStringList ranked;
            for (const AlbumInfo &album : std::as_const(albums))
                ranked << row(album);
            QCOMPARE(ranked.join(u'\n'), expected.join(u'\n'));
            QVERIFY2(expected.size() > 1, qPrintable(lines[0]));
        }
    }
};

QTEST_GUILESS_MAIN(AlbumScoreTest)
#include "tst_albumscore.moc"
