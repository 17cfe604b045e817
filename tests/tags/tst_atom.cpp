#include "base/bytes.h"
#include "support/id3bytes.h"
#include "support/mp4bytes.h"
#include "support/table.h"
#include "tags/atom.h"
#include "tags/atomlookup.h"
#include "tags/atomsource.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// The names of a tree: those inside a container in brackets.
QString namesIn(const Atom &atom)
{
    QStringList names;
    for (const auto &child : atom.contents())
        names += child->isContainer() ? child->nameString() + u'(' + namesIn(*child) + u')'
                                      : child->nameString();
    return names.join(u' ');
}

/// What a whole file flattens to, without the header of its root.
QByteArray flattened(const Atom &file)
{
    return file.flattenedData().sliced(AtomHeader::plainLength);
}

QByteArray nested(int levels)
{
    QByteArray bytes;
    for (int i = 0; i < levels; ++i)
        bytes = atom("udta", bytes);
    return bytes;
}

/// Why no tree can be made of the bytes; nothing when one can.
QString reasonAgainst(const QByteArray &bytes)
{
    try {
        const AtomSource source = AtomSource::ofBytes(bytes);
        static_cast<void>(Atom::atomContainerFromFile(source));
        return {};
    } catch (const MalformedData &malformed) {
        return malformed.reason();
    }
}

/// Text as QuickTime keeps it, in an atom that is named like an item.
const QByteArray quickTimeText = atom("\251nam", "\0\x05\x55\xC4Hello"_ba);
const QByteArray title = item("\251nam", 1, "Low Water");

} // namespace

