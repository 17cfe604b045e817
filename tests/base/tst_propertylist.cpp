#include "base/propertylist.h"
#include "support/cases.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {

QByteArray xml(const QByteArray &content, const QByteArray &head = {})
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + head + "<plist version=\"1.0\">"
        + content + "</plist>\n";
}

QByteArray nested(int depth)
{
    return xml(QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth));
}

/// A binary list of objects with one-byte offsets and references, the first being the root.
QByteArray binary(const QByteArrayList &objects)
{
    QByteArray data = "bplist00";
    QByteArray offsets;
    for (const QByteArray &object : objects) {
        offsets.append(static_cast<char>(data.size()));
        data += object;
    }
    const auto table = static_cast<char>(data.size());
    const QByteArray seven(7, '\0');
    return data + offsets + QByteArray(6, '\0') + "\x01\x01" + seven
        + static_cast<char>(objects.size()) + seven + '\0' + seven + table;
}

/// Arrays that refer `times` times to the next: `times` to the power of `levels` values when
/// copied.
QByteArray arrays(char levels, int times)
{
    QByteArrayList objects;
    for (char level = 1; level <= levels; ++level)
        objects << static_cast<char>(0xA0 + times) + QByteArray(times, level);
    return binary(objects << QByteArray("\x51x"));
}

} // namespace

class TestPropertyList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void valuesComeBack_data()
    {
        const Table<QVariant> row("value");
        row("flag", QVariant(true));
        row("number", QVariant(qint64(1) << 40));
        row("fraction", QVariant(-0.1));
        row("text", QVariant(u"<é & \U0001F600>\n"_s));
        row("bytes", QVariant(QByteArray("\0\xFFx", 3)));
        row("date", QVariant(QDateTime({2004, 2, 29}, {23, 59, 58}, Qt::UTC)));
        row("nested",
            QVariant(QVariantMap{{u"a"_s, QVariantList{u"x"_s, QVariantMap{}, QVariantList{}}},
                                 {u""_s, qint64(0)}}));
    }

    void valuesComeBack()
    {
        QFETCH(QVariant, value);
        for (const QByteArray &bytes :
             {PropertyList::toXml(value), PropertyList::toBinary(value)}) {
            const auto parsed = PropertyList::parse(bytes);
            QCOMPARE(parsed.error, QString());
            QCOMPARE(parsed.value, value);
            QCOMPARE(parsed.value.typeId(), value.typeId());
        }
    }

    void reading_data()
    {
        const Table<QByteArray, QVariant> row("data", "value");
        row("with the usual document type",
            xml("<true/>",
                "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"),
            QVariant(true));
        row("comments, blanks", xml(" <!-- <x> --> <integer> 7 </integer>\n"), QVariant(qint64(7)));
        row("CDATA", xml("<string>&lt;&#65;<![CDATA[&b;]]></string>"), QVariant(u"<A&b;"_s));
        row("wrapped bytes", xml("<data>\n\tYW\n\tI=\n</data>"), QVariant(QByteArray("ab")));
        row("shared", binary({"\xA2\x01\x01", "\x51x"}), QVariant(QVariantList{u"x"_s, u"x"_s}));
    }

    void reading()
    {
        QFETCH(QByteArray, data);
        const auto parsed = PropertyList::parse(data);
        QCOMPARE(parsed.error, QString());
        QTEST(parsed.value, "value");
    }

    void refused_data()
    {
        const Table<QByteArray, QString> row("data", "reason");
        addCases(row, "refusedlists");
        row("empty", QByteArray(), u"document"_s);
        row("cut short", xml("<array><true/>").chopped(9), u"line 2"_s);
        row("65 levels", nested(65), u"deeper than 64"_s);
        row("nesting bomb", nested(1'000'000), u"deeper than 64"_s);
        row("binary: holds itself by way of another", binary({"\xA1\x01", QByteArray("\xA1\0", 2)}),
            u"deeper than 64"_s);
        row("binary: 65 levels", arrays(64, 1), u"deeper than 64"_s);
        row("binary: sharing bomb", arrays(9, 10), u"shared parts"_s);
        row("binary: unknown object", binary({"\xA1\x09"}), u"no object 9"_s);
        row("binary: unknown type", binary({"\x70"}), u"unknown type 7"_s);
        row("binary: text longer than the file", binary({"\x5F\x11\xFF\xFF"}), u"do not fit"_s);
        row("binary: other keys", binary({"\xD1\x01\x01", "\x10\x01"}), u"key that is no text"_s);
        row("binary: key with a zero", binary({"\xD1\x01\x01", QByteArray("\x52\0x", 3)}),
            u"key that is no text"_s);
    }

    void refused()
    {
        QVERIFY(PropertyList::parse(nested(64)).value.isValid());
        QFETCH(QByteArray, data);
        QFETCH(QString, reason);
        const auto parsed = PropertyList::parse(data);
        QVERIFY(!parsed.value.isValid());
        QVERIFY2(parsed.error.contains(reason), qPrintable(parsed.error));
        QVERIFY(!parsed.error.contains(u'\n'));
    }

    void brokenBinaryNeverCrashes()
    {
        const QByteArray whole = PropertyList::toBinary(
            QVariantMap{{u"a"_s, QVariantList{1, u"é"_s, 0.5, QByteArray("x")}},
                        {u"b"_s, QDateTime::fromSecsSinceEpoch(0, Qt::UTC)}});
        QVERIFY(PropertyList::parse(whole).value.isValid());
        for (qsizetype i = 0; i < whole.size(); ++i) {
            for (const int change : {0x01, 0x80, 0xFF}) {
                QByteArray broken = whole;
                broken[i] = static_cast<char>(broken[i] ^ change);
                const auto parsed = PropertyList::parse(broken);
                QVERIFY(parsed.value.isValid() != !parsed.error.isEmpty());
            }
            QVERIFY(!PropertyList::parse(whole.first(i)).value.isValid());
        }
    }

    void controlCharactersAreNotWritten()
    {
        const QVariantMap value{{u"k\u0001"_s, QString(u"a\u0002b\t"_s + QChar(u'\0') + u'c')}};
        const auto parsed = PropertyList::parse(PropertyList::toXml(value));
        QCOMPARE(parsed.value.toMap(), (QVariantMap{{u"k"_s, u"ab\tc"_s}}));
    }
};

QTEST_GUILESS_MAIN(TestPropertyList)
#include "tst_propertylist.moc"
