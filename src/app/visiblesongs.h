#pragma once

#include "app/songlist.h"
#include "app/songsorting.h"

#include <QHash>

/// The songs that the table shows, in its order: those of the list that pass the search field's
/// filter. New songs come at the end while a source is loaded.
///
/// Sorting and searching a long list takes more than one turn of the event loop: the keys are made
/// some at a time, and the rest is done on another thread. What is shown stays until the new rows
/// are there, and a later wish takes the place of an earlier one.
class VisibleSongs : public QObject {
    Q_OBJECT

public:
    struct Sorting {
        SongColumn column = SongColumn::Artist;
        Qt::SortOrder order = Qt::AscendingOrder;

        bool operator==(const Sorting &) const = default;
    };

    /// The list must outlive this.
    explicit VisibleSongs(LoadedSongs &loaded);

    [[nodiscard]] int size() const { return static_cast<int>(mRows.size()); }
    [[nodiscard]] const std::shared_ptr<SongFile> &songAt(int row) const;
    /// -1 when the song is not shown.
    [[nodiscard]] int rowOf(const SongFile &song) const;
    [[nodiscard]] SongList songs() const;
    /// Of the song in that row in the list of all songs, which lasts as long as the list does.
    [[nodiscard]] quint32 positionAt(int row) const { return mRows.at(row); }
    /// The rows, ascending, of those of these songs that are shown.
    [[nodiscard]] QList<int> rowsOfPositions(const QList<quint32> &positions) const;
    /// Whether the rows are about to be others, as soon as they are sorted or searched.
    [[nodiscard]] bool isBusy() const { return mIsAtWork || mNextTurn.isActive(); }

    /// What the column header shows; nothing when the order means nothing any more.
    [[nodiscard]] const std::optional<Sorting> &sorting() const { return mSorting; }
    void sortBy(const Sorting &sorting);
    /// Sorts once more when the list is sorted by that column, whose values have changed.
    void sortAgain(SongColumn ifSortedBy);
    /// The rows stay where they are.
    void clearSorting();

    [[nodiscard]] const QString &filter() const { return mFilter; }
    /// Songs match as in AudioInfoTag::matchString(); all do when the text is empty.
    void setFilter(const QString &text);

    /// Tells that their tags or what they are doing changed. They stay in their rows, also when
    /// they do not match any more: nothing jumps away under the user's hands.
    void songsChanged(const SongList &songs);

Q_SIGNALS:
    /// Around a change of which song stands in which row.
    void rowsAboutToChange();
    void rowsChanged();
    /// Around the adding of rows at the end.
    void rowsAboutToBeAppended(int first, int last);
    void rowsAppended();
    /// In some of these rows.
    void songsChangedInRows(int first, int last);
    void sortingChanged();

private:
    struct Input;
    struct Outcome;

    void clear();
    void append(qsizetype count);
    void finishLoading();
    void setSorting(const std::optional<Sorting> &sorting);
    void takeUp();
    void work();
    [[nodiscard]] bool makeKeys();
    [[nodiscard]] Input input() const;
    [[nodiscard]] static Outcome outcomeOf(Input input);
    void adopt(const Outcome &outcome);
    void appendNewSongs(QList<quint32> &order, QList<quint32> &rows) const;
    void setRows(const QList<quint32> &rows);
    [[nodiscard]] const std::shared_ptr<SongFile> &songAtPosition(quint32 position) const;
    [[nodiscard]] bool passes(quint32 position) const;

    LoadedSongs &mLoaded;
    SongKeys mKeys;
    QHash<const SongFile *, quint32> mPositions; ///< in the list
    QList<quint32> mOrder; ///< positions of all songs
    QList<quint32> mRows; ///< positions of those that are shown
    QList<quint32> mRowOfPosition;
    std::optional<Sorting> mSorting;
    QString mFilter;
    bool mMustSort = false;
    bool mIsAtWork = false; ///< on another thread
    quint32 mWish = 0; ///< counts what is asked for, so that outdated answers are told
    QTimer mNextTurn;
};
