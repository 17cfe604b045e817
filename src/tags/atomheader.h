#pragma once

#include "tags/atomname.h"

class AtomSource;

/// How the size of an atom stands in its header.
enum class AtomSizeForm : quint8 {
    Plain, ///< 32 bits
    Extended, ///< 1, and 64 bits behind the name
    ToEnd, ///< 0: up to the end of what encloses the atom
    Zero, ///< eight zero bytes between other atoms, which some programs leave behind
};

/// What stands in front of the body of an atom.
struct AtomHeader {
    static constexpr qint64 plainLength = 8;
    static constexpr qint64 extendedLength = 16;

    AtomName name = 0;
    quint64 size = 0; ///< of the whole atom, header included; never less than the header
    AtomSizeForm form = AtomSizeForm::Plain;

    /// The bytes of the header, with the size in 64 bits where it has those.
    [[nodiscard]] qint64 length() const
    {
        return form == AtomSizeForm::Extended ? extendedLength : plainLength;
    }

    /// The header at `offset`, of an atom that may run to `end` at most where it names no size.
    /// Throws MalformedData, with a log line, for a size that no atom can have.
    static AtomHeader at(const AtomSource &source, qint64 offset, qint64 end);
};
