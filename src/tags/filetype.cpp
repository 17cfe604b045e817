#include "tags/filetype.h"

#include "base/log.h"
#include "tags/id3v2header.h"
#include "tags/synchsafe.h"

#include <initializer_list>

namespace {

constexpr qint64 blockLength = 4096;
constexpr qint64 lastBlockStart = 499'999;
constexpr qsizetype blockEnd = blockLength - 4; ///< the walk through a block ends here
constexpr qint64 stepAfterHit = 200;
constexpr qint64 mostHitsInABlock = (blockEnd + stepAfterHit - 1) / stepAfterHit;

constexpr int hitsOfMPEG = 30;
constexpr int mostHitsOfMP4 = 9;
constexpr qint64 bytesPerHitOfMPEG = 800;

/// Whether three bytes begin a frame of MPEG-1 layer III or II.
bool beginsMPEGFrame(QByteArrayView bytes)
{
    const auto byte = [bytes](qsizetype at) { return static_cast<unsigned char>(bytes[at]); };
    const int kind = byte(1) & 0xFE;
    return byte(0) == 0xFF && (kind == 0xFA || kind == 0xFC) && byte(2) >> 4 != 15
        && (byte(2) & 0x0C) != 0x0C;
}

int hitsIn(QByteArrayView block)
{
    int hits = 0;
    qsizetype at = block.indexOf('\xFF');
    while (at >= 0 && at < blockEnd) {
        const bool isHit = beginsMPEGFrame(block.sliced(at, 3));
        hits += isHit ? 1 : 0;
        at = block.indexOf('\xFF', at + (isHit ? stepAfterHit : 1));
    }
    return hits;
}

/// Looks through a file block by block for what MPEG audio and MP4 files hold.
class Sniffer {
public:
    explicit Sniffer(const SongBytes &song)
        : mSong(song)
        , mOffset(scanStart())
    {
    }

    FileType::SongDataType dataType();

private:
    [[nodiscard]] qint64 scanStart() const;
    [[nodiscard]] bool hasBlock() const
    {
        return mOffset <= lastBlockStart && mOffset < lastStart();
    }
    [[nodiscard]] qint64 lastStart() const { return mSong.size() - blockLength; }
    [[nodiscard]] QByteArrayView nextBlock();
    [[nodiscard]] bool mayBecomeMPEG() const;
    [[nodiscard]] bool hasAllWords(QByteArrayView block);

    const SongBytes &mSong;
    qint64 mOffset;
    int mHits = 0;
    bool mHasMoov = false;
    bool mHasUdta = false;
    bool mHasMdia = false;
};

/// After an ID3v2 tag, whatever its version.
qint64 Sniffer::scanStart() const
{
    const auto header = ID3v2Header::headerIn(mSong.view(0, ID3v2Header::length));
    if (!header || header->size <= ID3v2Header::largestRefusedSize)
        return 0;
    const qint64 end = header->size + ID3v2Header::length;
    return end <= mSong.size() ? end : 0;
}

/// Whether the rest of the scan may still end with MPEG audio, if every block were full of
/// frames. After a large tag it may not, and then there is nothing more to read.
bool Sniffer::mayBecomeMPEG() const
{
    const qint64 end = qMin(lastBlockStart + 1, lastStart());
    const qint64 blocks = qMax<qint64>(0, (end - mOffset + blockLength - 1) / blockLength);
    return mOffset + blocks * blockLength < bytesPerHitOfMPEG * (mHits + mostHitsInABlock * blocks);
}

/// The further the scan begins in the file, the longer it takes to make up for it.
QByteArrayView Sniffer::nextBlock()
{
    constexpr qint64 leastAhead = 16 << 10;
    if (!mSong.isAtHand(mOffset, blockLength) && mayBecomeMPEG()) {
        const qint64 ahead = leastAhead + mOffset + mOffset / 8;
        static_cast<void>(mSong.view(mOffset, qMin(ahead, lastBlockStart + blockLength - mOffset)));
    }
    const QByteArrayView block = mSong.view(mOffset, blockLength);
    mOffset += blockLength;
    return block;
}

bool Sniffer::hasAllWords(QByteArrayView block)
{
    const QByteArrayView words = block.first(blockEnd + 3);
    mHasMoov = mHasMoov || words.contains("moov");
    mHasUdta = mHasUdta || words.contains("udta");
    mHasMdia = mHasMdia || words.contains("mdia");
    return mHasMoov && mHasUdta && mHasMdia;
}

FileType::SongDataType Sniffer::dataType()
{
    using FileType::SongDataType;
    while (hasBlock()) {
        const QByteArrayView block = nextBlock();
        if (block.size() < blockLength)
            break;
        mHits += hitsIn(block);
        // The words count only while there are few hits, which never become fewer.
        if (mHits <= mostHitsOfMP4) {
            if (hasAllWords(block))
                return SongDataType::MP4;
        } else if (mHits >= hitsOfMPEG && mOffset < bytesPerHitOfMPEG * mHits) {
            return SongDataType::MPEGAudio;
        } else if (!mayBecomeMPEG()) {
            break;
        }
    }
    return SongDataType::Unknown;
}

/// In lower case, without the dot.
QString extensionOf(QStringView path)
{
    const QStringView name = path.sliced(path.lastIndexOf(u'/') + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.sliced(dot + 1).toString().toLower() : QString();
}

} // namespace

FileType::SongDataType FileType::songDataType(const SongBytes &song)
{
    return song.size() < blockLength ? SongDataType::Unknown : Sniffer(song).dataType();
}

bool FileType::claimsToBeMP3(QStringView path)
{
    const QString extension = extensionOf(path);
    return extension == u"mp2" || extension == u"mp3";
}

bool FileType::claimsToBeAAC(QStringView path)
{
    const QString extension = extensionOf(path);
    return extension == u"m4a" || extension == u"m4p";
}

bool FileType::claimsToBeOGG(QStringView path)
{
    return extensionOf(path) == u"ogg";
}

qint64 FileType::strayID3v2TagLength(const QString &path, qint64 size, QByteArrayView head)
{
    if (size <= ID3v2Header::length) {
        qCWarning(logTags).noquote()
            << QStringLiteral("removeID3 file only %1 bytes: %2").arg(QString::number(size), path);
        return 0;
    }
    if (head.size() < ID3v2Header::length || !head.startsWith("ID3\x04"))
        return 0;
    const qint64 end = SynchSafe::getSynchSafeIntIn(head, 6) + ID3v2Header::length;
    if (size > end)
        return end;
    qCWarning(logTags).noquote() << QStringLiteral("removeID3 invalid tag size: %1").arg(path);
    return 0;
}

qint64 FileType::strayID3v2TagLength(const SongBytes &song)
{
    return strayID3v2TagLength(song.path(), song.size(), song.view(0, ID3v2Header::length));
}

bool FileType::removeID3v2TagFromFileAtPath(const QString &path, KeepTime keepTime)
{
    const auto opened = InPlaceFile::open(path);
    const auto head = opened.file ? opened.file->read(0, ID3v2Header::length) : std::nullopt;
    if (!head)
        return false;
    const qint64 end = strayID3v2TagLength(path, opened.file->size(), *head);
    if (end == 0)
        return false;
    FileContents rest;
    rest.keep(end, opened.file->size() - end);
    if (opened.file->replaceContents(rest, keepTime).kind == InPlaceFile::Outcome::Kind::Failed)
        return false;
    qCWarning(logTags).noquote() << QStringLiteral("** Removed ID3 tag from AAC at %1").arg(path);
    return true;
}
