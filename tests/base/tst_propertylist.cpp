#include "base/propertylist.h"

#include <QDateTime>
#include <QTest>

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

QVariant nestedLists(int depth)
{
    QVariantList list;
    for (int level = 1; level < depth; ++level)
        list = {QVariant(list)};
    return list;
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

/// Each array refers ten times to the next: 10 to the power of `levels` values when copied.
QByteArray sharingBomb(char levels)
{
    QByteArrayList objects;
    for (char level = 1; level <= levels; ++level)
        objects << '\xAA' + QByteArray(10, level);
    return binary(objects << QByteArray("\x51x"));
}

QByteArray deepBinary(char levels)
{
    QByteArrayList objects;
    for (char level = 1; level < levels; ++level)
        objects << QByteArray("\xA1") + level;
    return binary(objects << QByteArray("\x51x"));
}

} // namespace

class TestPropertyList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void valuesComeBack_data();
    void valuesComeBack();
    void reading_data();
    void reading();
    void refused_data();
    void refused();
    void brokenBinaryNeverCrashes();
    void controlCharactersAreNotWritten();
};

void TestPropertyList::valuesComeBack_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("flag") << QVariant(true);
    QTest::newRow("number") << QVariant(qint64(1) << 40);
    QTest::newRow("negative number") << QVariant(qint64(-5));
    QTest::newRow("fraction") << QVariant(-0.1);
    QTest::newRow("large fraction") << QVariant(1.5e18);
    QTest::newRow("text") << QVariant(u"<é & \U0001F600>\n"_s);
    QTest::newRow("empty text") << QVariant(u""_s);
    QTest::newRow("bytes") << QVariant(QByteArray("\0\xFFx", 3));
    QTest::newRow("date") << QVariant(QDateTime({2004, 2, 29}, {23, 59, 58}, Qt::UTC));
    QTest::newRow("nested") << QVariant(QVariantMap{
        {u"a"_s, QVariantList{u"x"_s, QVariantMap{}, QVariantList{}}}, {u""_s, qint64(0)}});
}

void TestPropertyList::valuesComeBack()
{
    QFETCH(QVariant, value);
    for (const QByteArray &bytes : {PropertyList::toXml(value), PropertyList::toBinary(value)}) {
        const auto parsed = PropertyList::parse(bytes);
        QCOMPARE(parsed.error, QString());
        QCOMPARE(parsed.value, value);
        QCOMPARE(parsed.value.typeId(), value.typeId());
    }
}

void TestPropertyList::reading_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("with the usual document type")
        << xml("<true/>",
               "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
               "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">")
        << QVariant(true);
    QTest::newRow("comments and blanks")
        << xml(" <!-- <x> --> <integer> 7 </integer>\n") << QVariant(qint64(7));
    QTest::newRow("references and CDATA")
        << xml("<string>&lt;&#65;<![CDATA[&b;]]></string>") << QVariant(u"<A&b;"_s);
    QTest::newRow("wrapped bytes")
        << xml("<data>\n\tYW\n\tI=\n</data>") << QVariant(QByteArray("ab"));
    QTest::newRow("64 levels are no damage") << nested(64) << nestedLists(64);
    QTest::newRow("shared parts") << binary({"\xA2\x01\x01", "\x51x"})
                                  << QVariant(QVariantList{u"x"_s, u"x"_s});
}

void TestPropertyList::reading()
{
    QFETCH(QByteArray, data);
    const auto parsed = PropertyList::parse(data);
    QCOMPARE(parsed.error, QString());
    QTEST(parsed.value, "value");
}

