#pragma once

#include "gui/reviewcandidatesmodel.h"
#include "gui/reviewfieldsmodel.h"
#include "gui/reviewsongsmodel.h"
#include "gui/thumbnails.h"

#include <QTimer>
#include <QWidget>

class PrefsController;
class QLabel;
class QPushButton;
class QStackedLayout;
class QTableView;

/// Shows what was found for the gathered songs before it is written, and afterwards: the old and
/// the new values side by side with their sources, and the albums to choose from.
class ReviewPanel : public QWidget {
    Q_OBJECT

public:
    /// All must outlive the panel.
    ReviewPanel(Review &review, HVHTTPQueue &queue, PrefsController &prefs,
                QWidget *parent = nullptr);

private:
    [[nodiscard]] QTableView *makeTable(const QString &name, const QString &accessibleName,
                                        QAbstractItemModel &model);
    [[nodiscard]] QWidget *makeSongs();
    [[nodiscard]] QWidget *makeFields();
    [[nodiscard]] QWidget *makeCandidates();
    [[nodiscard]] QWidget *makeButtons();
    [[nodiscard]] QPushButton *makeButton(const char *textID, const char *toolTipID,
                                          void (ReviewPanel::*pressed)());

    [[nodiscard]] int currentRow() const;
    [[nodiscard]] QList<int> selectedRows() const;
    void showSong();
    void showReason();
    void songAdded();
    void songChanged(int row);
    void validate();

    void write();
    void writeAll();
    void skip();
    void clearDecided();
    void takeAlbum();
    void goToNextOpen();

    Review &mReview;
    PrefsController &mPrefs;
    Thumbnails mThumbnails;
    ReviewSongsModel mSongsModel;
    ReviewFieldsModel mFieldsModel;
    ReviewCandidatesModel mCandidatesModel;
    QStackedLayout *mPages;
    QTableView *mSongs = nullptr;
    QTableView *mFields = nullptr;
    QTableView *mCandidates = nullptr;
    QLabel *mReason = nullptr;
    QLabel *mToWrite = nullptr;
    QPushButton *mTake = nullptr;
    QPushButton *mSkip = nullptr;
    QPushButton *mWrite = nullptr;
    QPushButton *mWriteAll = nullptr;
    QPushButton *mClear = nullptr;
    quint64 mShownSong = 0; ///< its id
    QTimer mValidation; ///< once for all that changes in a turn
};
