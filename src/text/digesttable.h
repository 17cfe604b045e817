#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVariantMap>

/// Under what a digest knows an album: the loose key of the artist with the title put directly
/// behind it; of the title alone for a compilation, whose artist is empty here.
[[nodiscard]] QString digestKey(const QString &artist, const QString &albumTitle);

/// A digest made from a table.
struct DigestTable {
    struct Problem {
        int line; ///< from 1
        QString reason;
    };

    QVariantMap paths; ///< by digestKey()
    QList<Problem> problems; ///< lines that say nothing usable, at most 20
};

/// Reads a table in UTF-8 of a line for each album: artist, album and path, with tabs between.
/// Empty lines are passed over, and so are those that begin with "#" and have no tab.
[[nodiscard]] DigestTable digestOfTable(const QByteArray &table);
