#include "tags/id3v2frames.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/genretable.h"
#include "tags/id3frameformat.h"
#include "tags/id3frameids.h"
#include "tags/id3framesizes.h"
#include "tags/id3strings.h"
#include "tags/id3unsynchronisation.h"
#include "tags/id3v2header.h"
#include "tags/synchsafe.h"
#include "text/integervalue.h"

namespace {

using ID3FrameIDs::Kind;
using ID3FrameSizes::frameHeaderLength;
using ID3FrameSizes::Reading;

constexpr qsizetype idLength = 4;
constexpr qsizetype flagsLength = 2;

struct Frame {
    QString id;
    qsizetype bodyAt = 0;
    qsizetype size = 0;
    quint16 flags = 0;
};

/// Where a frame's body stands: in the tag, or in bytes of its own once it was unpacked.
struct Body {
    QByteArrayView bytes;
    qsizetype offset;
    qsizetype length;

    [[nodiscard]] QByteArrayView view() const { return bytes.sliced(offset, length); }
};

/// Whether the texts of a frame say anything: a year above 999, a track number from 1 on.
bool areUsable(const QString &key, const QStringList &strings)
{
    if (strings.isEmpty())
        return false;
    const QString &first = strings.front();
    if (key == u"TDRC")
        return integerValue(first) > 999;
    if (key == u"TRCK")
        return integerValue(QStringView(first).left(first.indexOf(u'/'))) >= 1;
    return true;
}

class FramesReader {
public:
    FramesReader(QByteArrayView tag, const ID3v2Header &header, const ReadOptions &options,
                 ID3Contents &into)
        : mTag(tag)
        , mHeader(header)
        , mOptions(options)
        , mContents(into)
    {
    }

    void read();

private:
    [[nodiscard]] qsizetype firstFrame();
    [[nodiscard]] QString idAt(qsizetype position) const;
    [[nodiscard]] std::optional<qsizetype> sizeAt(qsizetype position, const QString &id);
    [[nodiscard]] bool hasDataLength(const Frame &frame) const;
    [[nodiscard]] bool readFrame(qsizetype &position);

    void addFrame(const Frame &frame);
    void addRecognized(const Frame &frame, Kind kind);
    [[nodiscard]] bool addUnpacked(const Frame &frame, Kind kind, const ID3FrameFormat &format);
    [[nodiscard]] bool addContent(const QString &id, Kind kind, const Body &body);
    [[nodiscard]] bool addText(const QString &key, const Body &body);
    [[nodiscard]] bool addLyrics(const QString &id, const Body &body);
    [[nodiscard]] bool addPicture(const Body &body);
    void addRaw(const Frame &frame, const QString &key);

    [[nodiscard]] const ID3Dialect &dialect() const { return mOptions.dialect; }
    [[nodiscard]] bool discardsMalformed() const
    {
        return mOptions.malformed == MalformedInfo::Discard;
    }
    [[nodiscard]] ID3FrameFormat formatOf(const Frame &frame) const;
    void problem(const char *what, const char *textID, const QString &id);
    void logFrame(const char *what, const QString &id) const;

