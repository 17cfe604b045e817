#include "gui/artworkwell.h"

#include "app/artworkchange.h"
#include "base/background.h"
#include "gathering/picturereader.h"
#include "gui/pictureframe.h"
#include "gui/picturestrip.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr auto restOfSelection = 60ms;
constexpr int insideGroup = 6; // pixels
constexpr int captionLines = 4; // one of them wraps in some languages
/// Larger than the well ever is on a screen of high density. In pixels.
constexpr QSize largestShown(1024, 1024);

QString captionOf(const ID3Image &image, QSize size, const QLocale &locale)
{
    QStringList lines;
    if (size.isValid())
        lines << qtTrId("ArtworkSize")
                     .arg(locale.toString(size.width()), locale.toString(size.height()));
    QStringList facts{fileSuffixOf(image).toUpper(),
                      locale.formattedDataSize(image.data.size(), 0, QLocale::DataSizeSIFormat)};
    if (image.pictureType != 0) // "other" says nothing
        facts << qtTrId(textIDOfPictureType(image.pictureType));
    facts.removeAll(QString());
    lines << facts.join(QStringLiteral(", "));
    return lines.join(u'\n');
}

} // namespace

ArtworkWell::ArtworkWell(MainController &controller, const Commands &commands, QWidget *parent)
    : QWidget(parent)
    , mController(controller)
{
    setObjectName(QStringLiteral("artworkWell"));
    setUpParts(commands);
    mSelectionRests.setSingleShot(true);
    connect(&mSelectionRests, &QTimer::timeout, this, &ArtworkWell::readArtwork);
    connect(&controller, &MainController::selectionChanged, this, &ArtworkWell::readLater);
    connect(&controller, &MainController::songsChanged, this, &ArtworkWell::songsChanged);
    showArtwork(ArtworkOfSongs());
}

void ArtworkWell::setUpParts(const Commands &commands)
{
    auto *column = new QVBoxLayout(this);
    column->setSpacing(insideGroup);
    mFrame = new PictureFrame(this);
    mFrame->setAccessibleName(qtTrId("Artwork"));
    connect(mFrame, &PictureFrame::dropped, this, &ArtworkWell::dropped);
    column->addWidget(mFrame);
    mStrip = new PictureStrip(mController.engine().queue, this);
    QSizePolicy policy = mStrip->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    mStrip->setSizePolicy(policy);
    connect(mStrip, &PictureStrip::chosen, this, &ArtworkWell::showPictureAt);
    column->addWidget(mStrip);
    mCaption = new QLabel(this);
    mCaption->setObjectName(QStringLiteral("artworkCaption"));
    mCaption->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    mCaption->setWordWrap(true);
    mCaption->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mCaption->setFixedHeight(mCaption->fontMetrics().lineSpacing() * captionLines);
    column->addWidget(mCaption);
    column->addWidget(buttons(commands));
    column->addStretch(1);
    setUpMenu(commands);
}

/// What can be done with the picture, under the pointer and on the keys.
void ArtworkWell::setUpMenu(const Commands &commands)
{
    using enum MenuCommand;
    for (const MenuCommand command :
         {AddArtwork, PasteArtwork, ReplaceArtwork, RemoveArtwork, RemoveAllArtwork, SaveArtwork})
        mFrame->addAction(&commands[command]);
    mFrame->setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto key = [this, &commands](QKeySequence::StandardKey keys, MenuCommand command) {
        auto *shortcut = new QShortcut(keys, mFrame);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, &commands[command], &QAction::trigger);
    };
    key(QKeySequence::Paste, PasteArtwork);
    key(QKeySequence::Delete, RemoveArtwork);
}

QWidget *ArtworkWell::buttons(const Commands &commands)
{
    using enum MenuCommand;
    auto *buttons = new QWidget(this);
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(insideGroup);
    row->addStretch();
    for (const MenuCommand command : {AddArtwork, ReplaceArtwork, RemoveArtwork, SaveArtwork}) {
        auto *button = new QToolButton(buttons);
        button->setDefaultAction(&commands[command]);
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        row->addWidget(button);
    }
    row->addStretch();
    return buttons;
}

std::optional<ID3Image> ArtworkWell::shownPicture() const
{
    return mIndex >= 0 && mIndex < mArtwork.pictures.size()
        ? std::optional(mArtwork.pictures[mIndex])
        : std::nullopt;
}

