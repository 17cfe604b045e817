#pragma once

#include "tags/audioinfotag.h"

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class FileReference;
class iTunesInterface;

/// What a song of the list is doing; the numbers are the described ones and order the list.
enum class SongStatus {
    Ready = 0,
    Pending = 1,
    Processing = 2,
    Locked = 3, ///< the file is not writable
    Problem = 4, ///< the tag could not be decoded, the file vanished, or writing failed
};

/// One song of the list: a file, followed when it moves, and its tag, read when first asked for.
class SongFile {
public:
    /// Files of this size or smaller are never songs.
    static constexpr qint64 maxBytesOfNoSong = 255;

    /// Null when there is no file at `path` or it is too small. The tag is not read.
    [[nodiscard]] static std::shared_ptr<SongFile> songWithPath(const QString &path,
                                                                const ReadOptions &options = {});

    explicit SongFile(QString path, const ReadOptions &options);
    SongFile(const SongFile &) = delete;
    SongFile &operator=(const SongFile &) = delete;
    ~SongFile();

    [[nodiscard]] const QString &path() const { return mPath; }
    void setPath(const QString &path);
    [[nodiscard]] QString filename() const;
    [[nodiscard]] QString description() const;

    void setPlayList(const QString &playlist, int andIndex);
    [[nodiscard]] const std::optional<QString> &playlist() const { return mPlaylist; }
    [[nodiscard]] int playlistIndex() const { return mPlaylistIndex; }
    [[nodiscard]] int iTunesDBID() const { return mITunesDBID; }
    void setiTunesDBID(int databaseID) { mITunesDBID = databaseID; }

    /// The tag, read now if none is held; null when the file is no song.
    AudioInfoTag *infotag();
    /// Why the last infotag() gave none: one line for the user.
    [[nodiscard]] const QString &reasonOfNoTag() const { return mReasonOfNoTag; }
    void adoptInfotag(std::unique_ptr<AudioInfoTag> tag);
    /// Drops a tag made from summary data, so that the next infotag() reads the file.
    void ensureInfotagIsReal();
    void uncacheInfotag();
    [[nodiscard]] bool hasInfotagCached() const { return mInfotag != nullptr; }

    [[nodiscard]] SongStatus activityStatus() const { return mStatus; }
    void setActivityStatus(SongStatus status) { mStatus = status; }
    void setDefaultActivityStatus();
    [[nodiscard]] bool canWriteToOriginalPath() const;

    // The file is followed by a reference that outlives a move or renaming.
    void setAliasFromPath();
    void updatePathFromAlias();
    [[nodiscard]] bool hasAlias() const { return mAlias != nullptr; }

    void adoptCurrentModificationDate();
    /// Whether the file changed since it was last seen; if so, its tag is dropped.
    bool refresh();
    void rememberOriginalValuesForLaterRefresh();

    /// Writes the tag back. Songs that are locked or have problems are refused. `itunes` may be
    /// null.
    [[nodiscard]] InPlaceFile::Outcome writeToOriginalPath(const WriteOptions &options,
                                                           iTunesInterface *itunes);

private:
    [[nodiscard]] std::optional<QDateTime> currentModificationDate() const;
    void refreshInLibrary(iTunesInterface &itunes);

    QString mPath;
    ReadOptions mReadOptions;
    std::unique_ptr<FileReference> mAlias;
    std::optional<QDateTime> mModDate;
    std::unique_ptr<AudioInfoTag> mInfotag;
    QString mReasonOfNoTag;
    std::optional<QString> mOriginalTitle;
    std::optional<QString> mOriginalArtist;
    bool mIsWritableFile = false;
    SongStatus mStatus = SongStatus::Ready;
    int mITunesDBID = 0;
    std::optional<QString> mPlaylist;
    int mPlaylistIndex = AudioInfoTag::notFound;
};

using SongList = std::vector<std::shared_ptr<SongFile>>;

/// The song of exactly that path, searched from the end; null when there is none.
[[nodiscard]] std::shared_ptr<SongFile> songWithPathInArray(const QString &path,
                                                            const SongList &songs);
