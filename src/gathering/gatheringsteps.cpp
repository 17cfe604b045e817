#include "gathering/gatheringsteps.h"

#include "base/nextturn.h"
#include "gathering/songfacts.h"
#include "gathering/songfilling.h"
#include "tags/songlength.h"

#include <algorithm>
#include <utility>

GatheringSteps::GatheringSteps(QObject *owner, std::shared_ptr<SongFile> song,
                               GatherContext &context, Step notify)
    : mSong(std::move(song))
    , mQueue(context.queue)
    , mIdentifying(context.identifying)
    , mOwner(owner)
    , mNotify(std::move(notify))
    , mAllResources(context.definitions)
    , mSources(mAllResources.sourcelist())
    , mSearches(context.catalog, mAllResources, context.queue, context.outages, mIndicator)
    , mArtworkFetch(mQueue, owner, mIndicator)
    , mLending(context.library, owner, *mSong, mLedger, mReasons, [this] { return isStopped(); })
{
}

void GatheringSteps::setUpDesiredAssets()
{
    const AudioInfoTag *tag = mSong->infotag();
    mLedger.desired = tag ? desiredAssets(mChoices.gather, mLedger.overwrite, *tag) : Assets();
    planArtwork();
}

/// Artwork is not taken from the first album where its name is desired, too, but searched once the
/// album is known.
void GatheringSteps::planArtwork()
{
    mWantArtworkButNoAlbum = mLedger.isDesired(AssetArtwork) && mLedger.isDesired(AssetAlbumName);
}

void GatheringSteps::begin(const std::optional<AlbumInfo> &taken)
{
    Q_ASSERT(!mStarted);
    mStarted = true;
    mIndicator.setIndeterminate(true);
    mIndicator.setValue(0);
    mIndicator.setMaximum(0);
    mIsNamedByFile = !isStopped() && tag().hasTitleOfPathname();
    if (taken)
        return lookUp(*taken);
    identify([this] { applyResourcesFromLibrary([this] { gatherDataOnline(); }); });
}

/// An album that its source only listed is looked up first.
void GatheringSteps::lookUp(const AlbumInfo &album)
{
    const bool isListedAlone = !album.identifiers().release.isEmpty() && !album.trackNames();
    if (!isListedAlone || isStopped())
        return beginWith(album);
    SearchRequest request = searchRequest();
    request.identifiers = album.identifiers();
    const auto found = [this](const AlbumList &albums, const SourceAnswer &, const auto &) {
        if (!albums.isEmpty())
            return beginWith(albums.first());
        mErrorMessage = qtTrId("ErrorAlbumNotLookedUp");
        finishAndNotify();
    };
    if (!mSearches.start(album.sourceInterfaceName(), request, found))
        beginWith(album);
}

void GatheringSteps::beginWith(const AlbumInfo &album)
{
    mNextSource = mSources.size();
    mWantArtworkButNoAlbum = mLedger.isDesired(AssetArtwork) && !album.artURL();
    mRecorder.taken(album);
    if (isStopped())
        return finishAndNotify();
    applyResourcesFromAlbum(album, [this, album] { serialFetchArt(album); });
}

void GatheringSteps::cancel()
{
    mCancelWhenPossible = true;
    mSearches.cancel();
    if (mIdentification)
        mIdentification->cancel();
    mArtworkFetch.cancel();
}

bool GatheringSteps::mayBeIdentified()
{
    return !isStopped() && mChoices.identify && mIdentifying && lacksIdentity(tag())
        && (mLedger.desired || identityWouldStay(tag(), mChoices.gather));
}

void GatheringSteps::identify(const Step &then)
{
    if (!mayBeIdentified())
        return then();
    if (!mSearches.mayAsk(AcoustIDLookup::name)) {
        notIdentified(qtTrId("ErrorServiceLeftAlone"));
        return then();
    }
    auto definition = mAllResources.definitionOf(AcoustIDLookup::name).value_or(SiteDefinition());
    mIdentification =
        std::make_unique<SongIdentification>(*mIdentifying, std::move(definition), mQueue);
    QObject::connect(mIdentification.get(), &SongIdentification::finished, mOwner,
                     [this, then] { identified(then); });
    mIdentification->start(mSong->path(), knownOfSong(tag()));
}

