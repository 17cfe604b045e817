#include "gui/optionsdrawer.h"

#include "app/worklist.h"
#include "gui/hintlabel.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace {

constexpr int betweenGroups = 12; // pixels
constexpr int withinGroup = 6; // pixels

struct MethodTexts {
    const char *name;
    const char *hint;
};

/// By the number of the method.
constexpr std::array methodTexts{
    MethodTexts{QT_TRID_NOOP("OptionsPickNone"), QT_TRID_NOOP("OptionsPickNoneHint")},
    MethodTexts{QT_TRID_NOOP("OptionsPickEarliest"), QT_TRID_NOOP("OptionsPickEarliestHint")},
    MethodTexts{QT_TRID_NOOP("OptionsPickAgreement"), QT_TRID_NOOP("OptionsPickAgreementHint")},
    MethodTexts{QT_TRID_NOOP("OptionsPickBest"), QT_TRID_NOOP("OptionsPickBestHint")},
};

} // namespace

OptionsDrawer::OptionsDrawer(PrefsController &prefs, WorkList &workList, QWidget *parent)
    : QScrollArea(parent)
    , mPrefs(prefs)
    , mWorkList(workList)
{
    setObjectName(QStringLiteral("optionsDrawer"));
    setAccessibleName(qtTrId("OptionsTitle"));
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(betweenGroups, betweenGroups, betweenGroups, betweenGroups);
    column->setSpacing(betweenGroups);
    column->addWidget(makeAssets());
    column->addWidget(makePickingMethod());
    column->addWidget(makeSearch());
    column->addStretch(1);
    setWidget(content);
    setMinimumWidth(content->minimumSizeHint().width()
                    + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    connect(&workList, &WorkList::runStarted, this, &OptionsDrawer::validate);
    connect(&workList, &WorkList::runFinished, this, &OptionsDrawer::validate);
    readPrefs();
}

QGroupBox *OptionsDrawer::makeAssets()
{
    auto *group = new QGroupBox(qtTrId("OptionsGather"));
    auto *grid = new QGridLayout(group);
    grid->setVerticalSpacing(withinGroup);
    grid->setColumnStretch(0, 1);
    auto *overwrite = new HintLabel(qtTrId("OptionsOverwrite"));
    overwrite->setWordWrap(false);
    grid->addWidget(overwrite, 0, 1, Qt::AlignHCenter);
    addAsset(*grid, AssetSongTitle, QStringLiteral("Title"), "SongTitle");
    addAsset(*grid, AssetAlbumName, QStringLiteral("Album"), "AlbumName");
    addAsset(*grid, AssetArtwork, QStringLiteral("Artwork"), "Artwork");
    addAsset(*grid, AssetGenre, QStringLiteral("Genre"), "Genre");
    addAsset(*grid, AssetTrack, QStringLiteral("Track"), "Track");
    addAsset(*grid, AssetYear, QStringLiteral("Year"), "Year");
    addAsset(*grid, AssetLyrics, QStringLiteral("Lyrics"), "Lyrics");
    return group;
}

void OptionsDrawer::addAsset(QGridLayout &grid, Asset asset, const QString &name,
                             const char *textID)
{
    const QString text = qtTrId(textID);
    auto *check = new QCheckBox(text);
    check->setObjectName(QStringLiteral("check") + name);
    check->setToolTip(qtTrId("ToolTipGather"));
    auto *overwrite = new QCheckBox;
    overwrite->setObjectName(QStringLiteral("overwrite") + name);
    overwrite->setAccessibleName(qtTrId("OptionsOverwriteAsset").arg(text));
    overwrite->setToolTip(qtTrId("ToolTipOverwrite"));
    const int row = grid.rowCount();
    grid.addWidget(check, row, 0);
    grid.addWidget(overwrite, row, 1, Qt::AlignHCenter);
    for (QCheckBox *box : {check, overwrite})
        connect(box, &QCheckBox::toggled, this, &OptionsDrawer::writePrefs);
    mAssets.push_back({asset, check, overwrite});
}

QGroupBox *OptionsDrawer::makePickingMethod()
{
    mAdvanced = new QGroupBox(qtTrId("OptionsAdvanced"));
    mAdvanced->setObjectName(QStringLiteral("advancedBox"));
    mPickingMethod = new QButtonGroup(this);
    mPickingMethod->setObjectName(QStringLiteral("albumPickingMethod"));
    auto *column = new QVBoxLayout(mAdvanced);
    column->setSpacing(withinGroup);
    auto *hints = new QStackedWidget; // as high as the longest one, so that nothing moves
    // The one that fits most users stands first; the numbers are those of the settings.
    for (const AlbumPick method :
         {AlbumPick::Best, AlbumPick::MostAgreement, AlbumPick::EarliestYear, AlbumPick::None})
        addMethod(*column, *hints, method);
    column->addWidget(hints);
    connect(mPickingMethod, &QButtonGroup::idToggled, this, &OptionsDrawer::writePrefs);
    return mAdvanced;
}

/// What the chosen one means is said below them all.
void OptionsDrawer::addMethod(QVBoxLayout &column, QStackedWidget &hints, AlbumPick method)
{
    const int number = static_cast<int>(method);
    const MethodTexts &texts = methodTexts.at(static_cast<std::size_t>(number));
    auto *button = new QRadioButton(qtTrId(texts.name));
    button->setAccessibleDescription(qtTrId(texts.hint));
    button->setToolTip(qtTrId(texts.hint));
    mPickingMethod->addButton(button, number);
    auto *hint = new HintLabel(qtTrId(texts.hint));
    hint->setAlignment(Qt::AlignTop);
    hints.addWidget(hint);
    connect(button, &QRadioButton::toggled, hint, [&hints, hint](bool isChosen) {
        if (isChosen)
            hints.setCurrentWidget(hint);
    });
    column.addWidget(button);
}

QGroupBox *OptionsDrawer::makeSearch()
{
    auto *group = new QGroupBox(qtTrId("OptionsSearch"));
    auto *column = new QVBoxLayout(group);
    column->setSpacing(withinGroup);
    addCheckBox(mAllowSubstrings, *column, "allowSubstrings", "OptionsAllowSubstrings",
                "ToolTipAllowSubstrings");
    addCheckBox(mParallelSearch, *column, "parallelSearchButton", "OptionsParallelSearch",
                "ToolTipParallelSearch");
    addCheckBox(mIdentify, *column, "identifyButton", "OptionsIdentify", "ToolTipIdentify");
    addCheckBox(mReview, *column, "reviewButton", "OptionsReview", "ToolTipReview");
    return group;
}

void OptionsDrawer::addCheckBox(QCheckBox *&box, QVBoxLayout &column, const char *name,
                                const char *textID, const char *toolTipID)
{
    box = new QCheckBox(qtTrId(textID));
    box->setObjectName(QLatin1String(name));
    box->setToolTip(qtTrId(toolTipID));
    column.addWidget(box);
    connect(box, &QCheckBox::toggled, this, &OptionsDrawer::writePrefs);
}

void OptionsDrawer::readPrefs()
{
    mIsReading = true;
    const GatheringOptions options = mPrefs.gatheringOptions();
    for (const AssetBoxes &boxes : mAssets) {
        boxes.check->setChecked(options.gather.testFlag(boxes.asset));
        boxes.overwrite->setChecked(options.overwrite.testFlag(boxes.asset));
    }
    mPickingMethod->button(static_cast<int>(options.albumPickingMethod))->setChecked(true);
    mAllowSubstrings->setChecked(options.allowSubstrings == Substrings::Allow);
    mParallelSearch->setChecked(options.parallelSearch);
    mIdentify->setChecked(options.identify);
    mReview->setChecked(options.review);
    mIsReading = false;
    validate();
}

void OptionsDrawer::writePrefs()
{
    if (mIsReading)
        return;
    GatheringOptions options = mPrefs.gatheringOptions();
    for (const AssetBoxes &boxes : mAssets) {
        options.gather.setFlag(boxes.asset, boxes.check->isChecked());
        options.overwrite.setFlag(boxes.asset, boxes.overwrite->isChecked());
    }
    options.albumPickingMethod = static_cast<AlbumPick>(mPickingMethod->checkedId());
    options.allowSubstrings =
        mAllowSubstrings->isChecked() ? Substrings::Allow : Substrings::Refuse;
    options.parallelSearch = mParallelSearch->isChecked();
    options.identify = mIdentify->isChecked();
    options.review = mReview->isChecked();
    mPrefs.setGatheringOptions(options);
    mWorkList.setOptions(options);
}

/// How albums are looked for stays as it is during a run.
void OptionsDrawer::validate()
{
    const bool isIdle = !mWorkList.isRunning();
    for (QWidget *fixed :
         {static_cast<QWidget *>(mAdvanced), static_cast<QWidget *>(mAllowSubstrings),
          static_cast<QWidget *>(mParallelSearch), static_cast<QWidget *>(mReview)})
        fixed->setEnabled(isIdle);
    const bool hasKey = !mPrefs.acoustIDKey().isEmpty();
    mIdentify->setEnabled(isIdle && hasKey);
    mIdentify->setToolTip(hasKey ? qtTrId("ToolTipIdentify") : qtTrId("ToolTipIdentifyNoKey"));
}

/// A key may have been entered meanwhile.
void OptionsDrawer::showEvent(QShowEvent *event)
{
    QScrollArea::showEvent(event);
    validate();
}
