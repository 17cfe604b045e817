#include "app/genrestandard.h"

#include "tags/genretable.h"
#include "text/simplifier.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

using Certainty = StandardGenre::Certainty;

/// A longer text is no genre.
constexpr qsizetype longestGenre = 100;
/// In shorter names one letter makes another genre: Rap and Trap.
constexpr qsizetype shortestWithMistake = 5;

/// Whether one letter less, more, another one, or two swapped make one text the other.
bool isOneMistakeApart(QStringView text, QStringView other)
{
    if (text.size() < other.size())
        std::swap(text, other);
    if (text.size() - other.size() > 1)
        return false;
    const auto [here, there] = std::mismatch(text.begin(), text.end(), other.begin(), other.end());
    const QStringView rest(here, text.end());
    const QStringView otherRest(there, other.end());
    if (text.size() > other.size())
        return rest.sliced(1) == otherRest;
    if (rest.isEmpty() || rest.sliced(1) == otherRest.sliced(1))
        return true;
    return rest.size() > 1 && rest[0] == otherRest[1] && rest[1] == otherRest[0]
        && rest.sliced(2) == otherRest.sliced(2);
}

std::optional<QString> nameOfNumber(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber ? GenreTable::genreForIndex(number) : std::nullopt;
}

} // namespace

GenreStandard::GenreStandard()
{
    for (const QString &genre : GenreTable::allGenres())
        mNames.push_back({genre, HVUtility::simplifyString(genre)});
}

/// The first name that fits; nothing when none does.
template<typename Fits>
std::optional<QString> GenreStandard::nameThat(Fits fits) const
{
    const auto found = std::find_if(mNames.begin(), mNames.end(), fits);
    return found == mNames.end() ? std::nullopt : std::optional(found->genre);
}

std::optional<QString> GenreStandard::nearName(const QString &simplified) const
{
    if (simplified.size() < shortestWithMistake)
        return std::nullopt;
    return nameThat(
        [&simplified](const Name &name) { return isOneMistakeApart(name.simplified, simplified); });
}

GenreStandard::Piece GenreStandard::standardPiece(const QString &piece) const
{
    const auto same = [&piece](const QString &genre) {
        return Piece{genre, genre == piece ? Certainty::Unchanged : Certainty::SameName};
    };
    if (const auto name = nameOfNumber(piece))
        return same(*name);
    if (const auto name = GenreTable::genreForIndex(GenreTable::indexOfGenre(piece)))
        return same(*name);
    const QString simplified = HVUtility::simplifyString(piece);
    if (const auto name =
            nameThat([&simplified](const Name &entry) { return entry.simplified == simplified; }))
        return same(*name);
    if (const auto name = nearName(simplified))
        return {*name, Certainty::NearName};
    if (const auto name = GenreTable::standardizedGenreFrom(piece))
        return {*name, Certainty::Contained};
    return {piece, Certainty::Unchanged};
}

StandardGenre GenreStandard::standardGenre(const QString &genres) const
{
    const QString expanded = GenreTable::expandedGenres(genres).value_or(genres).trimmed();
    if (expanded.isEmpty() || expanded.size() > longestGenre)
        return {genres, Certainty::Unchanged};
    // Names of the table may hold a "/" themselves.
    if (const auto whole = GenreTable::genreForIndex(GenreTable::indexOfGenre(expanded)))
        return {*whole, *whole == genres ? Certainty::Unchanged : Certainty::SameName};
    QStringList pieces;
    StandardGenre standard;
    for (const QString &part : expanded.split(u'/', Qt::SkipEmptyParts)) {
        const Piece piece = standardPiece(part.trimmed());
        if (!pieces.contains(piece.genre))
            pieces << piece.genre;
        standard.certainty = std::max(standard.certainty, piece.certainty);
    }
    standard.genres = pieces.join(u'/');
    if (standard.certainty == Certainty::Unchanged && standard.genres != genres)
        standard.certainty = Certainty::SameName; // a number in brackets, a repeated name
    return standard;
}

QHash<QString, int> genresOf(const SongList &songs)
{
    QHash<QString, int> counts;
    for (const auto &song : songs)
        if (const AudioInfoTag *tag = song->infotag())
            if (const auto genres = tag->genres(); genres && !genres->isEmpty())
                ++counts[*genres];
    return counts;
}

QList<GenreOfSongs> standardised(const QHash<QString, int> &genres)
{
    const GenreStandard standard;
    QList<GenreOfSongs> list;
    for (auto genre = genres.cbegin(); genre != genres.cend(); ++genre)
        list.append({genre.key(), genre.value(), standard.standardGenre(genre.key())});
    const auto rank = [](const GenreOfSongs &genre) {
        const bool stays = genre.standard.certainty == Certainty::Unchanged;
        return std::tuple(stays, -genre.songs, genre.genres);
    };
    std::sort(list.begin(), list.end(),
              [&rank](const GenreOfSongs &one, const GenreOfSongs &other) {
                  return rank(one) < rank(other);
              });
    return list;
}
