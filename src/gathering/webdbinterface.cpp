#include "gathering/webdbinterface.h"

#include "base/nextturn.h"
#include "base/progress.h"
#include "gathering/decodedpage.h"
#include "gathering/fetchobstacle.h"
#include "gathering/jsonanswer.h"
#include "gathering/searchtrace.h"
#include "text/htmlpage.h"

#include <algorithm>
#include <chrono>

namespace {

constexpr int defaultSimultaneousSearches = 8;

/// A bar measures, instead of spinning, from the search after this many.
constexpr double searchesWhileSpinning = 4;

/// A page of rows without end must not keep a song searching for hours; no honest list of one
/// artist's albums comes near.
constexpr int mostSearches = 1000;

/// Sites answer "nothing found" and errors this shortly.
constexpr qsizetype longestUselessPage = 99;

/// A definition cannot stop a search by asking for ages between two fetches, or for one.
constexpr double longestWait = 60; // seconds

std::chrono::milliseconds waitOf(const SiteDefinition &resources, const QString &key)
{
    const double seconds = std::clamp(resources.number(key), 0.0, longestWait);
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::duration<double>(seconds));
}

HostManners mannersOf(const SiteDefinition &resources)
{
    return {
        .minInterval = waitOf(resources, QStringLiteral("minInterval")),
        .patience = waitOf(resources, QStringLiteral("patience")),
        .userAgent =
            resources.formatted(QStringLiteral("userAgent"), {QStringLiteral(TAGWRIGHT_VERSION)})
                .value_or(QString()),
        .busyPause = waitOf(resources, QStringLiteral("busyPause"))};
}

} // namespace

WebDBInterface::WebDBInterface(SiteDefinition resources, HVHTTPQueue &queue)
    : mResources(std::move(resources))
    , mQueue(queue)
{
}

WebDBInterface::~WebDBInterface() = default;

void WebDBInterface::beginSearch()
{
    const int fromDefinition = mResources.integer(QStringLiteral("simulConns"));
    mMaxSimulSearches = fromDefinition > 0 ? fromDefinition : defaultSimultaneousSearches;
    keepManners();
    startSearch();
    notifyWhenComplete();
}

void WebDBInterface::keepManners()
{
    const HostManners manners = mannersOf(mResources);
    if (manners == HostManners())
        return;
    const QStringList hosts = mResources.hosts();
    for (const QString &host : hosts)
        mQueue.setManners(host, manners, className());
}

void WebDBInterface::cancelSearch()
{
    mWasCancelled = true;
    mWaiting.clear();
    const QList<QUrl> loading = mLoadingURLs;
    for (auto url = loading.crbegin(); url != loading.crend(); ++url)
        mQueue.cancelURL(*url, this);
    notifyWhenComplete();
}

void WebDBInterface::addSearchURL(const QUrl &url, Handler returnMethod, QueueEnd at)
{
    if (mTrace && url.isValid())
        mTrace->follow();
    if (mWasCancelled || !url.isValid() || mTotalSearches >= mostSearches
        || mAlreadyLoadedURLs.contains(url))
        return;
    mAlreadyLoadedURLs.insert(url);
    Waiting search{url, std::move(returnMethod), at};
    if (at == QueueEnd::Front)
        mWaiting.push_front(std::move(search));
    else
        mWaiting.push_back(std::move(search));
    ++mTotalSearches;
    if (mProgress) {
        if (mProgress->maximum() > searchesWhileSpinning)
            mProgress->setIndeterminate(false);
        mProgress->setMaximum(mProgress->maximum() + 1);
    }
    maintainWaitingURLs();
}

bool WebDBInterface::postSearch(const QUrl &url, const QByteArray &form, Handler returnMethod)
{
    const auto gotPage = [this, returnMethod = std::move(returnMethod)](const FetchResult &result) {
        gotResult(result, returnMethod);
    };
    if (mWasCancelled || !mQueue.postURL(url, this, gotPage, form)) {
        mWasUnanswered |= !form.isEmpty() && url.isValid();
        if (mTrace)
            mTrace->noteRefused(url);
        return false;
    }
    addPlaceholderSearch(url);
    return true;
}

void WebDBInterface::addPlaceholderSearch(const QUrl &placeholder)
{
    if (mTrace)
        mTrace->follow();
    mLoadingURLs << placeholder;
    ++mTotalSearches;
    if (mProgress)
        mProgress->setMaximum(mProgress->maximum() + 1);
}

void WebDBInterface::finishedSearch(const QUrl &url)
{
    if (!mLoadingURLs.removeOne(url))
        return;
    if (mProgress)
        mProgress->advance(1);
    maintainWaitingURLs();
    notifyWhenComplete();
}

void WebDBInterface::maintainWaitingURLs()
{
    while (!mWaiting.empty() && mLoadingURLs.size() < mMaxSimulSearches) {
        Waiting search = std::move(mWaiting.front());
        mWaiting.pop_front();
        mLoadingURLs << search.url;
        mQueue.addURL(
            search.url, this,
            [this, returnMethod = std::move(search.returnMethod)](const FetchResult &result) {
                gotResult(result, returnMethod);
            },
            search.at);
    }
}

void WebDBInterface::gotResult(const FetchResult &result, const Handler &returnMethod)
{
    finishedSearch(result.url);
    if (mWasCancelled)
        return;
    if (mTrace)
        mTrace->beginPage(result);
    handOn(result, returnMethod);
    if (mTrace)
        mTrace->endPage();
}

