#pragma once

#include "app/songvalues.h"
#include "app/userlog.h"
#include "songs/songfile.h"

class LibraryLending;
class SongFileInfoCache;
class iTunesInterface;

/// Writes songs that gathering changed, and has everyone know them as they are now.
class SongWriting {
public:
    /// All must outlive it.
    SongWriting(LibraryLending &library, iTunesInterface &itunes, UserLog &log);

    /// Where the summaries of songs are kept; without it, songs that are done hold no tag.
    void setInfoCache(SongFileInfoCache *cache) { mInfoCache = cache; }

    /// Writes the tag in hand, which must not be lazy. A failure is logged.
    [[nodiscard]] InPlaceFile::Outcome write(SongFile &song, const WriteOptions &options);
    /// Reads the tag anew, as files keep some values in a form of their own; nothing when it cannot
    /// be read.
    [[nodiscard]] static std::optional<SongValues> valuesInFile(SongFile &song);

    enum class Tag {
        Written, ///< the tag in hand is what the file holds
        Dropped, ///< it is given up
    };
    /// Drops the full tag of a song, which is shown by its summary then. `isOther`: the tag is not
    /// what it was when the song was begun.
    void forgetTag(const std::shared_ptr<SongFile> &song, Tag tag, bool isOther);

private:
    LibraryLending &mLibrary;
    iTunesInterface &mItunes;
    UserLog &mLog;
    SongFileInfoCache *mInfoCache = nullptr;
};
