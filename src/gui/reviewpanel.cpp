#include "gui/reviewpanel.h"

#include "app/choicetexts.h"
#include "app/review.h"
#include "gui/firstsize.h"
#include "gui/hintlabel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStackedLayout>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {
constexpr int betweenGroups = 12; // pixels
constexpr int withinGroup = 6; // pixels
constexpr QSize firstSize(1120, 680); // pixels
constexpr int thumbnailSide = 48; // pixels
constexpr int rowSpacing = 8; // pixels
constexpr int changesWidth = 120; // pixels

enum Page { Empty, Songs };
} // namespace

ReviewPanel::ReviewPanel(Review &review, HVHTTPQueue &queue, PrefsController &prefs,
                         QWidget *parent)
    : QWidget(parent, Qt::Window)
    , mReview(review)
    , mPrefs(prefs)
    , mThumbnails(queue, thumbnailSide)
    , mSongsModel(review)
    , mFieldsModel(review, mThumbnails)
    , mCandidatesModel(review, mThumbnails)
    , mPages(new QStackedLayout(this))
{
    setObjectName(QStringLiteral("reviewPanel"));
    setWindowTitle(qtTrId("ReviewTitle"));
    resize(firstSizeOf(*this, firstSize));
    auto *empty = new HintLabel(qtTrId("ReviewPlaceholder"));
    empty->setAlignment(Qt::AlignCenter);
    mPages->addWidget(empty);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(betweenGroups, betweenGroups, betweenGroups, betweenGroups);
    column->setSpacing(betweenGroups);
    auto *halves = new QSplitter(Qt::Horizontal);
    auto *details = new QSplitter(Qt::Vertical);
    halves->addWidget(makeSongs());
    details->addWidget(makeFields());
    details->addWidget(makeCandidates());
    halves->addWidget(details);
    halves->setStretchFactor(0, 2);
    halves->setStretchFactor(1, 3);
    halves->setChildrenCollapsible(false);
    details->setChildrenCollapsible(false);
    column->addWidget(halves, 1);
    column->addWidget(makeButtons());
    mPages->addWidget(content);
    mValidation.setSingleShot(true);
    connect(&mValidation, &QTimer::timeout, this, &ReviewPanel::validate);
    connect(&review, &Review::songAdded, this, &ReviewPanel::songAdded);
    connect(&review, &Review::songChanged, this, &ReviewPanel::songChanged);
    connect(&review, &Review::songRemoved, this, &ReviewPanel::showSong);
    new QShortcut(QKeySequence::Cancel, this, this, &QWidget::close);
    new QShortcut(QKeySequence::Close, this, this, &QWidget::close);
    showSong();
    songAdded();
}

QTableView *ReviewPanel::makeTable(const QString &name, const QString &accessibleName,
                                   QAbstractItemModel &model)
{
    auto *table = new QTableView;
    table->setObjectName(name);
    table->setAccessibleName(accessibleName);
    table->setModel(&model);
    table->setSelectionBehavior(QTableView::SelectRows);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->setIconSize({thumbnailSide, thumbnailSide});
    table->verticalHeader()->hide();
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowSpacing);
    return table;
}

QWidget *ReviewPanel::makeSongs()
{
    mSongs = makeTable(QStringLiteral("reviewSongs"), qtTrId("ReviewTitle"), mSongsModel);
    mSongs->setSelectionMode(QTableView::ExtendedSelection);
    QHeaderView *header = mSongs->horizontalHeader();
    header->setSectionResizeMode(ReviewSongsModel::Song, QHeaderView::Stretch);
    header->resizeSection(ReviewSongsModel::Changes, changesWidth);
    header->setSectionResizeMode(ReviewSongsModel::State, QHeaderView::ResizeToContents);
    connect(mSongs->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &ReviewPanel::showSong);
    connect(mSongs->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { mValidation.start(); });
    return mSongs;
}

