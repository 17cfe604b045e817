#include "tags/atomlookup.h"

#include "tags/atomheader.h"
#include "tags/atompath.h"
#include "tags/atomsource.h"

quint64 AtomLookup::sizeOfAtomIn(const AtomSource &source, qint64 atOffset, AtomName *name)
{
    const AtomHeader header = AtomHeader::at(source, atOffset, source.length());
    if (name)
        *name = header.name;
    return header.size;
}

quint64 AtomLookup::offsetToAtomIn(const AtomSource &source, QStringView atNamePath,
                                   QStringView indexed)
{
    const std::vector<AtomStep> steps = atomStepsOf(atNamePath, indexed);
    const auto limit =
        static_cast<quint64>(qMax<qint64>(source.length() - AtomHeader::plainLength, 0));
    size_t level = 0;
    int count = 0;
    quint64 offset = 0;
    while (offset < limit) {
        AtomName name = 0;
        const quint64 size = sizeOfAtomIn(source, static_cast<qint64>(offset), &name);
        if (name != steps[level].name || ++count < steps[level].index) {
            offset += qMin(size, limit);
            continue;
        }
        if (++level == steps.size())
            return offset;
        offset += AtomHeader::plainLength;
        count = 0;
    }
    return notFound;
}

std::optional<QByteArray> AtomLookup::atomDataIn(const AtomSource &source, QStringView atNamePath,
                                                 QStringView indexed)
{
    const quint64 offset = offsetToAtomIn(source, atNamePath, indexed);
    if (offset == notFound)
        return std::nullopt;
    const auto start = static_cast<qint64>(offset);
    const auto size = static_cast<qint64>(
        qMin(sizeOfAtomIn(source, start), static_cast<quint64>(source.length() - start)));
    return source.read(start + AtomHeader::plainLength, size - AtomHeader::plainLength);
}
