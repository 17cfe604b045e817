#include "songs/songfile.h"

#include "base/fileattributes.h"
#include "base/filereference.h"
#include "songs/playbackpause.h"
#include "tags/filetype.h"
#include "tags/tagfactory.h"

#include <QFileInfo>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {
/// Sizes are taken as signed 32-bit numbers, so that files of 2 to 4 GB are no songs either: the
/// program has never listed them, and their tags are not where it looks.
bool isTooSmallForASong(qint64 size)
{
    return static_cast<qint32>(size & 0xFFFFFFFF) <= SongFile::maxBytesOfNoSong;
}

/// Links are followed; nothing when there is no regular file.
std::optional<FileAttributes> attributesOfFile(const QString &path)
{
    const auto attributes = FileAttributes::at(path);
    return attributes && attributes->isRegular() ? attributes : std::nullopt;
}

bool isWritableFile(const QString &path)
{
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

bool isSameTime(const timespec &time, const timespec &other)
{
    return time.tv_sec == other.tv_sec && time.tv_nsec == other.tv_nsec;
}

TagOrReason readTagOf(const QString &path, const ReadOptions &options)
{
    if (const auto bytes = openForTag(path))
        return readTag(*bytes, options);
    const bool isThere = attributesOfFile(path).has_value();
    return {nullptr, isThere ? qtTrId("ErrorCannotOpenForRead") : qtTrId("ErrorSongVanished")};
}

InPlaceFile::Outcome failure(const QString &error)
{
    return {InPlaceFile::Outcome::Kind::Failed, error};
}
} // namespace

std::shared_ptr<SongFile> SongFile::songWithPath(const QString &path, const ReadOptions &options)
{
    const auto attributes = FileAttributes::at(path);
    return attributes ? songWithAttributes(path, *attributes, options) : nullptr;
}

std::shared_ptr<SongFile> SongFile::songWithAttributes(const QString &path,
                                                       const FileAttributes &attributes,
                                                       const ReadOptions &options)
{
    if (!attributes.isRegular() || isTooSmallForASong(attributes.size))
        return nullptr;
    auto song = std::make_shared<SongFile>(path, options);
    song->mModDate = attributes.modified;
    song->mIsWritableFile = isWritableFile(path);
    song->setDefaultActivityStatus();
    return song;
}

SongFile::SongFile(QString path, const ReadOptions &options)
    : mPath(std::move(path))
    , mReadOptions(options)
{
}

SongFile::~SongFile() = default;

void SongFile::setPath(const QString &path)
{
    if (path == mPath)
        return;
    mPath = path;
    mAlias.reset();
}

QString SongFile::filename() const
{
    return mPath.sliced(mPath.lastIndexOf(QLatin1Char('/')) + 1);
}

QString SongFile::description() const
{
    const auto address = QString::number(reinterpret_cast<quintptr>(this), 16);
    return QStringLiteral("<SongFile 0x%1: %2>").arg(address, filename());
}

void SongFile::setPlayList(const std::optional<QString> &playlist, int andIndex)
{
    mPlaylist = playlist;
    mPlaylistIndex = andIndex;
    if (mInfotag)
        mInfotag->setPlayList(mPlaylist, mPlaylistIndex);
}

AudioInfoTag *SongFile::infotag()
{
    if (mInfotag)
        return mInfotag.get();
    auto read = readTagOf(mPath, mReadOptions);
    mReasonOfNoTag = read.reason;
    adoptInfotag(std::move(read.tag));
    return mInfotag.get();
}

void SongFile::adoptInfotag(std::unique_ptr<AudioInfoTag> tag)
{
    mInfotag = std::move(tag);
    if (mInfotag && mPlaylist)
        mInfotag->setPlayList(mPlaylist, mPlaylistIndex);
    setDefaultActivityStatus();
}

void SongFile::ensureInfotagIsReal()
{
    if (mInfotag && mInfotag->isLazy())
        uncacheInfotag();
}

void SongFile::setDefaultActivityStatus()
{
    if (mInfotag && mInfotag->encounteredProblemDecoding())
        mStatus = SongStatus::Problem;
    else
        mStatus = mIsWritableFile ? SongStatus::Ready : SongStatus::Locked;
}

void SongFile::setPassingProblem()
{
    mStatus = SongStatus::Problem;
    mHasPassingProblem = true;
}

