#pragma once

#include "app/prefscontroller.h"
#include "app/visiblesongs.h"

class QHeaderView;

// How the user left the columns of the songs table.

void restoreColumns(QHeaderView &header, PrefsController &prefs);
void rememberColumns(const QHeaderView &header, PrefsController &prefs);
/// Order, widths and which are hidden.
void showColumnsAsAtFirst(QHeaderView &header);

/// "sortColumn" and "sortReverse".
[[nodiscard]] std::optional<VisibleSongs::Sorting> rememberedSorting(PrefsController &prefs);
void rememberSorting(const std::optional<VisibleSongs::Sorting> &sorting, PrefsController &prefs);
