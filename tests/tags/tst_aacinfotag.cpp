#include "support/id3bytes.h"
#include "support/mp4bytes.h"
#include "support/table.h"
#include "support/tempfiles.h"
#include "support/tracedprocess.h"
#include "tags/aacinfotag.h"
#include "tags/aacrewrite.h"
#include "tags/atom.h"
#include "tags/atomsource.h"
#include "tags/genretable.h"
#include "tags/songbytes.h"

#include <cerrno>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

using Kind = InPlaceFile::Outcome::Kind;
using Change = std::function<void(AudioInfoTag &)>;
/// A file around a list of items, its places not yet put right.
using Layout = std::function<QByteArray(const QByteArray &items)>;

const QByteArray brand = atom("ftyp", "M4A 0000");
const QByteArray one = track(placeTable("stco", "12"));
const QByteArray sound = mediaData("12");
const QByteArray space = atom("free", QByteArray(40, '\0'));

QByteArray text(const QByteArray &name, const QByteArray &value)
{
    return item(name, 1, value);
}

QByteArray wholeNumber(const QByteArray &name, const QByteArray &value)
{
    return item(name, 21, value);
}

QByteArray picture(int type, const QByteArray &bytes)
{
    return dataAtom(type, bytes);
}

/// A usual song: the movie in front of the sound.
QByteArray songWith(const QByteArray &items, const QByteArray &behind = {})
{
    return withPlaces(brand + movie(one, userData(items, behind)) + sound);
}

QString shown(const AudioInfoTag &tag)
{
    QStringList fields;
    for (const auto &field : {tag.title(), tag.artist(), tag.album(), tag.year(), tag.track(),
                              tag.genres(), tag.lyrics(), tag.bpm()})
        fields += field.value_or(u"-"_s);
    fields += tag.isPartOfCompilation() ? u"yes"_s : u"no"_s;
    for (const ID3Image &image : tag.images())
        fields += QString::fromLatin1(image.data);
    return fields.join(u'|');
}

/// The file with zeros where the modification times stand.
QByteArray withoutTimes(QByteArray file)
{
    for (const char *name : {"mvhd", "tkhd", "mdhd"})
        if (const qsizetype at = file.indexOf(name); at >= 0)
            file.replace(at + 12, 4, QByteArray(4, '\0'));
    return file;
}

} // namespace

