#include "tags/atomreading.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/atomsource.h"

#include <algorithm>
#include <utility>

namespace {
constexpr AtomName metaAtom = atomName("meta");
constexpr qint64 versionLength = 4;

[[noreturn]] void throwBadSize()
{
    throw MalformedData(QStringLiteral("bad size atom"));
}
} // namespace

std::unique_ptr<Atom> AtomReading::tree(const ByteRange &range, AtomName name)
{
    auto root = Atom::atomWithName(name);
    root->mIsContainer = true;
    root->mIsChanged = false;
    addChildren(*root, range, 1);
    return root;
}

void AtomReading::addChildren(Atom &container, const ByteRange &range, int nesting)
{
    if (nesting > Atom::maxNesting)
        throw MalformedData(QStringLiteral("atoms nested too deeply"));
    qint64 offset = range.location;
    while (range.end() - offset >= AtomHeader::plainLength) {
        const AtomHeader header = headerAt(offset, range.end(), nesting == 1);
        // Only what the whole file ends in the middle of may lack its end.
        const auto room = static_cast<quint64>(range.end() - offset);
        const bool isCut = header.size > room;
        if (isCut
            && (nesting > 1 || range.end() < mSource.length()
                || isAtomContainer(header.name, container.name())))
            throwBadSize();
        addChild(container, header, offset, nesting);
        offset += static_cast<qint64>(std::min(header.size, room));
    }
    container.mTail = mSource.read(offset, range.end() - offset);
}

AtomHeader AtomReading::headerAt(qint64 offset, qint64 end, bool isTop) const
{
    AtomHeader header = AtomHeader::at(mSource, offset, end);
    if (!isTop && header.form == AtomSizeForm::ToEnd && header.name == 0) {
        header.form = AtomSizeForm::Zero;
        header.size = AtomHeader::plainLength;
    }
    return header;
}

void AtomReading::addChild(Atom &container, const AtomHeader &header, qint64 offset, int nesting)
{
    if (++mAtoms > Atom::maxAtoms)
        throw MalformedData(QStringLiteral("too many atoms"));
    std::unique_ptr<Atom> atom = Atom::atomWithName(header.name);
    atom->mForm = header.form;
    const auto length =
        static_cast<qint64>(std::min(header.size, static_cast<quint64>(mSource.length() - offset)));
    atom->mOriginal = {offset, length};
    if (isAtomContainer(header.name, container.name())) {
        readContainer(*atom, atom->mOriginal, header, nesting);
    } else {
        if (header.size > static_cast<quint64>(length) && header.form == AtomSizeForm::Plain)
            atom->mTruncatedSize = static_cast<quint32>(header.size);
        // The body of a leaf with a 64-bit size begins with that.
        setFile(*atom, offset + AtomHeader::plainLength, header.size - AtomHeader::plainLength);
    }
    atom->mIsChanged = false;
    atom->mParent = &container;
    container.mContents.push_back(std::move(atom));
}

void AtomReading::readContainer(Atom &atom, const ByteRange &range, const AtomHeader &header,
                                int nesting)
{
    ByteRange body{range.location + header.length(), range.length - header.length()};
    atom.mIsContainer = true;
    if (header.name == metaAtom && beginsWithVersion(body)) {
        atom.mHasVersion = true;
        atom.mVersionAndFlags = ByteReader(mSource.view(body.location, versionLength)).u32();
        body = {body.location + versionLength, body.length - versionLength};
    }
    addChildren(atom, body, nesting + 1);
}

/// Some programs write 'meta' without version and flags. Then its body begins with the header of
/// its first child, which has a size that fits, and a name; with them, what stands in the place
/// of a name is a size, and none so large that each of its bytes could be a character.
bool AtomReading::beginsWithVersion(const ByteRange &body) const
{
    if (body.length < AtomHeader::plainLength)
        return body.length >= versionLength;
    constexpr int smallestCharacter = 0x20;
    ByteReader reader(mSource.view(body.location, AtomHeader::plainLength));
    const qint64 size = reader.u32();
    const QByteArrayView name = reader.rest();
    const bool isName = std::all_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) >= smallestCharacter;
    });
    return !isName || size < AtomHeader::plainLength || size > body.length;
}

void AtomReading::setFile(Atom &leaf, qint64 location, quint64 length) const
{
    const qint64 there = mSource.length() - location;
    if (length > static_cast<quint64>(there))
        qCWarning(logTags).noquote()
            << QStringLiteral("Atom (%1) will trunc setFile:withRange: %2 + %3 (%4) > %5")
                   .arg(leaf.nameString(), QString::number(location), QString::number(length),
                        QString::number(static_cast<quint64>(location) + length),
                        QString::number(mSource.length()));
    leaf.mFile = &mSource;
    leaf.mFileRange = {location,
                       static_cast<qint64>(std::min(length, static_cast<quint64>(there)))};
}

std::unique_ptr<Atom> Atom::atomContainerFromFile(const AtomSource &source)
{
    return atomContainerFromFile(source, {0, source.length()}, atomName("FILE"));
}

std::unique_ptr<Atom> Atom::atomContainerFromFile(const AtomSource &source,
                                                  const ByteRange &inRange, AtomName withName)
{
    return AtomReading(source).tree(inRange, withName);
}