void GatheringSteps::identified(const Step &then)
{
    if (isStopped())
        return then();
    if (mIdentification->wasUnanswered())
        mSearches.noteUnanswered(AcoustIDLookup::name);
    else if (mIdentification->wasAsked())
        mSearches.noteAnswered(AcoustIDLookup::name);
    if (const auto &identity = mIdentification->song()) {
        mIdentity.emplace().fill(tag(), *identity, mChoices.gather, mLedger);
        planArtwork();
        noteSet(FieldReason::Kind::Sound);
    } else {
        notIdentified(mIdentification->problem());
    }
    then();
}

void GatheringSteps::notIdentified(const QString &problem)
{
    mErrorMessage = qtTrId("ErrorNotIdentified").arg(tag().title().value_or(QString()), problem);
}

// ---- what web sources find

SearchRequest GatheringSteps::searchRequest()
{
    SearchRequest request = searchRequestFor(tag(), mLedger.desired);
    request.albumSelectionMethod = mChoices.albumSelectionMethod;
    request.allowSubstrings = mChoices.allowSubstrings;
    request.minImageWidth = mChoices.artwork.minWidth;
    request.maxImageWidth = mChoices.artwork.maxWidth;
    request.songDuration = songDuration();
    request.identifiers = mIdentifiers;
    return request;
}

/// Read when sources are asked for the first time: most songs lack nothing, and are not.
std::optional<qint64> GatheringSteps::songDuration()
{
    if (!std::exchange(mIsMeasured, true))
        if (const auto length = songLengthAt(mSong->path()))
            mSongDuration = length->count();
    return mSongDuration;
}

void GatheringSteps::gatherDataOnline()
{
    if (!isStopped())
        mSuggested.lend(tag(), mSong->path(), mAllResources, mLedger);
    if (mChoices.parallelMode)
        parallelGatherDataOnline();
    else
        serialGatherDataOnline();
}

void GatheringSteps::parallelGatherDataOnline()
{
    if (isStopped() || !mLedger.desired)
        return finishAndNotify();
    const SearchRequest request = searchRequest();
    for (const QString &source : std::as_const(mSources)) {
        mSearches.start(source, mSuggested.requestFor(source, request),
                        [this](const AlbumList &albums, const SourceAnswer &answer,
                               const QList<PassedOverAlbum> &passedOver) {
                            mRecorder.answered(answer, passedOver);
                            parallelSearchCompleted(albums);
                        });
    }
    if (!mSearches.anyRunning())
        finishAndNotify();
}

void GatheringSteps::parallelSearchCompleted(const AlbumList &albums)
{
    mParallelAlbums << albums;
    if (!mSearches.anyRunning())
        applyParallelAlbums();
}

void GatheringSteps::applyParallelAlbums()
{
    if (isStopped())
        return finishAndNotify();
    AlbumList artAlbums = artworkCandidates(mParallelAlbums, mSources);
    const AlbumList lyricsAlbums = takeLyricsAlbums(mParallelAlbums, mSources);
    const std::optional<AlbumInfo> album = chosenAlbum(mParallelAlbums);
    // Without a chosen album the lyrics are still the song's, and so is a cover of the album that
    // its tag names; but whose other artwork to take is open.
    if (!album)
        return finishParallelAlbums(lyricsAlbums, takeCovers(artAlbums));
    const Step finishing = [this, lyricsAlbums, artAlbums] {
        finishParallelAlbums(lyricsAlbums, artAlbums);
    };
    if (isOnAlbum(*album))
        applyResourcesFromAlbum(*album, finishing);
    else
        finishing();
}

void GatheringSteps::finishParallelAlbums(const AlbumList &lyricsAlbums, const AlbumList &artAlbums)
{
    if (!isStopped() && !lyricsAlbums.isEmpty())
        fillLyrics(tag(), lyricsAlbums.first(), mLedger);
    noteSet(FieldReason::Kind::Lyrics);
    const bool triesArt = !mWantArtworkButNoAlbum && mLedger.isDesired(AssetArtwork);
    mParallelAlbums = triesArt ? artAlbums : AlbumList();
    parallelNextArt();
}

