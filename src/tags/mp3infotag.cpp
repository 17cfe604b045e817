#include "tags/mp3infotag.h"

#include "tags/id3reader.h"
#include "tags/id3writer.h"
#include "tags/mp3rewrite.h"
#include "text/integervalue.h"

#include <array>
#include <utility>

namespace {

FieldFrames framesOf(TagText which)
{
    static constexpr std::array<FieldFrames, tagTextCount> frames{
        Fields::title, Fields::artist, Fields::album,  Fields::year,
        Fields::track, Fields::genres, Fields::lyrics, Fields::bpm};
    return frames.at(static_cast<size_t>(which));
}

} // namespace

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
    tag->mProblem = std::move(contents->problem);
    if (contents->encounteredProblem)
        tag->setEncounteredProblemDecoding();
    return tag;
}

std::optional<QString> MP3InfoTag::text(TagText which) const
{
    const FieldFrames field = framesOf(which);
    if (which != TagText::Lyrics)
        return mFrames.firstStringForFrameID(field.v24, field.v22);
    const FrameContent *content = mFrames.firstObjectForFrameID(field.v24, field.v22);
    const auto *block = content ? std::get_if<TextBlock>(content) : nullptr;
    return block ? block->text : std::nullopt;
}

bool MP3InfoTag::isPartOfCompilation() const
{
    return integerValue(
               mFrames.firstStringForFrameID(Fields::compilation.v24, Fields::compilation.v22)
                   .value_or(QString()))
        >= 1;
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

void MP3InfoTag::setText(TagText which, const QString &text)
{
    if (which == TagText::Lyrics)
        setLyricsFrame(text);
    else
        setString(text, framesOf(which));
}

void MP3InfoTag::setLyricsFrame(const QString &lyrics)
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
