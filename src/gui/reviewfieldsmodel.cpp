#include "gui/reviewfieldsmodel.h"

#include "app/choicetexts.h"
#include "app/review.h"
#include "gui/reviewtexts.h"
#include "gui/thumbnails.h"

#include <QGuiApplication>
#include <QPalette>

namespace {

Asset assetAt(int row)
{
    return assetNames.at(static_cast<std::size_t>(row)).asset;
}

const SongValues &valuesAt(const ReviewedSong &song, int column)
{
    return column == ReviewFieldsModel::Old ? song.change.before : song.change.after;
}

bool isValueColumn(int column)
{
    return column == ReviewFieldsModel::Old || column == ReviewFieldsModel::New;
}

QString reasonOf(const ReviewedSong &song, Asset asset)
{
    const auto reason = song.choices.fields.constFind(asset);
    return reason == song.choices.fields.constEnd() ? QString() : textOfField(*reason);
}

/// Lyrics have many lines; a row shows the beginning.
QString onOneLine(const QString &text)
{
    constexpr qsizetype mostCharacters = 200;
    return text.left(mostCharacters).simplified();
}

} // namespace

ReviewFieldsModel::ReviewFieldsModel(Review &review, Thumbnails &thumbnails, QObject *parent)
    : QAbstractTableModel(parent)
    , mReview(review)
    , mThumbnails(thumbnails)
{
    connect(&thumbnails, &Thumbnails::changed, this, &ReviewFieldsModel::songChanged);
}

void ReviewFieldsModel::setSong(int row)
{
    beginResetModel();
    mSong = row;
    endResetModel();
}

void ReviewFieldsModel::songChanged()
{
    if (mSong >= 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

int ReviewFieldsModel::rowOfArtwork()
{
    for (std::size_t row = 0; row < assetNames.size(); ++row)
        if (assetNames.at(row).asset == AssetArtwork)
            return static_cast<int>(row);
    return -1;
}

int ReviewFieldsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || mSong < 0 ? 0 : static_cast<int>(assetNames.size());
}

int ReviewFieldsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ReviewFieldsModel::data(const QModelIndex &index, int role) const
{
    const ReviewedSong &song = mReview.at(mSong);
    const Asset asset = assetAt(index.row());
    const int column = index.column();
    const bool changes = song.changes.testFlag(asset);
    if (role == Qt::DisplayRole)
        return textAt(song, asset, column);
    if (role == Qt::CheckStateRole && column == Field && changes)
        return song.accepted.testFlag(asset) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::ToolTipRole && isValueColumn(column) && asset != AssetArtwork)
        return valuesAt(song, column).texts.value(asset);
    if (role == Qt::ToolTipRole && column == Reason)
        return reasonOf(song, asset);
    if (role == Qt::DecorationRole && isValueColumn(column) && asset == AssetArtwork
        && !valuesAt(song, column).pictures.isEmpty())
        return mThumbnails.of(valuesAt(song, column).pictures.first().data).image;
    if (role == Qt::ForegroundRole && (!changes || column >= Source))
        return QGuiApplication::palette().brush(QPalette::PlaceholderText);
    return {};
}

QVariant ReviewFieldsModel::textAt(const ReviewedSong &song, Asset asset, int column) const
{
    if (column == Field)
        return summaryOfAssets(asset);
    if (column == Reason)
        return reasonOf(song, asset);
    if (column == Source)
        return song.changes.testFlag(asset) ? sourceTitle(song.sources.value(asset)) : QString();
    const SongValues &values = valuesAt(song, column);
    if (asset == AssetArtwork)
        return pictureText(values);
    const QString text = onOneLine(values.texts.value(asset));
    return text.isEmpty() ? qtTrId("ReviewNoValue") : text;
}

QString ReviewFieldsModel::pictureText(const SongValues &values) const
{
    if (values.pictures.isEmpty())
        return qtTrId("ReviewNoValue");
    const QSize size = mThumbnails.of(values.pictures.first().data).size;
    const QString text = size.isValid()
        ? qtTrId("ReviewPictureSize").arg(size.width()).arg(size.height())
        : QString();
    const qsizetype more = values.pictures.size() - 1;
    return more == 0 ? text : qtTrId("ReviewMorePictures").arg(text, QString::number(more));
}

bool ReviewFieldsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable))
        return false;
    mReview.accept(mSong, assetAt(index.row()), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags ReviewFieldsModel::flags(const QModelIndex &index) const
{
    const ReviewedSong &song = mReview.at(mSong);
    const bool mayChoose =
        index.column() == Field && !song.isBusy() && song.changes.testFlag(assetAt(index.row()));
    return QAbstractTableModel::flags(index)
        | (mayChoose ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
}

QVariant ReviewFieldsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Field:
        return qtTrId("ReviewColumnField");
    case Old:
        return qtTrId("ReviewColumnOld");
    case New:
        return qtTrId("ReviewColumnNew");
    case Source:
        return qtTrId("ReviewColumnSource");
    default:
        return qtTrId("ReviewColumnReason");
    }
}
