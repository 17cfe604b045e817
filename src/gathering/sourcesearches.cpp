#include "gathering/sourcesearches.h"

#include "tags/audioinfotag.h"

#include <utility>

namespace {

const QLatin1String soundtrack("soundtrack");

bool containsWord(const std::optional<QString> &text, QLatin1String word)
{
    return text && text->contains(word, Qt::CaseInsensitive);
}

void configure(WebDBInterface &source, const SearchRequest &request)
{
    source.setArtist(request.artist);
    source.setAlternateArtist(request.alternateArtist);
    source.setSongTitle(request.songTitle);
    source.setAlbumTitle(request.albumTitle);
    source.setIsCompilation(request.isCompilation);
    source.setAlbumSelectionMethod(request.albumSelectionMethod);
    source.setAllowSubstringTrackMatches(request.allowSubstrings);
    source.setMinimumAcceptableImageSize(request.minImageWidth);
    source.setMaximumImageWidth(request.maxImageWidth);
    source.setSongDuration(request.songDuration);
    source.setTrack(request.trackNumber, request.tracksOnAlbum);
    source.setIdentifiers(request.identifiers);
}

} // namespace

SearchRequest searchRequestFor(const AudioInfoTag &tag, Assets desired)
{
    SearchRequest request;
    request.desired = desired;
    request.artist = tag.normalizedArtist();
    request.alternateArtist = tag.reversedArtist();
    if (!desired.testFlag(AssetSongTitle))
        request.songTitle = tag.title();
    if (!desired.testFlag(AssetAlbumName))
        request.albumTitle = albumTitleToSearch(tag);
    request.trackNumber = tag.trackNumber();
    request.tracksOnAlbum = tag.numberOfTracksOnAlbum();
    request.isCompilation = tag.isPartOfCompilation() || containsWord(tag.genres(), soundtrack)
        || containsWord(request.artist, QLatin1String("various"));
    return request;
}

std::optional<QString> albumTitleToSearch(const AudioInfoTag &tag)
{
    std::optional<QString> album = tag.album();
    if (album && containsWord(tag.genres(), soundtrack) && !containsWord(album, soundtrack))
        return *album + QLatin1String(" Soundtrack");
    return album;
}

SourceSearches::SourceSearches(const SourceCatalog &catalog, const SiteDefinitions &definitions,
                               HVHTTPQueue &queue, SourceOutages &outages, Progress &progress)
    : mCatalog(catalog)
    , mDefinitions(definitions)
    , mQueue(queue)
    , mOutages(outages)
    , mProgress(progress)
{
}

bool SourceSearches::start(const QString &className, const SearchRequest &request,
                           Completed completed)
{
    std::unique_ptr<WebDBInterface> made = madeSource(className, request);
    if (!made)
        return false;
    if (!mayAsk(className)) {
        mLeftAlone << className;
        mAsked.unanswered |= mCatalog.find(className)->resourcesPossiblyAvailable;
        return false;
    }
    WebDBInterface *source = mSources.emplace_back(std::move(made)).get();
    configure(*source, request);
    source->setProgessIndicator(&mProgress);
    mRunning.push_back(source);
    QObject::connect(source, &WebDBInterface::searchComplete, source,
                     [this, source, request, completed = std::move(completed)] {
                         std::erase(mRunning, source);
                         const SourceAnswer answer = answerOf(*source, request);
                         if (!source->wasCancelled())
                             noteAnswer(*source, answer);
                         completed(source->albums(), answer, source->passedOver());
                     });
    source->beginSearch();
    return true;
}

/// A search that found albums was answered, whichever page was not. One that fetched nothing asked
/// nobody, unless all was there to ask by: then what is kept here was looked through.
SourceAnswer SourceSearches::answerOf(const WebDBInterface &source,
                                      const SearchRequest &request) const
{
    using Kind = SourceAnswer::Kind;
    const auto answer = [&source](Kind kind) { return SourceAnswer{source.className(), kind}; };
    if (!source.albums().isEmpty())
        return answer(Kind::Albums);
    if (source.wasUnanswered())
        return answer(Kind::Unanswered);
    if (source.totalSearches() > 0)
        return answer(Kind::Nothing);
    const auto definition = mDefinitions.definitionOf(source.className());
    if (!definition || definition->hosts().isEmpty())
        return answer(Kind::NoSite);
    const bool isAllKnown = request.artist && request.songTitle && request.albumTitle;
    return answer(isAllKnown ? Kind::Nothing : Kind::TooLittleKnown);
}

void SourceSearches::noteAnswer(const WebDBInterface &source, const SourceAnswer &answer)
{
    const Assets supplies = mCatalog.find(answer.source)->resourcesPossiblyAvailable;
    switch (answer.kind) {
    case SourceAnswer::Kind::Unanswered:
        mAsked.unanswered |= supplies;
        return noteUnanswered(answer.source);
    case SourceAnswer::Kind::TooLittleKnown:
        mAsked.tooLittleKnown |= supplies;
        return;
    case SourceAnswer::Kind::NoSite:
        return;
    case SourceAnswer::Kind::Albums:
    case SourceAnswer::Kind::Nothing:
        mAsked.answered |= supplies;
        if (source.totalSearches() > 0)
            noteAnswered(answer.source);
    }
}

void SourceSearches::noteUnanswered(const QString &className)
{
    noteUnasked(className);
    mOutages.unanswered(className);
}

bool SourceSearches::mayAsk(const QString &className)
{
    if (!mOutages.isLeftAlone(className))
        return true;
    noteUnasked(className);
    return false;
}

QList<UnaskedSource> SourceSearches::unaskedOf(const QStringList &sources, Assets missing) const
{
    QList<UnaskedSource> unasked;
    for (const QString &className : sources) {
        const SourceCatalog::Entry *entry = mCatalog.find(className);
        const Assets mayGive = entry ? entry->resourcesPossiblyAvailable & missing : Assets();
        if (mayGive && mUnasked.contains(className))
            unasked << UnaskedSource{className, mayGive};
    }
    return unasked;
}

void SourceSearches::cancel()
{
    const std::vector<WebDBInterface *> running = mRunning;
    for (WebDBInterface *source : running)
        source->cancelSearch();
}

/// Null when the source has nothing to give for this request.
std::unique_ptr<WebDBInterface> SourceSearches::madeSource(const QString &className,
                                                           const SearchRequest &request) const
{
    const SourceCatalog::Entry *entry = mCatalog.find(className);
    if (!entry || !(entry->resourcesPossiblyAvailable & request.desired))
        return nullptr;
    auto definition = mDefinitions.definitionOf(className).value_or(SiteDefinition());
    const int maxArtWidth = definition.integer(QStringLiteral("maxPossibleArtWidth"));
    const bool wantsOnlyArt = request.desired == Assets(AssetArtwork);
    if (wantsOnlyArt && request.minImageWidth > static_cast<float>(maxArtWidth))
        return nullptr;
    return entry->make(std::move(definition), mQueue);
}
