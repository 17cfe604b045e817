#include "gathering/songinfotask.h"

#include "base/progress.h"
#include "gathering/gatheringsteps.h"

#include <utility>

SongInfoTask::SongInfoTask(std::shared_ptr<SongFile> song, GatherContext &context)
    : d(std::make_unique<GatheringSteps>(this, std::move(song), context,
                                         [this] { Q_EMIT finished(); }))
{
}

SongInfoTask::~SongInfoTask() = default;

void SongInfoTask::setAlbumSelectionMethod(AlbumPick method)
{
    d->mChoices.albumSelectionMethod = method;
}

void SongInfoTask::setAllowSubstringTrackMatches(Substrings allowed)
{
    d->mChoices.allowSubstrings = allowed;
}

void SongInfoTask::setMinimumAcceptableImageSize(float width)
{
    d->mChoices.artwork.minWidth = width;
}

void SongInfoTask::setMaximumImageSize(float side)
{
    d->mChoices.artwork.maxWidth = side;
}

void SongInfoTask::setIgnoreNonSquareArt(bool ignore)
{
    d->mChoices.artwork.nonSquare = ignore ? NonSquare::Refuse : NonSquare::Allow;
}

void SongInfoTask::setParallelMode(bool parallel)
{
    d->mChoices.parallelMode = parallel;
}

void SongInfoTask::setIdentify(bool identify)
{
    d->mChoices.identify = identify;
}

void SongInfoTask::setGatherFlags(Assets assets)
{
    d->mChoices.gather = assets;
    d->setUpDesiredAssets();
}

void SongInfoTask::setOverwriteFlags(Assets assets)
{
    d->mLedger.overwrite = assets;
    d->setUpDesiredAssets();
}

std::optional<QString> SongInfoTask::albumTitle() const
{
    const AudioInfoTag *tag = d->mSong->infotag();
    return tag ? albumTitleToSearch(*tag) : std::nullopt;
}

void SongInfoTask::gather()
{
    d->begin();
}

void SongInfoTask::gatherFrom(const AlbumInfo &album)
{
    d->begin(album);
}

void SongInfoTask::cancel()
{
    d->cancel();
}

const std::shared_ptr<SongFile> &SongInfoTask::song() const
{
    return d->mSong;
}

Progress &SongInfoTask::progress()
{
    return d->mIndicator;
}

Assets SongInfoTask::changedAssetFlags() const
{
    return d->mLedger.changed;
}

Assets SongInfoTask::desiredAssetFlags() const
{
    return d->missing();
}

bool SongInfoTask::mayBeIdentified() const
{
    return d->mayBeIdentified();
}

bool SongInfoTask::wasStarted() const
{
    return d->wasStarted();
}

bool SongInfoTask::wasCancelled() const
{
    return d->mCancelWhenPossible;
}

std::optional<QString> SongInfoTask::errorMessage() const
{
    return d->mErrorMessage;
}

const QMap<Asset, QString> &SongInfoTask::sourcesOfAssets() const
{
    return d->mLedger.sources;
}

bool SongInfoTask::isInstrumental() const
{
    return d->mLedger.isInstrumental;
}

int SongInfoTask::undecidedCandidates() const
{
    return d->missing() ? d->mUndecidedCandidates : 0;
}

ChoiceRecord SongInfoTask::choices() const
{
    return d->choices();
}

const AlbumList &SongInfoTask::candidateAlbums() const
{
    return d->albums();
}

QList<UnaskedSource> SongInfoTask::unaskedSources() const
{
    return d->unaskedSources();
}
