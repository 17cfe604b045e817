#pragma once

#include "tags/atom.h"

/// Makes trees of atoms from what stands in a file.
class AtomReading {
public:
    explicit AtomReading(const AtomSource &source)
        : mSource(source)
    {
    }

    /// Throws MalformedData for atoms that cannot be, and for too many of them.
    std::unique_ptr<Atom> tree(const ByteRange &range, AtomName name);

private:
    void addChildren(Atom &container, const ByteRange &range, int nesting);
    void addChild(Atom &container, const AtomHeader &header, qint64 offset, int nesting);
    void readContainer(Atom &atom, const ByteRange &range, const AtomHeader &header, int nesting);
    void setFile(Atom &leaf, qint64 location, quint64 length) const;
    [[nodiscard]] AtomHeader headerAt(qint64 offset, qint64 end, bool isTop) const;
    [[nodiscard]] bool beginsWithVersion(const ByteRange &body) const;

    const AtomSource &mSource;
    int mAtoms = 0;
};