class tst_Atom : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesComeBackAsTheyWere_data()
    {
        const Table<QByteArray, QString> row("bytes", "names");
        const QByteArray list = atom("ilst", title);
        const QByteArray handler = atom("hdlr", QByteArray(25, '\0'));
        row("nothing", {}, {});
        row("a list", movie({}, userData(title)),
            u"moov(mvhd udta(meta(hdlr ilst(©nam(data)))))"_s);
        row("a chunk table", movie(track(placeTable("stco", "1"))),
            u"moov(mvhd trak(tkhd mdia(mdhd minf(stbl(stco)))))"_s);
        row("meta without version", atom("meta", handler + list), u"meta(hdlr ilst(©nam(data)))"_s);
        row("meta version 1", atom("meta", number(0x01000007) + list), u"meta(ilst(©nam(data)))"_s);
        row("empty metas", atom("meta") + atom("meta", number(0)), u"meta() meta()"_s);
        row("four zero bytes at the end", atom("udta", title + number(0)), u"udta(©nam)"_s);
        row("zero atoms in a list", atom("ilst", number(0) + number(0) + title + number(0)),
            u"ilst(\0\0\0\0 ©nam(data))"_s);
        row("text named like an item", atom("udta", quickTimeText), u"udta(©nam)"_s);
        row("other items", atom("ilst", item("----", 1, "x") + title), u"ilst(---- ©nam(data))"_s);
        row("64-bit sizes", wideAtom("moov", wideAtom("free", "abc") + atom("udta")),
            u"moov(free udta())"_s);
        row("size 0 at the end", atom("free") + number(0) + "mdat" + "sound", u"free mdat"_s);
        row("size 0 in an atom", atom("udta", number(0) + "free" + "1234567890"), u"udta(free)"_s);
        row("bytes behind the last atom", atom("free") + "1234567", u"free"_s);
        row("a leaf cut by the end", atom("free") + number(900) + "mdat" + "sound", u"free mdat"_s);
        row("the same of 64 bits", number(1) + "mdat" + number(9) + number(9) + "sound", u"mdat"_s);
        row("deepest nesting", nested(Atom::maxNesting - 1), {});
    }

    void filesComeBackAsTheyWere()
    {
        QFETCH(QByteArray, bytes);
        const AtomSource source = AtomSource::ofBytes(bytes);
        const auto file = Atom::atomContainerFromFile(source);
        QCOMPARE(flattened(*file), bytes);
        QCOMPARE(file->flattenedBodyLength(), quint64(bytes.size()));
        QFETCH(QString, names);
        if (!names.isEmpty())
            QCOMPARE(namesIn(*file), names);
    }

    void damageIsRefused_data()
    {
        const Table<QByteArray, QString> row("bytes", "reason");
        const QString badSize = u"bad size atom"_s;
        row("sizes 2 to 7", number(7) + "moov", badSize);
        row("64 bits without room", number(1) + "moov", badSize);
        row("64 bits that are too few", number(1) + "moov" + number(0) + number(15), badSize);
        row("a container beyond the file", number(100) + "moov" + atom("udta"), badSize);
        row("leaf beyond container", atom("udta", number(100) + "free" + "abc") + title, badSize);
        row("text of an item that is no atom", atom("ilst", quickTimeText), badSize);
        row("endless 64 bits", atom("moov", number(1) + "free" + QByteArray(8, '\xFF')), badSize);
        row("too deep nesting", nested(Atom::maxNesting), u"atoms nested too deeply"_s);
        row("too many atoms", atom("free").repeated(Atom::maxAtoms + 1), u"too many atoms"_s);
    }

    void damageIsRefused()
    {
        QFETCH(QByteArray, bytes);
        QTEST(reasonAgainst(bytes), "reason");
    }

    void messagesNameTheAtom()
    {
        QTest::ignoreMessage(QtWarningMsg,
                             "Atom (mdat) will trunc setFile:withRange: 8 + 892 (900) > 13");
        QCOMPARE(reasonAgainst(number(900) + "mdat" + "sound"), QString());
        QTest::ignoreMessage(QtWarningMsg, "invalid size 7 for atom 'free' in 8 bytes");
        QCOMPARE(reasonAgainst(number(7) + "free"), u"bad size atom"_s);
    }

    /// An absorbed change keeps the length of the whole.
    void freeAtomsAbsorbChanges_data()
    {
        const Table<QByteArray, QByteArray, QByteArray> row("file", "title", "expected");
        const auto file = [](const QByteArray &text, const QByteArray &behind) {
            return atom("udta", atom("ilst", item("\251nam", 1, text)) + behind);
        };
        const auto space = [](int size) { return atom("free", QByteArray(size, '\0')); };
        row("grown", file("Old", space(8)), "Longer", file("Longer", space(5)));
        row("grown by all but 1", file("Old", space(8)), "0123456789",
            file("0123456789", space(1)));
        row("grown by all", file("Old", space(7)), "0123456789", file("0123456789", space(7)));
        row("shrunk into an empty one", file("Longer", space(0)), "Old", file("Old", space(3)));
        row("a larger one further on", file("Old", space(3) + space(4)), "Longer",
            file("Longer", space(3) + space(1)));
        row("behind container", file("Old", {}) + space(4), "Longer",
            file("Longer", {}) + space(1));
        row("new bytes are zero", file("Longer", atom("free", "junk")), "Old",
            file("Old", atom("free", "junk\0\0\0"_ba)));
        row("none", file("Old", {}), "Longer", file("Longer", {}));
        row("only before it", space(9) + file("Old", {}), "Longer", space(9) + file("Longer", {}));
    }

    void freeAtomsAbsorbChanges()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, title);
        const AtomSource source = AtomSource::ofBytes(file);
        const auto tree = Atom::atomContainerFromFile(source);
        tree->setAutoSizing(true);
        Atom *user = tree->firstChild(atomName("udta"));
        user->childAtAtomPath(u"udta:ilst:\u00A9nam:data")
            ->setStringValue(QString::fromUtf8(title));
        QTEST(flattened(*tree), "expected");
    }

    void pathsCountAndCreate()
    {
        const QByteArray bytes = movie(track({}) + track(placeTable("stco", "1")));
        const AtomSource source = AtomSource::ofBytes(bytes);
        const auto tree = Atom::atomContainerFromFile(source);
        const Atom *second = tree->childAtAtomPath(u"FILE:moov:trak", Atom::Create::No, u"1:1:2");
        QVERIFY(second && second->contents().size() == 2);
        QCOMPARE(quint64(second->originalRange().location),
                 AtomLookup::offsetToAtomIn(source, u"moov:trak", u"1:2"));
        QCOMPARE(AtomLookup::offsetToAtomIn(source, u"moov:trak", u"1:3"), AtomLookup::notFound);
        QCOMPARE(AtomLookup::atomDataIn(source, u"moov:mvhd"), QByteArray(100, '\0'));
        QVERIFY(!tree->childAtAtomPath(u"FILE:moov:udta"));

        Atom *list = tree->childAtAtomPath(u"FILE:moov:udta:meta:ilst", Atom::Create::Yes);
        list->becomeContainer();
        list->childAtAtomPath(u"ilst:trkn:data", Atom::Create::Yes, u"1:2:1")->setData("x");
        QCOMPARE(
            list->parent()->flattenedData(),
            atom("meta", number(0) + atom("ilst", atom("trkn") + atom("trkn", atom("data", "x")))));
        QVERIFY(list->firstChild(atomName("trkn"))->removeFromContainer());
        QVERIFY(!tree->removeFromContainer());
        QVERIFY(!list->setSize(3));
    }

    void leavesTellWhatTheyHold()
    {
        const auto leaf = Atom::atomWithName(atomName("data"));
        leaf->setData(QByteArray(8, '\1'));
        QVERIFY(!leaf->stringValue());
        leaf->setStringValue(u"Süd"_s);
        QCOMPARE(leaf->data(),
                 "\0\0\0\1\0\0\0\0S\xC3\xBC"
                 "d"_ba);
        leaf->setData("12345678\xFF"_ba);
        QVERIFY(!leaf->stringValue());
    }
};

QTEST_GUILESS_MAIN(tst_Atom)
#include "tst_atom.moc"
