#include "sources/definitionsupdate.h"

#include "base/log.h"
#include "gathering/definitionformat.h"

#include <QHostAddress>

namespace {

constexpr qint64 secondsOfADay = 86400;

qint64 secondsOf(Clock::Time time)
{
    return std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count();
}

bool isLoopback(const QString &host)
{
    return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

/// Whoever can change definitions on their way decides which hosts the program asks.
bool isTrustworthy(const QUrl &url)
{
    return url.scheme() == QLatin1String("https")
        || (url.scheme() == QLatin1String("http") && isLoopback(url.host()));
}

} // namespace

DefinitionsUpdate::DefinitionsUpdate(SiteDefinitionStore &store, QSettings &settings,
                                     HVHTTPQueue &queue, const Clock &clock)
    : mStore(store)
    , mSettings(settings)
    , mQueue(queue)
    , mClock(clock)
    , mAddress(QStringLiteral(TAGWRIGHT_UPDATE_ADDRESS))
    , mFallbackAddress(QStringLiteral(TAGWRIGHT_UPDATE_FALLBACK_ADDRESS))
{
}

void DefinitionsUpdate::setAddresses(const QString &address, const QString &fallbackAddress)
{
    mAddress = address;
    mFallbackAddress = fallbackAddress;
}

void DefinitionsUpdate::checkDaily()
{
    mStore.liveResources(); // the built-in ones clear the last check when they come into use
    if (mAddress.isEmpty() || wasCheckedWithinADay())
        return;
    SiteDefinitionStore::lastCheck.set(mSettings, secondsOf(mClock.now()));
    fetch(mAddress);
}

bool DefinitionsUpdate::wasCheckedWithinADay() const
{
    if (!SiteDefinitionStore::lastCheck.isSet(mSettings))
        return false;
    const qint64 age = secondsOf(mClock.now()) - SiteDefinitionStore::lastCheck.value(mSettings);
    return age >= 0 && age <= secondsOfADay;
}

void DefinitionsUpdate::fetch(const QString &address)
{
    const QUrl url(filledFormat(address, {QStringLiteral(TAGWRIGHT_VERSION)}));
    if (!isTrustworthy(url)) {
        qCWarning(logSources, "newer definitions come over https only, not from %s",
                  qUtf8Printable(url.toString()));
        fetchFailed(address);
        return;
    }
    mQueue.addURLIgnoringCache(url, this, [this, address](const FetchResult &result) {
        gotNewResources(result, address);
    });
}

void DefinitionsUpdate::gotNewResources(const FetchResult &result, const QString &address)
{
    if (result.error || result.data.isEmpty())
        fetchFailed(address);
    else if (result.cameInTheClear && !isLoopback(result.url.host()))
        qCWarning(logSources, "newer definitions were redirected away from https and are refused");
    else if (mStore.mergeAndStore(result.data))
        tellOfMerged();
}

void DefinitionsUpdate::tellOfMerged()
{
    Q_EMIT merged();
    if (const auto release = announcedRelease(mStore.liveResources()))
        Q_EMIT releaseAnnounced(*release);
}

void DefinitionsUpdate::fetchFailed(const QString &address)
{
    if (address != mFallbackAddress && !mFallbackAddress.isEmpty())
        fetch(mFallbackAddress);
    else
        SiteDefinitionStore::lastCheck.unset(mSettings); // the next start tries again
}
