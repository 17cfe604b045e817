#include "songs/cachedinfotag.h"

#include "base/fileattributes.h"
#include "base/log.h"

#include <QImage>

#include <utility>

namespace {
std::optional<QString> presentText(const QString &text)
{
    return text.isNull() ? std::nullopt : std::optional(text);
}

/// Null for an absent text alone.
QString storedText(const std::optional<QString> &text)
{
    return text && text->isNull() ? QLatin1String("") : text.value_or(QString());
}
} // namespace

std::optional<CachedInfo> CachedInfoTag::infoDictForTag(const AudioInfoTag &tag,
                                                        const QString &path,
                                                        const ID3Dialect &dialect)
{
    const auto attributes = FileAttributes::at(path);
    if (!attributes)
        return std::nullopt;
    CachedInfo info;
    info.modDate = CachedInfo::stampOf(*attributes);
    info.isStandardDialect = dialect == ID3Dialect::standard();
    info.title = storedText(tag.title());
    info.artist = storedText(tag.artist());
    info.album = storedText(tag.album());
    info.track = storedText(tag.track());
    info.year = storedText(tag.year());
    info.genre = storedText(tag.genres());
    info.bpm = storedText(tag.bpm());
    info.readVersion = storedText(tag.readVersion());
    info.setLyrics(tag.lyrics());
    info.isCompilation = tag.isPartOfCompilation();
    info.numberOfArtworks = tag.numberOfImages();
    if (info.numberOfArtworks > 0)
        info.icon = packedIcon(tag.imageIconNoLargerThan(maxIconWidth, maxIconHeight));
    return info;
}

std::optional<QString> CachedInfoTag::text(TagText which) const
{
    const CachedInfo &info = *mCachedInfo;
    switch (which) {
    case TagText::Title:
        return presentText(info.title);
    case TagText::Artist:
        return presentText(info.artist);
    case TagText::Album:
        return presentText(info.album);
    case TagText::Year:
        return presentText(info.year);
    case TagText::Track:
        return presentText(info.track);
    case TagText::Genres:
        return presentText(info.genre);
    case TagText::BPM:
        return presentText(info.bpm);
    case TagText::Lyrics:
        break;
    }
    return info.lyrics();
}

bool CachedInfoTag::isPartOfCompilation() const
{
    return mCachedInfo->isCompilation;
}

int CachedInfoTag::numberOfImages() const
{
    return mCachedInfo->numberOfArtworks;
}

bool CachedInfoTag::addImage(const ID3Image &)
{
    whineAboutImmutability();
    return false;
}

bool CachedInfoTag::removeImageAtIndex(int)
{
    whineAboutImmutability();
    return false;
}

std::optional<QString> CachedInfoTag::readVersion() const
{
    return presentText(mCachedInfo->readVersion);
}

std::shared_ptr<const QImage> CachedInfoTag::storedIcon() const
{
    return std::make_shared<const QImage>(unpackedIcon(mCachedInfo->icon));
}

void CachedInfoTag::whineAboutImmutability() const
{
    const auto address = QString::number(reinterpret_cast<quintptr>(this), 16);
    qCWarning(logSongs).noquote()
        << QStringLiteral("Cannot mutate <CachedInfoTag 0x%1>!").arg(address);
}

std::unique_ptr<AudioInfoTag> tagWithCachedInfo(CachedInfoPointer info)
{
    if (!info)
        return nullptr;
    auto tag = std::make_unique<CachedInfoTag>();
    tag->setCachedInfo(std::move(info));
    tag->setIsLazy(true);
    return tag;
}

bool hasLyrics(const AudioInfoTag &tag)
{
    if (tag.type() == TagType::Cached)
        return static_cast<const CachedInfoTag &>(tag).hasLyrics();
    return tag.lyrics().has_value();
}