QWidget *ReviewPanel::makeFields()
{
    auto *part = new QWidget;
    auto *column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(withinGroup);
    mReason = new QLabel;
    mReason->setObjectName(QStringLiteral("reviewReason"));
    mReason->setTextFormat(Qt::PlainText);
    mReason->setWordWrap(true);
    mReason->setMinimumHeight(2 * fontMetrics().lineSpacing()); // nothing moves for a longer one
    mReason->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    mFields = makeTable(QStringLiteral("reviewFields"), qtTrId("ReviewFields"), mFieldsModel);
    mFields->setSelectionMode(QTableView::SingleSelection);
    QHeaderView *header = mFields->horizontalHeader();
    header->setSectionResizeMode(ReviewFieldsModel::Field, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(ReviewFieldsModel::Old, QHeaderView::Stretch);
    header->setSectionResizeMode(ReviewFieldsModel::New, QHeaderView::Stretch);
    header->setSectionResizeMode(ReviewFieldsModel::Source, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(ReviewFieldsModel::Reason, QHeaderView::Stretch);
    column->addWidget(mReason);
    column->addWidget(mFields, 1);
    return part;
}

QWidget *ReviewPanel::makeCandidates()
{
    auto *part = new QWidget;
    auto *column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(withinGroup);
    mCandidates =
        makeTable(QStringLiteral("reviewCandidates"), qtTrId("ReviewCandidates"), mCandidatesModel);
    mCandidates->setSelectionMode(QTableView::SingleSelection);
    mCandidates->setWordWrap(true); // rows have room for it
    mCandidates->verticalHeader()->setDefaultSectionSize(thumbnailSide + rowSpacing);
    QHeaderView *header = mCandidates->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(ReviewCandidatesModel::Album, QHeaderView::Stretch);
    header->setSectionResizeMode(ReviewCandidatesModel::Fate, QHeaderView::Stretch);
    connect(mCandidates, &QTableView::activated, this, &ReviewPanel::takeAlbum);
    connect(mCandidates->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { mValidation.start(); });
    mTake = makeButton("ReviewTakeAlbum", "ToolTipTakeAlbum", &ReviewPanel::takeAlbum);
    column->addWidget(new QLabel(qtTrId("ReviewCandidates")));
    column->addWidget(mCandidates, 1);
    column->addWidget(mTake, 0, Qt::AlignLeft);
    return part;
}

QWidget *ReviewPanel::makeButtons()
{
    auto *part = new QWidget;
    auto *row = new QHBoxLayout(part);
    row->setContentsMargins(0, 0, 0, 0);
    mToWrite = new QLabel;
    mToWrite->setIndent(betweenGroups);
    mToWrite->setObjectName(QStringLiteral("reviewToWrite"));
    mSkip = makeButton("ReviewSkip", "ToolTipReviewSkip", &ReviewPanel::skip);
    mWrite = makeButton("ReviewWrite", "ToolTipReviewWrite", &ReviewPanel::write);
    mWriteAll = makeButton("ReviewWriteAll", "ToolTipReviewWriteAll", &ReviewPanel::writeAll);
    mClear = makeButton("ReviewClear", "ToolTipReviewClear", &ReviewPanel::clearDecided);
    row->addWidget(mClear);
    row->addWidget(mToWrite, 1);
    row->addWidget(mSkip);
    row->addWidget(mWrite);
    row->addWidget(mWriteAll);
    return part;
}

QPushButton *ReviewPanel::makeButton(const char *textID, const char *toolTipID,
                                     void (ReviewPanel::*pressed)())
{
    auto *button = new QPushButton(qtTrId(textID));
    button->setObjectName(QLatin1String(textID));
    button->setToolTip(qtTrId(toolTipID));
    connect(button, &QPushButton::clicked, this, pressed);
    return button;
}

int ReviewPanel::currentRow() const
{
    return mSongs->currentIndex().row();
}

QList<int> ReviewPanel::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex &index : mSongs->selectionModel()->selectedRows())
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ReviewPanel::showSong()
{
    const int row = currentRow() < mReview.count() ? currentRow() : -1;
    const quint64 id = row >= 0 ? mReview.at(row).id : 0;
    if (std::exchange(mShownSong, id) != id)
        mThumbnails.clear();
    mFieldsModel.setSong(row);
    mCandidatesModel.setSong(row);
    if (row >= 0)
        mFields->setRowHeight(ReviewFieldsModel::rowOfArtwork(), thumbnailSide + rowSpacing);
    mPages->setCurrentIndex(mReview.count() > 0 ? Songs : Empty);
    showReason();
    mValidation.start();
}

void ReviewPanel::showReason()
{
    const int row = currentRow();
    if (row < 0 || row >= mReview.count())
        return mReason->clear();
    const ReviewedSong &song = mReview.at(row);
    const QString reason = textOfReason(song.choices).value_or(QString());
    mReason->setText(song.problem.isEmpty() ? reason : song.problem);
}

void ReviewPanel::songAdded()
{
    if (currentRow() < 0 && mReview.count() > 0)
        mSongs->selectRow(0);
    mValidation.start();
}

void ReviewPanel::songChanged(int row)
{
    if (row == currentRow()) {
        mFieldsModel.songChanged();
        mCandidatesModel.songChanged();
        showReason();
    }
    mValidation.start();
}

void ReviewPanel::validate()
{
    const QList<int> rows = selectedRows();
    const auto any = [&](auto is) {
        return std::any_of(rows.begin(), rows.end(), [&](int row) { return is(mReview.at(row)); });
    };
    const int toWrite = mReview.countToWrite();
    mSkip->setEnabled(any([](const auto &song) { return song.state == ReviewState::Open; }));
    mWrite->setEnabled(
        any([](const auto &song) { return !song.isBusy() && song.hasToBeWritten(); }));
    mWriteAll->setEnabled(toWrite > 0);
    mClear->setEnabled(mReview.count() > toWrite);
    const int row = currentRow();
    mTake->setEnabled(row >= 0 && row < mReview.count() && !mReview.at(row).isBusy()
                      && mCandidates->currentIndex().isValid());
    mToWrite->setText(toWrite > 0 ? qtTrId("ReviewToWrite").arg(toWrite)
                                  : qtTrId("ReviewNothingToWrite"));
}

void ReviewPanel::write()
{
    mReview.write(selectedRows(), mPrefs.writeOptions());
    goToNextOpen();
}

void ReviewPanel::writeAll()
{
    QList<int> rows;
    for (int row = 0; row < mReview.count(); ++row)
        if (mReview.at(row).state == ReviewState::Open)
            rows << row;
    mReview.write(rows, mPrefs.writeOptions());
}

void ReviewPanel::skip()
{
    mReview.skip(selectedRows());
    goToNextOpen();
}

void ReviewPanel::clearDecided()
{
    mReview.clearDecided();
}

void ReviewPanel::takeAlbum()
{
    if (mTake->isEnabled())
        mReview.takeCandidate(currentRow(), mCandidates->currentIndex().row());
}

/// So that a list of songs is decided with one key.
void ReviewPanel::goToNextOpen()
{
    for (int row = currentRow() + 1; row < mReview.count(); ++row) {
        if (mReview.at(row).state == ReviewState::Open)
            return mSongs->selectRow(row);
    }
}
