#pragma once

#include "tags/aacattributes.h"
#include "tags/audioinfotag.h"

#include <memory>

class SongBytes;

/// The tag of an MP4 song: the items under "moov:udta:meta:ilst".
class AACInfoTag : public AudioInfoTag {
public:
    /// An empty tag that belongs to no file.
    AACInfoTag() = default;

    struct Read;
    /// The tag of the file; none, with a log line, when its atoms are damaged or hold no song. A
    /// stray ID3v2.4 tag in front of them is stepped over.
    static Read tagWithBytes(const SongBytes &song);

    [[nodiscard]] TagType type() const override { return TagType::AAC; }

    [[nodiscard]] bool isPartOfCompilation() const override;
    [[nodiscard]] QList<ID3Image> images() const override { return mAttribs.images; }
    [[nodiscard]] bool hasTitle() const override;
    [[nodiscard]] bool hasHiddenValues() const override;

    void setIsPartOfCompilation(bool isPartOfCompilation) override;
    bool addImage(const ID3Image &image) override;
    bool removeImageAtIndex(int index) override;

    [[nodiscard]] std::optional<QString> readVersion() const override;
    [[nodiscard]] std::optional<QString> writeVersion() const override { return readVersion(); }
    [[nodiscard]] InPlaceFile::Outcome modifySongFileAtPath(const QString &path,
                                                            const WriteOptions &options) override;

private:
    /// Of the year four characters; nothing where the file holds fewer.
    [[nodiscard]] std::optional<QString> text(TagText which) const override;
    void setText(TagText which, const QString &text) override;

    AACAttributes mAttribs;
};

struct AACInfoTag::Read {
    std::unique_ptr<AACInfoTag> tag;
    QString reason; ///< why there is none: one line for the user
};
