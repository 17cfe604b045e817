#include "tags/aacrewrite.h"

#include "base/bytes.h"
#include "tags/aacitems.h"
#include "tags/aacreader.h"
#include "tags/atom.h"
#include "tags/atomsource.h"
#include "tags/chunkoffsets.h"
#include "tags/filetype.h"
#include "tags/metadatalist.h"

#include <QCoreApplication>
#include <QTimeZone>
#include <QtEndian>

#include <limits>

namespace {

using Outcome = InPlaceFile::Outcome;

Outcome failed(const QString &reason)
{
    return {Outcome::Kind::Failed, reason};
}

/// Seconds from the start of 1904, as far as 32 bits hold them.
quint32 macTime(const QDateTime &time)
{
    constexpr qint64 from1904To1970 = 2'082'844'800;
    return static_cast<quint32>(qBound<qint64>(0, time.toSecsSinceEpoch() + from1904To1970,
                                               std::numeric_limits<quint32>::max()));
}

/// The sixteenth byte of the atom is where a header of version 0 has the time. It is written there
/// whatever the version, as it always was.
void stamp(Atom *header, quint32 time)
{
    constexpr qint64 timeAt = 16 - AtomHeader::plainLength;
    constexpr quint64 largestHeader = 4096;
    const bool hasRoom = header && !header->isContainer() && header->extendedSizeLength() == 0
        && header->size() >= timeAt + sizeof time && header->size() <= largestHeader;
    if (!hasRoom)
        return;
    QByteArray body = *header->data();
    qToBigEndian(time, body.data() + timeAt);
    header->setData(body);
}

/// Throws MalformedData when the atoms, not yet changed, do not make up the whole file.
void requireWhole(const Atom &tree, const AtomSource &source)
{
    if (tree.flattenedBodyLength() != static_cast<quint64>(source.length()))
        throw MalformedData(QStringLiteral("the atoms do not make up the file"));
}

/// Makes the changes in the tree. The reason why that cannot be; empty when it can.
QString change(Atom &tree, const AACAttributes &attributes)
{
    if (!AACReader::metadataListIn(tree) && attributes.isEmpty())
        return {};
    tree.setAutoSizing(true);
    AACItems::apply(attributes, MetadataList::findOrMake(tree));
    tree.setAutoSizing(false);
    if (!tree.isChanged())
        return {};
    if (!AACRewrite::setModifiedTime(QDateTime::currentDateTimeUtc(), tree))
        return QStringLiteral("cannot set modification date");
    if (!ChunkOffsets::adjustChunkOffsets(tree))
        return QStringLiteral("cannot update chunk offsets");
    return {};
}

struct NewContents {
    FileContents contents;
    bool isChanged = false;
    QString error;
};

/// What shall become of the atoms that `source` holds.
NewContents newContentsOf(const AtomSource &source, const AACAttributes &attributes)
{
    const auto tree = Atom::atomContainerFromFile(source);
    requireWhole(*tree, source);
    if (const QString error = change(*tree, attributes); !error.isEmpty())
        return {.contents = {}, .error = error};
    return {.contents = tree->flattenedContents(), .isChanged = tree->isChanged(), .error = {}};
}

qint64 strayTagLengthOf(const QString &path, const InPlaceFile &file)
{
    const auto head = file.read(0, FileType::strayID3v2HeaderLength);
    if (!head)
        throw MalformedData(qtTrId("ErrorCannotReadFile"));
    return FileType::strayID3v2TagLength(path, file.size(), *head);
}

} // namespace

bool AACRewrite::setModifiedTime(const QDateTime &time, Atom &file)
{
    if (!time.isValid())
        return false;
    for (const auto path : {u"FILE:moov:mvhd", u"FILE:moov:trak:tkhd", u"FILE:moov:trak:mdia:mdhd"})
        stamp(file.childAtAtomPath(path), macTime(time));
    return true;
}

Outcome AACRewrite::rewrite(const QString &path, const AACAttributes &attributes,
                            const WriteOptions &options)
try {
    auto [file, error] = InPlaceFile::open(path);
    if (!file)
        return failed(QStringLiteral("%1: %2").arg(qtTrId("ErrorCannotOpenForWrite"), error));
    const qint64 start = strayTagLengthOf(path, *file);
    const NewContents made = newContentsOf(AtomSource::ofFile(*file, start, path), attributes);
    if (!made.error.isEmpty())
        return failed(made.error);
    if (!made.isChanged)
        return {};
    if (made.contents.length() == 0)
        return failed(QStringLiteral("cannot generate atom data"));
    if (start == 0)
        return writeContents(*file, made.contents, options);
    // Only now, since the song is known to be one that can be written.
    file.reset();
    if (!FileType::removeID3v2TagFromFileAtPath(path, options.keepTime))
        return failed(qtTrId("ErrorCannotOpenForWrite"));
    return rewrite(path, attributes, options);
} catch (const MalformedData &malformed) {
    return failed(QStringLiteral("can't modify (an error occurred): ") + malformed.reason());
}
