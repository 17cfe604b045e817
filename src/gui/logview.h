#pragma once

#include "gui/logmodel.h"

#include <QTableView>

/// The log: what happened to which song, newest line last. It follows the end unless the user
/// scrolled up.
class LogView : public QTableView {
    Q_OBJECT

public:
    /// The log must outlive the view.
    explicit LogView(UserLog &log, QWidget *parent = nullptr);

    /// The selected lines, or all when none is selected, into the clipboard.
    void copyLines() const;
    void clear();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void fitRows();
    void noteEnd();
    void followEnd();

    LogModel mModel;
    bool mFollows = true;
};
