#include "gui/loadingpanel.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <chrono>

using namespace std::chrono_literals;

namespace {
constexpr auto beforeAppearance = 400ms;
constexpr int textWidth = 380; // pixels
} // namespace

LoadingPanel::LoadingPanel(LoadedSongs &songs, QWidget *parent)
    : QDialog(parent)
    , mSongs(songs)
    , mModalField(new QLabel)
    , mModalIndicator(new QProgressBar)
{
    setObjectName(QStringLiteral("modalPanel"));
    setWindowModality(Qt::WindowModal);
    mModalField->setTextFormat(Qt::PlainText);
    mModalField->setFixedWidth(textWidth);
    mModalIndicator->setTextVisible(false);
    mModalIndicator->setAccessibleName(qtTrId("LoadingProgress"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &LoadingPanel::reject);
    auto *column = new QVBoxLayout(this);
    column->addWidget(mModalField);
    column->addWidget(mModalIndicator);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);

    mAppearance.setSingleShot(true);
    mAppearance.setInterval(beforeAppearance);
    connect(&mAppearance, &QTimer::timeout, this, [this] {
        if (mSongs.isLoading() && mSongs.isWorthShowingProgress())
            open();
    });
    connect(&songs, &LoadedSongs::cleared, this, &LoadingPanel::begin);
    connect(&songs.progress(), &Progress::changed, this, &LoadingPanel::showProgress);
    connect(&songs, &LoadedSongs::loadFinished, this, &LoadingPanel::end);
}

void LoadingPanel::begin()
{
    setWindowTitle(mSongs.source().windowTitle);
    mModalField->setText(mModalField->fontMetrics().elidedText(mSongs.source().progressText,
                                                               Qt::ElideMiddle, textWidth));
    mModalIndicator->setRange(0, 0);
    mAppearance.start();
}

void LoadingPanel::showProgress()
{
    const Progress &progress = mSongs.progress();
    mModalIndicator->setRange(
        0, progress.isIndeterminate() ? 0 : static_cast<int>(progress.maximum()));
    mModalIndicator->setValue(static_cast<int>(progress.value()));
}

void LoadingPanel::end()
{
    mAppearance.stop();
    hide();
}

/// What was read so far stays in the list.
void LoadingPanel::reject()
{
    mSongs.cancel();
    end();
}
