#include "gathering/fittinggenre.h"

#include "tags/genretable.h"

std::optional<QString> fittingGenre(const QStringList &names)
{
    for (const QString &name : names) {
        auto genre = GenreTable::genreForIndex(GenreTable::indexOfGenre(name));
        if (!genre)
            genre = GenreTable::standardizedGenreFrom(name);
        if (genre)
            return genre;
    }
    return std::nullopt;
}