void GatheringSteps::parallelNextArt()
{
    std::optional<QUrl> url;
    while (!isStopped() && !url && !mParallelAlbums.isEmpty()) {
        const AlbumInfo candidate = mParallelAlbums.takeFirst();
        url = candidate.artURL();
        if (url)
            fetchArt(
                *url, candidate.sourceInterfaceName(), [this] { finishAndNotify(); },
                [this] { parallelNextArt(); });
    }
    if (!url)
        finishAndNotify();
}

void GatheringSteps::serialGatherDataOnline()
{
    while (!isStopped() && mLedger.desired && mNextSource < mSources.size()) {
        const QString source = mSources.at(mNextSource++);
        if (mSearches.start(source, mSuggested.requestFor(source, searchRequest()),
                            [this](const AlbumList &albums, const SourceAnswer &answer,
                                   const QList<PassedOverAlbum> &passedOver) {
                                mRecorder.answered(answer, passedOver);
                                serialSearchCompleted(albums);
                            }))
            return;
    }
    finishAndNotify();
}

void GatheringSteps::serialSearchCompleted(const AlbumList &albums)
{
    const auto album = isStopped() ? std::nullopt : chosenAlbum(albums);
    if (album && isOnAlbum(*album))
        applyResourcesFromAlbum(*album, [this, album] { serialFetchArt(*album); });
    else
        serialFetchCover(albums);
}

/// A cover alone is that of the album that the song has already.
void GatheringSteps::serialFetchCover(const AlbumList &albums)
{
    const auto cover = std::find_if(albums.begin(), albums.end(),
                                    [](const AlbumInfo &each) { return each.isCoverAlone(); });
    if (cover != albums.end())
        serialFetchArt(*cover);
    else
        serialGatherDataOnline();
}

void GatheringSteps::serialFetchArt(const AlbumInfo &album)
{
    const std::optional<QUrl> url = album.artURL();
    if (isStopped() || mWantArtworkButNoAlbum || !mLedger.isDesired(AssetArtwork) || !url)
        return serialGatherDataOnline();
    const Step next = [this] { serialGatherDataOnline(); };
    fetchArt(*url, album.sourceInterfaceName(), next, next);
}

// ---- what is done with an album

std::optional<AlbumInfo> GatheringSteps::chosenAlbum(AlbumList albums)
{
    const AlbumChoice choice = choiceAmong(albums);
    if (choice.problem)
        mErrorMessage = choice.problem;
    if (!choice.album)
        mUndecidedCandidates = std::max(mUndecidedCandidates, static_cast<int>(albums.size()));
    return choice.album;
}

AlbumChoice GatheringSteps::choiceAmong(AlbumList &albums)
{
    const AlbumPick method = mChoices.albumSelectionMethod;
    const AlbumList covers = takeCovers(albums);
    if (method == AlbumPick::Best)
        rankByScore(albums, scoredSong(searchRequest(), tag(), mLedger), mSources);
    mRecorder.begin(albums, covers);
    filterAlbums(
        albums, songFacts(tag(), mLedger), mChoices.allowSubstrings,
        [this](const AlbumInfo &album, AlbumFate fate) { mRecorder.dropped(album, fate); });
    const SongWords words{tag().artist().value_or(QString()), tag().title().value_or(QString())};
    AlbumChoice choice = chooseAlbum(albums, method, words);
    const bool isOnIt =
        choice.album && mayBeAlbumOfSong(*choice.album, tag(), mLedger, mChoices.allowSubstrings);
    mRecorder.end(albums, method, choice, isOnIt);
    return choice;
}

bool GatheringSteps::isOnAlbum(const AlbumInfo &album)
{
    if (mayBeAlbumOfSong(album, tag(), mLedger, mChoices.allowSubstrings))
        return true;
    if (const auto problem = notOnAlbumProblem(album, tag()))
        mErrorMessage = problem;
    return false;
}

