#pragma once

#include "tags/audioinfotag.h"

#include <QString>

#include <ctime>
#include <memory>
#include <optional>
#include <vector>

class FileReference;
class iTunesInterface;

/// What a song of the list is doing. The numbers order the list.
enum class SongStatus {
    Ready = 0,
    Pending = 1,
    Processing = 2,
    Locked = 3, ///< the file was not writable when the song was listed
    Problem = 4, ///< the tag could not be decoded, the file vanished, or writing failed
};

/// One song of the list: a file, followed when it moves, and its tag, read when first asked for.
class SongFile {
public:
    /// Files of this size or smaller are never songs.
    static constexpr int maxBytesOfNoSong = 255;

    /// Null when there is no file at `path` or it is too small. The tag is not read.
    [[nodiscard]] static std::shared_ptr<SongFile> songWithPath(const QString &path,
                                                                const ReadOptions &options = {});
    /// The same where the file's attributes are known, links followed.
    [[nodiscard]] static std::shared_ptr<SongFile>
    songWithAttributes(const QString &path, const FileAttributes &attributes,
                       const ReadOptions &options);

    /// A record that knows nothing of the file yet, such as of a path where there is none.
    SongFile(QString path, const ReadOptions &options);
    SongFile(const SongFile &) = delete;
    SongFile &operator=(const SongFile &) = delete;
    ~SongFile();

    [[nodiscard]] const QString &path() const { return mPath; }
    [[nodiscard]] const ReadOptions &readOptions() const { return mReadOptions; }
    /// Another path than the present one ends the following of the file.
    void setPath(const QString &path);
    [[nodiscard]] QString filename() const;
    /// One line for the log.
    [[nodiscard]] QString description() const;

    void setPlayList(const std::optional<QString> &playlist, int andIndex);
    [[nodiscard]] const std::optional<QString> &playlist() const { return mPlaylist; }
    /// AudioInfoTag::notFound without a playlist.
    [[nodiscard]] int playlistIndex() const { return mPlaylistIndex; }
    /// 0 when unknown.
    [[nodiscard]] int iTunesDBID() const { return miTunesDBID; }
    void setiTunesDBID(int databaseID) { miTunesDBID = databaseID; }

    /// The tag, read now if none is held; null when the file is no song or cannot be read.
    AudioInfoTag *infotag();
    /// Why the last infotag() gave none: one line for the user.
    [[nodiscard]] const QString &reasonOfNoTag() const { return mReasonOfNoTag; }
    /// Replaces the tag, as by one made from summary data; null makes the next infotag() read.
    void adoptInfotag(std::unique_ptr<AudioInfoTag> tag);
    /// Drops a tag made from summary data, so that the next infotag() reads the file. Called
    /// before a tag is changed that will be written.
    void ensureInfotagIsReal();
    void uncacheInfotag() { mInfotag.reset(); }
    [[nodiscard]] bool hasInfotagCached() const { return mInfotag != nullptr; }

    [[nodiscard]] SongStatus activityStatus() const { return mStatus; }
    void setActivityStatus(SongStatus status) { mStatus = status; }
    /// By the tag held, if there is one, and by whether the file was writable: nothing is read.
    void setDefaultActivityStatus();
    /// A file that was gone or could not be written may be there again, or be written this time:
    /// such a song is no problem until it turns out once more. Nothing is read.
    void clearPassingProblem();
    [[nodiscard]] bool canWriteToOriginalPath() const;
    /// Why the song must not be written, one line for the user; nothing when it may be.
    [[nodiscard]] std::optional<QString> reasonNotToWrite() const;

    // The file is followed by a reference that outlives a move or renaming.
    void setAliasFromPath();
    void updatePathFromAlias();
    [[nodiscard]] bool hasAlias() const { return mAlias != nullptr; }

    void adoptCurrentModificationDate();
    /// Follows the file, and tells whether it changed since it was last seen; if so, its tag is
    /// dropped. A file that is gone makes the song a problem.
    bool refresh();
    /// Keeps title and artist, by which the library program finds the track when its ID no
    /// longer works.
    void rememberOriginalValuesForLaterRefresh();

    /// Writes the tag back. Songs that are locked or have problems are refused, and a song that
    /// could not be written has one. `itunes` may be null.
    [[nodiscard]] InPlaceFile::Outcome writeToOriginalPath(const WriteOptions &options,
                                                           iTunesInterface *itunes);

private:
    void setPassingProblem();
    [[nodiscard]] InPlaceFile::Outcome writeTag(const WriteOptions &options,
                                                iTunesInterface *itunes);
    void refreshInLibrary(iTunesInterface &itunes);
    void adoptPathByOriginalValues(iTunesInterface &itunes);

    struct OriginalProperties {
        QString title;
        QString artist;
    };

    QString mPath;
    std::unique_ptr<FileReference> mAlias;
    timespec mModDate = {};
    std::unique_ptr<AudioInfoTag> mInfotag;
    QString mReasonOfNoTag;
    std::unique_ptr<OriginalProperties> mOriginalProperties; ///< few songs of a list have them
    std::optional<QString> mPlaylist;
    int mPlaylistIndex = AudioInfoTag::notFound;
    int miTunesDBID = 0;
    ReadOptions mReadOptions;
    SongStatus mStatus = SongStatus::Ready;
    bool mIsWritableFile = false;
    bool mHasPassingProblem = false; ///< not one of the tag
};

using SongList = std::vector<std::shared_ptr<SongFile>>;

/// The song of exactly that path, searched from the end; null when there is none.
[[nodiscard]] std::shared_ptr<SongFile> songWithPathInArray(const QString &path,
                                                            const SongList &songs);
