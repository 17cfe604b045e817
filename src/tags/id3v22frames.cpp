#include "tags/id3v22frames.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/genretable.h"
#include "tags/id3frameids.h"
#include "tags/id3strings.h"
#include "tags/id3v2frames.h"
#include "tags/id3v2header.h"
#include "text/integervalue.h"

namespace {

using ID3FrameIDs::Kind;

constexpr qsizetype idLength = 3;
constexpr qsizetype frameHeaderLength = 6;

struct Frame {
    QString id;
    QByteArrayView body;
};

class FramesReader {
public:
    FramesReader(QByteArrayView tag, const ReadOptions &options, ID3Contents &into)
        : mTag(tag)
        , mOptions(options)
        , mContents(into)
    {
    }

    void read();

private:
    [[nodiscard]] bool readFrame(qsizetype &position);
    [[nodiscard]] QString idAt(qsizetype position) const;
    void addFrame(const Frame &frame);
    [[nodiscard]] bool addRecognized(const Frame &frame, Kind kind);
    [[nodiscard]] bool addText(const Frame &frame);
    [[nodiscard]] bool addLyrics(const Frame &frame);
    [[nodiscard]] bool addPicture(const Frame &frame);
    void failForPicture();

    [[nodiscard]] bool losesNothing() const { return mOptions.dialect.losesNothing; }
    [[nodiscard]] bool discardsMalformed() const
    {
        return mOptions.malformed == MalformedInfo::Discard;
    }

    QByteArrayView mTag;
    const ReadOptions &mOptions;
    ID3Contents &mContents;
};

/// Empty for padding. Where nothing may be lost, an ID of fewer than three characters is kept
/// as it stands in the tag.
QString FramesReader::idAt(qsizetype position) const
{
    QString id = ID3Strings::id3v1String(mTag, position, idLength).value_or(QString());
    if (id.isEmpty() || id.size() == idLength || !losesNothing())
        return id;
    return QString::fromLatin1(mTag.sliced(position, idLength));
}

/// Reads the frame at `position` and steps over it; false when there are no more. A frame
/// that runs over the tag's end is cut.
bool FramesReader::readFrame(qsizetype &position)
{
    Frame frame{.id = idAt(position), .body = {}};
    qsizetype size = ByteReader(mTag.sliced(position + idLength)).u24();
    const qsizetype left = mTag.size() - position - frameHeaderLength;
    if (frame.id.isEmpty() || (size == 0 && !losesNothing()))
        return false;
    if (size > left) {
        mContents.noteProblem(qtTrId("ProblemFrameOverrun").arg(frame.id));
        if (discardsMalformed() || left == 0)
            return false;
        size = left;
    }
    frame.body = mTag.sliced(position + frameHeaderLength, size);
    position += frameHeaderLength + size;
    addFrame(frame);
    return true;
}

void FramesReader::read()
{
    qsizetype position = ID3v2Header::length;
    int frames = 0;
    while (position <= mTag.size() - frameHeaderLength && readFrame(position)) {
        if (++frames > ID3v2Frames::maxFrames)
            throw MalformedData(QStringLiteral("too many frames"));
    }
}

void FramesReader::addFrame(const Frame &frame)
{
    const Kind kind = ID3FrameIDs::internalRecognizedKind(frame.id);
    bool isKeptRaw = false;
    if (kind == Kind::Unrecognized)
        isKeptRaw = mOptions.unrecognized == UnrecognizedInfo::Keep
            || ID3FrameIDs::isITunesRecognized(frame.id);
    else
        isKeptRaw = !addRecognized(frame, kind) && losesNothing() && !discardsMalformed();
    if (isKeptRaw)
        mContents.frames.addObject(frame.body.toByteArray(), frame.id);
}

/// False when the frame says nothing that we understand.
bool FramesReader::addRecognized(const Frame &frame, Kind kind)
{
    switch (kind) {
    case Kind::Lyrics:
        return addLyrics(frame);
    case Kind::Picture:
        return addPicture(frame);
    default:
        return !frame.body.isEmpty() && addText(frame);
    }
}

/// Kept where the dialect says so: a repeated text frame replaces the earlier one.
bool FramesReader::addText(const Frame &frame)
{
    QString text =
        ID3Strings::id3v22String(frame.body, 1, static_cast<unsigned char>(frame.body[0]),
                                 frame.body.size() - 1, mOptions.dialect);
    if (frame.id == u"TYE" && integerValue(text) <= 999)
        return false;
    if (frame.id == u"TRK" && integerValue(QStringView(text).left(text.indexOf(u'/'))) < 1)
        return false;
    if (frame.id == u"TCO")
        text = GenreTable::expandedGenres(text).value_or(QString());
    if (losesNothing())
        mContents.frames.addObject(QStringList{text}, frame.id);
    else
        mContents.frames.setString(text, frame.id);
    return true;
}

bool FramesReader::addLyrics(const Frame &frame)
{
    // The whole tag and not the body alone: how a text ends depends on where the tag does.
    auto block = TextBlock::textBlockIn(mTag, frame.body.data() - mTag.data(), frame.body.size(),
                                        mOptions.dialect);
    if (!block)
        return false;
    mContents.frames.addObject(*std::move(block), frame.id);
    return true;
}

bool FramesReader::addPicture(const Frame &frame)
{
    auto picture = ID3Image::imageWithID3v22Frame(frame.body, mOptions.dialect);
    if (!picture) {
        failForPicture();
        return false;
    }
    // No "PIC" is written for a picture without data, and a link to one elsewhere is none.
    const bool isPicture = !picture->data.isEmpty() && picture->storedMimeFormat != u"image/-->";
    if (losesNothing() && !isPicture)
        return false;
    mContents.frames.addObject(*std::move(picture), audioImageFrame);
    return true;
}

void FramesReader::failForPicture()
{
    const FrameStore &frames = mContents.frames;
    qCWarning(logTags).noquote() << QStringLiteral("ID3v22 PIC nil (%1/%2)")
                                        .arg(frames.textForLog(u"TPE1", u"TP1"),
                                             frames.textForLog(u"TIT2", u"TT2"));
    mContents.noteProblem(qtTrId("ProblemPicture"));
    if (!discardsMalformed())
        throw MalformedData(QStringLiteral("getAttributesFromID3v22"));
}

} // namespace

void ID3v22Frames::getAttributesFromID3v22(QByteArrayView tag, const ReadOptions &options,
                                           ID3Contents &into)
{
    FramesReader(tag, options, into).read();
}
