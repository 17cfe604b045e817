#pragma once

#include "songs/songfile.h"

#include <QHash>
#include <QList>
#include <QString>

#include <optional>
#include <vector>

/// What a genre text becomes by the genre table, and how sure that is.
struct StandardGenre {
    enum class Certainty {
        Unchanged, ///< it stands in the table like this, or nothing in the table is like it
        SameName, ///< a number, or a name written otherwise
        NearName, ///< a name with a typing mistake
        Contained, ///< a name of the table stands within a longer one: something is lost
    };

    QString genres; ///< several are separated by "/", as in tags
    Certainty certainty = Certainty::Unchanged;
};

/// The genre table, made ready for many questions. Used on any thread.
class GenreStandard {
public:
    GenreStandard();

    [[nodiscard]] StandardGenre standardGenre(const QString &genres) const;

private:
    struct Name {
        QString genre;
        QString simplified;
    };
    struct Piece {
        QString genre;
        StandardGenre::Certainty certainty;
    };

    [[nodiscard]] Piece standardPiece(const QString &piece) const;
    template<typename Fits>
    [[nodiscard]] std::optional<QString> nameThat(Fits fits) const;
    [[nodiscard]] std::optional<QString> nearName(const QString &simplified) const;

    std::vector<Name> mNames;
};

/// How many of the songs have each genre text.
[[nodiscard]] QHash<QString, int> genresOf(const SongList &songs);

/// One genre text of some songs.
struct GenreOfSongs {
    QString genres;
    int songs = 0; ///< how many have it
    StandardGenre standard;
};

/// Those to be changed first, then by the number of songs. Takes a while for thousands of texts;
/// used on any thread.
[[nodiscard]] QList<GenreOfSongs> standardised(const QHash<QString, int> &genres);
