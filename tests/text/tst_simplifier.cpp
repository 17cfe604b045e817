#include "support/table.h"
#include "text/simplifier.h"
#include "text/stringextensions.h"

#include <QRandomGenerator>

#include <thread>

using namespace HVUtility;
using namespace Qt::StringLiterals;

namespace {

using Simplifiers = QMap<QString, QString>;

/// Simplifying as it is laid down, step by step, on short texts.
QString simplifiedStepByStep(const QString &text, const Simplifiers &simplifiers)
{
    const QString plain = HVStringExtensions::plainASCIIString(
        HVStringExtensions::stringWithoutWords(text, minorWords()));
    QString padded = u' ' + plain + u' ';
    QStringList keys = simplifiers.keys();
    std::stable_sort(keys.begin(), keys.end(),
                     [](const QString &a, const QString &b) { return a.size() > b.size(); });
    for (const QString &key : std::as_const(keys))
        padded.replace(key, simplifiers[key], Qt::CaseInsensitive);
    QString kept;
    for (const QChar c : std::as_const(padded)) {
        if (c.unicode() < 0x80 && c.isLetterOrNumber())
            kept += c.toLower();
    }
    return text.isEmpty() || kept.isEmpty() ? plain : kept;
}

QString randomText(QRandomGenerator &random, const QStringList &pieces, int longest)
{
    QString text;
    for (int i = random.bounded(longest + 1); i > 0; --i)
        text += pieces[random.bounded(pieces.size())];
    return text;
}

} // namespace

class TestSimplifier : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setSimplifiersDictionary({}); }

    void simplifyString_data()
    {
        const Table<Simplifiers, QString, QString> row("simplifiers", "text", "key");

        const Simplifiers none;
        row("minor words, case, blanks", none, u"The  Song OF a Lantern"_s, u"songlantern"_s);
        row("nothing left: trimmed, without minor words", none, u"The ?! "_s, u"?!"_s);
        row("nothing of it in ASCII", none, u"日本"_s, u""_s);

        const Simplifiers words{{u" pt "_s, u" part "_s}, {u"&"_s, u" and "_s}, {u"LIVE"_s, u""_s}};
        row("padding matches at both ends", words, u"Pt one PT"_s, u"partonepart"_s);
        row("all of it replaced by nothing", words, u"Live"_s, u"Live"_s);

        const Simplifiers chain{{u"abc"_s, u"xy"_s}, {u"xy"_s, u"z"_s}, {u"z"_s, u"abc"_s}};
        row("shorter keys see what longer ones put in", chain, u"abc"_s, u"abc"_s);
        row("the first key first", Simplifiers{{u"ab"_s, u"1"_s}, {u"bc"_s, u"2"_s}}, u"abc"_s,
            u"1c"_s);
    }

    void simplifyString()
    {
        QFETCH(Simplifiers, simplifiers);
        QFETCH(QString, text);
        setSimplifiersDictionary(simplifiers);
        QTEST(HVUtility::simplifyString(text), "key");
    }

    void equalsTheStepByStepResult()
    {
        QRandomGenerator random(1);
        const QStringList words{u"a"_s, u"An"_s, u"and"_s, u"of"_s,     u"THE"_s, u" "_s, u" "_s,
                                u" "_s, u"b"_s,  u"K"_s,   u"\u212A"_s, u"é"_s,   u"-"_s, u"\t"_s};
        for (int i = 0; i < 3'000; ++i) {
            Simplifiers simplifiers;
            for (int keys = random.bounded(5); keys > 0; --keys)
                simplifiers[randomText(random, words, 3)] = randomText(random, words, 2);
            simplifiers.remove(QString());
            setSimplifiersDictionary(simplifiers);
            const QString text = randomText(random, words, 12);
            QCOMPARE(HVUtility::simplifyString(text), simplifiedStepByStep(text, simplifiers));
        }
    }

    /// Each character becomes two of the next one: all of them, tens of thousands of millions.
    void growthHasAnEnd()
    {
        const QString characters = u"0123456789abcdefghijklmnopqrstuvwxy"_s;
        Simplifiers doubling;
        for (qsizetype i = 0; i + 1 < characters.size(); ++i)
            doubling.insert(characters.sliced(i, 1), QString(2, characters[i + 1]));
        setSimplifiersDictionary(doubling);
        QVERIFY(HVUtility::simplifyString(u"0"_s).size() < 4 << 20);
    }

    void comparisons()
    {
        QVERIFY(isStringSimpleEqual(u"The Lanterns"_s, u"lanterns!"_s));
        QVERIFY(!isStringSimpleEqual(u"Lanterns"_s, u"Lantern"_s));
        QVERIFY(!isStringSimpleEqual(std::nullopt, std::nullopt));
        QVERIFY(doesStringHaveString(u"The Lanterns"_s, u"LANT"_s));
        QVERIFY(!doesStringHaveString(u"Lant"_s, u""_s));
        QVERIFY(!doesStringHaveString(std::nullopt, u"x"_s));
    }

    void installingWhileOthersRead()
    {
        std::atomic<bool> installed = false;
        std::atomic<int> strange = 0;
        std::thread reader([&] {
            while (!installed) {
                const QString key = HVUtility::simplifyString(u"one two"_s);
                strange += key != u"onetwo"_s && key != u"1two"_s && key != u"one2"_s;
            }
        });
        for (int i = 0; i < 500; ++i) {
            setSimplifiersDictionary({{u"one"_s, u"1"_s}});
            setSimplifiersDictionary({{u"two"_s, u"2"_s}});
        }
        installed = true;
        reader.join();
        QCOMPARE(strange, 0);
        QCOMPARE(HVUtility::simplifyString(u"one two"_s), u"one2"_s);
    }
};

QTEST_GUILESS_MAIN(TestSimplifier)
#include "tst_simplifier.moc"
