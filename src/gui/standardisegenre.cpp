#include "gui/standardisegenre.h"

#include "base/background.h"
#include "tags/genretable.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

enum Column { OldGenre, Songs, NewGenre, columnCount };

constexpr int betweenGroups = 12; // pixels
constexpr int widthInCharacters = 72;
constexpr int heightInRows = 14;

/// Genres are chosen from the table or typed.
class GenreDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &,
                          const QModelIndex &) const override
    {
        QStringList genres = GenreTable::allGenres();
        genres.sort(Qt::CaseInsensitive);
        auto *box = new QComboBox(parent);
        box->setEditable(true);
        box->addItems(genres);
        box->setAccessibleName(qtTrId("GenreBecomes"));
        box->setInsertPolicy(QComboBox::NoInsert);
        return box;
    }

    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        static_cast<QComboBox *>(editor)->setCurrentText(index.data().toString());
    }

    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override
    {
        model->setData(index, static_cast<QComboBox *>(editor)->currentText().trimmed());
    }
};

QStandardItem *plainItem(const QString &text)
{
    auto *item = new QStandardItem(text);
    item->setEditable(false);
    return item;
}

/// Sure ones are chosen at first.
QList<QStandardItem *> rowOf(const GenreOfSongs &genre, const QLocale &locale,
                             const QPalette &palette)
{
    using Certainty = StandardGenre::Certainty;
    const Certainty certainty = genre.standard.certainty;
    auto *old = plainItem(genre.genres);
    old->setToolTip(genre.genres);
    old->setCheckable(true);
    old->setCheckState(certainty == Certainty::SameName || certainty == Certainty::NearName
                           ? Qt::Checked
                           : Qt::Unchecked);
    auto *songs = plainItem(locale.toString(genre.songs));
    songs->setData(genre.songs);
    songs->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto *becomes = new QStandardItem(genre.standard.genres);
    if (certainty == Certainty::Contained)
        becomes->setToolTip(qtTrId("ToolTipGenreContained"));
    else if (certainty == Certainty::NearName)
        becomes->setToolTip(qtTrId("ToolTipGenreNear"));
    else if (certainty == Certainty::Unchanged)
        becomes->setForeground(palette.placeholderText());
    return {old, songs, becomes};
}

} // namespace

StandardiseGenreSheet::StandardiseGenreSheet(const QList<GenreOfSongs> &genres, QWidget *parent)
    : QDialog(parent, Qt::Sheet)
    , mModel(new QStandardItemModel(0, columnCount, this))
{
    setWindowTitle(qtTrId("StandardiseGenreTitle"));
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    fill(genres);
    auto *column = new QVBoxLayout(this);
    column->setSpacing(betweenGroups);
    auto *explanation = new QLabel(qtTrId("StandardiseGenreExplanation"), this);
    explanation->setWordWrap(true);
    column->addWidget(explanation);
    column->addWidget(table(), 1);
    mCount = new QLabel(this);
    column->addWidget(mCount);
    column->addWidget(buttons());
    connect(mModel, &QStandardItemModel::itemChanged, this,
            [this](QStandardItem *item) { edited(item->row(), item->column()); });
    showCount();
}

void StandardiseGenreSheet::fill(const QList<GenreOfSongs> &genres)
{
    mModel->setHorizontalHeaderLabels(
        {qtTrId("Genre"), qtTrId("GenreSongs"), qtTrId("GenreBecomes")});
    mModel->horizontalHeaderItem(Songs)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (const GenreOfSongs &genre : genres)
        mModel->appendRow(rowOf(genre, locale(), palette()));
}

