#include "tags/audioinfotag.h"

#include "text/integervalue.h"
#include "text/simplifier.h"

#include <QStringList>

#include <utility>

int AudioInfoTag::numberOfImages() const
{
    return static_cast<int>(images().size());
}

bool AudioInfoTag::removeImageAtIndex(int)
{
    mCachedIcon.reset();
    return false;
}

void AudioInfoTag::removeAllImages()
{
    while (numberOfImages() >= 1 && removeImageAtIndex(0)) { }
}

InPlaceFile::Outcome AudioInfoTag::modifySongFileAtPath(const QString &, const WriteOptions &)
{
    return {InPlaceFile::Outcome::Kind::Failed, qtTrId("ErrorCannotMakeID3")};
}

void AudioInfoTag::setIsLazy(bool isLazy)
{
    mLazy = isLazy;
    if (isLazy)
        mTagModified = false;
}

void AudioInfoTag::setPlayList(const std::optional<QString> &playlist, int andIndex)
{
    mPlaylist = playlist;
    mPlaylistIndex = andIndex;
}

int AudioInfoTag::playlistIndex() const
{
    return mPlaylist ? mPlaylistIndex : notFound;
}

int AudioInfoTag::trackNumber() const
{
    const QString text = track().value_or(QString());
    const qsizetype slash = text.indexOf(u'/');
    // A slash at the very front divides nothing: "/12" is no number at all.
    return integerValue(slash > 0 ? QStringView(text).first(slash) : QStringView(text));
}

int AudioInfoTag::numberOfTracksOnAlbum() const
{
    const QString text = track().value_or(QString());
    const qsizetype slash = text.indexOf(u'/');
    const bool hasCount = slash >= 0 && slash < text.size() - 1;
    return integerValue(hasCount ? QStringView(text).sliced(slash + 1) : QStringView(text));
}

std::optional<QString> AudioInfoTag::normalizedArtist() const
{
    auto name = artist();
    const qsizetype comma = name ? name->indexOf(u',') : -1;
    if (comma < 0)
        return name;
    qsizetype first = comma + 1;
    while (first < name->size() && name->at(first) == u' ')
        ++first;
    const qsizetype blank = name->indexOf(u' ', first);
    const qsizetype end = blank < 0 ? name->size() : blank;
    return name->sliced(first, end - first) + u' ' + name->first(comma) + name->sliced(end);
}

std::optional<QString> AudioInfoTag::reversedArtist() const
{
    auto name = artist();
    const qsizetype blank = name ? name->lastIndexOf(u' ') : -1;
    if (blank < 0 || name->contains(u','))
        return name;
    return name->sliced(blank + 1) + QStringLiteral(", ") + name->first(blank);
}

bool AudioInfoTag::matchString(const QString &text) const
{
    using HVUtility::doesStringHaveString;
    return doesStringHaveString(title(), text) || doesStringHaveString(artist(), text)
        || doesStringHaveString(album(), text) || doesStringHaveString(genres(), text)
        || doesStringHaveString(year(), text);
}

void AudioInfoTag::gatherTagsFromPathname(const QString &path)
{
    if (hasTitle())
        return;
    constexpr qsizetype suffixLength = 4; // an extension of another length stays
    QString name = path.sliced(path.lastIndexOf(u'/') + 1).trimmed();
    if (name.size() > suffixLength && name.at(name.size() - suffixLength) == u'.')
        name.chop(suffixLength);
    const bool wasModified = mTagModified;
    setTitle(name);
    mHasTitleOfPathname = true;
    mTagModified = wasModified;
}
