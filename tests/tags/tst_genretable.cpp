#include "support/table.h"
#include "tags/genretable.h"

#include <atomic>
#include <thread>
#include <vector>

using std::optional;
using namespace Qt::StringLiterals;

class tst_GenreTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        GenreTable::install({u"Blues"_s, u"Rock"_s, u"Alternative"_s, u"Alternative Rock"_s,
                             u"Jazz"_s, u"rock"_s, u"Soul"_s, u"(0)(0)"_s});
    }
    void indexes();
    void expandedGenres_data();
    void expandedGenres();
    void standardizedGenreFrom();
    void tableIsMadeOnceOnWhateverThread();
};

void tst_GenreTable::indexes()
{
    QCOMPARE(GenreTable::indexOfGenre(u" jAZZ\n"_s), 4);
    QVERIFY2(GenreTable::indexOfGenre(u"Rock"_s) == 5, "of equal names the last");
    QCOMPARE(GenreTable::indexOfGenre(u"Alt"_s), 2147483647);
    QVERIFY(!GenreTable::genreForIndex(-1) && !GenreTable::genreForIndex(8));
}

void tst_GenreTable::expandedGenres_data()
{
    const Table<QString, QString> row("genres", "expanded");
    row("number 0", u"(0)"_s, u"Blues"_s);
    row("blank before 0", u"( 0)"_s, u"( 0)"_s);
    row("numbers and text", u"(1)(4)Sea Song"_s, u"Rock/Jazz/Sea Song"_s);
    row("text in front", u"Sea(4)Song"_s, u"SeaJazz/Song"_s);
    row("same name behind it", u"(1)Rock"_s, u"Rock"_s);
    row("one character gets no separator", u"(1)X"_s, u"RockX"_s);
    row("unknown number ends it", u"(1)(255)(4)"_s, u"Rock/(255)(4)"_s);
    row("negative number", u"(-1)"_s, u"(-1)"_s);
    row("nothing between", u"()"_s, u"()"_s);
    row("closed before opened", u")(1)"_s, u")(1)"_s);
    row("never closed", u"(1"_s, u"(1"_s);
    row("digits, then others", u"(4a)"_s, u"Jazz"_s);
    row("repeated pieces", u"Folk/Rock/Folk/folk"_s, u"Folk/Rock/folk"_s);
    row("empty pieces", u"/a//b/"_s, u"/a/b"_s);
    row("a name that refers to itself", u"(7)(0)"_s, u"(0)(0)/(0)"_s);
    const QString tooLong = u"(1)"_s.repeated(1400);
    row("longer than any list of genres", tooLong, tooLong);
}

void tst_GenreTable::expandedGenres()
{
    QFETCH(QString, genres);
    QTEST(GenreTable::expandedGenres(genres).value(), "expanded");
    QVERIFY(!GenreTable::expandedGenres({}));
}

void tst_GenreTable::standardizedGenreFrom()
{
    const auto genre = GenreTable::standardizedGenreFrom;
    QVERIFY2(genre(u"Alternative Rock band"_s) == u"Alternative Rock", "the longest name");
    QVERIFY2(genre(u"Rock!"_s) == u"rock", "of equally long ones the last");
    QVERIFY2(genre(u"alter native"_s) == u"Alternative", "blanks and case do not count");
    QVERIFY(!genre(u"Polka"_s) && !genre(u"R"_s));
    GenreTable::install({u"Polka"_s, u"Waltz"_s});
    QVERIFY2(genre(u"blues"_s) == u"Polka", "simplified names are made once");
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
