#pragma once

#include "gui/artworkwell.h"
#include "gui/picturesource.h"

#include <QObject>

/// What can be done with the artwork of songs.
class ArtworkEditing : public QObject {
public:
    /// All must outlive this; sheets open on `window`.
    ArtworkEditing(MainController &controller, ArtworkWell &well, QWidget &window);

    /// Asks for pictures, which each of the selected songs is given.
    void addArtwork();
    void pasteArtwork();
    /// Asks for a picture to take the place of the one that is shown; of songs whose pictures
    /// differ, the place of all.
    void replaceArtwork();
    /// Takes the shown picture out of the songs; of songs whose pictures differ, all of them.
    void removeArtwork();
    void removeAllArtwork();
    /// Asks for a file and writes the shown picture into it, as it is.
    void saveArtwork();

    [[nodiscard]] static bool canPaste();

private:
    using Images = QList<ID3Image>;
    using NewImages = std::function<Images(const Images &images)>;
    using Then = std::function<void(const Images &pictures)>;

    void take(const PictureSource &source);
    void addToSongs(const SongList &songs, const Images &pictures);
    void read(const PictureSource &source, Then then);
    void chooseFiles(bool several, std::function<void(const QStringList &paths)> then);
    void change(const QString &question, const QString &proceed, const SongList &songs,
                NewImages newImages);
    void refuse(const QStringList &reasons);

    MainController &mController;
    ArtworkWell &mWell;
    QWidget &mWindow;
};
