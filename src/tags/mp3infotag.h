#pragma once

#include "tags/audioinfotag.h"
#include "tags/fieldframes.h"
#include "tags/framestore.h"
#include "tags/id3contents.h"

#include <memory>

class SongBytes;

/// The tag of an MPEG audio file: ID3v2 at its front, ID3v1 at its end.
class MP3InfoTag : public AudioInfoTag {
public:
    /// An empty tag that belongs to no file.
    MP3InfoTag() = default;

    /// The tag of the file; null, with a log line, when it cannot be read at all.
    static std::unique_ptr<MP3InfoTag> tagWithBytes(const SongBytes &song,
                                                    const ReadOptions &options);

    [[nodiscard]] TagType type() const override { return TagType::MP3; }

    [[nodiscard]] bool isPartOfCompilation() const override;
    [[nodiscard]] QList<ID3Image> images() const override;
    [[nodiscard]] int numberOfImages() const override;
    [[nodiscard]] bool hasTitle() const override;

    void setIsPartOfCompilation(bool isPartOfCompilation) override;
    bool addImage(const ID3Image &image) override;
    bool removeImageAtIndex(int index) override;

    [[nodiscard]] std::optional<QString> readVersion() const override { return mReadVersion; }
    [[nodiscard]] std::optional<QString> writeVersion() const override;
    [[nodiscard]] InPlaceFile::Outcome modifySongFileAtPath(const QString &path,
                                                            const WriteOptions &options) override;

    [[nodiscard]] const FrameStore &frames() const { return mFrames; }
    /// What is wrong with the tag, one line for the user; empty where nothing is known.
    [[nodiscard]] const QString &problem() const { return mProblem; }
    [[nodiscard]] ByteRange id3v1Range() const { return mID3v1Range; }
    [[nodiscard]] ByteRange id3v2Range() const { return mID3v2Range; }

private:
    [[nodiscard]] std::optional<QString> text(TagText which) const override;
    void setText(TagText which, const QString &text) override;
    void setString(const QString &string, FieldFrames field);
    void setLyricsFrame(const QString &lyrics);
    /// The ID under which the field stands in a tag of the version that was read.
    [[nodiscard]] QString frameID(FieldFrames field) const;

    FrameStore mFrames;
    std::optional<QString> mReadVersion;
    QString mProblem;
    ID3Dialect mDialect; ///< what the tag was read with
    ByteRange mID3v1Range;
    ByteRange mID3v2Range;
};
