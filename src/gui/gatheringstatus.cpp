#include "gui/gatheringstatus.h"

#include "app/worklist.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include <algorithm>

namespace {
constexpr int barWidth = 160; // pixels
/// Bars count in whole numbers; what a fetch has loaded may be more than fits one.
constexpr int barSteps = 10'000;

void showIn(const Progress &progress, QProgressBar &bar)
{
    const bool isKnown = !progress.isIndeterminate() && progress.maximum() > 0;
    // A maximum of 0 makes a bar that runs to and fro.
    bar.setMaximum(progress.isIndeterminate() ? 0 : barSteps);
    const double share = isKnown ? progress.value() / progress.maximum() : 0;
    bar.setValue(static_cast<int>(std::clamp(share, 0.0, 1.0) * barSteps));
}
} // namespace

GatheringStatus::GatheringStatus(WorkList &workList, QWidget *parent)
    : QWidget(parent)
    , mWorkList(workList)
    , mOverallText(new QLabel(this))
{
    setObjectName(QStringLiteral("gatheringStatus"));
    mOverallText->setObjectName(QStringLiteral("overallText"));
    mOverallText->setTextFormat(Qt::PlainText);
    mOverallText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(mOverallText, 1);
    row->addWidget(barOf(workList.songProgress(), QStringLiteral("thisSongProgress"),
                         qtTrId("ProgressOfSong")));
    row->addWidget(barOf(workList.overallProgress(), QStringLiteral("overallProgress"),
                         qtTrId("ProgressOfRun")));
    connect(&workList, &WorkList::statusLineChanged, this, &GatheringStatus::showStatusLine);
}

QProgressBar *GatheringStatus::barOf(Progress &progress, const QString &name,
                                     const QString &accessibleName)
{
    auto *bar = new QProgressBar(this);
    bar->setObjectName(name);
    bar->setAccessibleName(accessibleName);
    bar->setToolTip(accessibleName);
    bar->setTextVisible(false);
    bar->setFixedWidth(barWidth);
    bar->setMaximum(barSteps);
    connect(&progress, &Progress::changed, bar, [&progress, bar] { showIn(progress, *bar); });
    return bar;
}

void GatheringStatus::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    showStatusLine();
}

void GatheringStatus::showStatusLine()
{
    const QString line = mWorkList.statusLine();
    mOverallText->setText(
        mOverallText->fontMetrics().elidedText(line, Qt::ElideMiddle, mOverallText->width()));
    mOverallText->setToolTip(line);
}
