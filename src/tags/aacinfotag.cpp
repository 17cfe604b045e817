#include "tags/aacinfotag.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/aacreader.h"
#include "tags/aacrewrite.h"
#include "tags/atom.h"
#include "tags/atomsource.h"
#include "tags/filetype.h"
#include "tags/songbytes.h"

#include <QCoreApplication>

#include <utility>

AACInfoTag::Read AACInfoTag::tagWithBytes(const SongBytes &song)
try {
    const AtomSource source = AtomSource::ofSong(song, FileType::strayID3v2TagLength(song));
    const auto tree = Atom::atomContainerFromFile(source);
    if (!tree->firstChild(atomName("moov")))
        throw MalformedData(qtTrId("ErrorNoMovie"));
    auto tag = std::make_unique<AACInfoTag>();
    tag->mAttribs = AACReader::getAttributesFromAACFile(*tree);
    return {std::move(tag), {}};
} catch (const MalformedData &malformed) {
    qCWarning(logTags).noquote()
        << QStringLiteral("AAC tag of %1 cannot be read: %2").arg(song.path(), malformed.reason());
    return {nullptr, qtTrId("ErrorMP4Unreadable").arg(malformed.reason())};
}

std::optional<QString> AACInfoTag::title() const
{
    return mAttribs.text(AACText::Title);
}

std::optional<QString> AACInfoTag::artist() const
{
    return mAttribs.text(AACText::Artist);
}

std::optional<QString> AACInfoTag::album() const
{
    return mAttribs.text(AACText::Album);
}

std::optional<QString> AACInfoTag::year() const
{
    constexpr qsizetype digits = 4;
    const std::optional<QString> &stored = mAttribs.text(AACText::Year);
    return stored && stored->size() >= digits ? std::optional(stored->first(digits)) : std::nullopt;
}

std::optional<QString> AACInfoTag::track() const
{
    return mAttribs.text(AACText::Track);
}

std::optional<QString> AACInfoTag::genres() const
{
    return mAttribs.text(AACText::Genre);
}

std::optional<QString> AACInfoTag::lyrics() const
{
    return mAttribs.text(AACText::Lyrics);
}

std::optional<QString> AACInfoTag::bpm() const
{
    return mAttribs.text(AACText::BPM);
}

bool AACInfoTag::isPartOfCompilation() const
{
    return mAttribs.compilation;
}

bool AACInfoTag::hasTitle() const
{
    return title().has_value() || mAttribs.hasTitleItem;
}

bool AACInfoTag::hasHiddenValues() const
{
    return mAttribs.hasUnreadItem || (mAttribs.text(AACText::Year) && !year());
}

void AACInfoTag::setString(const QString &string, AACText forKey)
{
    const auto key = static_cast<size_t>(forKey);
    setTagHasBeenModified(true);
    mAttribs.texts.at(key) = string.isEmpty() ? std::nullopt : std::optional(string);
    mAttribs.textsSet.set(key);
}

void AACInfoTag::setTitle(const QString &title)
{
    setString(title, AACText::Title);
}

void AACInfoTag::setArtist(const QString &artist)
{
    setString(artist, AACText::Artist);
}

void AACInfoTag::setAlbum(const QString &album)
{
    setString(album, AACText::Album);
}

void AACInfoTag::setYear(const QString &year)
{
    setString(year, AACText::Year);
}

void AACInfoTag::setTrack(const QString &track)
{
    setString(track, AACText::Track);
}

void AACInfoTag::setGenres(const QString &genres)
{
    setString(genres, AACText::Genre);
}

void AACInfoTag::setLyrics(const QString &lyrics)
{
    setString(lyrics, AACText::Lyrics);
}

void AACInfoTag::setBPM(const QString &bpm)
{
    setString(bpm, AACText::BPM);
}

void AACInfoTag::setIsPartOfCompilation(bool isPartOfCompilation)
{
    setTagHasBeenModified(true);
    mAttribs.compilation = isPartOfCompilation;
    mAttribs.compilationSet = true;
}

bool AACInfoTag::addImage(const ID3Image &image)
{
    setTagHasBeenModified(true);
    mAttribs.images.append(image);
    mAttribs.imagesSet = true;
    return true;
}

bool AACInfoTag::removeImageAtIndex(int index)
{
    const bool isRemoved = AudioInfoTag::removeImageAtIndex(index);
    if (index < 0 || index >= mAttribs.images.size())
        return isRemoved;
    setTagHasBeenModified(true);
    mAttribs.images.removeAt(index);
    mAttribs.imagesSet = true;
    return true;
}

std::optional<QString> AACInfoTag::readVersion() const
{
    return QStringLiteral("AAC");
}

InPlaceFile::Outcome AACInfoTag::modifySongFileAtPath(const QString &path,
                                                      const WriteOptions &options)
{
    auto outcome = AACRewrite::rewrite(path, mAttribs, options);
    if (outcome.kind != InPlaceFile::Outcome::Kind::Failed)
        setTagHasBeenModified(false);
    return outcome;
}
