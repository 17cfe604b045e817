#include "cli/songopening.h"

#include "tags/filetype.h"

namespace {

/// Whether a file that stands in a folder is a song: by its name, else by its contents.
bool isSong(const QString &path)
{
    if (FileType::claimsToBeMP3(path) || FileType::claimsToBeAAC(path))
        return true;
    const auto bytes = SongBytes::open(path);
    return bytes && FileType::songDataType(*bytes) != FileType::SongDataType::Unknown;
}

} // namespace

OpenedSong openSong(const FoundPath &found, const ReadOptions &options)
{
    const bool isNamed = found.origin == FoundPath::Origin::Named;
    if (!isNamed && !isSong(found.path))
        return {};
    auto song = SongFile::songWithPath(found.path, options);
    if (song)
        return {std::move(song), {}};
    return {nullptr, isNamed ? qtTrId("ErrorNoSong") : QString()};
}