class tst_AACInfoTag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_STATE_HOME", QFile::encodeName(mFolder.filePath(u"state"_s)));
        GenreTable::install({u"Blues"_s, u"Classic Rock"_s, u"Country"_s});
    }

    void itemsBecomeFields_data()
    {
        const Table<QByteArray, QString> row("items", "fields");
        row("none", {}, u"-|-|-|-|-|-|-|-|no"_s);
        row("texts",
            text("\251nam", "Tür") + text("\251ART", "B") + text("\251alb", "C")
                + text("\251day", "2007-05-01") + text("\251gen", "Folk") + text("\251lyr", "la"),
            u"Tür|B|C|2007|-|Folk|la|-|no"_s);
        row("numbers",
            item("trkn", 0, "\0\0\0\3\0\x0C\0\0"_ba) + wholeNumber("tmpo", "\0\x60"_ba)
                + wholeNumber("cpil", "\1") + item("gnre", 0, "\0\2"_ba),
            u"-|-|-|-|3/12|Classic Rock|-|96|yes"_s);
        row("noughts",
            item("trkn", 0, "\0\0\0\0\0\x0C\0\0"_ba) + wholeNumber("tmpo", "\0\0"_ba)
                + wholeNumber("cpil", "\0"_ba) + item("gnre", 0, "\0\0"_ba),
            u"-|-|-|-|-|-|-|-|no"_s);
        row("a number wins over a text", text("\251gen", "Folk") + item("gnre", 0, "\0\3"_ba),
            u"-|-|-|-|-|Country|-|-|no"_s);
        row("unknown number", item("gnre", 0, "\0\x63"_ba), u"-|-|-|-|-|(98)|-|-|no"_s);
        row("values cut short",
            item("trkn", 0, {}) + wholeNumber("tmpo", "\x60") + wholeNumber("cpil", {})
                + text("\251nam", {}) + atom("\251ART", atom("data")) + atom("covr"),
            u"-|-|-|-|-|-|-|96|no"_s);
        row("six bytes of track", item("trkn", 0, "\0\0\0\3\0\x0C"_ba), u"-|-|-|-|3/12|-|-|-|no"_s);
        row("the first of several",
            atom("\251nam", dataAtom(1, "A") + dataAtom(1, "B")) + text("\251nam", "C"),
            u"A|-|-|-|-|-|-|-|no"_s);
        row("sizes of 64 bits", wideAtom("\251nam", wideAtom("data", number(1) + number(0) + "A")),
            u"A|-|-|-|-|-|-|-|no"_s);
        row("pictures beside a name",
            atom("covr", picture(13, "jpeg") + atom("name", "x.jpg00000") + picture(14, "png")),
            u"-|-|-|-|-|-|-|-|no|jpeg|png"_s);
        row("text that is no UTF-8", text("\251nam", "\xFF\xFE"), u"-|-|-|-|-|-|-|-|no"_s);
    }

    void itemsBecomeFields()
    {
        QFETCH(QByteArray, items);
        const auto tag = tagOf(songWith(items));
        QVERIFY(tag);
        QTEST(shown(*tag), "fields");
        QCOMPARE(tag->readVersion(), u"AAC"_s);
    }

    /// The list of items after a change, and what stands behind it.
    void itemsAfterAChange_data()
    {
        const Table<QByteArray, Change, QByteArray> row("items", "change", "expected");
        const auto title = [](AudioInfoTag &tag) { tag.setTitle(u"New"_s); };
        const QByteArray newTitle = text("\251nam", "New");
        row(
            "every field", {},
            [](AudioInfoTag &tag) {
                tag.setTitle(u"Tür"_s);
                tag.setArtist(u"B"_s);
                tag.setAlbum(u"C"_s);
                tag.setYear(u"2007"_s);
                tag.setGenres(u"Folk"_s);
                tag.setLyrics(u"la"_s);
                tag.setTrack(u"3/12"_s);
                tag.setBPM(u"96.5"_s);
                tag.setIsPartOfCompilation(true);
                tag.addImage(ID3Image::imageWithData("png", u"image/png"_s));
            },
            text("\251nam", "Tür") + text("\251ART", "B") + text("\251alb", "C")
                + text("\251day", "2007") + text("\251gen", "Folk") + text("\251lyr", "la")
                + item("trkn", 0, "\0\0\0\3\0\x0C\0\0"_ba) + wholeNumber("tmpo", "\0\x60"_ba)
                + wholeNumber("cpil", "\1") + atom("covr", picture(13, "png")));
        row(
            "every field removed",
            text("\251nam", "A") + text("\251ART", "B") + text("\251alb", "C")
                + item("trkn", 0, "12345678") + wholeNumber("tmpo", "12") + item("----", 1, "x")
                + wholeNumber("cpil", "\1") + atom("covr", picture(13, "p")) + text("\251nam", "D"),
            [](AudioInfoTag &tag) {
                tag.setTitle({});
                tag.setArtist({});
                tag.setAlbum({});
                tag.setTrack({});
                tag.setBPM(u"0"_s);
                tag.setIsPartOfCompilation(false);
                tag.removeAllImages();
            },
            item("----", 1, "x"));
        row("what is not set stays, new items come before a zero atom",
            item("----", 1, "x") + item("\251ART", 0, "\xFF\xFE") + text("\251alb", {})
                + item("trkn", 0, "\0\0\0\3\0\x0C"_ba) + atom("\251lyr", "") + text("\251day", "1")
                + text("\251day", "2") + number(0) + number(0),
            title,
            item("----", 1, "x") + item("\251ART", 0, "\xFF\xFE") + text("\251alb", {})
                + item("trkn", 0, "\0\0\0\3\0\x0C"_ba) + atom("\251lyr", "") + text("\251day", "1")
                + text("\251day", "2") + newTitle + number(0) + number(0));
        row("what is set is the only one",
            atom("\251nam", dataAtom(2, "A") + dataAtom(1, "B") + atom("name", "x"))
                + text("\251ART", "B") + text("\251nam", "C"),
            title, atom("\251nam", dataAtom(1, "New") + atom("name", "x")) + text("\251ART", "B"));
        row("a genre number becomes text", item("gnre", 0, "\0\2"_ba), title,
            newTitle + text("\251gen", "Classic Rock"));
        row("every picture is marked as type 13",
            atom("covr", picture(14, "png") + atom("name", "x") + picture(0, "other")), title,
            atom("covr", picture(13, "png") + atom("name", "x") + picture(13, "other")) + newTitle);
        row(
            "pictures replaced beside a name",
            atom("covr", picture(13, "a") + atom("name", "x") + picture(13, "b")),
            [](AudioInfoTag &tag) {
                tag.removeAllImages();
                tag.addImage(ID3Image::imageWithData("longer", {}));
            },
            atom("covr", picture(13, "longer") + atom("name", "x")));
        for (const auto &[track, body] : {std::pair(u"7"_s, "\0\0\0\7\0\0\0\0"_ba),
                                          {u"/7"_s, "\0\0\0\0\0\0\0\0"_ba},
                                          {u"7/"_s, "\0\0\0\7\0\0\0\0"_ba},
                                          {u"99999"_s, "\0\0\xFF\xFF\0\0\0\0"_ba}})
            row(
                qPrintable(u"track "_s + track), {},
                [track = track](AudioInfoTag &tag) { tag.setTrack(track); }, item("trkn", 0, body));
    }

    void itemsAfterAChange()
    {
        QFETCH(QByteArray, items);
        QFETCH(Change, change);
        QFETCH(QByteArray, expected);
        QCOMPARE(changed(songWith(items, space), change), Kind::Written);
        const QByteArray file = fileContents(mPath);
        QVERIFY2(file.contains(atom("ilst", expected)), file.toHex(' ').constData());
        QCOMPARE(chunksPointedTo(file), QStringList{u"12"_s});
        QCOMPARE(fileContents(mPath).right(sound.size()), sound);
    }

    /// The title grows; everything else is the same, places included.
    void filesAroundAGrownTitle_data()
    {
        const Table<Layout> row("layout");
        const QByteArray other = track(placeTable("co64", "34"));
        const auto grown = [](const QByteArray &items) { return userData(items); };
        row("movie first",
            [=](const QByteArray &items) { return brand + movie(one, grown(items)) + sound; });
        row("movie last",
            [=](const QByteArray &items) { return brand + sound + movie(one, grown(items)); });
        row("several tracks, the first of another kind", [=](const QByteArray &items) {
            return brand + movie(other + one, grown(items)) + mediaData("1234");
        });
        row("movie between the sound", [=](const QByteArray &items) {
            return brand + sound + movie(track(placeTable("stco", "1324")), grown(items))
                + atom("free") + mediaData("34");
        });
        row("zeros end user data", [=](const QByteArray &items) {
            const QByteArray user = grown(items);
            return brand + movie(one, atom("udta", user.sliced(8) + number(0))) + sound;
        });
        row("meta without version, beside text", [=](const QByteArray &items) {
            const QByteArray meta = atom("meta", grown(items).sliced(20));
            return brand
                + movie(one, atom("udta", atom("\251nam", "\0\x05\x55\xC4Hello"_ba) + meta))
                + sound;
        });
        row("open and large sizes", [=](const QByteArray &items) {
            const QByteArray whole = movie(one, grown(items));
            return brand + wideAtom("moov", whole.sliced(8)) + number(0) + sound.sliced(4);
        });
        row("metadata of another kind", [=](const QByteArray &items) {
            const QByteArray foreign = atom("meta", number(0) + atom("hdlr", "12345678null"));
            return brand + movie(one, grown(items)) + foreign + sound;
        });
        row("the file ends in the middle of the sound", [=](const QByteArray &items) {
            return brand + movie(one, grown(items)) + number(900) + sound.sliced(4);
        });
    }

    void filesAroundAGrownTitle()
    {
        QFETCH(Layout, layout);
        const QByteArray rest = item("----", 1, "x") + text("\251ART", "B");
        const QByteArray before = withPlaces(layout(text("\251nam", "Old") + rest));
        QCOMPARE(changed(before, [](AudioInfoTag &tag) { tag.setTitle(u"A longer one"_s); }),
                 Kind::Written);
        const QByteArray expected = withPlaces(layout(text("\251nam", "A longer one") + rest));
        QCOMPARE(withoutTimes(fileContents(mPath)), expected);
    }

    void refusedFilesStayAsTheyAre_data()
    {
        const Table<QByteArray, QByteArray, QString> row("file", "log", "error");
        const QString tables = u"cannot update chunk offsets"_s;
        const auto file = [](const QByteArray &tracks, const QByteArray &behind = sound) {
            return brand + movie(tracks, userData({})) + behind;
        };
        const auto table = [](const QByteArray &name, const QByteArray &numbers) {
            return track(atom(name, number(0) + numbers));
        };
        row("no movie", brand + sound, {}, u"can't modify (an error occurred): ErrorNoMovie"_s);
        row("no sound", file(one, {}), {}, tables);
        row("no table", file(track({})), {}, tables);
        row("a stray tag stays", id3Tag(4, QByteArray(30, '\0')) + file(track({})), {}, tables);
        row("one entry beyond the table", file(table("stco", number(1))),
            "adjustChunkOffsets failed sanity check (20 > 16)", tables);
        row("a damaged table behind a sound one", file(one + table("co64", number(1 << 30))),
            "adjustChunkOffsets failed sanity check (8589934604 > 16)", tables);
        row("places too large", file(table("stco", number(1) + QByteArray(4, '\xFF'))), {}, tables);
        row("still images", file(one, atom("iloc") + sound), {}, tables);
        row("an index that the sound moves away from", atom("sidx") + file(one), {}, tables);
        row("metadata of another kind",
            brand + movie(one, atom("udta", atom("meta", number(0) + atom("hdlr", "12345678mdta"))))
                + sound,
            {}, u"can't modify (an error occurred): ErrorForeignMetadata"_s);
    }

    void refusedFilesStayAsTheyAre()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, log);
        file = withPlaces(file);
        writeFile(mPath, file);
        AACInfoTag tag;
        tag.setTitle(u"New"_s);
        if (!log.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, log.constData());
        const auto outcome = tag.modifySongFileAtPath(mPath, {});
        QTEST(outcome.error, "error");
        QCOMPARE(fileContents(mPath), file);
    }

    void filesWithoutAListAreGivenOne_data()
    {
        const Table<QByteArray> row("file");
        row("no user data", brand + movie(one) + sound);
        row("other user data", brand + movie(one, atom("udta", text("name", "x"))) + sound);
        row("no list", brand + movie(one, atom("udta", atom("meta", number(0)))) + sound);
        row("room behind it", brand + movie(one) + atom("free", QByteArray(4000, '\0')) + sound);
    }

    void filesWithoutAListAreGivenOne()
    {
        QFETCH(QByteArray, file);
        file = withPlaces(file);
        QCOMPARE(changed(file, [](AudioInfoTag &tag) { tag.setArtist({}); }), Kind::Unchanged);
        QCOMPARE(changed(file, [](AudioInfoTag &tag) { tag.setTitle(u"New"_s); }), Kind::Written);
        const QByteArray written = fileContents(mPath);
        QCOMPARE(chunksPointedTo(written), QStringList{u"12"_s});
        const QByteArray meta = userData(text("\251nam", "New")).sliced(8 + 12);
        QVERIFY2(written.contains(meta), written.toHex(' ').constData());
        QCOMPARE(written.size() == file.size(), file.contains(QByteArray(4000, '\0')));
    }

    void strayTagsAreRemovedByAWriteOnly()
    {
        const QByteArray song = songWith(text("\251nam", "Old"), space);
        const QByteArray file = id3Tag(4, QByteArray(30, '\0')) + song;
        const auto tag = tagOf(file);
        QCOMPARE(tag->title(), u"Old"_s);
        QCOMPARE(fileContents(mPath), file);
        tag->setTitle(u"New"_s);
        QTest::ignoreMessage(QtWarningMsg,
                             qPrintable(u"** Removed ID3 tag from AAC at "_s + mPath));
        QCOMPARE(tag->modifySongFileAtPath(mPath, {}).kind, Kind::Written);
        QCOMPARE(withoutTimes(fileContents(mPath)), songWith(text("\251nam", "New"), space));
    }

    void equalValuesAreNotWritten()
    {
        const QByteArray file =
            songWith(text("\251nam", "Old") + item("trkn", 0, "\0\0\0\1\0\2\0\0"_ba));
        QCOMPARE(changed(file,
                         [](AudioInfoTag &tag) {
                             tag.setTitle(u"Old"_s);
                             tag.setTrack(u"1/2"_s);
                         }),
                 Kind::Unchanged);
        QCOMPARE(fileContents(mPath), file);
    }

    void replacedFilesAreRefused()
    {
        const auto tag = tagOf(songWith({}));
        tag->setTitle(u"New"_s);
        for (const QByteArray &now : {mpegFrames(20), brand.first(5), "moov"_ba + sound,
                                      id3Tag(4, QByteArray(30, '\0')) + mpegFrames(20)}) {
            writeFile(mPath, now);
            QCOMPARE(tag->modifySongFileAtPath(mPath, {}).kind, Kind::Failed);
            QVERIFY(tag->tagHasBeenModified());
            QCOMPARE(fileContents(mPath), now);
        }
        QCOMPARE(tag->modifySongFileAtPath(mFolder.path(), {}).kind, Kind::Failed);
    }

    void disturbedWritesLeaveTheOldOrTheNew()
    {
        if (!canTrace())
            QSKIP("processes cannot be traced here");
        for (const auto disturb :
             {Disturbance::Kind::KillHalfway, Disturbance::Kind::FailFromThere}) {
            for (const auto &[room, roomLeft] :
                 {std::pair(space, atom("free", QByteArray(29, '\0'))), {}}) {
                const QByteArray before = songWith(text("\251nam", "Old"), room);
                const QByteArray after = songWith(text("\251nam", "New and longer"), roomLeft);
                TracedRun run;
                for (int at = 0; at <= run.calls; ++at) {
                    const auto tag = tagOf(before);
                    tag->setTitle(u"New and longer"_s);
                    run = runTraced([&] { return int(tag->modifySongFileAtPath(mPath, {}).kind); },
                                    {.kind = disturb, .at = at, .error = ENOSPC});
                    recoverInterruptedWrites();
                    const QByteArray now = withoutTimes(fileContents(mPath));
                    QVERIFY2(now == before || now == after, QByteArray::number(at).constData());
                }
                QVERIFY(run.calls > 3 && withoutTimes(fileContents(mPath)) == after);
            }
        }
    }

    void timesCountFrom1904()
    {
        const QByteArray file = movie(one);
        const AtomSource source = AtomSource::ofBytes(file);
        const auto tree = Atom::atomContainerFromFile(source);
        for (const auto &[time, seconds] : {std::pair(u"1904-01-01T00:00:07Z"_s, 7U),
                                            {u"1903-01-01T00:00:00Z"_s, 0U},
                                            {u"2107-01-01T00:00:00Z"_s, 0xFFFFFFFFU}}) {
            QVERIFY(AACRewrite::setModifiedTime(QDateTime::fromString(time, Qt::ISODate), *tree));
            for (const auto path :
                 {u"FILE:moov:mvhd", u"FILE:moov:trak:tkhd", u"FILE:moov:trak:mdia:mdhd"})
                QCOMPARE(tree->childAtAtomPath(path)->dataIn(8, 4), number(seconds));
        }
        QVERIFY(!AACRewrite::setModifiedTime({}, *tree));
    }

private:
    std::unique_ptr<AACInfoTag> tagOf(const QByteArray &file) const
    {
        writeFile(mPath, file);
        return AACInfoTag::tagWithBytes(*SongBytes::open(mPath)).tag;
    }

    Kind changed(const QByteArray &file, const Change &change) const
    {
        const auto tag = tagOf(file);
        if (!tag)
            return Kind::Failed;
        change(*tag);
        return tag->modifySongFileAtPath(mPath, {}).kind;
    }

    QTemporaryDir mFolder;
    QString mPath = mFolder.filePath(u"song.m4a"_s);
};

QTEST_GUILESS_MAIN(tst_AACInfoTag)
#include "tst_aacinfotag.moc"
