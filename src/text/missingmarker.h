#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

// For whoever asks why nothing was cut out of a page. Every function takes time in proportion to
// the page, whatever stands on it.

/// A marker that a page lacks, and the piece of the page where it was expected.
struct MissingMarker {
    QString key; ///< of the definition or the parse recipe
    QString marker;
    QString piece; ///< one short line; control characters are made visible
};

/// What stands on a page around a place: a short line on which control characters and marks that
/// turn the writing round are made visible.
[[nodiscard]] QString pieceOfPage(QStringView page, qsizetype around);

/// Nothing when the page holds the marker at or behind `from`. The piece is taken where the longest
/// beginning of the marker stands, or at `from` when not even a third of it occurs.
[[nodiscard]] std::optional<MissingMarker> missingMarker(QStringView page, const QString &key,
                                                         const QString &marker,
                                                         Qt::CaseSensitivity sensitivity,
                                                         qsizetype from = 0);

/// The first of a parse recipe's five markers, in their order on the page, that keeps it from
/// cutting out any row.
[[nodiscard]] MissingMarker missingMarkerOfRecipe(QStringView page, const QVariantMap &recipe);
