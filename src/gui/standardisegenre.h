#pragma once

#include "app/genrestandard.h"
#include "gui/maincontroller.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QStandardItemModel;

/// Shows what the genres of songs become by the genre table; the user chooses which are changed
/// and may choose other genres for them.
class StandardiseGenreSheet : public QDialog {
    Q_OBJECT

public:
    StandardiseGenreSheet(const QList<GenreOfSongs> &genres, QWidget *parent);

    /// What the chosen genre texts become.
    [[nodiscard]] QHash<QString, QString> newGenres() const;

private:
    void fill(const QList<GenreOfSongs> &genres);
    [[nodiscard]] QWidget *table();
    [[nodiscard]] QWidget *buttons();
    void edited(int row, int column);
    void showCount();

    QStandardItemModel *mModel;
    QLabel *mCount = nullptr;
    QPushButton *mProceed = nullptr;
};

/// Opens the sheet for the selected songs, and changes what the user agrees to.
void standardiseGenre(MainController &controller, QWidget &window);
