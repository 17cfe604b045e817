#include "gathering/httpqueue.h"

#include "base/progress.h"
#include "gathering/fetchable.h"
#include "gathering/fetchflow.h"

#include <algorithm>
#include <utility>

HVHTTPQueue::HVHTTPQueue(const QString &cacheFolder, const Clock &clock, QObject *parent,
                         const FetchLimits &limits, OnlineCheck isOnline)
    : QObject(parent)
    , mFlow(std::make_unique<FetchFlow>(cacheFolder, clock, limits, std::move(isOnline)))
{
    connect(mFlow.get(), &FetchFlow::rowsChanged, this, &HVHTTPQueue::rowsChanged);
    connect(mFlow.get(), &FetchFlow::importantLog, this, &HVHTTPQueue::importantLog);
}

HVHTTPQueue::~HVHTTPQueue() = default;

void HVHTTPQueue::setAgentString(const QString &agent)
{
    mFlow->setAgent(agent);
}

QString HVHTTPQueue::agentString() const
{
    return mFlow->agent();
}

void HVHTTPQueue::setMaximumHTMLLength(qint64 bytes)
{
    mFlow->setMaximumHTMLLength(bytes);
}

void HVHTTPQueue::setSimultaneousConnections(int connections)
{
    mFlow->setMaxConnections(std::max(connections, 1));
}

int HVHTTPQueue::currentNumberOfConnections() const
{
    return mFlow->running();
}

void HVHTTPQueue::setManners(const QString &host, const HostManners &manners, const QString &asker)
{
    mFlow->setManners(host.toLower(), asker, manners);
}

void HVHTTPQueue::setCacheDiskCapacity(qint64 bytes)
{
    mFlow->cache().setDiskCapacity(bytes);
}

void HVHTTPQueue::addURL(const QUrl &url, QObject *owner, FetchCallback returnMethod, QueueEnd at)
{
    mFlow->addGet(url, {owner, std::move(returnMethod)}, at, CacheUse::KeptIfAny, nullptr);
}

void HVHTTPQueue::addURLUsingIndicator(const QUrl &url, QObject *owner, FetchCallback returnMethod,
                                       Progress *indicator)
{
    if (indicator)
        indicator->setIndeterminate(true);
    mFlow->addGet(url, {owner, std::move(returnMethod)}, QueueEnd::Back, CacheUse::KeptIfAny,
                  indicator);
}

void HVHTTPQueue::addURLIgnoringCache(const QUrl &url, QObject *owner, FetchCallback returnMethod,
                                      qint64 mostBytes)
{
    mFlow->addGet(url, {owner, std::move(returnMethod)}, QueueEnd::Back, CacheUse::AskServer,
                  nullptr, mostBytes);
}

bool HVHTTPQueue::postURL(const QUrl &url, QObject *owner, FetchCallback returnMethod,
                          const QByteArray &data)
{
    if (!isFetchable(url) || data.isEmpty() || mFlow->failedHosts().failedLately(url.host()))
        return false;
    mFlow->sendAtOnce(url, {owner, std::move(returnMethod)}, FetchMethod::Post, data);
    return true;
}

void HVHTTPQueue::getHeadersForURL(const QUrl &url, QObject *owner, FetchCallback returnMethod)
{
    mFlow->sendAtOnce(url, {owner, std::move(returnMethod)}, FetchMethod::Head, {});
}

void HVHTTPQueue::cancelURL(const QUrl &url, const QObject *owner)
{
    mFlow->cancel(url, owner);
}

void HVHTTPQueue::cancelAll()
{
    mFlow->cancelLoading();
}

void HVHTTPQueue::removeURLFromCache(const QUrl &url)
{
    mFlow->cache().remove(url);
}

void HVHTTPQueue::keepForThisRun(const QUrl &url)
{
    mFlow->cache().removeFromDisk(url);
}

int HVHTTPQueue::numberOfRows() const
{
    return mFlow->table().numberOfRows();
}

QUrl HVHTTPQueue::urlOfRow(int row) const
{
    return mFlow->table().fetchOfRow(row).url;
}

QString HVHTTPQueue::statusOfRow(int row) const
{
    return mFlow->table().fetchOfRow(row).status();
}
