#pragma once

#include "gathering/albumlist.h"
#include "gathering/httpqueue.h"
#include "gathering/sitedefinition.h"

#include <QJsonDocument>
#include <QObject>
#include <QSet>
#include <QUrl>

#include <deque>
#include <limits>

class Progress;
class SearchTrace;

/// One web source searching one song, once. The base queues the source's fetches, never the same
/// URL twice and only so many at a time, counts them, and reports completion once; a subclass
/// holds the logic of its site.
class WebDBInterface : public QObject {
    Q_OBJECT

public:
    WebDBInterface(SiteDefinition resources, HVHTTPQueue &queue);
    ~WebDBInterface() override;

    /// The name of the source's class, under which definitions and reports know it.
    [[nodiscard]] virtual QString className() const = 0;

    // What is searched, and how; set before the search begins.
    void setArtist(std::optional<QString> artist) { mArtist = std::move(artist); }
    /// The artist in reversed form, tried where the first form fails.
    void setAlternateArtist(std::optional<QString> artist) { mAlternateArtist = std::move(artist); }
    void setSongTitle(std::optional<QString> title) { mSongTitle = std::move(title); }
    void setAlbumTitle(std::optional<QString> title) { mAlbumTitle = std::move(title); }
    void setIsCompilation(bool isCompilation) { mIsCompilation = isCompilation; }
    void setMaxAlbums(int maxAlbums) { mMaxAlbums = maxAlbums; }
    void setMinimumAcceptableImageSize(float pixels) { mMinImageWidth = pixels; }
    /// What is wider is scaled down, so that a source with pictures of several sizes need not give
    /// the largest.
    void setMaximumImageWidth(float pixels) { mMaxImageWidth = pixels; }
    void setAlbumSelectionMethod(AlbumPick method) { mAlbumSelectionMethod = method; }
    void setAllowSubstringTrackMatches(Substrings allowed) { mAllowSubstrings = allowed; }
    void setSongDuration(std::optional<qint64> milliseconds) { mSongDuration = milliseconds; }
    /// By the song's tag, 0 where it does not say.
    void setTrack(int number, int of)
    {
        mTrackNumber = number;
        mTracksOnAlbum = of;
    }
    /// Of the album that was found for the song before, if it was.
    void setIdentifiers(ReleaseIdentifiers known) { mIdentifiers = std::move(known); }
    /// One bar shared by the sources of a task; may be null. (The name is spelled so.)
    void setProgessIndicator(Progress *progress) { mProgress = progress; }
    /// Keeps what each step looked for and found; null, as it is unless somebody asks: nobody does.
    void setTrace(SearchTrace *trace) { mTrace = trace; }

    /// Starts the search; searchComplete() follows on a later turn, exactly once.
    void beginSearch();
    /// May come at any time after beginSearch(); searchComplete() still follows. Fetches under
    /// way are cancelled, nothing new starts, and no return method is called any more.
    void cancelSearch();
    [[nodiscard]] bool wasCancelled() const { return mWasCancelled; }
    /// Whether some fetch got no answer, or one that says that the service is down or busy: that
    /// nothing was found then means little.
    [[nodiscard]] bool wasUnanswered() const { return mWasUnanswered; }
    [[nodiscard]] const AlbumList &albums() const { return mAlbums; }
    /// What was found besides, and why the source left it; the first mostPassedOver of them.
    [[nodiscard]] const QList<PassedOverAlbum> &passedOver() const { return mPassedOver; }
    /// Further ones tell nobody anything.
    static constexpr qsizetype mostPassedOver = 20;
    [[nodiscard]] int totalSearches() const { return mTotalSearches; }
    [[nodiscard]] QString description() const;

Q_SIGNALS:
    void searchComplete();

protected:
    using Handler = std::function<void(const FetchResult &)>;

    /// Queues the source's first fetches.
    virtual void startSearch() = 0;

    /// Queues a fetch, unless the URL is none or this instance queued it before. Its result, also
    /// one without data, is counted off here and then goes to `returnMethod`.
    void addSearchURL(const QUrl &url, Handler returnMethod, QueueEnd at = QueueEnd::Back);
    /// Posts a form at once, beside the waiting fetches; false when the queue refused it.
    bool postSearch(const QUrl &url, const QByteArray &form, Handler returnMethod);

    /// Counts a search in flight that waits for no place in the queue; finishedSearch() with the
    /// same object ends it, also after a cancel.
    void addPlaceholderSearch(const QUrl &placeholder);
    void finishedSearch(const QUrl &url);
    /// Whether anything is under way, the search whose return method runs not counted.
    [[nodiscard]] bool isLoading() const { return !mLoadingURLs.isEmpty(); }

