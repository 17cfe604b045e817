#pragma once

#include "app/visiblesongs.h"

#include <QAbstractTableModel>

struct TagValues;

/// The shown songs as rows, and SongColumn as columns.
class SongTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The songs must outlive the model.
    explicit SongTableModel(VisibleSongs &songs);

    [[nodiscard]] const std::shared_ptr<SongFile> &songAtRow(int row) const
    {
        return mSongs.songAt(row);
    }
    /// -1 when the song is not shown.
    [[nodiscard]] int rowOf(const SongFile &song) const { return mSongs.rowOf(song); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index,
                                int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Only says what was entered: the row shows it when it stands in the file.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

Q_SIGNALS:
    void valueEntered(int row, SongColumn column, const TagValues &values);

private:
    [[nodiscard]] static bool isEditable(SongColumn column, const SongFile &song);

    VisibleSongs &mSongs;
};
