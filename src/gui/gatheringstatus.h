#pragma once

#include <QWidget>

class Progress;
class QLabel;
class QProgressBar;
class WorkList;

/// The two bars of a run, of the whole and of the song in hand, and its status line.
class GatheringStatus : public QWidget {
    Q_OBJECT

public:
    /// The work list must outlive this.
    explicit GatheringStatus(WorkList &workList, QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void showStatusLine();
    [[nodiscard]] QProgressBar *barOf(Progress &progress, const QString &name,
                                      const QString &accessibleName);

    WorkList &mWorkList;
    QLabel *mOverallText;
};
