#pragma once

#include "app/artworkofsongs.h"
#include "gui/commands.h"
#include "gui/maincontroller.h"

#include <QImage>
#include <QMimeData>
#include <QTimer>
#include <QWidget>

class PictureFrame;
class PictureStrip;
class QLabel;

/// Shows the artwork of the selected songs. It is read and decoded on another thread; until that
/// is done, what was shown stays.
class ArtworkWell : public QWidget {
    Q_OBJECT

public:
    ArtworkWell(MainController &controller, const Commands &commands, QWidget *parent);

    /// The songs whose artwork is shown: soon those that are selected.
    [[nodiscard]] const SongList &shownSongs() const { return *mShownSongs; }
    [[nodiscard]] const ArtworkOfSongs &artwork() const { return mArtwork; }
    /// The picture in sight; nothing without one, or while none was chosen of songs whose pictures
    /// differ.
    [[nodiscard]] std::optional<ID3Image> shownPicture() const;

Q_SIGNALS:
    /// shownSongs(), artwork() or shownPicture() are others now.
    void artworkChanged();
    void dropped(const QMimeData *data);

protected:
    void changeEvent(QEvent *event) override;

private:
    struct Picture {
        QImage image; ///< no larger than is ever shown
        QSize size; ///< of the whole picture, in pixels; invalid when it cannot be read
    };

    void setUpParts(const Commands &commands);
    void setUpMenu(const Commands &commands);
    [[nodiscard]] QWidget *buttons(const Commands &commands);
    void songsChanged(const SongList &songs);
    void readLater();
    void readArtwork();
    void showArtwork(const ArtworkOfSongs &artwork);
    void showPictureAt(qsizetype index);
    void decodePicture();
    void showPicture(const Picture &picture);
    void showNoPicture();
    void showCaption(const QString &caption);
    void showStrip();

    MainController &mController;
    PictureFrame *mFrame = nullptr;
    QLabel *mCaption = nullptr;
    PictureStrip *mStrip = nullptr;
    std::shared_ptr<const SongList> mShownSongs = std::make_shared<const SongList>();
    ArtworkOfSongs mArtwork;
    qsizetype mIndex = 0; ///< of the picture in sight; -1: none was chosen yet
    QTimer mSelectionRests; ///< so that walking through a list reads no file a step
    bool mIsReading = false;
    bool mIsOutOfDate = false; ///< the reading under way is of other songs
    int mDecoding = 0; ///< the number of the latest decoding: earlier ones are out of date
};