/// A page of which something came is an answer, so only the others are looked at closely.
void WebDBInterface::handOn(const FetchResult &result, const Handler &returnMethod)
{
    const auto progressed = [this] { return mTotalSearches + mAlbums.size(); };
    const auto before = progressed();
    returnMethod(result);
    const bool isOfUse = !result.error && result.status < 400 && progressed() > before;
    if (isOfUse || !isUnanswered(result))
        return;
    mWasUnanswered = true;
    mQueue.removeURLFromCache(result.url); // such as a page that asks whether we are a person
}

// Whether the search is complete is decided on the next turn: a fetch is counted off before its
// return method runs, which may queue further ones.
void WebDBInterface::notifyWhenComplete()
{
    if (mLoadingURLs.isEmpty())
        onNextTurn(this, [this] { notifySearchComplete(); });
}

void WebDBInterface::notifySearchComplete()
{
    if (mHasNotified || !mLoadingURLs.isEmpty())
        return;
    mHasNotified = true;
    Q_EMIT searchComplete();
}

QString WebDBInterface::pageText(const FetchResult &result) const
{
    return decodedPage(result.data, mResources.textOrEmpty(QStringLiteral("charset")));
}

std::optional<QString> WebDBInterface::usablePage(const FetchResult &result)
{
    if (result.data.size() > longestUselessPage)
        return pageText(result);
    mQueue.removeURLFromCache(result.url);
    if (mTrace)
        mTrace->noteProblem(SearchStep::Page, QLatin1String(SearchTrace::tooShort));
    return std::nullopt;
}

std::optional<QJsonDocument> WebDBInterface::jsonPage(const FetchResult &result)
{
    JsonAnswer answer = jsonAnswerOf(result);
    if (mTrace)
        mTrace->noteProblem(answer.failedAt, answer.reason);
    if (!answer.document) {
        mQueue.removeURLFromCache(result.url);
        // A service that answers by an error or with a page did not say what it has.
        mWasUnanswered |= result.status < 400 && answer.failedAt == SearchStep::Page;
    }
    return answer.document;
}

QList<QStringList> WebDBInterface::rowsOn(const QString &page, const QString &key) const
{
    const auto recipe =
        key.isEmpty() ? std::optional(mResources.values()) : mResources.dictionary(key);
    QList<QStringList> rows;
    if (recipe)
        rows = HVUtility::parsedContentsOfHTML(page, *recipe).value_or(rows);
    if (mTrace)
        mTrace->noteRows(key, page, recipe.value_or(QVariantMap()), rows);
    return rows;
}

std::optional<QString> WebDBInterface::visibleTextOn(const QString &page, const QString &key,
                                                     int numStrings) const
{
    const QString marker = mResources.textOrEmpty(key);
    std::optional<QString> text;
    if (!marker.isEmpty())
        text = HVUtility::visibleHTMLTextIn(page, numStrings, marker);
    if (mTrace)
        mTrace->noteField(key, page, marker, text);
    return text;
}

std::optional<QString> WebDBInterface::textBetweenOn(const QString &page, const QString &beginKey,
                                                     const QString &endKey,
                                                     Qt::CaseSensitivity ofEnd) const
{
    return textCutOut(page, beginKey, {endKey, mResources.textOrEmpty(endKey), ofEnd});
}

std::optional<QString> WebDBInterface::textUpToOn(const QString &page, const QString &beginKey,
                                                  const QString &end) const
{
    return textCutOut(page, beginKey, {beginKey, end, Qt::CaseSensitive});
}

std::optional<QString> WebDBInterface::textCutOut(const QString &page, const QString &beginKey,
                                                  const EndMarker &end) const
{
    const QString begin = mResources.textOrEmpty(beginKey);
    const qsizetype foundBegin = begin.isEmpty() ? -1 : page.indexOf(begin);
    const qsizetype from = foundBegin < 0 ? -1 : foundBegin + begin.size();
    const qsizetype to =
        from < 0 || end.text.isEmpty() ? -1 : page.indexOf(end.text, from, end.sensitivity);
    std::optional<QString> text;
    if (to >= 0)
        text = page.mid(from, to - from);
    if (mTrace && from < 0)
        mTrace->noteField(beginKey, page, begin, text);
    else if (mTrace)
        mTrace->noteField(end.key, page, end.text, text, from);
    return text;
}

QStringList WebDBInterface::numberedTextsOn(const QString &page, const QString &key) const
{
    const QChar number(QChar::ObjectReplacementCharacter); // stands in no marker of a page
    const QString marker = mResources.formatted(key, {number}).value_or(QString());
    const QStringList around = marker.split(number);
    QStringList texts;
    if (around.size() == 2)
        texts = HVUtility::numberedHTMLTextsIn(page, around[0], around[1]);
    if (mTrace)
        mTrace->noteField(key, page, mResources.formatted(key, {QString(u'1')}).value_or(marker),
                          texts.isEmpty() ? std::nullopt : std::optional(texts.first()));
    return texts;
}

void WebDBInterface::addAlbum(AlbumInfo album)
{
    if (mTrace)
        mTrace->follow();
    if (mAlbums.size() >= mMaxAlbums)
        return;
    album.setSourceInterfaceName(className());
    mAlbums << std::move(album);
    if (mAlbums.size() >= mMaxAlbums)
        mWaiting.clear();
}

void WebDBInterface::passOver(PassedOverAlbum album)
{
    if (mPassedOver.size() >= mostPassedOver)
        return;
    album.album.setSourceInterfaceName(className());
    mPassedOver << std::move(album);
}

QString WebDBInterface::description() const
{
    const QString none = QStringLiteral("(null)");
    return QStringLiteral("<%1 0x%2 artist='%3' song='%4' album='%5' gathered=%6>")
        .arg(className(), QString::number(reinterpret_cast<quintptr>(this), 16),
             mArtist.value_or(none), mSongTitle.value_or(none), mAlbumTitle.value_or(none),
             QString::number(mAlbums.size()));
}
