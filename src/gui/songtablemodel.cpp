#include "gui/songtablemodel.h"

#include "app/tagvalues.h"
#include "gui/songrowtexts.h"
#include "songs/cachedinfotag.h"

#include <QPixmap>

namespace {

SongColumn columnOf(int section)
{
    return static_cast<SongColumn>(section);
}

QPixmap artworkIcon(SongFile &song)
{
    const AudioInfoTag *tag = song.infotag();
    if (!tag || tag->numberOfImages() == 0)
        return {};
    return QPixmap::fromImage(
        tag->imageIconNoLargerThan(CachedInfoTag::maxIconWidth, CachedInfoTag::maxIconHeight));
}

QVariant decoration(SongColumn column, SongFile &song)
{
    if (column == SongColumn::Activity)
        return activityIcon(song);
    if (column == SongColumn::Artwork)
        return artworkIcon(song);
    if (column == SongColumn::Lyrics && isMarkedInColumn(column, song))
        return lyricsMark();
    return {};
}

int alignment(SongColumn column)
{
    using enum SongColumnInfo::Kind;
    switch (infoOf(column).kind) {
    case Number:
        return Qt::AlignRight | Qt::AlignVCenter;
    case Text:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case Icon:
    case Mark:
        break;
    }
    return Qt::AlignCenter;
}

/// As it stands in the tag, which may have several lines.
QVariant editedText(SongColumn column, SongFile &song)
{
    const AudioInfoTag *tag = song.infotag();
    const auto text = infoOf(column).editedText;
    return tag && text ? textOf(*tag, *text).value_or(QString()) : QString();
}

} // namespace

SongTableModel::SongTableModel(VisibleSongs &songs)
    : mSongs(songs)
{
    connect(&songs, &VisibleSongs::rowsAboutToChange, this, [this] { beginResetModel(); });
    connect(&songs, &VisibleSongs::rowsChanged, this, [this] { endResetModel(); });
    connect(&songs, &VisibleSongs::rowsAboutToBeAppended, this,
            [this](int first, int last) { beginInsertRows({}, first, last); });
    connect(&songs, &VisibleSongs::rowsAppended, this, [this] { endInsertRows(); });
    connect(&songs, &VisibleSongs::songsChangedInRows, this, [this](int first, int last) {
        Q_EMIT dataChanged(index(first, 0), index(last, songColumnCount - 1));
    });
}

int SongTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : mSongs.size();
}

int SongTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : songColumnCount;
}

QVariant SongTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    SongFile &song = *songAtRow(index.row());
    const SongColumn column = columnOf(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return textInColumn(column, song);
    case Qt::EditRole:
        return editedText(column, song);
    case Qt::DecorationRole:
        return decoration(column, song);
    case Qt::TextAlignmentRole:
        return alignment(column);
    case Qt::CheckStateRole:
        if (column == SongColumn::Compilation)
            return isMarkedInColumn(column, song) ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::ToolTipRole:
        return toolTipOf(column, song);
    case Qt::AccessibleTextRole:
        return accessibleText(column, song);
    default:
        return {};
    }
}

QVariant SongTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    const SongColumnInfo &info = infoOf(columnOf(section));
    switch (role) {
    case Qt::DisplayRole:
        return info.kind == SongColumnInfo::Kind::Icon ? QString() : qtTrId(info.title);
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return qtTrId(info.title);
    case Qt::TextAlignmentRole:
        return alignment(info.column);
    default:
        return {};
    }
}

Qt::ItemFlags SongTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    if (!index.isValid() || !isEditable(columnOf(index.column()), *songAtRow(index.row())))
        return flags;
    const bool isMark = columnOf(index.column()) == SongColumn::Compilation;
    return flags | (isMark ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool SongTableModel::isEditable(SongColumn column, const SongFile &song)
{
    return song.activityStatus() == SongStatus::Ready
        && (infoOf(column).editedText || column == SongColumn::Compilation);
}

bool SongTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || (flags(index) & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)) == 0)
        return false;
    const SongColumn column = columnOf(index.column());
    TagValues values;
    if (role == Qt::CheckStateRole)
        values.isPartOfCompilation = value.toInt() == Qt::Checked;
    else if (const auto text = infoOf(column).editedText;
             text && role == Qt::EditRole && value != data(index, Qt::EditRole))
        values.texts[*text] = value.toString();
    if (!values.isEmpty())
        Q_EMIT valueEntered(index.row(), column, values);
    return false;
}