    QByteArrayView mTag;
    const ID3v2Header &mHeader;
    const ReadOptions &mOptions;
    ID3Contents &mContents;
    std::optional<Reading> mSizes; ///< else: each size is repaired by itself
    qsizetype mStrings = 0;
    /// However much the frames of a tag claim to grow, they take no more than this together.
    qsizetype mInflationLeft = 64 << 20;
};

/// "*** id3v23 '<ID>' <what> (<title>)"
void FramesReader::logFrame(const char *what, const QString &id) const
{
    qCWarning(logTags).noquote() << QStringLiteral("*** id3v23 '%1' %2 (%3)")
                                        .arg(id, QLatin1String(what),
                                             mContents.frames.textForLog(u"TIT2", u"TT2"));
}

/// `textID` names the line for the user.
void FramesReader::problem(const char *what, const char *textID, const QString &id)
{
    logFrame(what, id);
    mContents.noteProblem(qtTrId(textID).arg(id));
}

/// Where the frames begin: after the header, and the extended header if there is one.
///
/// Kept where the dialect says so: the size of an extended header is read as v2.3 stores it,
/// whatever the version.
qsizetype FramesReader::firstFrame()
{
    if ((mHeader.flags & ID3v2Header::unsynchronised) && !dialect().undoesUnsynchronisation)
        qCWarning(logTags, "*** ID3V2.4 UNSYNCHRONIZED ***");
    if (!(mHeader.flags & ID3v2Header::extended))
        return ID3v2Header::length;
    const qint64 plain = ByteReader(mTag.sliced(ID3v2Header::length)).u32();
    const bool includesItself = dialect().skipsExtendedHeaderByItsVersion && mHeader.major == 4;
    const qint64 start = includesItself
        ? ID3v2Header::length + SynchSafe::getSynchSafeIntIn(mTag, ID3v2Header::length)
        : ID3v2Header::length + 4 + plain;
    const qint64 last = dialect().skipsExtendedHeaderByItsVersion ? mTag.size() : mTag.size() + 37;
    if (start <= last)
        return start;
    mContents.noteProblem(qtTrId("ProblemExtendedHeader"));
    qCWarning(logTags, "*** EXTENDER HEADER %u bytes ( >%u, IGNORED ) ***",
              static_cast<unsigned>(plain), static_cast<unsigned>(mTag.size()));
    return ID3v2Header::length;
}

/// Empty for padding. Where nothing may be lost, an ID of fewer than four characters is kept as
/// it stands in the tag.
QString FramesReader::idAt(qsizetype position) const
{
    QString id = ID3Strings::id3v1String(mTag, position, idLength).value_or(QString());
    if (id.isEmpty() || id.size() == idLength || !dialect().losesNothing)
        return id;
    return ID3FrameIDs::currentID(QString::fromLatin1(mTag.sliced(position, idLength)));
}

/// Nothing when reading frames must stop.
std::optional<qsizetype> FramesReader::sizeAt(qsizetype position, const QString &id)
{
    if (mSizes)
        return ID3FrameSizes::sizeAt(mTag, position, *mSizes);
    if (const auto size = ID3FrameSizes::repairedSize(mTag, position))
        return size;
    problem("invalid size", QT_TRID_NOOP("ProblemFrameSize"), id);
    if (discardsMalformed())
        return {};
    return mTag.size() - position - frameHeaderLength;
}

/// Kept where frames are not unpacked: the indicator is stepped over only when it equals the
/// size, which is then not reduced.
bool FramesReader::hasDataLength(const Frame &frame) const
{
    constexpr quint16 dataLengthIndicator = 0x0001;
    if (dialect().inflatesRecognisedFrames || !(frame.flags & dataLengthIndicator)
        || frame.bodyAt + 4 > mTag.size())
        return false;
    const qsizetype length = SynchSafe::getSynchSafeIntIn(mTag, frame.bodyAt);
    return length != 0 && length == frame.size;
}

/// Reads the frame at `position` and steps over it; false when there are no more.
bool FramesReader::readFrame(qsizetype &position)
{
    Frame frame{.id = idAt(position), .bodyAt = position + frameHeaderLength};
    if (frame.id.isEmpty())
        return false;
    const auto size = sizeAt(position, frame.id);
    if (!size)
        return false;
    frame.size = *size;
    frame.flags = ByteReader(mTag.sliced(frame.bodyAt - flagsLength)).u16();
    if (hasDataLength(frame)) {
        logFrame("length indicator used OK", frame.id);
        frame.bodyAt += 4;
    }
    position = frame.bodyAt + frame.size;
    if (position > mTag.size()) {
        problem("overrun", QT_TRID_NOOP("ProblemFrameOverrun"), frame.id);
        return false;
    }
    if (ID3FrameIDs::isDangerous(frame.id))
        problem("dangerous", QT_TRID_NOOP("ProblemFrameDangerous"), frame.id);
    addFrame(frame);
    return true;
}

void FramesReader::read()
{
    qsizetype position = firstFrame();
    if (dialect().picksSizesByFrameChain && mHeader.major == 4)
        mSizes = ID3FrameSizes::readingByFrameChain(mTag, position);
    int frames = 0;
    while (position <= mTag.size() - frameHeaderLength && readFrame(position)) {
        if (++frames > ID3v2Frames::maxFrames)
            throw MalformedData(QStringLiteral("too many frames"));
    }
}

void FramesReader::addFrame(const Frame &frame)
{
    const Kind kind = ID3FrameIDs::internalRecognizedKind(frame.id);
    if (kind != Kind::Unrecognized)
        addRecognized(frame, kind);
    else if (mOptions.unrecognized == UnrecognizedInfo::Keep
             || ID3FrameIDs::isITunesRecognized(frame.id))
        addRaw(frame, frame.id);
}

void FramesReader::addRecognized(const Frame &frame, Kind kind)
{
    if (frame.id == u"PIC" || frame.id == u"ULT") {
        mContents.encounteredProblem = true;
        qCWarning(logTags).noquote()
            << QStringLiteral("*** ID3v23 '%1' recognized but no handler").arg(frame.id);
        throw MalformedData(QStringLiteral("getAttributesFromID3v23"));
    }
    // One year for both versions: what v2.3 calls "TYER" is stored as "TDRC".
    const QString key = frame.id == u"TYER" ? QStringLiteral("TDRC") : frame.id;
    const ID3FrameFormat format = formatOf(frame);
    const bool isUnderstood = format.isPlain()
        ? addContent(key, kind, {mTag, frame.bodyAt, frame.size})
        : addUnpacked({key, frame.bodyAt, frame.size, frame.flags}, kind, format);
    if (!isUnderstood && dialect().losesNothing && !discardsMalformed())
        addRaw(frame, key);
}

/// How the body is stored, as far as the dialect looks at that.
ID3FrameFormat FramesReader::formatOf(const Frame &frame) const
{
    if (!dialect().inflatesRecognisedFrames)
        return {};
    ID3FrameFormat format = ID3FrameFormat::format(mHeader.major, frame.flags);
    if (mHeader.major == 4 && (mHeader.flags & ID3v2Header::unsynchronised))
        format.isUnsynchronised = true;
    if (format.isUnsynchronised)
        format.isUnsynchronised = dialect().undoesUnsynchronisation
            && ID3Unsynchronisation::isPossible(mTag.sliced(frame.bodyAt, frame.size));
    return format;
}

bool FramesReader::addUnpacked(const Frame &frame, Kind kind, const ID3FrameFormat &format)
{
    const auto plain = plainFrameBody(mTag.sliced(frame.bodyAt, frame.size), format, mHeader.major,
                                      mInflationLeft);
    if (!plain && !format.isEncrypted && !format.isGrouped)
        problem("cannot be unpacked", QT_TRID_NOOP("ProblemFramePacked"), frame.id);
    return plain && addContent(frame.id, kind, {*plain, 0, plain->size()});
}

/// False when the frame says nothing that we understand.
bool FramesReader::addContent(const QString &id, Kind kind, const Body &body)
{
    switch (kind) {
    case Kind::Text:
        return addText(id, body);
    case Kind::Lyrics:
        return addLyrics(id, body);
    default:
        return addPicture(body);
    }
}

bool FramesReader::addText(const QString &key, const Body &body)
{
    QStringList strings =
        ID3Strings::id3v23Strings(body.bytes, body.offset, body.length, dialect());
    mStrings += strings.size();
    if (mStrings > ID3Strings::maxStringsInFrame)
        throw MalformedData(QStringLiteral("too many strings"));
    if (!areUsable(key, strings))
        return false;
    if (key == u"TCON" && strings.size() == 1)
        strings.front() = GenreTable::expandedGenres(strings.front()).value_or(QString());
    mContents.frames.addObject(std::move(strings), key);
    return true;
}

bool FramesReader::addLyrics(const QString &id, const Body &body)
{
    auto block = TextBlock::textBlockIn(body.bytes, body.offset, body.length, dialect());
    if (!block)
        return false;
    mContents.frames.addObject(*std::move(block), id);
    return true;
}

bool FramesReader::addPicture(const Body &body)
{
    constexpr qsizetype shortestBody = 5;
    if (body.length < shortestBody)
        return false;
    // A link to a picture elsewhere is no picture.
    if (dialect().losesNothing && body.view().sliced(1).startsWith(QByteArrayView("-->\0", 4)))
        return false;
    auto picture = ID3Image::imageWithID3v23Frame(body.view(), dialect());
    if (!picture) {
        mContents.noteProblem(qtTrId("ProblemPicture"));
        qCWarning(logTags, "*** ID3v23 APIC thePicture nil!");
        if (!discardsMalformed())
            throw MalformedData(QStringLiteral("getAttributesFromID3v23"));
        return false;
    }
    if (dialect().losesNothing && picture->data.isEmpty())
        return false;
    mContents.frames.addObject(*std::move(picture), audioImageFrame);
    return true;
}

/// Flags and body as they stand; but where the tag as a whole was unsynchronised and the frame
/// does not say so itself, that is undone: no flag of the written tag would tell of it.
void FramesReader::addRaw(const Frame &frame, const QString &key)
{
    const QByteArrayView raw = mTag.sliced(frame.bodyAt - flagsLength, frame.size + flagsLength);
    const bool isUndone = formatOf(frame).isUnsynchronised
        && !ID3FrameFormat::format(mHeader.major, frame.flags).isUnsynchronised;
    mContents.frames.addObject(isUndone ? raw.first(flagsLength).toByteArray()
                                       + ID3Unsynchronisation::undone(raw.sliced(flagsLength))
                                        : raw.toByteArray(),
                               key);
}

} // namespace

void ID3v2Frames::getAttributesFromID3v2x(QByteArrayView tag, const ID3v2Header &header,
                                          const ReadOptions &options, ID3Contents &into)
{
    FramesReader(tag, header, options, into).read();
}
