#include "tags/audioinfotag.h"
#include "tags/genretable.h"

#include <QTest>

#include <atomic>
#include <thread>
#include <vector>

using std::optional;
using namespace Qt::StringLiterals;

class tst_GenreTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void indexes_data();
    void indexes();
    void expandedGenres_data();
    void expandedGenres();
    void namesThatReferToThemselvesEnd();
    void longTextsOfReferencesAreFast();
    void standardizedGenreFrom_data();
    void standardizedGenreFrom();
    void simplifiedNamesAreMadeOnce();
    void tableIsMadeOnceOnWhateverThread();
};

void tst_GenreTable::init()
{
    GenreTable::install({u"Blues"_s, u"Rock"_s, u"Alternative"_s, u"Alternative Rock"_s, u"Jazz"_s,
                         u"rock"_s, u"Soul"_s});
}

void tst_GenreTable::indexes_data()
{
    QTest::addColumn<optional<QString>>("name");
    QTest::addColumn<int>("index");
    QTest::newRow("any case, trimmed") << optional(u" jAZZ\n"_s) << 4;
    QTest::newRow("of equal names the last") << optional(u"Rock"_s) << 5;
    QTest::newRow("part of a name") << optional(u"Alt"_s) << 2147483647;
    QTest::newRow("none") << optional<QString>() << 2147483647;
}

void tst_GenreTable::indexes()
{
    QFETCH(optional<QString>, name);
    QTEST(GenreTable::indexOfGenre(name), "index");
    QVERIFY(!GenreTable::genreForIndex(-1) && !GenreTable::genreForIndex(7));
    QCOMPARE(GenreTable::genreForIndex(6), u"Soul"_s);
}

void tst_GenreTable::expandedGenres_data()
{
    QTest::addColumn<QString>("genres");
    QTest::addColumn<QString>("expanded");
    QTest::newRow("number") << u"(1)"_s << u"Rock"_s;
    QTest::newRow("number 0") << u"(0)"_s << u"Blues"_s;
    QTest::newRow("blank before 0") << u"( 0)"_s << u"( 0)"_s;
    QTest::newRow("numbers and text") << u"(1)(4)Sea Song"_s << u"Rock/Jazz/Sea Song"_s;
    QTest::newRow("text in front") << u"Sea(4)Song"_s << u"SeaJazz/Song"_s;
    QTest::newRow("same name behind it") << u"(1)Rock"_s << u"Rock"_s;
    QTest::newRow("one character gets no separator") << u"(1)X"_s << u"RockX"_s;
    QTest::newRow("unknown number ends it") << u"(1)(255)(4)"_s << u"Rock/(255)(4)"_s;
    QTest::newRow("negative number") << u"(-1)"_s << u"(-1)"_s;
    QTest::newRow("words") << u"(Rock)"_s << u"(Rock)"_s;
    QTest::newRow("nothing between") << u"()"_s << u"()"_s;
    QTest::newRow("closed before opened") << u")(1)"_s << u")(1)"_s;
    QTest::newRow("never closed") << u"(1"_s << u"(1"_s;
    QTest::newRow("digits, then others") << u"(4a)"_s << u"Jazz"_s;
    QTest::newRow("repeated pieces") << u"Folk/Rock/Folk/folk"_s << u"Folk/Rock/folk"_s;
    QTest::newRow("empty pieces") << u"/a//b/"_s << u"/a/b"_s;
    QTest::newRow("empty") << u""_s << u""_s;
}

void tst_GenreTable::expandedGenres()
{
    QFETCH(QString, genres);
    QTEST(GenreTable::expandedGenres(genres).value(), "expanded");
    QVERIFY(!GenreTable::expandedGenres({}));
}

void tst_GenreTable::namesThatReferToThemselvesEnd()
{
    GenreTable::install({u"(1)(1)"_s, u"(0)(0)"_s});
    QCOMPARE(GenreTable::expandedGenres(u"(0)(0)"_s), u"(1)(1)/(0)"_s);
}

void tst_GenreTable::longTextsOfReferencesAreFast()
{
    const auto expanded = GenreTable::expandedGenres(u"(1)"_s.repeated(1'000'000));
    QCOMPARE(expanded, u"Rock"_s);
}

void tst_GenreTable::standardizedGenreFrom_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<optional<QString>>("genre");
    QTest::newRow("longest name") << u"Alternative Rock band"_s << optional(u"Alternative Rock"_s);
    QTest::newRow("of equally long ones the last") << u"Rock!"_s << optional(u"rock"_s);
    QTest::newRow("blanks and case do not count")
        << u"alter native"_s << optional(u"Alternative"_s);
    QTest::newRow("no name in it") << u"Polka"_s << optional<QString>();
    QTest::newRow("one character") << u"R"_s << optional<QString>();
}

void tst_GenreTable::standardizedGenreFrom()
{
    QFETCH(QString, text);
    QTEST(GenreTable::standardizedGenreFrom(text), "genre");
}

void tst_GenreTable::simplifiedNamesAreMadeOnce()
{
    QCOMPARE(GenreTable::standardizedGenreFrom(u"blues"_s), u"Blues"_s);
    GenreTable::install({u"Polka"_s, u"Waltz"_s});
    QVERIFY(!GenreTable::standardizedGenreFrom(u"Polka"_s));
    QCOMPARE(GenreTable::standardizedGenreFrom(u"blues"_s), u"Polka"_s);
}

void tst_GenreTable::tableIsMadeOnceOnWhateverThread()
{
    std::atomic<int> made = 0;
    GenreTable::installLater([&made] {
        ++made;
        std::this_thread::yield();
        // Loading definitions installs their genres by itself.
        GenreTable::install({u"Early"_s});
        return QStringList{u"Polka"_s};
    });
    std::atomic<int> right = 0;
    std::vector<std::jthread> readers;
    for (int i = 0; i < 8; ++i)
        readers.emplace_back([&right] { right += GenreTable::genreForIndex(0) == u"Polka"; });
    readers.clear();
    QCOMPARE(right.load(), 8);
    QCOMPARE(made.load(), 1);
}

QTEST_GUILESS_MAIN(tst_GenreTable)
#include "tst_genretable.moc"