QWidget *StandardiseGenreSheet::table()
{
    auto *table = new QTableView(this);
    table->setModel(mModel);
    table->setItemDelegateForColumn(NewGenre, new GenreDelegate(table));
    table->setEditTriggers(QAbstractItemView::AllEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setAccessibleName(windowTitle());
    table->setShowGrid(false);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(QComboBox().sizeHint().height());
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setSectionResizeMode(OldGenre, QHeaderView::Stretch);
    table->horizontalHeader()->setSectionResizeMode(Songs, QHeaderView::ResizeToContents);
    table->horizontalHeader()->setSectionResizeMode(NewGenre, QHeaderView::Stretch);
    table->setMinimumSize(fontMetrics().averageCharWidth() * widthInCharacters,
                          fontMetrics().lineSpacing() * heightInRows);
    return table;
}

QWidget *StandardiseGenreSheet::buttons()
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    mProceed = buttons->addButton(qtTrId("StandardiseGenreProceed"), QDialogButtonBox::AcceptRole);
    mProceed->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

/// A genre that the user typed is one to be changed.
void StandardiseGenreSheet::edited(int row, int column)
{
    QStandardItem *becomes = mModel->item(row, NewGenre);
    if (column == NewGenre && becomes->data(Qt::ForegroundRole).isValid())
        return becomes->setData({}, Qt::ForegroundRole); // which comes back here
    if (column == NewGenre)
        mModel->item(row, OldGenre)->setCheckState(Qt::Checked);
    showCount();
}

void StandardiseGenreSheet::showCount()
{
    int songs = 0;
    for (int row = 0; row < mModel->rowCount(); ++row) {
        const QStandardItem *old = mModel->item(row, OldGenre);
        if (old->checkState() == Qt::Checked && old->text() != mModel->item(row, NewGenre)->text())
            songs += mModel->item(row, Songs)->data().toInt();
    }
    mCount->setText(qtTrId("ChangeSheetCount").arg(locale().toString(songs)));
    mProceed->setEnabled(songs > 0);
}

QHash<QString, QString> StandardiseGenreSheet::newGenres() const
{
    QHash<QString, QString> genres;
    for (int row = 0; row < mModel->rowCount(); ++row) {
        const QStandardItem *old = mModel->item(row, OldGenre);
        const QString becomes = mModel->item(row, NewGenre)->text();
        if (old->checkState() == Qt::Checked && old->text() != becomes)
            genres.insert(old->text(), becomes);
    }
    return genres;
}

namespace {

/// Decided by what stands in the file when its turn comes.
TagChange changeOfGenres(const SongList &songs, const QHash<QString, QString> &genres)
{
    TagChange change{qtTrId("ChangeOfGenres"), {}, {}};
    std::copy_if(songs.begin(), songs.end(), std::back_inserter(change.songs),
                 [&genres](const std::shared_ptr<SongFile> &song) {
                     const AudioInfoTag *tag = song->infotag();
                     return tag && genres.contains(tag->genres().value_or(QString()));
                 });
    change.newValues = [genres](SongFile &, const AudioInfoTag &tag) {
        TagValues values;
        const auto becomes = genres.constFind(tag.genres().value_or(QString()));
        if (becomes != genres.cend())
            values.texts.insert(TagText::Genres, *becomes);
        return values;
    };
    return change;
}

void open(MainController &controller, const SongList &songs, const QList<GenreOfSongs> &genres,
          QWidget &window)
{
    if (genres.isEmpty()) {
        auto *alert = new QMessageBox(QMessageBox::Information, qtTrId("StandardiseGenreTitle"),
                                      qtTrId("StandardiseGenreNone"), QMessageBox::Ok, &window);
        alert->setAttribute(Qt::WA_DeleteOnClose);
        return alert->open();
    }
    auto *sheet = new StandardiseGenreSheet(genres, &window);
    QObject::connect(sheet, &QDialog::accepted, sheet, [sheet, songs, &controller] {
        controller.change(changeOfGenres(songs, sheet->newGenres()));
    });
    sheet->open();
}

} // namespace

void standardiseGenre(MainController &controller, QWidget &window)
{
    const SongList songs = controller.selectedSongs();
    runInBackground([genres = genresOf(songs)] { return standardised(genres); }, &window,
                    [&controller, &window, songs](const QList<GenreOfSongs> &genres) {
                        open(controller, songs, genres, window);
                    });
}
