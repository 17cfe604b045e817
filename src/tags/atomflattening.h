#pragma once

#include "base/filecontents.h"
#include "tags/atom.h"

/// Writes trees of atoms as the bytes of a file.
class AtomFlattening {
public:
    /// What was not changed since it was read may stand as a range of that file.
    enum class Unchanged { Written, Kept };

    explicit AtomFlattening(Unchanged unchanged)
        : mUnchanged(unchanged)
    {
    }

    /// Of the whole atom, header included.
    [[nodiscard]] static quint64 lengthOf(const Atom &atom);
    [[nodiscard]] static quint64 bodyLengthOf(const Atom &atom);

    void append(const Atom &atom);
    void appendChildren(const Atom &container);
    /// Everything, where nothing was kept.
    [[nodiscard]] const QByteArray &newBytes() const { return mNewBytes; }
    [[nodiscard]] FileContents contents();

private:
    struct Extent {
        AtomSizeForm form;
        quint64 length;
    };

    [[nodiscard]] static Extent extentOf(const Atom &atom);
    void appendHeader(const Atom &atom);
    void appendBody(const Atom &leaf);
    void keep(const ByteRange &range);

    Unchanged mUnchanged;
    FileContents mContents;
    QByteArray mNewBytes; ///< not yet in `mContents`
};