void ArtworkWell::songsChanged(const SongList &songs)
{
    const SongList &selected = mController.selectedSongs();
    const auto lookedAt = std::min(selected.size(), ArtworkReading::mostSongs);
    const std::unordered_set<std::shared_ptr<SongFile>> changed(songs.begin(), songs.end());
    if (std::any_of(selected.begin(), selected.begin() + static_cast<std::ptrdiff_t>(lookedAt),
                    [&changed](const auto &song) { return changed.contains(song); }))
        readLater();
}

void ArtworkWell::readLater()
{
    if (mController.selectedSongs().empty()) {
        mIsOutOfDate = mIsReading;
        mSelectionRests.stop();
        mShownSongs = std::make_shared<const SongList>();
        return showArtwork(ArtworkOfSongs());
    }
    mSelectionRests.start(restOfSelection);
}

/// One reading at a time: a slow drive would otherwise be asked for all that was ever selected.
void ArtworkWell::readArtwork()
{
    mIsOutOfDate = mIsReading;
    if (mIsReading)
        return;
    mIsReading = true;
    const auto songs = std::make_shared<const SongList>(mController.selectedSongs());
    const auto then = [this, songs](const ArtworkOfSongs &artwork) {
        mIsReading = false;
        if (std::exchange(mIsOutOfDate, false))
            return readLater();
        mShownSongs = songs;
        showArtwork(artwork);
    };
    const ArtworkReading reading(mController.selectedSongs());
    runInBackground([reading] { return reading.read(); }, this, then);
}

void ArtworkWell::showArtwork(const ArtworkOfSongs &artwork)
{
    // The next song of an album shows the same one of several pictures.
    const bool isSame =
        !artwork.pictures.isEmpty() && haveSameData(artwork.pictures, mArtwork.pictures);
    mArtwork = artwork;
    mFrame->setTakesDrops(artwork.songs > 0);
    if (!isSame)
        mIndex = artwork.isMixed ? -1 : 0;
    showPictureAt(mIndex);
}

void ArtworkWell::showPictureAt(qsizetype index)
{
    mIndex = index;
    showStrip();
    ++mDecoding;
    if (shownPicture())
        decodePicture();
    else
        showNoPicture();
    Q_EMIT artworkChanged();
}

void ArtworkWell::decodePicture()
{
    const auto decode = [data = shownPicture()->data] {
        PictureReader reader(data);
        const QSize size = reader.size();
        const bool isLarge =
            size.width() > largestShown.width() || size.height() > largestShown.height();
        Picture picture{{}, size};
        picture.image =
            reader.image(isLarge ? size.scaled(largestShown, Qt::KeepAspectRatio) : size);
        if (picture.image.isNull())
            picture.size = QSize();
        return picture;
    };
    runInBackground(decode, this, [this, number = mDecoding](const Picture &picture) {
        if (number == mDecoding)
            showPicture(picture);
    });
}

void ArtworkWell::showPicture(const Picture &picture)
{
    if (picture.image.isNull())
        mFrame->showHint(qtTrId("ErrorPictureUnreadable"));
    else
        mFrame->showPicture(picture.image);
    showCaption(captionOf(*shownPicture(), picture.size, locale()));
}

void ArtworkWell::showNoPicture()
{
    if (mArtwork.songs == 0)
        mFrame->showHint(qtTrId("ArtworkNoSelection"));
    else if (mArtwork.isMixed)
        mFrame->showHint(qtTrId("ArtworkSeveral"));
    else
        mFrame->showHint(mArtwork.reason.isEmpty() ? qtTrId("ArtworkNone") : mArtwork.reason);
    showCaption({});
}

/// Says as well of how many songs that is.
void ArtworkWell::showCaption(const QString &caption)
{
    QStringList lines;
    if (mArtwork.songs > 1) {
        const QString songs = locale().toString(mArtwork.songs);
        const bool isPart = mArtwork.lookedAt < mArtwork.songs && !mArtwork.isMixed;
        lines
            << (isPart
                    ? qtTrId("ArtworkOfFirstSongs").arg(locale().toString(mArtwork.lookedAt), songs)
                    : qtTrId("SongsSelected").arg(songs));
    }
    if (!caption.isEmpty())
        lines << caption;
    mCaption->setText(lines.join(u'\n'));
}

/// Of songs whose pictures differ, those of each can be chosen.
void ArtworkWell::showStrip()
{
    mStrip->setVisible(mArtwork.pictures.size() > (mArtwork.isMixed ? 0 : 1));
    mStrip->setPictures(mArtwork.pictures, mIndex);
}

void ArtworkWell::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        mCaption->setFixedHeight(mCaption->fontMetrics().lineSpacing() * captionLines);
    QWidget::changeEvent(event);
}
