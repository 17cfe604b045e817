#include "tags/mp3infotag.h"

#include "tags/id3reader.h"
#include "tags/id3writer.h"
#include "tags/mp3rewrite.h"
#include "text/integervalue.h"

#include <utility>

std::unique_ptr<MP3InfoTag> MP3InfoTag::tagWithBytes(const SongBytes &song,
                                                     const ReadOptions &options)
{
    auto contents = ID3Reader::contentsOf(song, options);
    if (!contents)
        return nullptr;
    auto tag = std::make_unique<MP3InfoTag>();
    tag->mFrames = std::move(contents->frames);
    tag->mReadVersion = std::move(contents->readVersion);
    tag->mDialect = options.dialect;
    tag->mID3v1Range = contents->id3v1Range;
    tag->mID3v2Range = contents->id3v2Range;
    if (contents->encounteredProblem)
        tag->setEncounteredProblemDecoding();
    return tag;
}

std::optional<QString> MP3InfoTag::text(FieldFrames field) const
{
    return mFrames.firstStringForFrameID(field.v24, field.v22);
}

std::optional<QString> MP3InfoTag::title() const
{
    return text(Fields::title);
}

std::optional<QString> MP3InfoTag::artist() const
{
    return text(Fields::artist);
}

std::optional<QString> MP3InfoTag::album() const
{
    return text(Fields::album);
}

std::optional<QString> MP3InfoTag::year() const
{
    return text(Fields::year);
}

std::optional<QString> MP3InfoTag::track() const
{
    return text(Fields::track);
}

std::optional<QString> MP3InfoTag::genres() const
{
    return text(Fields::genres);
}

std::optional<QString> MP3InfoTag::bpm() const
{
    return text(Fields::bpm);
}

std::optional<QString> MP3InfoTag::lyrics() const
{
    const FrameContent *content =
        mFrames.firstObjectForFrameID(Fields::lyrics.v24, Fields::lyrics.v22);
    const auto *block = content ? std::get_if<TextBlock>(content) : nullptr;
    return block ? block->text : std::nullopt;
}

bool MP3InfoTag::isPartOfCompilation() const
{
    return integerValue(text(Fields::compilation).value_or(QString())) >= 1;
}

QList<ID3Image> MP3InfoTag::images() const
{
    return mFrames.images();
}

int MP3InfoTag::numberOfImages() const
{
    return mFrames.numberOfImages();
}

/// An encrypted title, or one of a group, is kept as raw bytes behind flags that say so: the name
/// of the file must not take its place.
bool MP3InfoTag::hasTitle() const
{
    const FrameContent *content =
        mFrames.firstObjectForFrameID(Fields::title.v24, Fields::title.v22);
    const auto *raw = content ? std::get_if<QByteArray>(content) : nullptr;
    return raw ? raw->size() > 2 && !raw->startsWith(QByteArrayView("\0\0", 2))
               : title().has_value();
}

QString MP3InfoTag::frameID(FieldFrames field) const
{
    const bool isVersion22 = mReadVersion && mReadVersion->startsWith(u"2.2");
    return (isVersion22 ? field.v22 : field.v24).toString();
}

void MP3InfoTag::setString(const QString &string, FieldFrames field)
{
    setTagHasBeenModified(true);
    if (string.isEmpty())
        mFrames.removeAllObjectsForFrameID(frameID(field));
    else
        mFrames.setString(string, frameID(field));
}

void MP3InfoTag::setTitle(const QString &title)
{
    setString(title, Fields::title);
}

void MP3InfoTag::setArtist(const QString &artist)
{
    setString(artist, Fields::artist);
}

void MP3InfoTag::setAlbum(const QString &album)
{
    setString(album, Fields::album);
}

void MP3InfoTag::setYear(const QString &year)
{
    setString(year, Fields::year);
}

void MP3InfoTag::setTrack(const QString &track)
{
    setString(track, Fields::track);
}

void MP3InfoTag::setGenres(const QString &genres)
{
    setString(genres, Fields::genres);
}

void MP3InfoTag::setBPM(const QString &bpm)
{
    setString(bpm, Fields::bpm);
}

void MP3InfoTag::setLyrics(const QString &lyrics)
{
    setTagHasBeenModified(true);
    const QString id = frameID(Fields::lyrics);
    mFrames.removeAllObjectsForFrameID(id);
    if (!lyrics.isEmpty())
        mFrames.addObject(TextBlock{lyrics, {}, QStringLiteral("eng")}, id);
}

void MP3InfoTag::setIsPartOfCompilation(bool isPartOfCompilation)
{
    setString(isPartOfCompilation ? QStringLiteral("1") : QString(), Fields::compilation);
}

bool MP3InfoTag::addImage(const ID3Image &image)
{
    setTagHasBeenModified(true);
    mFrames.addObject(image, audioImageFrame);
    return true;
}

bool MP3InfoTag::removeImageAtIndex(int index)
{
    AudioInfoTag::removeImageAtIndex(index);
    if (numberOfImages() == 0)
        return false;
    mFrames.removeImageAtIndex(index);
    setTagHasBeenModified(true);
    return true;
}

std::optional<QString> MP3InfoTag::writeVersion() const
{
    return ID3Writer::writeVersion(mFrames, mReadVersion, mDialect);
}

InPlaceFile::Outcome MP3InfoTag::modifySongFileAtPath(const QString &path,
                                                      const WriteOptions &options)
{
    const QString version = ID3Writer::writeVersion(mFrames, mReadVersion, options.dialect);
    auto outcome = MP3Rewrite::rewrite(path, mFrames, version, options);
    if (outcome.kind != InPlaceFile::Outcome::Kind::Failed)
        setTagHasBeenModified(false);
    return outcome;
}
