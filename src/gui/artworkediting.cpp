#include "gui/artworkediting.h"

#include "app/artworkchange.h"
#include "base/background.h"
#include "gui/changesheet.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QMimeData>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

/// A name for the picture's file, such as "Artist - Album".
QString nameForFile(SongFile &song)
{
    QStringList parts;
    if (const AudioInfoTag *tag = song.infotag())
        for (const auto &part : {tag->artist(), tag->album()})
            if (part && !part->trimmed().isEmpty())
                parts << part->simplified();
    const QString name = parts.isEmpty() ? QStringLiteral("cover") : parts.join(u" - ");
    return QString(name).replace(u'/', u'-').left(100);
}

QString foldersOfPictures()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo::exists(folder) ? folder : QDir::homePath();
}

} // namespace

ArtworkEditing::ArtworkEditing(MainController &controller, ArtworkWell &well, QWidget &window)
    : mController(controller)
    , mWell(well)
    , mWindow(window)
{
    connect(&well, &ArtworkWell::dropped, this,
            [this](const QMimeData *data) { take(picturesIn(*data)); });
}

void ArtworkEditing::addArtwork()
{
    chooseFiles(true, [this](const QStringList &paths) { take(picturesInFiles(paths)); });
}

bool ArtworkEditing::canPaste()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return data && mayHoldPicture(*data);
}

void ArtworkEditing::pasteArtwork()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (data && mayHoldPicture(*data))
        take(picturesIn(*data));
    else
        refuse({qtTrId("ErrorNoPictureOnClipboard")});
}

/// The songs are those that were selected when the picture was dropped or chosen.
void ArtworkEditing::take(const PictureSource &source)
{
    read(source, [this, songs = mController.selectedSongs()](const Images &pictures) {
        addToSongs(songs, pictures);
    });
}

void ArtworkEditing::addToSongs(const SongList &songs, const Images &pictures)
{
    change(qtTrId("ArtworkAddToSongs").arg(songs.size()), qtTrId("ArtworkAdd"), songs,
           [pictures](const Images &images) { return ArtworkChange::withAdded(images, pictures); });
}

/// `then` gets what can be used, at least one picture; of the rest the user is told why not.
void ArtworkEditing::read(const PictureSource &source, Then then)
{
    runInBackground(source, this,
                    [this, then = std::move(then)](const std::vector<PictureForSongs> &read) {
                        Images pictures;
                        QStringList reasons;
                        for (const PictureForSongs &picture : read)
                            if (picture.reason.isEmpty())
                                pictures << picture.image;
                            else
                                reasons << picture.reason;
                        if (!reasons.isEmpty())
                            refuse(reasons);
                        if (!pictures.isEmpty())
                            then(pictures);
                    });
}

void ArtworkEditing::replaceArtwork()
{
    const auto replace = [this, songs = mWell.shownSongs(),
                          shown = mWell.shownPicture()](const Images &pictures) {
        change(qtTrId("ArtworkReplaceInSongs").arg(songs.size()), qtTrId("ArtworkReplace"), songs,
               [shown, by = pictures.first()](const Images &images) {
                   return ArtworkChange::withReplaced(images, shown, by);
               });
    };
    chooseFiles(false, [this, replace](const QStringList &paths) {
        read(picturesInFiles(paths), replace);
    });
}

void ArtworkEditing::removeArtwork()
{
    const auto shown = mWell.shownPicture();
    if (!shown)
        return removeAllArtwork();
    const SongList &songs = mWell.shownSongs();
    change(qtTrId("ArtworkRemoveFromSongs").arg(songs.size()), qtTrId("ArtworkRemove"), songs,
           [shown](const Images &images) { return ArtworkChange::without(images, *shown); });
}

void ArtworkEditing::removeAllArtwork()
{
    const SongList &songs = mWell.shownSongs();
    change(qtTrId("ArtworkRemoveAllFromSongs").arg(songs.size()), qtTrId("ArtworkRemove"), songs,
           [](const Images &) { return Images(); });
}

void ArtworkEditing::change(const QString &question, const QString &proceed, const SongList &songs,
                            NewImages newImages)
{
    TagChange change{qtTrId("ChangeOfArtwork"), songs,
                     [newImages = std::move(newImages)](SongFile &, const AudioInfoTag &tag) {
                         TagValues values;
                         values.images = newImages(tag.images());
                         return values;
                     }};
    askToChange(question, songs, proceed, &mWindow,
                [this, change = std::move(change)] { mController.change(change); });
}

void ArtworkEditing::saveArtwork()
{
    const auto picture = mWell.shownPicture();
    if (!picture || mWell.shownSongs().empty())
        return;
    const QString suffix = fileSuffixOf(*picture);
    const QString name = nameForFile(*mWell.shownSongs().front()) + u'.' + suffix;
    auto *dialog = new QFileDialog(&mWindow, qtTrId("ArtworkSaveTitle"), foldersOfPictures());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(suffix);
    dialog->selectFile(name);
    connect(dialog, &QFileDialog::fileSelected, this, [this, picture](const QString &path) {
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(picture->data) != picture->data.size()
            || !file.commit())
            refuse({QStringLiteral("%1: %2").arg(path, file.errorString())});
    });
    dialog->open();
}

void ArtworkEditing::chooseFiles(bool several, std::function<void(const QStringList &)> then)
{
    auto *dialog = new QFileDialog(&mWindow, qtTrId("ArtworkChooseTitle"), foldersOfPictures(),
                                   qtTrId("ArtworkChooseFilter"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::filesSelected, this, std::move(then));
    dialog->open();
}

void ArtworkEditing::refuse(const QStringList &reasons)
{
    auto *alert = new QMessageBox(QMessageBox::Warning, qtTrId("ArtworkRefusedTitle"),
                                  reasons.join(u'\n'), QMessageBox::Ok, &mWindow);
    alert->setTextFormat(Qt::PlainText);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->open();
}
