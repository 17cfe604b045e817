#pragma once

#include "app/songlist.h"

#include <QDialog>
#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

/// Shows that a source is being read, with a way to end that. Sources that are read in no time do
/// not make it flash up.
class LoadingPanel : public QDialog {
    Q_OBJECT

public:
    /// The songs must outlive the panel.
    LoadingPanel(LoadedSongs &songs, QWidget *parent);

    void reject() override;

private:
    void begin();
    void showProgress();
    void end();

    LoadedSongs &mSongs;
    QLabel *mModalField;
    QProgressBar *mModalIndicator;
    QTimer mAppearance;
};
