#include "tags/genretable.h"

#include "base/log.h"
#include "tags/audioinfotag.h"
#include "text/integervalue.h"
#include "text/simplifier.h"

#include <QSet>
#include <QStringTokenizer>

#include <algorithm>
#include <iterator>
#include <mutex>
#include <utility>

namespace {

/// Recursive because the definitions install their genres while they are being made on request;
/// held meanwhile, so that other threads wait for the table instead of finding none.
struct Table {
    std::recursive_mutex mutex;
    QStringList genres;
    std::function<QStringList()> make;
    std::optional<QStringList> simplifiedGenres;
};

Table &theTable()
{
    static Table table;
    return table;
}

/// The simplified names, in the order of the table. Made once and never again, even when the
/// table changes later: what a text is standardised to stays the same for a whole run, whenever
/// newer definitions arrive.
QStringList simplifiedGenres(const QStringList &genres)
{
    Table &table = theTable();
    const std::scoped_lock lock(table.mutex);
    if (!table.simplifiedGenres) {
        QStringList simplified;
        std::transform(genres.begin(), genres.end(), std::back_inserter(simplified),
                       HVUtility::simplifyString);
        table.simplifiedGenres = simplified;
    }
    return *table.simplifiedGenres;
}

/// "a/b/a" as "a/b".
QString withoutRepeatedPieces(const QString &genres)
{
    QSet<QStringView> seen;
    QString result;
    for (const QStringView piece : qTokenize(genres, u'/')) {
        if (seen.contains(piece))
            continue;
        if (!seen.isEmpty())
            result += u'/';
        result += piece;
        seen.insert(piece);
    }
    return result;
}

/// The name for the text between two brackets, when it is the number of a genre.
std::optional<QString> referencedGenre(QStringView reference)
{
    const int number = integerValue(reference);
    if (number == 0 && reference != u"0")
        return {};
    return GenreTable::genreForIndex(number);
}

bool hasBracket(const QString &text)
{
    return text.contains(u'(') || text.contains(u')');
}

/// Replaces references as long as the first "(" and the first ")" of what is left enclose one.
QString withNamesForNumbers(const QString &text)
{
    QString result;
    qsizetype at = 0;
    for (;;) {
        const qsizetype open = text.indexOf(u'(', at);
        const qsizetype close = open < 0 ? -1 : text.indexOf(u')', at);
        if (close <= open + 1)
            break;
        const auto name = referencedGenre(QStringView(text).sliced(open + 1, close - open - 1));
        if (!name)
            break;
        result += QStringView(text).sliced(at, open - at);
        result += *name;
        // A single character after the bracket gets no separator (kept: texts written so far
        // would no longer compare equal).
        if (close < text.size() - 2)
            result += u'/';
        at = close + 1;
        if (hasBracket(*name))
            break; // a name that refers to itself must not be expanded for ever
    }
    return result += QStringView(text).sliced(at);
}

} // namespace

void GenreTable::install(const QStringList &genres)
{
    Table &table = theTable();
    const std::scoped_lock lock(table.mutex);
    table.genres = genres;
    table.make = nullptr;
}

void GenreTable::installLater(std::function<QStringList()> make)
{
    Table &table = theTable();
    const std::scoped_lock lock(table.mutex);
    table.make = std::move(make);
}

QStringList GenreTable::allGenres()
{
    Table &table = theTable();
    const std::scoped_lock lock(table.mutex);
    if (const auto make = std::exchange(table.make, nullptr))
        table.genres = make();
    return table.genres;
}

std::optional<QString> GenreTable::genreForIndex(int index)
{
    const QStringList genres = allGenres();
    if (index < 0 || index >= genres.size())
        return {};
    return genres[index];
}

int GenreTable::indexOfGenre(const std::optional<QString> &name)
{
    if (!name)
        return AudioInfoTag::notFound;
    const QStringList genres = allGenres();
    const QString wanted = name->trimmed();
    const auto same = [&wanted](const QString &genre) {
        return genre.compare(wanted, Qt::CaseInsensitive) == 0;
    };
    const auto found = std::find_if(genres.rbegin(), genres.rend(), same);
    if (found == genres.rend())
        return AudioInfoTag::notFound;
    return static_cast<int>(std::distance(found, genres.rend())) - 1;
}

std::optional<QString> GenreTable::standardizedGenreFrom(const QString &text)
{
    if (text.size() < 2)
        return {};
    const QStringList genres = allGenres();
    const QStringList simplified = simplifiedGenres(genres);
    const QString searched = HVUtility::simplifyString(text);
    QString best;
    for (qsizetype i = std::min(genres.size(), simplified.size()); i-- > 0;)
        if (genres[i].size() > best.size() && searched.contains(simplified[i]))
            best = genres[i];
    qCInfo(logTags).noquote() << QStringLiteral("standardized '%1' -> %2").arg(text, best);
    if (best.isEmpty())
        return {};
    return best;
}

std::optional<QString> GenreTable::expandedGenres(const std::optional<QString> &genres)
{
    // Names are longer than numbers: a damaged text of megabytes must not become ten times as long.
    constexpr qsizetype longestExpanded = 4096;
    if (!genres || genres->size() > longestExpanded)
        return genres;
    return withoutRepeatedPieces(withNamesForNumbers(*genres));
}
