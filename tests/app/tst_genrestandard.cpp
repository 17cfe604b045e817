#include "app/genrestandard.h"

#include "support/table.h"
#include "tags/genretable.h"

using namespace Qt::StringLiterals;
using Certainty = StandardGenre::Certainty;

Q_DECLARE_METATYPE(StandardGenre::Certainty)

class TestGenreStandard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void genreBecomesOneOfTheTable_data()
    {
        const Table<QString, QString, Certainty> row("genres", "becomes", "certainty");
        row("as in the table", u"Rock"_s, u"Rock"_s, Certainty::Unchanged);
        row("unknown ones stay", u"Łódź Brass"_s, u"Łódź Brass"_s, Certainty::Unchanged);
        row("number", u"1"_s, u"Rock"_s, Certainty::SameName);
        row("number in brackets", u"(1)"_s, u"Rock"_s, Certainty::SameName);
        row("number without a name", u"(200)"_s, u"(200)"_s, Certainty::Unchanged);
        row("case and blanks", u" rOCK "_s, u"Rock"_s, Certainty::SameName);
        row("written otherwise", u"hiphop"_s, u"Hip-Hop"_s, Certainty::SameName);
        row("letter missing", u"Alternativ Rock"_s, u"Alternative Rock"_s, Certainty::NearName);
        row("letters swapped", u"Clasical"_s, u"Classical"_s, Certainty::NearName);
        row("neighbours swapped", u"Calssical"_s, u"Classical"_s, Certainty::NearName);
        row("too short for a mistake", u"Rocc"_s, u"Rocc"_s, Certainty::Unchanged);
        row("longer than a name", u"Alternative Rock band"_s, u"Alternative Rock"_s,
            Certainty::Contained);
        row("name with a slash", u"pop/funk"_s, u"Pop/Funk"_s, Certainty::SameName);
        row("several, none twice", u"(1)rock/17/Jazz"_s, u"Rock/17/Jazz"_s, Certainty::SameName);
        row("least certain one counts", u"1/Classicla"_s, u"Rock/Classical"_s, Certainty::NearName);
        row("far too long", QString(5000, u'/'), QString(5000, u'/'), Certainty::Unchanged);
    }

    void genreBecomesOneOfTheTable()
    {
        QFETCH(const QString, genres);
        GenreTable::install({u"Jazz"_s, u"Rock"_s, u"Hip-Hop"_s, u"Alternative Rock"_s,
                             u"Classical"_s, u"Pop/Funk"_s});
        const StandardGenre standard = GenreStandard().standardGenre(genres);
        QTEST(standard.genres, "becomes");
        QTEST(standard.certainty, "certainty");
    }
};

QTEST_GUILESS_MAIN(TestGenreStandard)
#include "tst_genrestandard.moc"
