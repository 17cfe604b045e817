#pragma once

#include "app/droplist.h"
#include "app/engine.h"
#include "gathering/librarylending.h"

#include <QDialog>
#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

/// The small window: fills in what songs lack that were dropped on the program, one after the
/// other, and goes away when all are done and nothing went wrong.
class DropWindow : public QDialog {
    Q_OBJECT

public:
    /// The engine must be started and outlive the window.
    explicit DropWindow(Engine &engine);

    /// Files and folders; the window shows itself. Those that begin a list borrow from `lenders`,
    /// too.
    void open(const QStringList &paths, const SongList &lenders = {});
    [[nodiscard]] DropList &dropList() { return mDropList; }

Q_SIGNALS:
    /// It has gone away.
    void dismissed();

protected:
    void reject() override;

private:
    void showState();
    void finish();
    void noteProblem(const QString &line);

    UserLog mLog; ///< of the dropped songs alone
    LibraryLending mLibrary;
    GatherContext mContext;
    DropList mDropList;
    QLabel *mSimpleFile;
    QLabel *mSimpleCount;
    QLabel *mSimpleAchievement;
    QProgressBar *mSimpleProgress;
    QPushButton *mButton;
    QTimer mDismissal;
    QString mLastProblem;
    int mProblems = 0;
};
