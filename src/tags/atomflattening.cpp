#include "tags/atomflattening.h"

#include "base/bytes.h"
#include "tags/atomsource.h"

#include <limits>
#include <utility>

namespace {
constexpr quint64 largestPlainSize = std::numeric_limits<quint32>::max();
constexpr quint64 versionLength = 4;
} // namespace

quint64 AtomFlattening::bodyLengthOf(const Atom &atom)
{
    if (!atom.mIsContainer)
        return atom.size();
    quint64 length =
        (atom.mHasVersion ? versionLength : 0) + static_cast<quint64>(atom.mTail.size());
    for (const auto &child : atom.mContents)
        length += lengthOf(*child);
    return length;
}

/// A size that was left open can stay so at the end alone, and one of 32 bits only where it fits.
AtomFlattening::Extent AtomFlattening::extentOf(const Atom &atom)
{
    const quint64 body = bodyLengthOf(atom);
    AtomSizeForm form = atom.mForm;
    if (form == AtomSizeForm::ToEnd && atom.nextSibling())
        form = AtomSizeForm::Plain;
    if (form == AtomSizeForm::Plain && body > largestPlainSize - AtomHeader::plainLength)
        form = AtomSizeForm::Extended;
    const bool isExtended = form == AtomSizeForm::Extended && atom.extendedSizeLength() == 0;
    return {form, body + (isExtended ? AtomHeader::extendedLength : AtomHeader::plainLength)};
}

quint64 AtomFlattening::lengthOf(const Atom &atom)
{
    return extentOf(atom).length;
}

void AtomFlattening::appendHeader(const Atom &atom)
{
    const Extent extent = extentOf(atom);
    ByteWriter header;
    switch (extent.form) {
    case AtomSizeForm::Plain:
        header.u32(atom.mTruncatedSize ? atom.mTruncatedSize : static_cast<quint32>(extent.length));
        break;
    case AtomSizeForm::Extended:
        header.u32(1);
        break;
    case AtomSizeForm::ToEnd:
    case AtomSizeForm::Zero:
        header.u32(0);
        break;
    }
    header.u32(atom.mName);
    if (extent.form == AtomSizeForm::Extended && atom.extendedSizeLength() == 0)
        header.u64(extent.length);
    if (atom.mHasVersion)
        header.u32(atom.mVersionAndFlags);
    mNewBytes += header.data();
}

void AtomFlattening::append(const Atom &atom)
{
    if (!atom.mIsChanged && mUnchanged == Unchanged::Kept)
        return keep(atom.mOriginal);
    appendHeader(atom);
    if (atom.mIsContainer)
        appendChildren(atom);
    else
        appendBody(atom);
}

void AtomFlattening::appendChildren(const Atom &container)
{
    for (const auto &child : container.mContents)
        append(*child);
    mNewBytes += container.mTail;
}

void AtomFlattening::appendBody(const Atom &leaf)
{
    if (mUnchanged == Unchanged::Written) {
        mNewBytes += *leaf.data();
        return;
    }
    if (leaf.mFile)
        keep(leaf.mFileRange);
    mNewBytes += leaf.mData;
    mNewBytes.append(leaf.mZeros, '\0');
}

void AtomFlattening::keep(const ByteRange &range)
{
    mContents.append(std::exchange(mNewBytes, {}));
    mContents.keep(range.location, range.length);
}

FileContents AtomFlattening::contents()
{
    mContents.append(std::exchange(mNewBytes, {}));
    return std::move(mContents);
}

quint64 Atom::flattenedLength() const
{
    return AtomFlattening::lengthOf(*this);
}

quint64 Atom::flattenedBodyLength() const
{
    return AtomFlattening::bodyLengthOf(*this);
}

QByteArray Atom::flattenedData() const
{
    AtomFlattening flattening(AtomFlattening::Unchanged::Written);
    flattening.append(*this);
    return flattening.newBytes();
}

FileContents Atom::flattenedContents() const
{
    AtomFlattening flattening(AtomFlattening::Unchanged::Kept);
    flattening.appendChildren(*this);
    return flattening.contents();
}
