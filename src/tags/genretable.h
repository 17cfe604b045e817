#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// The genre table of the live site definitions: index n is ID3 genre number n. Installed when
/// definitions load or merge; read from any thread.
namespace GenreTable {

/// Replaces the table.
void install(const QStringList &genres);

/// Has the table made when it is first asked for, so that a program that needs no genre loads
/// no definitions. `make` runs at most once, on whatever thread asks first.
void installLater(std::function<QStringList()> make);

QStringList allGenres();
std::optional<QString> genreForIndex(int index);

/// Trimmed and without regard to case; of equal entries the highest index. AudioInfoTag::notFound
/// when there is none.
int indexOfGenre(const std::optional<QString> &name);

/// The longest table name that occurs in the text, both simplified.
std::optional<QString> standardizedGenreFrom(const QString &text);

/// "(17)(18)Rock" with the numbers replaced by names, pieces separated by "/", none twice.
std::optional<QString> expandedGenres(const std::optional<QString> &genres);

} // namespace GenreTable
