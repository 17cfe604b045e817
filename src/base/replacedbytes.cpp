#include "base/replacedbytes.h"

#include <QCryptographicHash>

#include <algorithm>
#include <numeric>

namespace {

constexpr qint64 mostBytes = qint64(32) * 1024 * 1024;

struct KeptRange {
    qint64 before; ///< offset in the old file
    qint64 after; ///< in the new one
    qint64 length;
};

std::vector<KeptRange> keptRangesOf(const FileContents &contents)
{
    std::vector<KeptRange> ranges;
    qint64 after = 0;
    for (const FileContents::Piece &piece : contents.pieces()) {
        if (piece.keptLength > 0)
            ranges.push_back({piece.keptOffset, after, piece.keptLength});
        after += piece.length();
    }
    std::sort(ranges.begin(), ranges.end(),
              [](const KeptRange &a, const KeptRange &b) { return a.before < b.before; });
    return ranges;
}

QByteArray hashOfNewBytes(const FileContents &contents)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const FileContents::Piece &piece : contents.pieces())
        hash.addData(piece.bytes);
    return hash.result();
}

qint64 newBytesIn(const FileContents &contents)
{
    return std::accumulate(contents.pieces().begin(), contents.pieces().end(), qint64(0),
                           [](qint64 sum, const auto &piece) { return sum + piece.bytes.size(); });
}

} // namespace

std::optional<ReplacedBytes> ReplacedBytes::by(const FileContents &contents,
                                               const InPlaceFile &file)
{
    ReplacedBytes replaced;
    qint64 place = 0; // up to which the old file is told
    const auto take = [&](qint64 end) {
        const auto bytes = end - place <= mostBytes ? file.read(place, end - place) : std::nullopt;
        if (!bytes || bytes->size() != end - place)
            return false;
        replaced.mBefore.append(*bytes);
        return true;
    };
    for (const KeptRange &range : keptRangesOf(contents)) {
        if (range.before < place || !take(range.before))
            return std::nullopt;
        replaced.mBefore.keep(range.after, range.length);
        place = range.before + range.length;
    }
    if (!take(file.size()) || replaced.bytes() > mostBytes)
        return std::nullopt;
    replaced.mSizeAfter = contents.length();
    replaced.mHashAfter = hashOfNewBytes(contents);
    return replaced;
}

qint64 ReplacedBytes::bytes() const
{
    return newBytesIn(mBefore);
}

InPlaceFile::Outcome ReplacedBytes::giveBack(const QString &path, KeepTime keepTime,
                                             KeptJournal *kept, ReplacedBytes &undone) const
{
    using Kind = InPlaceFile::Outcome::Kind;
    const auto [file, error] = InPlaceFile::open(path);
    if (!file)
        return {Kind::Failed, error};
    const auto now = file->size() == mSizeAfter ? by(mBefore, *file) : std::nullopt;
    if (!now || hashOfNewBytes(now->mBefore) != mHashAfter)
        return {Kind::Failed, qtTrId("ErrorSongChangedMeanwhile")};
    auto outcome = file->replaceContents(mBefore, keepTime, kept);
    undone = *now; // which may be this
    return outcome;
}
