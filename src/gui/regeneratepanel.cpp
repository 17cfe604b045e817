#include "gui/regeneratepanel.h"

#include "gui/firstsize.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr QSize firstSize(980, 380); // pixels
constexpr int betweenGroups = 12; // pixels
constexpr int rowMargin = 8; // pixels
} // namespace

RegeneratePanel::RegeneratePanel(MainController &controller, QWidget *window)
    : QWidget(window, Qt::Window)
    , mController(controller)
    , mList(new RegenerateList(this))
    , mRun(controller.engine().itunes, &controller.engine().infoCache)
{
    setObjectName(QStringLiteral("regeneratePanel"));
    setWindowTitle(qtTrId("RegenerateTitle"));
    resize(firstSizeOf(*this, firstSize));
    setUpParts();
    connect(&mRun, &RegenerationRun::songDone, this, &RegeneratePanel::songDone);
    connect(&mRun, &RegenerationRun::finished, this, &RegeneratePanel::finished);
    connect(&mRun.progress(), &Progress::changed, this, [this] {
        mProgress->setMaximum(static_cast<int>(mRun.progress().maximum()));
        mProgress->setValue(static_cast<int>(mRun.progress().value()));
    });
    mValidation.setSingleShot(true);
    connect(&mValidation, &QTimer::timeout, this, &RegeneratePanel::validateInterface);
    // Songs may be done by the hundred.
    connect(mList, &QAbstractItemModel::dataChanged, &mValidation, qOverload<>(&QTimer::start));
    connect(mList, &QAbstractItemModel::modelReset, &mValidation, qOverload<>(&QTimer::start));
    connect(&controller, &MainController::songsChanged, mList, &RegenerateList::songsChanged);
    connect(&controller.songs(), &LoadedSongs::loadFinished, this, [this] {
        if (const SongList &corrupt = mController.songs().corruptSongs(); !corrupt.empty())
            setCorruptSongsArray(corrupt);
    });
    validateInterface();
}

void RegeneratePanel::setUpParts()
{
    auto *column = new QVBoxLayout(this);
    column->setSpacing(betweenGroups);
    auto *explanation = new QLabel(qtTrId("RegenerateExplanation"), this);
    explanation->setWordWrap(true);
    column->addWidget(explanation);
    mTable = table();
    column->addWidget(mTable, 1);
    mProgress = new QProgressBar(this);
    mProgress->setAccessibleName(windowTitle());
    QSizePolicy policy = mProgress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    mProgress->setSizePolicy(policy);
    column->addWidget(mProgress);
    column->addWidget(buttons());
}

QTableView *RegeneratePanel::table()
{
    auto *table = new QTableView(this);
    table->setModel(mList);
    table->setAccessibleName(windowTitle());
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + rowMargin);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setStretchLastSection(true);
    const int character = fontMetrics().averageCharWidth();
    table->setColumnWidth(RegenerateList::Name, character * 28);
    table->setColumnWidth(RegenerateList::Problem, character * 52);
    table->setColumnWidth(RegenerateList::Kept, character * 30);
    table->setColumnWidth(RegenerateList::Dropped, character * 20);
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RegeneratePanel::validateInterface);
    return table;
}

QWidget *RegeneratePanel::buttons()
{
    auto *buttons = new QWidget(this);
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    mStop = new QPushButton(qtTrId("RegenerateStop"), buttons);
    mSelected = new QPushButton(qtTrId("RegenerateSelected"), buttons);
    mAll = new QPushButton(qtTrId("RegenerateAll"), buttons);
    connect(mStop, &QPushButton::clicked, &mRun, &RegenerationRun::cancel);
    connect(mSelected, &QPushButton::clicked, this, &RegeneratePanel::regenerateSelected);
    connect(mAll, &QPushButton::clicked, this, [this] { begin(mList->songsToRegenerate()); });
    row->addWidget(mStop);
    row->addStretch();
    row->addWidget(mSelected);
    row->addWidget(mAll);
    return buttons;
}

void RegeneratePanel::regenerate(const SongList &songs)
{
    mRun.cancel();
    mList->setSongs(songs);
    setAttribute(Qt::WA_ShowWithoutActivating, false);
    show();
    raise();
    activateWindow();
}

void RegeneratePanel::setCorruptSongsArray(const SongList &songs)
{
    mRun.cancel();
    mList->setSongs(songs);
    setAttribute(Qt::WA_ShowWithoutActivating);
    show();
}

void RegeneratePanel::regenerateSelected()
{
    SongList songs;
    for (const QModelIndex &index : mTable->selectionModel()->selectedRows())
        if (mList->canRegenerate(index.row()))
            songs.push_back(mList->song(index.row()));
    begin(songs);
}

void RegeneratePanel::begin(const SongList &songs)
{
    mRun.add(songs, mController.prefs().writeOptions());
    mList->setBegun(songs);
}

void RegeneratePanel::songDone(const std::shared_ptr<SongFile> &song, const QString &error,
                               bool canBeUndone)
{
    mList->setDone(song, error, canBeUndone);
    mController.tellChanged({song});
}

void RegeneratePanel::finished(const TagEditResult &result)
{
    mController.addChange(result);
    mList->setCancelled();
    validateInterface();
}

void RegeneratePanel::validateInterface()
{
    const bool isRunning = mRun.isRunning();
    const auto rows = mTable->selectionModel()->selectedRows();
    mProgress->setVisible(isRunning);
    mStop->setEnabled(isRunning);
    mSelected->setEnabled(std::any_of(rows.begin(), rows.end(), [this](const QModelIndex &index) {
        return mList->canRegenerate(index.row());
    }));
    mAll->setEnabled(!isRunning && mList->canRegenerateAny());
}
