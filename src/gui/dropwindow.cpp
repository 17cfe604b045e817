#include "gui/dropwindow.h"

#include "app/runcontext.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <chrono>

using namespace std::chrono_literals;

namespace {
constexpr int width = 460; // pixels
/// So that what the last song got can be read.
constexpr auto beforeDismissal = 3s;

/// A line of a fixed height: a long name is cut in its middle.
class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;

    void setFullText(const QString &text)
    {
        setToolTip(text);
        setText(fontMetrics().elidedText(text, Qt::ElideMiddle, contentsRect().width()));
    }
};

ElidedLabel *line(const QString &name)
{
    auto *label = new ElidedLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setFixedWidth(width);
    label->setMinimumHeight(label->fontMetrics().lineSpacing());
    return label;
}

void showLine(QLabel *label, const QString &text)
{
    static_cast<ElidedLabel *>(label)->setFullText(text);
}
} // namespace

DropWindow::DropWindow(Engine &engine)
    : mLibrary({})
    , mContext(runContext(engine, mLibrary))
    , mDropList(mContext, engine.prefs, engine.itunes, mLog)
    , mSimpleFile(line(QStringLiteral("simpleFile")))
    , mSimpleCount(line(QStringLiteral("simpleCount")))
    , mSimpleAchievement(line(QStringLiteral("simpleAchievement")))
    , mSimpleProgress(new QProgressBar)
    , mButton(nullptr)
{
    setObjectName(QStringLiteral("simpleWindow"));
    setWindowTitle(QStringLiteral("Tagwright"));
    mSimpleProgress->setObjectName(QStringLiteral("simpleProgress"));
    mSimpleProgress->setTextVisible(false);
    mSimpleProgress->setAccessibleName(qtTrId("DropWindowProgress"));
    mSimpleCount->setForegroundRole(QPalette::PlaceholderText);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    mButton = buttons->button(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &DropWindow::reject);
    auto *column = new QVBoxLayout(this);
    for (QWidget *part : std::initializer_list<QWidget *>{
             mSimpleFile, mSimpleProgress, mSimpleCount, mSimpleAchievement, buttons})
        column->addWidget(part);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    mDismissal.setSingleShot(true);
    mDismissal.setInterval(beforeDismissal);
    connect(&mDismissal, &QTimer::timeout, this, &DropWindow::reject);
    connect(&mDropList, &DropList::changed, this, &DropWindow::showState);
    connect(&mDropList, &DropList::finished, this, &DropWindow::finish);
    connect(&mLog, &UserLog::lineAdded, &engine.log, &UserLog::addLog);
    connect(&mLog, &UserLog::lineAdded, this, [this](const QString &text, LogColor color) {
        if (color == LogColor::Error)
            noteProblem(text);
    });
}

void DropWindow::open(const QStringList &paths, const SongList &lenders)
{
    mDismissal.stop();
    if (!mDropList.isActive())
        mLibrary = LibraryLending(lenders);
    if (!isVisible()) {
        mProblems = 0;
        mLastProblem.clear();
        mButton->setText(qtTrId("DropWindowCancel"));
        showLine(mSimpleFile, qtTrId("Scanning"));
        mSimpleProgress->setRange(0, 0);
    }
    for (const QString &path : paths)
        mDropList.openFile(path, [this, path](bool isAnyTaken) {
            if (isAnyTaken || mDropList.isActive())
                return;
            noteProblem(qtTrId("DropWindowNoSongs").arg(path));
            finish();
        });
    show();
    raise();
    activateWindow();
}

void DropWindow::showState()
{
    showLine(mSimpleFile, mDropList.fileLine());
    showLine(mSimpleCount, mDropList.countLine());
    if (!mDropList.achievementLine().isEmpty())
        showLine(mSimpleAchievement, mDropList.achievementLine());
    mSimpleProgress->setRange(0, static_cast<int>(mDropList.progress().maximum()));
    mSimpleProgress->setValue(static_cast<int>(mDropList.progress().value()));
}

void DropWindow::noteProblem(const QString &text)
{
    ++mProblems;
    mLastProblem = text;
}

/// With a problem the window stays until the user has seen it.
void DropWindow::finish()
{
    mSimpleProgress->setRange(0, 1);
    mSimpleProgress->setValue(1);
    mButton->setText(qtTrId("DropWindowClose"));
    if (!isVisible() || mProblems == 0) {
        showLine(mSimpleFile, qtTrId("DropWindowDone"));
        return mDismissal.start();
    }
    showLine(mSimpleFile, qtTrId("DropWindowProblems").arg(QString::number(mProblems)));
    showLine(mSimpleAchievement, mLastProblem);
}

/// Cancels what is left, and goes.
void DropWindow::reject()
{
    mDismissal.stop();
    mDropList.cancel();
    QDialog::reject();
    Q_EMIT dismissed();
}
