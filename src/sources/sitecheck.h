#pragma once

#include "gathering/searchtrace.h"
#include "gathering/sourcecatalog.h"

#include <memory>

/// What came of searching a source for an album that its site is known to have.
struct SiteFinding {
    enum class Answer {
        Found,
        Incomplete, ///< found, without some of what the definition says how to read
        NothingFound,
        Blocked,
        NotReachable,
        NoSite, ///< no address is filled in
        NoSuchSource,
    };

    QString className;
    Answer answer = Answer::NothingFound;
    Assets found{};
    Assets missing{}; ///< of what it should have supplied
    SearchFailure failure{}; ///< the first step that found nothing; unset with Found
};

/// Searches one source, once, for the album that the definitions name for it: below "checkArtist",
/// "checkAlbum" and "checkSong" of its own definition, or else of the whole set.
class SiteCheck : public QObject {
    Q_OBJECT

public:
    SiteCheck(const SourceCatalog &catalog, const SiteDefinitions &definitions, HVHTTPQueue &queue,
              const QString &className);
    ~SiteCheck() override;

    /// finished() follows on a later turn, exactly once.
    void begin();
    [[nodiscard]] const SiteFinding &finding() const { return mFinding; }

Q_SIGNALS:
    void finished();

private:
    void finishWith(SiteFinding::Answer answer);
    void finishWith(const SearchFailure &failure);
    void search(const SourceCatalog::Entry &entry);
    void searched();
    void fetchNextPicture();
    void gotPicture(const FetchResult &result);
    void conclude();

    const SourceCatalog &mCatalog;
    HVHTTPQueue &mQueue;
    SiteFinding mFinding;
    SiteDefinitions mDefinitions;
    SiteDefinition mDefinition;
    Assets mExpected;
    SearchTrace mTrace; ///< stands before the source, which writes into it
    std::unique_ptr<WebDBInterface> mSource;
    QStringList mPictures; ///< addresses that are still to be tried
    SearchFailure mPictureFailure;
};
