#include "support/cases.h"
#include "tags/genretable.h"

#include <atomic>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

class tst_GenreTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        GenreTable::install({u"Blues"_s, u"Rock"_s, u"Alternative"_s, u"Alternative Rock"_s,
                             u"Jazz"_s, u"rock"_s, u"Soul"_s, u"(0)(0)"_s});
    }

    void indexes()
    {
        QCOMPARE(GenreTable::indexOfGenre(u" jAZZ\n"_s), 4);
        QVERIFY2(GenreTable::indexOfGenre(u"Rock"_s) == 5, "of equal names the last");
        QCOMPARE(GenreTable::indexOfGenre(u"Alt"_s), 2147483647);
        QVERIFY(!GenreTable::genreForIndex(-1) && !GenreTable::genreForIndex(8));
    }

    void expandedGenres()
    {
        const auto expanded = [](const QString &genres) {
            return GenreTable::expandedGenres(genres);
        };
        for (const QByteArrayList &cells : casesIn("expandedgenres"))
            QCOMPARE(expanded(QString::fromUtf8(cells[0])), QString::fromUtf8(cells[1]));
        const QString tooLong = u"(1)"_s.repeated(1400);
        QCOMPARE(expanded(tooLong), tooLong);
        QVERIFY(!GenreTable::expandedGenres({}));
    }

    void standardizedGenreFrom()
    {
        const auto genre = GenreTable::standardizedGenreFrom;
        QVERIFY2(genre(u"Alternative Rock band"_s) == u"Alternative Rock", "the longest name");
        QVERIFY2(genre(u"Rock!"_s) == u"rock", "of equally long ones the last");
        QVERIFY2(genre(u"alter native"_s) == u"Alternative", "blanks and case do not count");
        QVERIFY(!genre(u"Polka"_s) && !genre(u"R"_s));
        GenreTable::install({u"Polka"_s, u"Waltz"_s});
        QVERIFY2(genre(u"blues"_s) == u"Polka", "simplified names are made once");
    }

    void tableIsMadeOnceOnWhateverThread()
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
};

QTEST_GUILESS_MAIN(tst_GenreTable)
#include "tst_genretable.moc"
