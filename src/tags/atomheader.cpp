#include "tags/atomheader.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/atomsource.h"

#include <optional>

namespace {

/// The size behind the name; nothing where the source has no room for it.
std::optional<quint64> extendedSizeAt(const AtomSource &source, qint64 offset)
{
    if (offset > source.length() - AtomHeader::extendedLength)
        return std::nullopt;
    return ByteReader(source.view(offset + AtomHeader::plainLength, 8)).u64();
}

[[noreturn]] void throwInvalidSize(const AtomSource &source, const AtomHeader &header)
{
    qCWarning(logTags).noquote() << QStringLiteral("invalid size %1 for atom '%2' in %3")
                                        .arg(QString::number(header.size),
                                             textOfAtomName(header.name), source.description());
    throw MalformedData(QStringLiteral("bad size atom"));
}

} // namespace

AtomHeader AtomHeader::at(const AtomSource &source, qint64 offset, qint64 end)
{
    ByteReader reader(source.view(offset, plainLength));
    AtomHeader header;
    header.size = reader.u32();
    header.name = reader.u32();
    if (header.size == 0) {
        header.form = AtomSizeForm::ToEnd;
        header.size = static_cast<quint64>(end - offset);
    } else if (header.size == 1) {
        header.form = AtomSizeForm::Extended;
        header.size = extendedSizeAt(source, offset).value_or(header.size);
    }
    if (header.size < static_cast<quint64>(header.length()))
        throwInvalidSize(source, header);
    return header;
}