    [[nodiscard]] const std::optional<QString> &artist() const { return mArtist; }
    [[nodiscard]] const std::optional<QString> &alternateArtist() const { return mAlternateArtist; }
    [[nodiscard]] const std::optional<QString> &songTitle() const { return mSongTitle; }
    [[nodiscard]] const std::optional<QString> &albumTitle() const { return mAlbumTitle; }
    [[nodiscard]] bool isCompilation() const { return mIsCompilation; }
    [[nodiscard]] int maxAlbums() const { return mMaxAlbums; }
    [[nodiscard]] float minimumAcceptableImageSize() const { return mMinImageWidth; }
    [[nodiscard]] float maximumImageWidth() const { return mMaxImageWidth; }
    [[nodiscard]] AlbumPick albumSelectionMethod() const { return mAlbumSelectionMethod; }
    [[nodiscard]] Substrings allowSubstrings() const { return mAllowSubstrings; }
    [[nodiscard]] std::optional<qint64> songDuration() const { return mSongDuration; }
    [[nodiscard]] int trackNumber() const { return mTrackNumber; }
    [[nodiscard]] int tracksOnAlbum() const { return mTracksOnAlbum; }
    [[nodiscard]] const ReleaseIdentifiers &identifiers() const { return mIdentifiers; }
    [[nodiscard]] const SiteDefinition &resources() const { return mResources; }
    [[nodiscard]] HVHTTPQueue &queue() { return mQueue; }
    /// The page decoded by the definition's "charset", else as ISO Latin 1; empty without data.
    [[nodiscard]] QString pageText(const FetchResult &result) const;
    /// The same for sites where an answer of 99 bytes or fewer is none: nothing then, and the
    /// queue forgets it, so that a later search fetches the page afresh.
    [[nodiscard]] std::optional<QString> usablePage(const FetchResult &result);
    /// The answer of a service that speaks JSON, however short it is. Nothing after a failure, for
    /// a status of 400 or above, and for an answer that is no JSON or tells of an error (a key
    /// "error" whatever the status): the queue forgets such a one.
    [[nodiscard]] std::optional<QJsonDocument> jsonPage(const FetchResult &result);
    /// The answer says that there is nothing, which may be otherwise another day: it is kept for
    /// this run alone.
    void keepForThisRun(const FetchResult &result) { mQueue.keepForThisRun(result.url); }
    /// The rows that the parse recipe below `key` cuts out of the page; none where the recipe or
    /// the list is missing. Without a key the whole definition is the recipe.
    [[nodiscard]] QList<QStringList> rowsOn(const QString &page, const QString &key = {}) const;
    /// The numStrings-th run of visible text behind the marker below `key`, the first being 1.
    [[nodiscard]] std::optional<QString> visibleTextOn(const QString &page, const QString &key,
                                                       int numStrings = 1) const;
    /// What stands between the two markers, the first end that follows counting; nothing where
    /// one of them is missing or empty.
    [[nodiscard]] std::optional<QString>
    textBetweenOn(const QString &page, const QString &beginKey, const QString &endKey,
                  Qt::CaseSensitivity ofEnd = Qt::CaseSensitive) const;
    /// The same up to an end that is no key of the definition.
    [[nodiscard]] std::optional<QString> textUpToOn(const QString &page, const QString &beginKey,
                                                    const QString &end) const;
    /// The first visible text behind each marker that the track format below `key` makes with 1,
    /// 2, 3 and so on, up to the first number that has none.
    [[nodiscard]] QStringList numberedTextsOn(const QString &page, const QString &key) const;
    /// Adds an album under this source's name. With the last of maxAlbums() nothing further is
    /// fetched.
    void addAlbum(AlbumInfo album);
    void passOver(PassedOverAlbum album);

private:
    struct Waiting {
        QUrl url;
        Handler returnMethod;
        QueueEnd at;
    };

    struct EndMarker {
        QString key; ///< under which it is missed
        QString text;
        Qt::CaseSensitivity sensitivity;
    };

    void keepManners();
    void maintainWaitingURLs();
    void gotResult(const FetchResult &result, const Handler &returnMethod);
    void handOn(const FetchResult &result, const Handler &returnMethod);
    [[nodiscard]] std::optional<QString> textCutOut(const QString &page, const QString &beginKey,
                                                    const EndMarker &end) const;
    void notifyWhenComplete();
    void notifySearchComplete();

    SiteDefinition mResources;
    HVHTTPQueue &mQueue;
    Progress *mProgress = nullptr;
    SearchTrace *mTrace = nullptr;
    AlbumList mAlbums;
    QList<PassedOverAlbum> mPassedOver;
    QList<QUrl> mLoadingURLs;
    QSet<QUrl> mAlreadyLoadedURLs;
    std::deque<Waiting> mWaiting;
    std::optional<QString> mArtist;
    std::optional<QString> mAlternateArtist;
    std::optional<QString> mSongTitle;
    std::optional<QString> mAlbumTitle;
    std::optional<qint64> mSongDuration; ///< milliseconds
    ReleaseIdentifiers mIdentifiers;
    int mTrackNumber = 0;
    int mTracksOnAlbum = 0;
    int mMaxAlbums = 50;
    AlbumPick mAlbumSelectionMethod = AlbumPick::None;
    int mTotalSearches = 0;
    int mMaxSimulSearches = 8;
    float mMinImageWidth = 0; ///< pixels
    float mMaxImageWidth = std::numeric_limits<float>::max(); ///< pixels
    Substrings mAllowSubstrings = Substrings::Refuse;
    bool mIsCompilation = false;
    bool mWasCancelled = false;
    bool mWasUnanswered = false;
    bool mHasNotified = false;
};
