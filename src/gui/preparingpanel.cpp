#include "gui/preparingpanel.h"

#include "app/songpreparation.h"

#include <QProgressDialog>
#include <QTimer>

#include <chrono>

namespace {
/// So that nobody wonders what flashed up.
constexpr std::chrono::milliseconds stays{200};
} // namespace

PreparingPanel::PreparingPanel(SongPreparation &preparation, QWidget &window)
    : QObject(&window)
    , mPreparation(preparation)
    , mPanel(new QProgressDialog(&window))
{
    mPanel->setObjectName(QStringLiteral("preparingPanel"));
    mPanel->setLabelText(qtTrId("PreparingToGather"));
    mPanel->setWindowModality(Qt::WindowModal);
    mPanel->setAutoClose(false);
    mPanel->setAutoReset(false);
    mPanel->reset(); // or it would show by itself
    connect(&preparation, &SongPreparation::started, this, &PreparingPanel::show);
    connect(&preparation.progress(), &Progress::changed, this, &PreparingPanel::showProgress);
    connect(&preparation, &SongPreparation::finished, this,
            [this] { QTimer::singleShot(stays, mPanel, &QWidget::hide); });
    connect(mPanel, &QProgressDialog::canceled, this, [this] { mPreparation.cancel(); });
}

void PreparingPanel::show()
{
    mPanel->show();
}

void PreparingPanel::showProgress()
{
    mPanel->setMaximum(static_cast<int>(mPreparation.progress().maximum()));
    mPanel->setValue(static_cast<int>(mPreparation.progress().value()));
}
