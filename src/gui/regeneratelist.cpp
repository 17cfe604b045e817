#include "gui/regeneratelist.h"

#include "base/background.h"
#include "gui/changesheet.h"
#include "gui/icons.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t plansAtOnce = 16;

struct ToPlan {
    QString path;
    ReadOptions options;
};

std::vector<Regeneration::Plan> plansOf(const std::vector<ToPlan> &songs)
{
    std::vector<Regeneration::Plan> plans;
    for (const ToPlan &song : songs)
        plans.push_back(Regeneration::planOf(song.path, song.options));
    return plans;
}

QString problemOf(const Regeneration::Plan &plan)
{
    if (!plan.reason.isEmpty())
        return plan.reason;
    return plan.problem.isEmpty() ? qtTrId("RegenerateSound") : plan.problem;
}

QString keptBy(const Regeneration::Plan &plan)
{
    QStringList kept = plan.kept;
    if (plan.pictures > 0)
        kept << qtTrId("RegeneratePictures").arg(plan.pictures);
    return kept.isEmpty() ? qtTrId("RegenerateNothing") : kept.join(QStringLiteral(", "));
}

/// What is too damaged to be read has no name of its own.
QString droppedBy(const Regeneration::Plan &plan)
{
    return plan.dropped.isEmpty() && !plan.problem.isEmpty()
        ? qtTrId("RegenerateDamagedPart")
        : plan.dropped.join(QStringLiteral(", "));
}

} // namespace

void RegenerateList::setSongs(const SongList &songs)
{
    beginResetModel();
    mRows.clear();
    mPlaces.clear();
    for (const auto &song : songs) {
        mPlaces.emplace(song.get(), mRows.size());
        mRows.push_back({song, {}, {}, {}});
    }
    mPlanned = 0;
    ++mGeneration;
    endResetModel();
    planNext();
}

void RegenerateList::planNext()
{
    std::vector<ToPlan> songs;
    for (std::size_t i = mPlanned; i < std::min(mRows.size(), mPlanned + plansAtOnce); ++i)
        songs.push_back({mRows[i].song->path(), mRows[i].song->readOptions()});
    if (songs.empty())
        return;
    const auto then = [this,
                       generation = mGeneration](const std::vector<Regeneration::Plan> &plans) {
        if (generation != mGeneration)
            return;
        for (const Regeneration::Plan &plan : plans) {
            mRows[mPlanned].plan = plan;
            rowChanged(mPlanned++);
        }
        planNext();
    };
    runInBackground([songs] { return plansOf(songs); }, this, then);
}

bool RegenerateList::canRegenerate(int row) const
{
    const Row &entry = mRows[static_cast<std::size_t>(row)];
    const bool isOpen = entry.state == Row::State::Waiting || entry.state == Row::State::Failed;
    return isOpen && entry.plan && entry.plan->reason.isEmpty();
}

bool RegenerateList::canRegenerateAny() const
{
    for (int row = 0; row < rowCount(); ++row)
        if (canRegenerate(row))
            return true;
    return false;
}

SongList RegenerateList::songsToRegenerate() const
{
    SongList songs;
    for (int row = 0; row < rowCount(); ++row)
        if (canRegenerate(row))
            songs.push_back(song(row));
    return songs;
}

void RegenerateList::setBegun(const SongList &songs)
{
    for (const auto &song : songs)
        setState(song, Row::State::Begun, {});
}

void RegenerateList::setDone(const std::shared_ptr<SongFile> &song, const QString &error,
                             bool canBeUndone)
{
    if (!error.isEmpty())
        setState(song, Row::State::Failed, error);
    else
        setState(song, canBeUndone ? Row::State::Done : Row::State::DoneForGood, {});
}

void RegenerateList::songsChanged(const SongList &songs)
{
    for (const auto &song : songs)
        if (const auto place = mPlaces.find(song.get()); place != mPlaces.end()
            && mRows[place->second].state == Row::State::Done
            && song->activityStatus() == SongStatus::Problem)
            setState(song, Row::State::Waiting, {});
}

void RegenerateList::setCancelled()
{
    for (const Row &row : mRows)
        if (row.state == Row::State::Begun)
            setState(row.song, Row::State::Waiting, {});
}

/// Songs that are no longer in the list are passed over.
void RegenerateList::setState(const std::shared_ptr<SongFile> &song, Row::State state,
                              const QString &error)
{
    const auto place = mPlaces.find(song.get());
    if (place == mPlaces.end())
        return;
    mRows[place->second].state = state;
    mRows[place->second].error = error;
    rowChanged(place->second);
}

void RegenerateList::rowChanged(std::size_t row)
{
    const int number = static_cast<int>(row);
    Q_EMIT dataChanged(index(number, 0), index(number, columnCount() - 1));
}

int RegenerateList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

int RegenerateList::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

/// What was not looked at yet is here because it probably is.
bool RegenerateList::isDamaged(const Row &row)
{
    const bool isSound = row.plan && row.plan->reason.isEmpty() && row.plan->problem.isEmpty();
    const bool isDone = row.state == Row::State::Done || row.state == Row::State::DoneForGood;
    return !isDone && !isSound;
}

QString RegenerateList::textOf(const Row &row, Column column)
{
    if (column == Name)
        return nameOf(*row.song);
    if (column == Result) {
        switch (row.state) {
        case Row::State::Waiting:
            return {};
        case Row::State::Begun:
            return qtTrId("RegenerateBegun");
        case Row::State::Done:
            return qtTrId("RegenerateDone");
        case Row::State::DoneForGood:
            return qtTrId("RegenerateDoneForGood");
        case Row::State::Failed:
            return row.error;
        }
    }
    if (!row.plan)
        return column == Problem ? qtTrId("RegenerateReading") : QString();
    if (column == Problem)
        return problemOf(*row.plan);
    if (!row.plan->reason.isEmpty())
        return {};
    return column == Kept ? keptBy(*row.plan) : droppedBy(*row.plan);
}

QVariant RegenerateList::data(const QModelIndex &index, int role) const
{
    const Row &row = mRows[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<Column>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return textOf(row, column);
    case Qt::ToolTipRole:
        return column == Name ? row.song->path() : textOf(row, column);
    case Qt::DecorationRole:
        if (column == Name && isDamaged(row))
            return icon(QStringLiteral("problem"));
        return {};
    default:
        return {};
    }
}

QVariant RegenerateList::headerData(int section, Qt::Orientation orientation, int role) const
{
    constexpr std::array titles{QT_TRID_NOOP("RegenerateSong"), QT_TRID_NOOP("RegenerateProblem"),
                                QT_TRID_NOOP("RegenerateKept"), QT_TRID_NOOP("RegenerateDropped"),
                                QT_TRID_NOOP("RegenerateResult")};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return qtTrId(titles[static_cast<std::size_t>(section)]);
}
