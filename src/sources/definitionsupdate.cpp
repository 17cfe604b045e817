#include "sources/definitionsupdate.h"

#include "base/log.h"
#include "base/nextturn.h"
#include "gathering/cleartext.h"
#include "gathering/definitionformat.h"
#include "gathering/fetchable.h"

namespace {

constexpr qint64 secondsOfADay = 86400;

qint64 secondsOf(Clock::Time time)
{
    return std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count();
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
    if (!wasCheckedWithinADay())
        checkNow();
}

bool DefinitionsUpdate::checkNow()
{
    if (mAddress.isEmpty())
        return false;
    SiteDefinitionStore::lastCheck.set(mSettings, secondsOf(mClock.now()));
    fetch(mAddress);
    return true;
}

bool DefinitionsUpdate::wasCheckedWithinADay() const
{
    if (!SiteDefinitionStore::lastCheck.isSet(mSettings))
        return false;
    const qint64 age = secondsOf(mClock.now()) - SiteDefinitionStore::lastCheck.value(mSettings);
    return age >= 0 && age <= secondsOfADay;
}

/// Whoever can change definitions on their way decides which hosts the program asks.
void DefinitionsUpdate::fetch(const QString &address)
{
    const QUrl url(filledFormat(address, {QStringLiteral(TAGWRIGHT_VERSION)}));
    if (!isFetchable(url) || isInTheClear(url)) {
        qCWarning(logSources, "newer definitions come over https only, not from %s",
                  qUtf8Printable(url.toString()));
        fetchFailed(address, QStringLiteral("%1 is no https address").arg(url.toString()));
        return;
    }
    mQueue.addURLIgnoringCache(
        url, this, [this, address](const FetchResult &result) { gotNewResources(result, address); },
        SiteDefinitionStore::maxSize);
}

void DefinitionsUpdate::gotNewResources(const FetchResult &result, const QString &address)
{
    const QString from = result.url.toString();
    if (result.error || result.data.isEmpty()) {
        const QString nothing =
            QStringLiteral("the answer is empty (status %1)").arg(result.status);
        const QString reason = result.error ? result.error->localizedDescription : nothing;
        fetchFailed(address, QStringLiteral("%1: %2").arg(from, reason));
        return;
    }
    if (result.cameInTheClear) {
        qCWarning(logSources, "newer definitions were redirected away from https and are refused");
        fetchFailed(address, QStringLiteral("%1 leads away from https").arg(from));
        return;
    }
    const QString problem = mStore.mergeAndStore(result.data);
    if (problem.isEmpty())
        tellOfMerged();
    Q_EMIT finished(problem.isEmpty() ? problem : QStringLiteral("%1: %2").arg(from, problem));
}

void DefinitionsUpdate::tellOfMerged()
{
    Q_EMIT merged();
    if (const auto release = announcedRelease(mStore.liveResources()))
        Q_EMIT releaseAnnounced(*release);
}

void DefinitionsUpdate::fetchFailed(const QString &address, const QString &reason)
{
    qCInfo(logSources).noquote() << "newer definitions not fetched:" << reason;
    if (address != mFallbackAddress && !mFallbackAddress.isEmpty()) {
        fetch(mFallbackAddress);
        return;
    }
    SiteDefinitionStore::lastCheck.unset(mSettings); // the next start tries again
    onNextTurn(this, [this, reason] { Q_EMIT finished(reason); });
}
