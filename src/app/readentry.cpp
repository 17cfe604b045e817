#include "app/readentry.h"

#include "base/fileattributes.h"
#include "base/unicodeforms.h"
#include "songs/cachedinfotag.h"
#include "tags/filetype.h"

#include <utility>

namespace {

class EntryReading {
public:
    EntryReading(const SourceEntry &entry, const ReadOptions &options)
        : mOptions(options)
    {
        mRead.entry = entry;
    }

    ReadEntry read(const InfoLookUp &storedInfo, const CachedInfoPointer &neighbour)
    {
        mRead.info = storedInfo(path());
        const bool hasSummary = mRead.info != nullptr;
        if (!hasSummary && !isSong())
            return std::move(mRead);
        lookAtFile(storedInfo);
        if (mRead.info && !(mAttributes && mRead.info->holdsFor(*mAttributes, mOptions.dialect)))
            mRead.info = nullptr;
        if (mRead.info || !hasSummary || isSong())
            makeSong(neighbour);
        return std::move(mRead);
    }

private:
    [[nodiscard]] const QString &path() const { return mRead.entry.path; }

    [[nodiscard]] bool isSong() const
    {
        return mRead.entry.proof == SongProof::None || FileType::claimsToBeMP3(path())
            || FileType::claimsToBeAAC(path())
            || (mRead.entry.proof == SongProof::NameOrContents && holdsSong());
    }

    [[nodiscard]] bool holdsSong() const
    {
        const auto bytes = SongBytes::open(path());
        return bytes && FileType::songDataType(*bytes) != FileType::SongDataType::Unknown;
    }

    /// Libraries that were made on a Mac name files in another Unicode form.
    void lookAtFile(const InfoLookUp &storedInfo)
    {
        mAttributes = FileAttributes::at(path());
        const QString existing = mAttributes ? QString() : existingForm(path());
        if (existing.isNull())
            return;
        mRead.entry.path = existing;
        mRead.info = storedInfo(existing);
        mAttributes = FileAttributes::at(existing);
    }

    void makeSong(const CachedInfoPointer &neighbour)
    {
        if (mAttributes)
            mRead.song = SongFile::songWithAttributes(path(), *mAttributes, mOptions);
        if (!mRead.song)
            mRead.result = ReadEntry::Result::NoRecord;
        else if (mRead.info)
            adoptInfo();
        else
            readTag(neighbour);
    }

    void adoptInfo()
    {
        mRead.song->adoptInfotag(tagWithCachedInfo(mRead.info));
        mRead.result = ReadEntry::Result::Song;
    }

    /// Of what was read the summary stays: a list of any length has to fit in memory.
    void readTag(const CachedInfoPointer &neighbour)
    {
        const AudioInfoTag *tag = mRead.song->infotag();
        mRead.result = tag ? ReadEntry::Result::Song : ReadEntry::Result::NoTag;
        if (!tag)
            return;
        mRead.isCorrupt = tag->encounteredProblemDecoding();
        auto info = CachedInfoTag::infoDictForTag(*tag, path(), mOptions.dialect);
        if (!info)
            return; // it vanished meanwhile
        if (neighbour)
            info->shareWith(*neighbour);
        // Of a file that was written meanwhile nobody knows which state was read.
        mRead.isNewInfo = info->holdsFor(*mAttributes, mOptions.dialect);
        mRead.info = std::make_shared<const CachedInfo>(*std::move(info));
        adoptInfo();
        if (mRead.isCorrupt)
            mRead.song->setActivityStatus(SongStatus::Problem);
    }

    ReadEntry mRead;
    const ReadOptions &mOptions;
    std::optional<FileAttributes> mAttributes;
};

} // namespace

ReadEntry readSourceEntry(const SourceEntry &entry, const ReadOptions &options,
                          const InfoLookUp &storedInfo, const CachedInfoPointer &neighbour)
{
    return EntryReading(entry, options).read(storedInfo, neighbour);
}
