#include "gathering/connectionpool.h"

#include <QNetworkReply>

#include <algorithm>

namespace {
/// What a manager opens to one host at a time.
constexpr int connectionsOfManager = 6;
/// Each manager has a thread of its own; beyond these, loads wait for a connection.
constexpr size_t mostManagers = 4;

QNetworkReply *sendWith(QNetworkAccessManager &manager, const HttpMessage &message)
{
    switch (message.method) {
    case FetchMethod::Head:
        return manager.head(message.request);
    case FetchMethod::Post:
        return manager.post(message.request, message.body);
    case FetchMethod::Get:
        break;
    }
    return manager.get(message.request);
}
} // namespace

QNetworkReply *ConnectionPool::send(const HttpMessage &message)
{
    Lane &lane = freestLane();
    QNetworkReply *reply = sendWith(*lane.manager, message);
    ++lane.loads;
    QObject::connect(reply, &QNetworkReply::finished, lane.manager.get(),
                     [&lane] { --lane.loads; });
    return reply;
}

/// The first one with room, so that connections kept alive are used again.
ConnectionPool::Lane &ConnectionPool::freestLane()
{
    const auto free = std::find_if(mLanes.begin(), mLanes.end(), [](const auto &lane) {
        return lane->loads < connectionsOfManager;
    });
    if (free != mLanes.end())
        return **free;
    if (mLanes.size() < mostManagers)
        return *mLanes.emplace_back(std::make_unique<Lane>());
    return **std::min_element(mLanes.begin(), mLanes.end(), [](const auto &one, const auto &other) {
        return one->loads < other->loads;
    });
}
