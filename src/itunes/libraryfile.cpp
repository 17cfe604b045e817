#include "itunes/libraryfile.h"

#include <algorithm>
#include <numeric>

LibraryFile::LibraryFile(std::vector<LibraryTrack> tracks, std::vector<LibraryPlaylist> playlists)
    : mTracks(std::move(tracks))
    , mPlaylists(std::move(playlists))
    , mByID(mTracks.size())
{
    std::iota(mByID.begin(), mByID.end(), 0);
    std::stable_sort(mByID.begin(), mByID.end(),
                     [&](quint32 a, quint32 b) { return mTracks[a].id < mTracks[b].id; });
}

const LibraryTrack *LibraryFile::trackWithID(int id) const
{
    const auto found =
        std::lower_bound(mByID.begin(), mByID.end(), id, [&](quint32 position, int wanted) {
            return mTracks[position].id < wanted;
        });
    return found != mByID.end() && mTracks[*found].id == id ? &mTracks[*found] : nullptr;
}