void TestPropertyList::refused_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("reason");

    QTest::newRow("empty") << QByteArray() << u"document"_s;
    QTest::newRow("another document") << QByteArray("<html/>") << u"<html> instead of <plist>"_s;
    QTest::newRow("no value") << xml("") << u"empty"_s;
    QTest::newRow("two values") << xml("<true/><true/>") << u"second value"_s;
    QTest::newRow("something behind") << QByteArray(xml("<true/>") + "<x/>") << u"line 3"_s;
    QTest::newRow("cut short") << xml("<array><true/>").chopped(9) << u"line 2"_s;
    QTest::newRow("unknown element")
        << xml("<array>\n<number>1</number></array>") << u"line 3: unknown element <number>"_s;
    QTest::newRow("value without key") << xml("<dict><true/></dict>") << u"should be"_s;
    QTest::newRow("key without value")
        << xml("<dict><key>k</key></dict>") << u"no value for \"k\""_s;
    QTest::newRow("stray text") << xml("<array>x</array>") << u"text between"_s;
    QTest::newRow("bad number") << xml("<integer>12x</integer>") << u"bad integer \"12x\""_s;
    QTest::newRow("number out of range")
        << xml("<integer>99999999999999999999</integer>") << u"bad integer"_s;
    QTest::newRow("bad date") << xml("<date>yesterday</date>") << u"bad date"_s;
    QTest::newRow("bad bytes") << xml("<data>?</data>") << u"bad data"_s;
    QTest::newRow("65 levels") << nested(65) << u"deeper than 64"_s;
    QTest::newRow("nesting bomb") << nested(1'000'000) << u"deeper than 64"_s;
    QTest::newRow("entity of its own")
        << xml("<string>&a;</string>", "<!DOCTYPE plist [<!ENTITY a \"aa\">]>")
        << u"declarations"_s;
    QTest::newRow("external entity") << xml(
        "<string>&a;</string>", "<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>")
                                     << u"declarations"_s;
    QTest::newRow("entity from outside")
        << xml("<string>&a;</string>", "<!DOCTYPE plist SYSTEM \"x.dtd\">")
        << u"unknown entity \"a\""_s;

    QTest::newRow("binary: header alone") << QByteArray("bplist00") << u"too short"_s;
    QTest::newRow("binary: no objects") << binary({}) << u"no object 0"_s;
    QTest::newRow("binary: holds itself")
        << binary({QByteArray("\xA1\0", 2)}) << u"deeper than 64"_s;
    QTest::newRow("binary: holds itself by way of another")
        << binary({"\xA1\x01", QByteArray("\xA1\0", 2)}) << u"deeper than 64"_s;
    QTest::newRow("binary: 65 levels") << deepBinary(65) << u"deeper than 64"_s;
    QTest::newRow("binary: sharing bomb") << sharingBomb(9) << u"shared parts"_s;
    QTest::newRow("binary: unknown object") << binary({"\xA1\x09"}) << u"no object 9"_s;
    QTest::newRow("binary: unknown type") << binary({"\x70"}) << u"unknown type 7"_s;
    QTest::newRow("binary: text longer than the file")
        << binary({"\x5F\x11\xFF\xFF"}) << u"do not fit"_s;
    QTest::newRow("binary: key that is no text")
        << binary({"\xD1\x01\x01", "\x10\x01"}) << u"key that is no text"_s;
    QTest::newRow("binary: key with a zero")
        << binary({"\xD1\x01\x01", QByteArray("\x52\0x", 3)}) << u"key that is no text"_s;
}

void TestPropertyList::refused()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, reason);
    const auto parsed = PropertyList::parse(data);
    QVERIFY(!parsed.value.isValid());
    QVERIFY2(parsed.error.contains(reason), qPrintable(parsed.error));
    QVERIFY(!parsed.error.contains(u'\n'));
}

void TestPropertyList::brokenBinaryNeverCrashes()
{
    const QByteArray whole =
        PropertyList::toBinary(QVariantMap{{u"a"_s, QVariantList{1, u"é"_s, 0.5, QByteArray("x")}},
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

void TestPropertyList::controlCharactersAreNotWritten()
{
    const QVariantMap value{{u"k\u0001"_s, QString(u"a\u0002b\t"_s + QChar(u'\0') + u'c')}};
    const auto parsed = PropertyList::parse(PropertyList::toXml(value));
    QCOMPARE(parsed.value.toMap(), (QVariantMap{{u"k"_s, u"ab\tc"_s}}));
}

QTEST_GUILESS_MAIN(TestPropertyList)
#include "tst_propertylist.moc"
