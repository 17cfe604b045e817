#include "tags/id3writer.h"

#include "base/log.h"
#include "tags/fieldframes.h"
#include "tags/framebodies.h"
#include "tags/id3v1writer.h"
#include "tags/synchsafe.h"

#include <QCoreApplication>

namespace {

using FrameBodies::UnicodeForm;

/// One version's way of writing frames and pictures.
class TagWriter {
public:
    TagWriter(const FrameStore &frames, const ID3Dialect &dialect)
        : mFrames(frames)
        , mDialect(dialect)
    {
    }
    TagWriter(const TagWriter &) = delete;
    TagWriter &operator=(const TagWriter &) = delete;
    virtual ~TagWriter() = default;

    /// Pictures stand behind all other frames, or where they stood when the tag was read.
    [[nodiscard]] TagPieces::Made made(std::uint8_t majorVersion)
    {
        for (const FrameStore::Entry &entry : frames().entries())
            appendEntry(entry);
        if (!dialect().keepsPictureDetails)
            for (const ID3Image &image : frames().images())
                appendPicture(image);
        if (tag().isEmpty() && dialect().dropsTagWithoutFrames)
            return {};
        return std::move(mTag).withHeader(majorVersion);
    }

protected:
    virtual void appendFrame(const FrameStore::Entry &entry) = 0;
    virtual void appendPicture(const ID3Image &image) = 0;

    [[nodiscard]] const FrameStore &frames() const { return mFrames; }
    [[nodiscard]] const ID3Dialect &dialect() const { return mDialect; }
    [[nodiscard]] TagPieces &tag() { return mTag; }

    /// The ID as it stands in a tag whose IDs have `width` bytes; empty when it has no place
    /// there. An ID that was read as a shorter one had been filled up.
    [[nodiscard]] QByteArray frameID(const QString &id, qsizetype width) const
    {
        const QByteArray bytes = id.toLatin1();
        const bool fillUp = mDialect.losesNothing && !bytes.isEmpty() && bytes.size() < width;
        if (fillUp)
            return bytes + QByteArray(width - bytes.size(), '\0');
        return bytes.size() == width ? bytes : QByteArray();
    }

    /// Kept: what cannot be written leaves its ID behind, without size or body.
    void appendUnknown(const QByteArray &id)
    {
        if (!mDialect.leavesOutUnknownContent)
            mTag.append(id);
    }

private:
    void appendEntry(const FrameStore::Entry &entry)
    {
        if (entry.id != audioImageFrame)
            appendFrame(entry);
        else if (const auto *image = std::get_if<ID3Image>(&entry.content);
                 image && mDialect.keepsPictureDetails)
            appendPicture(*image);
    }

    const FrameStore &mFrames;
    const ID3Dialect &mDialect;
    TagPieces mTag;
};

QString className(const FrameContent &content)
{
    return std::holds_alternative<ID3Image>(content) ? QStringLiteral("ID3Image")
                                                     : QStringLiteral("NSData");
}

class V23orV24Writer : public TagWriter {
public:
    V23orV24Writer(const FrameStore &frames, ID3Writer::Version version,
                   const WriteOptions &options)
        : TagWriter(frames, options.dialect)
        , mIsVersion24(version == ID3Writer::Version::V24)
        , mSizes(mIsVersion24 ? options.v24Sizes : FrameSizes::Plain)
        , mUnicode(!mIsVersion24 && options.dialect.writesByteOrderMark ? FrameBodies::marked
                                                                        : FrameBodies::bigEndian)
    {
    }

protected:
    void appendFrame(const FrameStore::Entry &entry) override
    {
        const bool isYear = !mIsVersion24 && entry.id == u"TDRC";
        const QByteArray id = frameID(isYear ? QStringLiteral("TYER") : entry.id, 4);
        if (id.isEmpty())
            return;
        const auto content = flagsAndBody(entry.content);
        if (!content) {
            qCWarning(logTags).noquote() << QStringLiteral("id3v24 frame '%1' of class %2!")
                                                .arg(entry.id, className(entry.content));
            appendUnknown(id);
            return;
        }
        ByteWriter header;
        header.bytes(id);
        const auto size = static_cast<std::uint32_t>(content->size() - flagsLength);
        header.u32(mSizes == FrameSizes::Accurate ? SynchSafe::synchSafe(size) : size);
        tag().append(header.data());
        tag().append(*content);
    }

    void appendPicture(const ID3Image &image) override
    {
        tag().append(image.dataForID3v23Frame(mSizes, mIsVersion24, dialect()));
    }

private:
    static constexpr qsizetype flagsLength = 2;

