#pragma once

#include <QMap>
#include <QString>

#include <algorithm>
#include <chrono>

/// How a host wants to be asked. What is unset is as for every host.
struct HostManners {
    /// At most one request is begun in this time, GET, POST, HEAD and redirects together.
    std::chrono::milliseconds minInterval{0};
    /// The silence that its answers may take, in place of the queue's own limits.
    std::chrono::milliseconds patience{0};
    QString userAgent{}; ///< in place of the queue's own
    /// How long to wait where an answer says that the service is busy and not for how long. 0: such
    /// answers are taken as they are.
    std::chrono::milliseconds busyPause{0};

    [[nodiscard]] bool operator==(const HostManners &) const = default;
};

/// What those who ask one host, by their names, were told of it: the most careful of each counts.
class HostMannersTold {
public:
    void set(const QString &asker, const HostManners &manners) { mByAsker[asker] = manners; }

    [[nodiscard]] HostManners together() const
    {
        HostManners all;
        for (const HostManners &manners : mByAsker) {
            all.minInterval = std::max(all.minInterval, manners.minInterval);
            all.patience = std::max(all.patience, manners.patience);
            all.busyPause = std::max(all.busyPause, manners.busyPause);
            if (all.userAgent.isEmpty())
                all.userAgent = manners.userAgent;
        }
        return all;
    }

private:
    QMap<QString, HostManners> mByAsker;
};