void GatheringSteps::applyResourcesFromAlbum(const AlbumInfo &album, const Step &then)
{
    mSuggested.noteAlbum(album, tag(), mChoices.allowSubstrings);
    fillAlbumName(tag(), album, mLedger);
    noteSet(FieldReason::Kind::ChosenAlbum, mRecorder.latestVerdict());
    if (!album.identifiers().isEmpty())
        mIdentifiers = album.identifiers();
    // The album is known better now, so that other songs may be of the same.
    applyResourcesFromLibrary([this, album, then] {
        if (!isStopped())
            fillFromAlbum(tag(), album, mChoices.allowSubstrings, mLedger);
        const bool hasLyrics = carriesOnlyLyrics(album);
        noteSet(hasLyrics ? FieldReason::Kind::Lyrics : FieldReason::Kind::ChosenAlbum,
                mRecorder.latestVerdict());
        then();
    });
}

void GatheringSteps::fetchArt(const QUrl &url, const QString &source, const Step &applied,
                              const Step &refused)
{
    const auto gotArt = [=, this](const ArtworkFetch::Outcome &outcome) {
        if (isStopped())
            return refused();
        if (outcome.isUnanswered)
            mSearches.noteUnasked(source);
        mReasons.notePicture(outcome.reason);
        const bool fits = outcome.picture && fillArtwork(tag(), *outcome.picture, source, mLedger);
        fits ? applied() : refused();
    };
    mArtworkFetch.start(url, mChoices.artwork, gotArt);
}

void GatheringSteps::noteSet(FieldReason::Kind kind, const AlbumVerdict &album)
{
    mReasons.noteSet(mLedger.changed, {.kind = kind, .album = album});
}

void GatheringSteps::finishAndNotify()
{
    if (!isStopped() && mWantArtworkButNoAlbum && hasAlbumButNoPicture())
        applyResourcesFromLibrary([this] { gatherArtworkOfKnownAlbum(); });
    else
        notify();
}

/// A second pass, for artwork alone.
void GatheringSteps::gatherArtworkOfKnownAlbum()
{
    if (isStopped() || !hasAlbumButNoPicture() || !mLedger.isDesired(AssetArtwork))
        return notify();
    mWantArtworkButNoAlbum = false;
    mSetAside = mLedger.desired & ~Assets(AssetArtwork);
    mLedger.desired = AssetArtwork;
    mNextSource = 0;
    serialGatherDataOnline();
}

QList<UnaskedSource> GatheringSteps::unaskedSources() const
{
    QList<UnaskedSource> unasked = mSearches.unaskedOf(mSources, missing());
    const Assets names = missing() & (Assets(AssetSongTitle) | AssetAlbumName);
    if (mSearches.isUnasked(AcoustIDLookup::name))
        unasked.prepend({AcoustIDLookup::name, names | AssetArtist});
    return unasked;
}

ChoiceRecord GatheringSteps::choices() const
{
    const AudioInfoTag *tag = mSong->infotag();
    const FieldFacts facts{.gathered = mChoices.gather,
                           .missing = missing(),
                           .asked = mSearches.asked(),
                           .unasked = unaskedSources(),
                           .awaitsAlbum = mWantArtworkButNoAlbum,
                           .hasPictures = tag && tag->numberOfImages() > 0,
                           .isNamedByFile = mIsNamedByFile};
    ChoiceRecord choices = mRecorder.record();
    for (const QString &source : mSearches.leftAlone())
        choices.answers << SourceAnswer{source, SourceAnswer::Kind::Unanswered};
    choices.fields = mReasons.of(facts, mLedger, choices);
    return choices;
}

void GatheringSteps::notify()
{
    Q_ASSERT(!mNotified);
    mNotified = true;
    if (mSong->infotag()) {
        mSuggested.settle(tag(), mChoices.gather, mLedger);
        noteSet(FieldReason::Kind::Path);
        if (mIdentity)
            mIdentity->giveBack(tag(), mLedger);
    }
    mIndicator.setIndeterminate(false);
    mIndicator.setMaximum(1);
    mIndicator.setValue(0);
    onNextTurn(mOwner, mNotify);
}
