#pragma once

#include "app/prefscontroller.h"

#include <QScrollArea>

class QButtonGroup;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QStackedWidget;
class QVBoxLayout;
class WorkList;

/// The drawer with the gathering options. What is changed here is saved at once, and counts for the
/// songs of a run that are still to come.
class OptionsDrawer : public QScrollArea {
    Q_OBJECT

public:
    /// Both must outlive the drawer.
    OptionsDrawer(PrefsController &prefs, WorkList &workList, QWidget *parent = nullptr);

    /// Shows what is saved.
    void readPrefs();

protected:
    void showEvent(QShowEvent *event) override;

private:
    struct AssetBoxes {
        Asset asset;
        QCheckBox *check;
        QCheckBox *overwrite;
    };

    [[nodiscard]] QGroupBox *makeAssets();
    void addAsset(QGridLayout &grid, Asset asset, const QString &name, const char *textID);
    [[nodiscard]] QGroupBox *makePickingMethod();
    void addMethod(QVBoxLayout &column, QStackedWidget &hints, AlbumPick method);
    [[nodiscard]] QGroupBox *makeSearch();
    void addCheckBox(QCheckBox *&box, QVBoxLayout &column, const char *name, const char *textID,
                     const char *toolTipID);
    void writePrefs();
    void validate();

    PrefsController &mPrefs;
    WorkList &mWorkList;
    std::vector<AssetBoxes> mAssets;
    QGroupBox *mAdvanced = nullptr;
    QButtonGroup *mPickingMethod = nullptr;
    QCheckBox *mAllowSubstrings = nullptr;
    QCheckBox *mParallelSearch = nullptr;
    QCheckBox *mIdentify = nullptr;
    QCheckBox *mReview = nullptr;
    bool mIsReading = false; ///< the controls are being set, not by the user
};
