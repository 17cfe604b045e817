#include "gui/reviewcandidatesmodel.h"

#include "app/choicetexts.h"
#include "app/review.h"
#include "gui/reviewtexts.h"
#include "gui/thumbnails.h"

#include <QFont>

#include <algorithm>

namespace {

/// More covers are not fetched: nobody compares them, and each is a request.
constexpr int mostCovers = 24;

bool isTaken(const ReviewedSong &song, int candidate)
{
    if (song.taken)
        return *song.taken == candidate;
    const auto &candidates = song.choices.candidates;
    const auto isChosen = [](const AlbumCandidate &each) { return each.fate == AlbumFate::Chosen; };
    const auto chosen = std::find_if(candidates.begin(), candidates.end(), isChosen);
    return chosen - candidates.begin() == candidate;
}

QString fateText(const ReviewedSong &song, int candidate)
{
    if (isTaken(song, candidate))
        return song.taken ? qtTrId("ReviewAlbumTaken") : qtTrId("ReviewAlbumChosen");
    const AlbumCandidate &album = song.choices.candidates.at(candidate);
    if (const auto fate = textOfFate(album.fate))
        return *fate;
    // Sources are asked once more for the artwork of a chosen album alone.
    return song.sources.value(AssetArtwork) == album.source ? qtTrId("ReviewAlbumForArtwork")
                                                            : qtTrId("ReviewAlbumChosenBefore");
}

/// Of an album that was only listed no titles are known.
QString tracksText(const AlbumCandidate &album)
{
    return album.tracks > 0 ? QString::number(album.tracks) : QString();
}

QString trackTitles(const AlbumInfo &album)
{
    QStringList lines;
    for (const QString &track : album.trackNames().value_or(QStringList()))
        lines << QStringLiteral("%1. %2").arg(lines.size() + 1).arg(track);
    return lines.join(u'\n');
}

} // namespace

ReviewCandidatesModel::ReviewCandidatesModel(Review &review, Thumbnails &thumbnails,
                                             QObject *parent)
    : QAbstractTableModel(parent)
    , mReview(review)
    , mThumbnails(thumbnails)
{
    connect(&thumbnails, &Thumbnails::changed, this, &ReviewCandidatesModel::songChanged);
}

void ReviewCandidatesModel::setSong(int row)
{
    beginResetModel();
    mSong = row;
    endResetModel();
}

void ReviewCandidatesModel::songChanged()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

int ReviewCandidatesModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() || mSong < 0)
        return 0;
    return static_cast<int>(mReview.at(mSong).change.albums.size());
}

int ReviewCandidatesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ReviewCandidatesModel::data(const QModelIndex &index, int role) const
{
    const ReviewedSong &song = mReview.at(mSong);
    const int row = index.row();
    const AlbumInfo &album = song.change.albums.at(row);
    if (role == Qt::DisplayRole)
        return textAt(song, row, index.column());
    if (role == Qt::ToolTipRole)
        return index.column() == Fate ? fateText(song, row) : trackTitles(album);
    if (role == Qt::TextAlignmentRole && (index.column() == Year || index.column() == Tracks))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::DecorationRole && index.column() == Album && album.artURL() && row < mostCovers)
        return mThumbnails.at(*album.artURL()).image;
    if (role == Qt::FontRole && isTaken(song, row)) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    return {};
}

QString ReviewCandidatesModel::textAt(const ReviewedSong &song, int candidate, int column) const
{
    const AlbumInfo &album = song.change.albums.at(candidate);
    switch (column) {
    case Album:
        return album.name().value_or(qtTrId("ReviewNoName"));
    case Artist:
        return album.artist().value_or(QString());
    case Year:
        return album.year().value_or(QString());
    case Tracks:
        return tracksText(song.choices.candidates.at(candidate));
    case Source:
        return sourceTitle(album.sourceInterfaceName());
    default:
        return fateText(song, candidate);
    }
}

QVariant ReviewCandidatesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole && (section == Year || section == Tracks))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Album:
        return qtTrId("AlbumName");
    case Artist:
        return qtTrId("Artist");
    case Year:
        return qtTrId("Year");
    case Tracks:
        return qtTrId("ReviewColumnTracks");
    case Source:
        return qtTrId("ReviewColumnSource");
    default:
        return qtTrId("ReviewColumnFate");
    }
}
