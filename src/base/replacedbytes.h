#pragma once

#include "base/inplacefile.h"

/// What a write takes away from a file, to be given back.
class ReplacedBytes {
public:
    ReplacedBytes() = default;

    /// Of a write that is about to be made. Nothing when it cannot be given back: the bytes cannot
    /// be read, are more than 32 MB, or a part of the file is to stand there twice.
    [[nodiscard]] static std::optional<ReplacedBytes> by(const FileContents &contents,
                                                         const InPlaceFile &file);

    /// That are held.
    [[nodiscard]] qint64 bytes() const;

    /// Makes the file hold what it held before. A file that was changed since the write is refused.
    /// `undone` gets what that takes away, so that it can be given back in turn.
    [[nodiscard]] InPlaceFile::Outcome giveBack(const QString &path, KeepTime keepTime,
                                                KeptJournal *kept, ReplacedBytes &undone) const;

private:
    FileContents mBefore; ///< with ranges of the file as it is after the write
    qint64 mSizeAfter = 0;
    QByteArray mHashAfter; ///< of the bytes that the write brings
};
