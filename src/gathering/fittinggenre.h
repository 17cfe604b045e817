#pragma once

#include <QStringList>

#include <optional>

/// The first of the names that fits the genre table, spelled as there: one of its entries, or a
/// name that holds one. Nothing when none does.
[[nodiscard]] std::optional<QString> fittingGenre(const QStringList &names);
