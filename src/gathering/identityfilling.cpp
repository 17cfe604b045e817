#include "gathering/identityfilling.h"

#include "gathering/acoustidlookup.h"
#include "gathering/pathnames.h"
#include "tags/audioinfotag.h"

#include <QRegularExpression>

namespace {

constexpr qsizetype longestNumber = 40; // characters

/// Of a file that is called after its number.
bool isNumber(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("\\A[\\d\\s._-]*(track)?[\\d\\s._-]*\\z"),
                                           QRegularExpression::CaseInsensitiveOption);
    return text.size() <= longestNumber && number.match(text).hasMatch();
}

bool hasArtistsName(const AudioInfoTag &tag)
{
    return tag.artist() && !isPlaceholder(*tag.artist());
}

bool hasSongsName(const AudioInfoTag &tag)
{
    const std::optional<QString> title = tag.title();
    return title && !isPlaceholder(*title) && !(tag.hasTitleOfPathname() && isNumber(*title));
}

} // namespace

bool lacksIdentity(const AudioInfoTag &tag)
{
    return !hasArtistsName(tag) || !hasSongsName(tag);
}

bool identityWouldStay(const AudioInfoTag &tag, Assets gather)
{
    return !tag.artist() || (tag.hasTitleOfPathname() && gather.testFlag(AssetSongTitle));
}

KnownOfSong knownOfSong(const AudioInfoTag &tag)
{
    KnownOfSong known;
    if (hasArtistsName(tag))
        known.artist = tag.artist();
    if (hasSongsName(tag) && !tag.hasTitleOfPathname())
        known.title = tag.title();
    known.album = tag.album();
    return known;
}

void IdentityFilling::fill(AudioInfoTag &tag, const SongIdentity &identity, Assets gather,
                           AssetLedger &ledger)
{
    mWasModified = tag.tagHasBeenModified();
    const KnownOfSong known = knownOfSong(tag);
    if (!known.artist)
        fillArtist(tag, identity.artist, ledger);
    if (!known.title) {
        const bool mayStay = ledger.isDesired(AssetSongTitle)
            || (tag.hasTitleOfPathname() && gather.testFlag(AssetSongTitle));
        fillTitle(tag, identity.title, mayStay, ledger);
    }
    if (!known.album && identity.album)
        fillAlbum(tag, *identity.album, ledger);
}

void IdentityFilling::fillArtist(AudioInfoTag &tag, const QString &artist, AssetLedger &ledger)
{
    mArtistBefore = tag.artist();
    tag.setArtist(artist);
    if (!mArtistBefore)
        ledger.supplied(AssetArtist, AcoustIDLookup::name);
}

void IdentityFilling::fillTitle(AudioInfoTag &tag, const QString &title, bool mayStay,
                                AssetLedger &ledger)
{
    if (!mayStay)
        mTitleBefore = tag.title().value_or(QString());
    tag.setTitle(title);
    if (mayStay)
        ledger.supplied(AssetSongTitle, AcoustIDLookup::name);
}

void IdentityFilling::fillAlbum(AudioInfoTag &tag, const QString &album, AssetLedger &ledger)
{
    mHasLentAlbum = !ledger.isDesired(AssetAlbumName);
    tag.setAlbum(album);
    if (!mHasLentAlbum)
        ledger.supplied(AssetAlbumName, AcoustIDLookup::name);
}

void IdentityFilling::giveBack(AudioInfoTag &tag, const AssetLedger &ledger)
{
    if (mArtistBefore)
        tag.setArtist(*mArtistBefore);
    if (mTitleBefore)
        tag.setTitle(*mTitleBefore);
    if (mHasLentAlbum)
        tag.setAlbum(QString());
    if (!ledger.changed && !mWasModified)
        tag.setTagHasBeenModified(false);
}