    /// What stands behind the size; nothing for a content that no frame is made of.
    [[nodiscard]] std::optional<QByteArray> flagsAndBody(const FrameContent &content) const
    {
        const QByteArray noFlags(flagsLength, '\0');
        if (const auto *strings = std::get_if<QStringList>(&content))
            return noFlags + FrameBodies::terminatedTexts(*strings, mUnicode);
        if (const auto *block = std::get_if<TextBlock>(&content))
            return noFlags + FrameBodies::textBlock(*block, mUnicode);
        const auto *raw = std::get_if<QByteArray>(&content);
        if (raw && raw->size() >= flagsLength)
            return *raw;
        return {};
    }

    bool mIsVersion24;
    FrameSizes mSizes;
    UnicodeForm mUnicode;
};

class V22Writer : public TagWriter {
public:
    V22Writer(const FrameStore &frames, const ID3Dialect &dialect)
        : TagWriter(frames, dialect)
        , mUnicode(dialect.writesByteOrderMark ? FrameBodies::marked : FrameBodies::unmarked)
    {
    }

protected:
    void appendFrame(const FrameStore::Entry &entry) override
    {
        const QByteArray id = frameID(entry.id, 3);
        if (id.isEmpty())
            return;
        const auto content = body(entry);
        if (!content) {
            appendUnknown(id);
            return;
        }
        if (content->size() > largestFrame) {
            tag().fail(qtTrId("ErrorFrameTooLarge").arg(entry.id));
            return;
        }
        ByteWriter header;
        header.bytes(id);
        header.u24(static_cast<std::uint32_t>(content->size()));
        tag().append(header.data());
        tag().append(*content);
    }

    void appendPicture(const ID3Image &image) override
    {
        const QByteArray frame = image.dataForID3v22Frame(dialect());
        if (frame.isEmpty())
            logLeftOut(image);
        else if (frame.size() - frameHeaderLength > largestFrame)
            tag().fail(qtTrId("ErrorFrameTooLarge").arg(QStringLiteral("PIC")));
        else
            tag().append(frame);
    }

private:
    static constexpr qsizetype frameHeaderLength = 6;
    static constexpr qsizetype largestFrame = 0xFF'FFFF; ///< its size has 24 bits

    /// Nothing, with a log line, for a content that no frame is made of.
    [[nodiscard]] std::optional<QByteArray> body(const FrameStore::Entry &entry) const
    {
        if (const auto *strings = std::get_if<QStringList>(&entry.content))
            return textBody(strings->value(0));
        if (const auto *block = std::get_if<TextBlock>(&entry.content))
            return FrameBodies::textBlock(*block, mUnicode);
        if (const auto *raw = std::get_if<QByteArray>(&entry.content))
            return *raw;
        qCWarning(logTags).noquote() << QStringLiteral("id3v22 frame '%1' of class %2!")
                                            .arg(entry.id, className(entry.content));
        return {};
    }

    [[nodiscard]] std::optional<QByteArray> textBody(const QString &text) const
    {
        if (text.isValidUtf16())
            return FrameBodies::singleText(text, mUnicode);
        qCWarning(logTags, "can't encode a string as unicode!?");
        return {};
    }

    void logLeftOut(const ID3Image &image) const
    {
        const auto text = [this](FieldFrames field) {
            return frames().textForLog(field.v24, field.v22);
        };
        qCWarning(logTags).noquote() << QStringLiteral("%1/%2 dataForID3v22 cannot include %3")
                                            .arg(text(Fields::artist), text(Fields::title),
                                                 image.descriptionForLog(dialect()));
    }

    UnicodeForm mUnicode;
};

} // namespace

QString ID3Writer::writeVersion(const FrameStore &frames, const std::optional<QString> &readVersion,
                                const ID3Dialect &dialect)
{
    const QString read = readVersion.value_or(QString());
    if (read.startsWith(u"2.2"))
        return QStringLiteral("2.2.0");
    if (read.startsWith(u"2.4"))
        return QStringLiteral("2.4.0");
    if (read.startsWith(u'1') && canWriteID3v11WithoutLoss(frames, dialect))
        return QStringLiteral("1.1");
    return QStringLiteral("2.3.0");
}

TagPieces::Made ID3Writer::dataForID3V23orV24(const FrameStore &frames, Version version,
                                              const WriteOptions &options)
{
    return V23orV24Writer(frames, version, options).made(version == Version::V24 ? 4 : 3);
}

TagPieces::Made ID3Writer::dataForID3v22(const FrameStore &frames, const WriteOptions &options)
{
    return V22Writer(frames, options.dialect).made(2);
}