void SongFile::clearPassingProblem()
{
    if (std::exchange(mHasPassingProblem, false) && mStatus == SongStatus::Problem)
        setDefaultActivityStatus();
}

bool SongFile::canWriteToOriginalPath() const
{
    return mStatus != SongStatus::Problem && mStatus != SongStatus::Locked;
}

std::optional<QString> SongFile::reasonNotToWrite() const
{
    if (canWriteToOriginalPath())
        return std::nullopt;
    if (!attributesOfFile(mPath))
        return qtTrId("ErrorSongVanished");
    return mStatus == SongStatus::Locked ? qtTrId("ErrorSongLocked")
                                         : qtTrId("ErrorSongHasProblem");
}

void SongFile::setAliasFromPath()
{
    if (!mAlias)
        mAlias = FileReference::referenceTo(mPath);
}

void SongFile::updatePathFromAlias()
{
    if (!mAlias)
        return;
    const auto path = mAlias->path();
    if (!path)
        setPassingProblem();
    else if (*path != QFileInfo(mPath).absoluteFilePath()) // a relative path stays as it was given
        mPath = *path; // not setPath(): the reference still holds
}

void SongFile::adoptCurrentModificationDate()
{
    if (const auto attributes = attributesOfFile(mPath))
        mModDate = attributes->modified;
}

bool SongFile::refresh()
{
    updatePathFromAlias();
    if (mPath.isEmpty())
        return false;
    const auto attributes = attributesOfFile(mPath);
    if (!attributes) {
        setPassingProblem();
        return false;
    }
    if (isSameTime(mModDate, attributes->modified))
        return false;
    mModDate = attributes->modified;
    uncacheInfotag();
    return true;
}

void SongFile::rememberOriginalValuesForLaterRefresh()
{
    mOriginalProperties = std::make_unique<OriginalProperties>();
    if (const AudioInfoTag *tag = infotag()) {
        mOriginalProperties->title = tag->title().value_or(QString());
        mOriginalProperties->artist = tag->artist().value_or(QString());
    }
}

InPlaceFile::Outcome SongFile::writeToOriginalPath(const WriteOptions &options,
                                                   iTunesInterface *itunes)
{
    if (mPath.isEmpty())
        return {InPlaceFile::Outcome::Kind::Unchanged, {}};
    if (const auto reason = reasonNotToWrite())
        return failure(*reason);
    setAliasFromPath();
    auto outcome = mInfotag ? writeTag(options, itunes) : failure(qtTrId("ErrorNoSong"));
    if (outcome.kind == InPlaceFile::Outcome::Kind::Failed) {
        setPassingProblem();
        return outcome;
    }
    if (itunes && options.refreshLibrary)
        refreshInLibrary(*itunes);
    adoptCurrentModificationDate();
    return outcome;
}

/// Owner, permissions, creation date and other attributes survive, since the file is overwritten
/// in place.
InPlaceFile::Outcome SongFile::writeTag(const WriteOptions &options, iTunesInterface *itunes)
{
    Q_ASSERT_X(!mInfotag->isLazy(), "SongFile", "summary data must not replace a file's tag");
    std::optional<PlaybackPause> pause;
    if (itunes)
        pause.emplace(*itunes, mPath);
    return mInfotag->modifySongFileAtPath(mPath, options);
}

/// Has the library program read the song again; it may move the file by its new tag.
void SongFile::refreshInLibrary(iTunesInterface &itunes)
{
    if (const auto path = itunes.refreshAndGetPathOfSongWithID(miTunesDBID, mPlaylist))
        setPath(*path);
    else
        adoptPathByOriginalValues(itunes);
}

void SongFile::adoptPathByOriginalValues(iTunesInterface &itunes)
{
    updatePathFromAlias();
    const auto original = mOriginalProperties ? *mOriginalProperties : OriginalProperties();
    const auto path = itunes.refreshAndGetPathOfSongWithTitle(original.title, original.artist);
    if (path && !QFile::exists(mPath))
        setPath(*path);
}

std::shared_ptr<SongFile> songWithPathInArray(const QString &path, const SongList &songs)
{
    const auto found = std::find_if(songs.rbegin(), songs.rend(),
                                    [&](const auto &song) { return song->path() == path; });
    return found == songs.rend() ? nullptr : *found;
}
