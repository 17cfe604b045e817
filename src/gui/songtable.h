#pragma once

#include "gui/emptystate.h"
#include "gui/songtablemodel.h"

#include <QTableView>
#include <QTimer>

class MainController;
class QMenu;

/// The table of songs. The columns stay as the user left them, and so does how it is sorted.
class SongTable : public QTableView {
    Q_OBJECT

public:
    /// The controller must outlive the table.
    explicit SongTable(MainController &controller, QWidget *parent = nullptr);
    ~SongTable() override;

    /// Commands that show and hide columns, and one that restores them.
    void fillColumnsMenu(QMenu &menu);
    void selectSongs(const SongList &songs);
    /// Whether what is dragged just now can be dropped.
    void showDropTarget(bool isOne);
    /// Finds the next song that begins so, as texts are typed into the table.
    void keyboardSearch(const QString &search) override;

Q_SIGNALS:
    void contextMenuWanted(QPoint globalPosition);

protected:
    /// By key, where the current column cannot be edited, one that can; where no column can, it is
    /// said why.
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;

private:
    void setUpAppearance();
    void setUpHeader();
    void setRowHeight();
    void saveColumns() const;
    void sortByColumn(int section);
    void showSorting();
    void showIndexOfPlaylist();

    void changeSongs(int row, SongColumn column, const TagValues &values);
    [[nodiscard]] SongList songsToChange(int row) const;
    [[nodiscard]] QModelIndex editableCellIn(int row) const;
    void tellWhyNotEditable(const QModelIndex &index);

    [[nodiscard]] QList<int> selectedRows() const;
    void selectRows(const QList<int> &rows);
    [[nodiscard]] SongList songsInRows(const QList<int> &rows) const;
    void tellSelection();
    void rememberSelection();
    void restoreSelection();

    [[nodiscard]] EmptyState emptyState() const;

    MainController &mController;
    SongTableModel mModel;
    QList<quint32> mRemembered; ///< positions of those selected, while the rows change
    std::shared_ptr<SongFile> mRememberedCurrent;
    int mRememberedColumn = 0;
    QString mTyped; ///< to be found
    QTimer mTypingPause;
    bool mIsDropTarget = false;
};
