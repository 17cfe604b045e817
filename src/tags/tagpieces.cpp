#include "tags/tagpieces.h"

#include "tags/synchsafe.h"

#include <QCoreApplication>

#include <utility>

namespace {

/// Copying less than this costs less than a piece of its own.
constexpr qsizetype smallest = 32 << 10;

} // namespace

void TagPieces::append(const QByteArray &bytes)
{
    mLength += bytes.size();
    if (bytes.size() < smallest) {
        mTail.append(bytes);
        return;
    }
    setApart();
    mPieces.append(bytes);
}

void TagPieces::setApart()
{
    if (!mTail.isEmpty())
        mPieces.append(std::exchange(mTail, {}));
}

void TagPieces::fail(const QString &reason)
{
    if (mError.isEmpty())
        mError = reason;
}

TagPieces::Made TagPieces::withHeader(std::uint8_t majorVersion) &&
{
    if (mLength > SynchSafe::max)
        fail(qtTrId("ErrorTagTooLarge"));
    if (!mError.isEmpty())
        return {{}, mError};
    ByteWriter header;
    header.bytes("ID3");
    header.u8(majorVersion);
    header.zeros(2); // revision and flags
    header.u32(SynchSafe::synchSafe(static_cast<std::uint32_t>(mLength)));
    setApart();
    mPieces.prepend(std::move(header).data());
    return {std::move(mPieces), {}};
}
