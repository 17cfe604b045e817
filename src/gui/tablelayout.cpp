#include "gui/tablelayout.h"

#include <QFontMetrics>
#include <QHeaderView>

#include <algorithm>

namespace {

const Setting<QByteArray> tableColumns{"songTableColumns", {}};
const Setting<QString> sortColumn{"sortColumn", {}};
constexpr Setting<bool> sortReverse{"sortReverse", false};

/// In characters of the font.
int widthOf(SongColumn column)
{
    switch (column) {
    case SongColumn::Activity:
        return 4;
    case SongColumn::Title:
        return 28;
    case SongColumn::Artist:
    case SongColumn::Album:
        return 22;
    case SongColumn::Genre:
        return 14;
    case SongColumn::Artwork:
        return 11;
    default:
        return 8;
    }
}

} // namespace

void showColumnsAsAtFirst(QHeaderView &header)
{
    const int character = header.fontMetrics().averageCharWidth();
    for (const SongColumnInfo &info : songColumns()) {
        const int section = static_cast<int>(info.column);
        header.moveSection(header.visualIndex(section), section);
        header.setSectionHidden(section,
                                info.shown == SongColumnInfo::Shown::OnDemand
                                    || info.shown == SongColumnInfo::Shown::InPlaylists);
        // A title is longer in some languages.
        header.resizeSection(
            section, std::max(widthOf(info.column) * character, header.sectionSizeHint(section)));
    }
}

void restoreColumns(QHeaderView &header, PrefsController &prefs)
{
    const bool isShown = header.restoreState(tableColumns.value(prefs.settings()));
    if (!isShown || header.count() != songColumnCount)
        showColumnsAsAtFirst(header);
    for (const SongColumnInfo &info : songColumns())
        if (info.shown == SongColumnInfo::Shown::Always)
            header.setSectionHidden(static_cast<int>(info.column), false);
}

void rememberColumns(const QHeaderView &header, PrefsController &prefs)
{
    tableColumns.set(prefs.settings(), header.saveState());
}

std::optional<VisibleSongs::Sorting> rememberedSorting(PrefsController &prefs)
{
    const auto column = columnWithIdentifier(sortColumn.value(prefs.settings()));
    if (!column)
        return std::nullopt;
    const bool isReverse = sortReverse.value(prefs.settings());
    return VisibleSongs::Sorting{*column, isReverse ? Qt::DescendingOrder : Qt::AscendingOrder};
}

void rememberSorting(const std::optional<VisibleSongs::Sorting> &sorting, PrefsController &prefs)
{
    if (!sorting)
        return sortColumn.unset(prefs.settings());
    sortColumn.set(prefs.settings(), QLatin1String(infoOf(sorting->column).identifier));
    sortReverse.set(prefs.settings(), sorting->order == Qt::DescendingOrder);
}
