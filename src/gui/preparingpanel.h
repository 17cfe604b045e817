#pragma once

#include <QObject>

class QProgressDialog;
class QWidget;
class SongPreparation;

/// Shows that very many songs are prepared for a run, and cancels that.
class PreparingPanel : public QObject {
    Q_OBJECT

public:
    /// The preparation must outlive this; the panel belongs to the window.
    PreparingPanel(SongPreparation &preparation, QWidget &window);

private:
    void show();
    void showProgress();

    SongPreparation &mPreparation;
    QProgressDialog *mPanel;
};
