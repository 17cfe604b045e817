#pragma once

#include "songs/cachedinfo.h"
#include "tags/audioinfotag.h"

/// A tag that shows a song's summary and cannot be changed: it knows how many pictures there
/// are and has an icon, but no pictures.
class CachedInfoTag final : public AudioInfoTag {
public:
    /// The icon in a summary fits this box, in pixels.
    static constexpr double maxIconWidth = 28;
    static constexpr double maxIconHeight = 14;

    /// Nothing when the file's modification date cannot be read.
    [[nodiscard]] static std::optional<CachedInfo>
    infoDictForTag(const AudioInfoTag &tag, const QString &path, const ID3Dialect &dialect);

    /// Never null.
    void setCachedInfo(CachedInfoPointer info) { mCachedInfo = std::move(info); }

    [[nodiscard]] TagType type() const override { return TagType::Cached; }
    [[nodiscard]] bool isPartOfCompilation() const override;
    [[nodiscard]] int numberOfImages() const override;
    [[nodiscard]] std::optional<QString> readVersion() const override;
    /// Without unpacking them.
    [[nodiscard]] bool hasLyrics() const { return !mCachedInfo->packedLyrics.isNull(); }

    void setIsPartOfCompilation(bool) override { whineAboutImmutability(); }
    bool addImage(const ID3Image &) override;
    bool removeImageAtIndex(int index) override;

private:
    [[nodiscard]] std::optional<QString> text(TagText which) const override;
    void setText(TagText, const QString &) override { whineAboutImmutability(); }
    [[nodiscard]] std::shared_ptr<const QImage> storedIcon() const override;
    void whineAboutImmutability() const;

    CachedInfoPointer mCachedInfo = std::make_shared<const CachedInfo>();
};

/// A lazy tag that shows the summary; null without one.
[[nodiscard]] std::unique_ptr<AudioInfoTag> tagWithCachedInfo(CachedInfoPointer info);

/// Whether the tag has lyrics, which those of summaries tell without unpacking them.
[[nodiscard]] bool hasLyrics(const AudioInfoTag &tag);
