#pragma once

#include "base/progress.h"
#include "gathering/artworkfetch.h"
#include "gathering/assetledger.h"
#include "gathering/choicerecorder.h"
#include "gathering/fieldreasons.h"
#include "gathering/gathercontext.h"
#include "gathering/identityfilling.h"
#include "gathering/songlending.h"
#include "gathering/sourcesearches.h"
#include "gathering/suggestednames.h"

/// The user's choices for one song.
struct GatherChoices {
    Assets gather;
    ArtworkLimits artwork;
    AlbumPick albumSelectionMethod = AlbumPick::None;
    Substrings allowSubstrings = Substrings::Refuse;
    bool parallelMode = false;
    bool identify = false; ///< songs without names, by their sound
};

/// The steps of a task. A step ends by calling what comes next, at once or on a later turn, and
/// each asks first whether the task was stopped meanwhile.
class GatheringSteps {
public:
    using Step = std::function<void()>;

    /// `owner` is whom later turns are for: when it is gone, nothing follows any more. `notify`
    /// is called at the end, exactly once, never before begin() has returned.
    GatheringSteps(QObject *owner, std::shared_ptr<SongFile> song, GatherContext &context,
                   Step notify);
    GatheringSteps(const GatheringSteps &) = delete;
    GatheringSteps &operator=(const GatheringSteps &) = delete;

    void setUpDesiredAssets();
    /// `taken`: an album that the user took, in place of all searches; only artwork is looked for
    /// where that album has none.
    void begin(const std::optional<AlbumInfo> &taken = {});
    void cancel();
    [[nodiscard]] bool wasStarted() const { return mStarted; }
    [[nodiscard]] Assets missing() const { return mLedger.desired | mSetAside; }
    [[nodiscard]] const AlbumList &albums() const { return mRecorder.albums(); }
    [[nodiscard]] ChoiceRecord choices() const;
    /// With the service that knows songs by their sound, where the song has no names for that.
    [[nodiscard]] QList<UnaskedSource> unaskedSources() const;
    /// Whether the song is to be known by its sound, and something comes of it.
    [[nodiscard]] bool mayBeIdentified();

    std::shared_ptr<SongFile> mSong;
    GatherChoices mChoices;
    Progress mIndicator;
    AssetLedger mLedger;
    std::optional<QString> mErrorMessage;
    int mUndecidedCandidates = 0;
    bool mCancelWhenPossible = false;

private:
    /// Nothing more is applied: cancelled, or the file is no song (any more).
    [[nodiscard]] bool isStopped() { return mCancelWhenPossible || !mSong->infotag(); }
    [[nodiscard]] AudioInfoTag &tag() { return *mSong->infotag(); }

    void lookUp(const AlbumInfo &album);
    void beginWith(const AlbumInfo &album);
    void planArtwork();
    void identify(const Step &then);
    void identified(const Step &then);
    void notIdentified(const QString &problem);
    void applyResourcesFromLibrary(const Step &then) { mLending.lend(mChoices.artwork, then); }

    [[nodiscard]] SearchRequest searchRequest();
    [[nodiscard]] std::optional<qint64> songDuration();
    void gatherDataOnline();
    void parallelGatherDataOnline();
    void parallelSearchCompleted(const AlbumList &albums);
    void applyParallelAlbums();
    void finishParallelAlbums(const AlbumList &lyricsAlbums, const AlbumList &artAlbums);
    void parallelNextArt();
    void serialGatherDataOnline();
    void serialSearchCompleted(const AlbumList &albums);
    void serialFetchCover(const AlbumList &albums);
    void serialFetchArt(const AlbumInfo &album);

    [[nodiscard]] std::optional<AlbumInfo> chosenAlbum(AlbumList albums);
    [[nodiscard]] AlbumChoice choiceAmong(AlbumList &albums);
    [[nodiscard]] bool isOnAlbum(const AlbumInfo &album);
    void applyResourcesFromAlbum(const AlbumInfo &album, const Step &then);
    void fetchArt(const QUrl &url, const QString &source, const Step &applied, const Step &refused);

    void noteSet(FieldReason::Kind kind, const AlbumVerdict &album = {});

    void finishAndNotify();
    [[nodiscard]] bool hasAlbumButNoPicture()
    {
        return tag().album() && tag().numberOfImages() == 0;
    }
    void gatherArtworkOfKnownAlbum();
    void notify();

    HVHTTPQueue &mQueue;
    std::optional<IdentifyingMeans> &mIdentifying;
    QObject *mOwner;
    Step mNotify;
    SiteDefinitions mAllResources;
    QStringList mSources; ///< class names, in order of preference
    SourceSearches mSearches;
    std::unique_ptr<SongIdentification> mIdentification; ///< when it was begun
    std::optional<IdentityFilling> mIdentity; ///< when the song was identified
    SuggestedNames mSuggested;
    ChoiceRecorder mRecorder;
    qsizetype mNextSource = 0; ///< of mSources, in serial mode
    AlbumList mParallelAlbums; ///< what was found, later the artwork candidates
    ArtworkFetch mArtworkFetch;
    FieldReasons mReasons;
    SongLending mLending;
    ReleaseIdentifiers mIdentifiers; ///< of the last album applied that has some
    Assets mSetAside; ///< desired, but not in the pass for artwork alone
    std::optional<qint64> mSongDuration; ///< milliseconds
    bool mIsNamedByFile = false; ///< the song has no title of its own
    bool mIsMeasured = false; ///< whether the duration was looked for
    bool mWantArtworkButNoAlbum = false;
    bool mStarted = false;
    bool mNotified = false;
};
