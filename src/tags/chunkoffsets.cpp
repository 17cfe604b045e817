#include "tags/chunkoffsets.h"

#include "tags/atom.h"
#include "tags/offsettable.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <vector>

namespace {

/// A top-level atom: where it stood, and where it will.
struct Move {
    ByteRange from;
    ByteRange to;

    [[nodiscard]] qint64 by() const { return to.location - from.location; }
};

std::vector<Move> movesIn(const Atom &file)
{
    std::vector<Move> moves;
    qint64 offset = 0;
    for (const auto &child : file.contents()) {
        const auto length = static_cast<qint64>(child->flattenedLength());
        moves.push_back({child->originalRange(), {offset, length}});
        offset += length;
    }
    return moves;
}

/// Of the atom that `place` points into.
qint64 moveOf(quint64 place, const std::vector<Move> &moves)
{
    const auto after =
        std::upper_bound(moves.begin(), moves.end(), place, [](quint64 at, const Move &move) {
            return at < static_cast<quint64>(move.from.location);
        });
    return after == moves.begin() ? 0 : std::prev(after)->by();
}

void collect(const Atom &container, AtomName name, std::vector<Atom *> &found)
{
    for (const auto &child : container.contents()) {
        if (child->isContainer())
            collect(*child, name, found);
        else if (child->name() == name)
            found.push_back(child.get());
    }
}

std::vector<Atom *> atomsNamed(const Atom &file, std::initializer_list<AtomName> names)
{
    std::vector<Atom *> found;
    for (const AtomName name : names)
        collect(file, name, found);
    return found;
}

/// 'iloc' belongs to still images. 'sidx' counts from its own end, and so must move with all that
/// stands behind it.
bool hasForeignTables(const Atom &file, const std::vector<Move> &moves)
{
    const auto isLeftBehind = [&](const Atom *index) {
        const auto place = static_cast<quint64>(index->originalRange().location);
        return moveOf(place, moves) != moves.back().by();
    };
    const auto indices = atomsNamed(file, {atomName("sidx")});
    return !atomsNamed(file, {atomName("iloc")}).empty()
        || std::any_of(indices.begin(), indices.end(), isLeftBehind);
}

bool moveEntries(Atom &table, const OffsetTable &shape, const std::vector<Move> &moves)
{
    QByteArray body = *table.data();
    for (quint32 i = 0; i < shape.count; ++i) {
        const quint64 place = shape.entry(body, i);
        if (!shape.setEntry(body, i, place + static_cast<quint64>(moveOf(place, moves))))
            return false;
    }
    if (shape.count > 0)
        table.setData(body);
    return true;
}

/// Whether `table` can follow, and does.
bool follow(Atom &table, const std::vector<Move> &moves)
{
    const auto shape = OffsetTable::shapeOf(table);
    return shape && moveEntries(table, *shape, moves);
}

bool adjustTables(const Atom &file, const std::vector<Move> &moves)
{
    const auto chunks = atomsNamed(file, {atomName("stco"), atomName("co64")});
    const auto others = atomsNamed(file, {atomName("saio"), atomName("tfhd"), atomName("tfra")});
    const auto follows = [&moves](Atom *table) { return follow(*table, moves); };
    return !chunks.empty() && !hasForeignTables(file, moves)
        && std::all_of(chunks.begin(), chunks.end(), follows)
        && std::all_of(others.begin(), others.end(), follows);
}

} // namespace

bool ChunkOffsets::adjustChunkOffsets(Atom &file)
{
    const std::vector<Move> moves = movesIn(file);
    const auto isUnmoved = [](const Move &move) { return move.by() == 0; };
    if (std::all_of(moves.begin(), moves.end(),
                    [](const Move &move) { return move.from == move.to; }))
        return true;
    if (!file.firstChild(atomName("mdat")))
        return false;
    return std::all_of(moves.begin(), moves.end(), isUnmoved) || adjustTables(file, moves);
}
