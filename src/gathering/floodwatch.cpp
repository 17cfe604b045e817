#include "gathering/floodwatch.h"

#ifdef Q_OS_LINUX
#include <cstdlib>
#include <filesystem>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <optional>
#include <sys/socket.h>
#include <utility>
#include <vector>
#endif

namespace {
constexpr std::chrono::milliseconds timeBetweenLooks{100};
/// What comes in from one look to the next though nobody waits for anything; forms that a server
/// within this process receives are smaller.
[[maybe_unused]] constexpr qint64 leastFlood = 65'536;

#ifdef Q_OS_LINUX
struct Connection {
    int descriptor;
    quint64 name; ///< not used again, other than the descriptor
    qint64 received;
};

/// Nothing for what is no TCP connection.
std::optional<Connection> connectionAt(int descriptor)
{
    tcp_info info{};
    socklen_t infoSize = sizeof info;
    Connection found{.descriptor = descriptor, .name = 0, .received = 0};
    socklen_t nameSize = sizeof found.name;
    if (getsockopt(descriptor, IPPROTO_TCP, TCP_INFO, &info, &infoSize) != 0
        || infoSize < offsetof(tcp_info, tcpi_bytes_received) + sizeof info.tcpi_bytes_received
        || getsockopt(descriptor, SOL_SOCKET, SO_COOKIE, &found.name, &nameSize) != 0)
        return std::nullopt;
    found.received = static_cast<qint64>(info.tcpi_bytes_received);
    return found;
}

std::vector<Connection> openConnections()
{
    std::vector<Connection> connections;
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/proc/self/fd", error), end;
         !error && entry != end; entry.increment(error)) {
        if (const auto found = connectionAt(std::atoi(entry->path().filename().c_str())))
            connections.push_back(*found);
    }
    return connections;
}
#endif
} // namespace

FloodWatch::FloodWatch(qint64 unreadBytes)
    : mUnreadBytes(unreadBytes)
{
    QObject::connect(&mTimer, &QTimer::timeout, &mTimer, [this] { look(); });
}

FloodWatch::~FloodWatch()
{
    look();
}

void FloodWatch::loadBegins()
{
    ++mLoads;
    if (!mTimer.isActive())
        mTimer.start(timeBetweenLooks);
}

void FloodWatch::look()
{
#ifdef Q_OS_LINUX
    const QHash<quint64, Count> before = std::exchange(mCounts, {});
    bool isQuiet = true;
    for (const Connection &each : openConnections()) {
        const Count now{each.received, mHandedOn, each.received};
        Count count = before.value(each.name, now);
        const bool isActive = each.received - count.lastReceived >= leastFlood;
        const qint64 unread = each.received - count.received - (mHandedOn - count.handedOn);
        if (unread > mUnreadBytes || (isActive && mLoads == 0))
            shutdown(each.descriptor, SHUT_RDWR); // the network library sees it closed
        if (unread < 0)
            count = now; // what others were handed must not become this one's credit
        count.lastReceived = each.received;
        mCounts.insert(each.name, count);
        isQuiet = isQuiet && !isActive;
    }
    if (isQuiet && mLoads == 0) {
        mTimer.stop();
        mCounts.clear();
    }
#endif
}
