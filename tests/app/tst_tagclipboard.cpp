#include "app/tagclipboard.h"

#include "base/texts.h"
#include "support/songs.h"
#include "support/table.h"
#include "tags/mp3infotag.h"

#include <QCborArray>
#include <QCborValue>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

/// What encoded() writes for one song, with parts of it replaced.
QByteArray copied(const QCborValue &pictures, const QCborValue &title, const QCborValue &used)
{
    QCborArray song{title};
    for (std::size_t i = 1; i < tagTextCount; ++i)
        song << QString();
    song << false << used;
    return QCborArray{1, pictures, QCborArray{song}}.toCborValue().toCbor();
}

} // namespace

class TestTagClipboard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void tagsComeBackAsTheyWere()
    {
        const QTemporaryDir folder;
        const QByteArray cover = plainPicture(30, 30);
        QStringList paths;
        for (const QString &title : {u"One"_s, u"Łódź"_s}) {
            paths << folder.filePath(title + u".mp3"_s);
            writtenSong(paths.last(), {.title = title, .isCompilation = true, .picture = cover});
        }
        const auto read = TagClipboard::copiedFrom(paths, {});
        QCOMPARE(read.reason, QString());
        const QByteArray bytes = TagClipboard::encoded(read.tags);
        QCOMPARE(bytes.count(cover), 1);
        const auto tags = TagClipboard::decoded(bytes);
        QVERIFY(tags && tags->size() == 2);
        for (qsizetype i = 0; i < 2; ++i)
            QVERIFY(tags->at(i).isSame(read.tags[i]));
        QVERIFY(TagClipboard::plainText(*tags).contains(u"Łódź"_s));
        for (qsizetype length = 0; length < bytes.size(); ++length)
            QVERIFY(!TagClipboard::decoded(bytes.first(length)));
    }

    void whatIsNotOfOurMakingIsRefused_data()
    {
        const QByteArray png = plainPicture(2, 2);
        const QCborArray picture{png, 3, u""_s};
        const Table<QByteArray, bool> row("bytes", "isTaken");
        row("ours", copied(QCborArray{picture}, u"A"_s, QCborArray{0}), true);
        row("picture that is not there", copied(QCborArray{}, u"A"_s, QCborArray{0}), false);
        row("picture before the first", copied(QCborArray{picture}, u"A"_s, QCborArray{-1}), false);
        row("picture that is none",
            copied(QCborArray{QCborArray{QByteArrayLiteral("x"), 3, u""_s}}, u"A"_s, {}), false);
        row("number for a title", copied(QCborArray{}, 7, QCborArray{}), false);
        row("map for pictures", copied(QCborMap{}, u"A"_s, QCborArray{}), false);
        row("text longer than any", copied(QCborArray{}, QString(1'000'001, u'x'), QCborArray{}),
            false);
        row("array of 2^60 entries", QByteArrayLiteral("\x83\x01\x9b\x10") + QByteArray(7, '\0'),
            false);
        row("bytes of 2^40",
            QByteArrayLiteral("\x83\x01\x81\x83\x5b\x00\x00\x01") + QByteArray(5, '\0'), false);
        row("array without an end", QByteArrayLiteral("\x83\x01\x9f"), false);
        row("nested deeply", QByteArray(100'000, '\x81'), false);
    }

    void whatIsNotOfOurMakingIsRefused()
    {
        QFETCH(const QByteArray, bytes);
        QTEST(TagClipboard::decoded(bytes).has_value(), "isTaken");
    }

    void severalTagsGoIntoAsManySongs()
    {
        const TagClipboard::Tags tags{{.texts = {{TagText::Title, u"A"_s}}},
                                      {.texts = {{TagText::Title, u"B"_s}}}};
        const auto song = [] { return std::make_shared<SongFile>(u"/none"_s, ReadOptions()); };
        const SongList songs{song(), song()};
        QVERIFY(!TagClipboard::canPaste(tags, {songs.front()}));
        QVERIFY(TagClipboard::canPaste(tags, songs) && TagClipboard::canPaste({tags[0]}, songs));
        const TagChange change =
            TagClipboard::pasting(tags, songs, {TagClipboard::fields().front()});
        const TagValues values = change.newValues(*songs[1], MP3InfoTag());
        QCOMPARE(values.texts.value(TagText::Title), u"B"_s);
        QVERIFY(!values.images && !values.isPartOfCompilation);
    }
};

QTEST_GUILESS_MAIN(TestTagClipboard)
#include "tst_tagclipboard.moc"
