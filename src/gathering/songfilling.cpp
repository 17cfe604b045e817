#include "gathering/songfilling.h"

#include "tags/audioinfotag.h"
#include "text/simplifier.h"

#include <QtGlobal>

namespace {

// Shorter texts of a page are no year and no genre.
constexpr qsizetype shortestYear = 4;
constexpr qsizetype shortestGenre = 2;

bool tellsYear(const AlbumInfo &album)
{
    return album.year() && album.year()->size() >= shortestYear;
}

bool tellsGenre(const AlbumInfo &album)
{
    return album.genre() && album.genre()->size() >= shortestGenre;
}

int numberOfTagsTrack(const AlbumInfo &album, const AudioInfoTag &tag, Substrings allowSubstrings)
{
    const std::optional<QString> title = tag.title();
    return title ? album.numberOfTrackNamed(*title, allowSubstrings) : 0;
}

void fillTrackAndTitle(AudioInfoTag &tag, const AlbumInfo &album, int trackOfTitle,
                       AssetLedger &ledger)
{
    const int tracks = album.numberOfTracks();
    if (ledger.isDesired(AssetTrack) && trackOfTitle > 0) {
        tag.setTrack(QStringLiteral("%1/%2").arg(trackOfTitle).arg(tracks));
        ledger.supplied(AssetTrack, album.sourceInterfaceName());
    }
    const int number = tag.trackNumber();
    if (ledger.isDesired(AssetSongTitle) && number > 0 && number <= tracks) {
        tag.setTitle(album.trackNames()->at(number - 1));
        ledger.supplied(AssetSongTitle, album.sourceInterfaceName());
    }
}

} // namespace

bool mayBeAlbumOfSong(const AlbumInfo &album, const AudioInfoTag &tag, const AssetLedger &ledger,
                      Substrings allowSubstrings)
{
    return ledger.isDesired(AssetSongTitle) || album.numberOfTracks() == 0
        || numberOfTagsTrack(album, tag, allowSubstrings) > 0;
}

std::optional<QString> notOnAlbumProblem(const AlbumInfo &album, const AudioInfoTag &tag)
{
    if (!album.name() || album.numberOfTracks() == 0 || !tag.album())
        return {};
    return qtTrId("ErrorNotOnAlbum")
        .arg(tag.title().value_or(QString()), *album.name(), album.trackSummary());
}

Assets assetsToldBy(const AlbumInfo &album)
{
    Assets told;
    told.setFlag(AssetAlbumName, album.name().has_value());
    told.setFlag(AssetYear, tellsYear(album));
    told.setFlag(AssetGenre, tellsGenre(album));
    told.setFlag(AssetLyrics, !album.lyrics().isEmpty());
    told.setFlag(AssetArtwork, album.artURLString().has_value());
    if (album.numberOfTracks() > 0)
        told |= Assets(AssetTrack) | AssetSongTitle;
    return told;
}

void fillAlbumName(AudioInfoTag &tag, const AlbumInfo &album, AssetLedger &ledger)
{
    if (!ledger.isDesired(AssetAlbumName) || !album.name())
        return;
    const std::optional<QString> before = tag.album();
    tag.setAlbum(*album.name());
    ledger.supplied(AssetAlbumName, album.sourceInterfaceName());
    if (!before || HVUtility::isStringSimpleEqual(before, album.name()))
        return;
    // The pictures belonged to the other album: they go whether or not artwork is gathered, as
    // long as it may be overwritten.
    if (ledger.overwrite.testFlag(AssetArtwork)) {
        ledger.desired |= AssetArtwork;
        tag.removeAllImages();
    }
}

void fillFromAlbum(AudioInfoTag &tag, const AlbumInfo &album, Substrings allowSubstrings,
                   AssetLedger &ledger)
{
    const int trackOfTitle = numberOfTagsTrack(album, tag, allowSubstrings);
    const QString &source = album.sourceInterfaceName();
    if (tellsYear(album))
        fillYear(tag, *album.year(), source, ledger);
    fillLyrics(tag, album, ledger);
    if (tellsGenre(album))
        fillGenres(tag, *album.genre(), source, ledger);
    if (album.numberOfTracks() > 0)
        fillTrackAndTitle(tag, album, trackOfTitle, ledger);
}

void fillLyrics(AudioInfoTag &tag, const AlbumInfo &album, AssetLedger &ledger)
{
    if (!ledger.isDesired(AssetLyrics))
        return;
    if (album.isInstrumental()) {
        ledger.desired &= ~Assets(AssetLyrics);
        ledger.isInstrumental = true;
    }
    if (album.lyrics().isEmpty())
        return;
    tag.setLyrics(album.lyrics().last());
    ledger.supplied(AssetLyrics, album.sourceInterfaceName());
}

void fillYear(AudioInfoTag &tag, const QString &year, const QString &source, AssetLedger &ledger)
{
    if (!ledger.isDesired(AssetYear))
        return;
    tag.setYear(year);
    ledger.supplied(AssetYear, source);
}

void fillGenres(AudioInfoTag &tag, const QString &genres, const QString &source,
                AssetLedger &ledger)
{
    if (!ledger.isDesired(AssetGenre))
        return;
    tag.setGenres(genres);
    ledger.supplied(AssetGenre, source);
}

bool fillArtwork(AudioInfoTag &tag, const AdjustedImage &picture, const QString &source,
                 AssetLedger &ledger)
{
    if (ledger.overwrite.testFlag(AssetArtwork))
        tag.removeAllImages();
    if (!tag.addImage(ID3Image::imageWithData(picture.data, picture.mimeType)))
        return false;
    ledger.supplied(AssetArtwork, source);
    return true;
}
