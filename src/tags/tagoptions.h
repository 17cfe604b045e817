#pragma once

#include "base/replacedbytes.h"
#include "tags/id3dialect.h"

enum class MalformedInfo { Keep, Discard };
enum class UnrecognizedInfo { Keep, Discard };

/// How a tag is read. Regenerating a song discards both kinds; nothing else does.
struct ReadOptions {
    ID3Dialect dialect = ID3Dialect::classic();
    MalformedInfo malformed = MalformedInfo::Keep;
    UnrecognizedInfo unrecognized = UnrecognizedInfo::Keep;
};

/// Frame sizes in ID3v2.4 tags: as the standard asks (sync-safe), or plain numbers as in v2.3.
enum class FrameSizes { Plain, Accurate };

/// How a tag is written.
struct WriteOptions {
    ID3Dialect dialect = ID3Dialect::classic();
    FrameSizes v24Sizes = FrameSizes::Plain;
    KeepTime keepTime = KeepTime::No;
    bool refreshLibrary = false; ///< have the library program read the song again
    /// Of whoever writes many songs, one after the other.
    KeptJournal *keptJournal = nullptr;
    /// Gets what the write takes away, where that can be given back.
    std::optional<ReplacedBytes> *replaced = nullptr;
};

/// Writes into the song as these options say.
[[nodiscard]] InPlaceFile::Outcome writeContents(InPlaceFile &file, const FileContents &contents,
                                                 const WriteOptions &options);
