#pragma once

#include <QString>

#include <chrono>

/// How a host wants to be asked. What is unset is as for every host.
struct HostManners {
    /// At most one request is begun in this time, GET, POST, HEAD and redirects together.
    std::chrono::milliseconds minInterval{0};
    /// The silence that its answers may take, in place of the queue's own limits.
    std::chrono::milliseconds patience{0};
    QString userAgent{}; ///< in place of the queue's own

    [[nodiscard]] bool operator==(const HostManners &) const = default;
};
