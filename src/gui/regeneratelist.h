#pragma once

#include "app/regeneration.h"

#include <QAbstractTableModel>

#include <unordered_map>

/// Songs to be regenerated: what is wrong with each, what would be kept and dropped, and what
/// became of it.
class RegenerateList : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Name, Problem, Kept, Dropped, Result, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    /// Replaces the songs; what regenerating makes of them is found out in the background.
    void setSongs(const SongList &songs);
    [[nodiscard]] const std::shared_ptr<SongFile> &song(int row) const
    {
        return mRows[static_cast<std::size_t>(row)].song;
    }
    /// Those that wait for it and can be regenerated.
    [[nodiscard]] SongList songsToRegenerate() const;
    [[nodiscard]] bool canRegenerate(int row) const;
    [[nodiscard]] bool canRegenerateAny() const;

    void setBegun(const SongList &songs);
    /// `error` is empty when the song was written.
    void setDone(const std::shared_ptr<SongFile> &song, const QString &error, bool canBeUndone);
    /// A song that was done and is damaged again, since that was undone, waits once more.
    void songsChanged(const SongList &songs);
    /// Of songs that were begun and are not done.
    void setCancelled();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    struct Row {
        std::shared_ptr<SongFile> song;
        std::optional<Regeneration::Plan> plan; ///< nothing until it was found out
        enum class State { Waiting, Begun, Done, DoneForGood, Failed } state = State::Waiting;
        QString error;
    };

    void planNext();
    void setState(const std::shared_ptr<SongFile> &song, Row::State state, const QString &error);
    void rowChanged(std::size_t row);
    [[nodiscard]] static bool isDamaged(const Row &row);
    [[nodiscard]] static QString textOf(const Row &row, Column column);

    std::vector<Row> mRows;
    std::unordered_map<const SongFile *, std::size_t> mPlaces;
    std::size_t mPlanned = 0; ///< rows before this have a plan
    int mGeneration = 0; ///< of the songs: earlier plans are out of date
};
