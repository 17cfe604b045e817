#pragma once

#include "gathering/sourcecatalog.h"
#include "gathering/sourceoutages.h"

#include <QObject>
#include <QSet>

#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

class AudioInfoTag;
class Progress;

/// What is known about a song, for sources to search by.
struct SearchRequest {
    Assets desired;
    std::optional<QString> artist;
    std::optional<QString> alternateArtist; ///< in reversed form
    std::optional<QString> songTitle; ///< absent when it is looked for
    std::optional<QString> albumTitle; ///< absent when it is looked for
    bool isCompilation = false;
    AlbumPick albumSelectionMethod = AlbumPick::None;
    Substrings allowSubstrings = Substrings::Refuse;
    float minImageWidth = 0; ///< pixels
    float maxImageWidth = std::numeric_limits<float>::max(); ///< pixels
    std::optional<qint64> songDuration{}; ///< milliseconds
    int trackNumber = 0; ///< by the tag, 0: not known
    int tracksOnAlbum = 0; ///< likewise
    ReleaseIdentifiers identifiers{}; ///< of the album that was found before
};

/// The request for a song with that tag, without the user's choices.
[[nodiscard]] SearchRequest searchRequestFor(const AudioInfoTag &tag, Assets desired);

/// The album title to search for: that of the tag, with " Soundtrack" where the genres say so and
/// the title does not.
[[nodiscard]] std::optional<QString> albumTitleToSearch(const AudioInfoTag &tag);

/// The sources that search for one song. They stay until this object ends, since a source
/// answers from inside itself.
class SourceSearches {
public:
    /// Called once for each source that was started, on a later turn.
    using Completed = std::function<void(const AlbumList &, const SourceAnswer &,
                                         const QList<PassedOverAlbum> &)>;

    /// `progress` follows the fetches of all sources.
    SourceSearches(const SourceCatalog &catalog, const SiteDefinitions &definitions,
                   HVHTTPQueue &queue, SourceOutages &outages, Progress &progress);

    /// Whether the class exists, may supply what the request desires, and is not left alone; only
    /// then it searches.
    bool start(const QString &className, const SearchRequest &request, Completed completed);
    void cancel();
    [[nodiscard]] bool anyRunning() const { return !mRunning.empty(); }

    [[nodiscard]] const AskedAssets &asked() const { return mAsked; }
    /// The sources that were not started for that.
    [[nodiscard]] const QStringList &leftAlone() const { return mLeftAlone; }
    /// False when it is left alone, which is noted.
    [[nodiscard]] bool mayAsk(const QString &className);
    void noteAnswered(const QString &className) { mOutages.answered(className); }
    void noteUnanswered(const QString &className);
    /// Something of that source could not be fetched, such as a picture that it told of.
    void noteUnasked(const QString &className) { mUnasked.insert(className); }
    [[nodiscard]] bool isUnasked(const QString &className) const
    {
        return mUnasked.contains(className);
    }
    /// Those of the sources that were left alone or gave no answer, as far as they may supply some
    /// of what is missing.
    [[nodiscard]] QList<UnaskedSource> unaskedOf(const QStringList &sources, Assets missing) const;

private:
    [[nodiscard]] SourceAnswer answerOf(const WebDBInterface &source,
                                        const SearchRequest &request) const;
    void noteAnswer(const WebDBInterface &source, const SourceAnswer &answer);
    [[nodiscard]] std::unique_ptr<WebDBInterface> madeSource(const QString &className,
                                                             const SearchRequest &request) const;

    const SourceCatalog &mCatalog;
    const SiteDefinitions &mDefinitions;
    HVHTTPQueue &mQueue;
    SourceOutages &mOutages;
    Progress &mProgress;
    AskedAssets mAsked;
    QStringList mLeftAlone;
    QSet<QString> mUnasked; ///< class names
    std::vector<std::unique_ptr<WebDBInterface>> mSources;
    std::vector<WebDBInterface *> mRunning;
};
