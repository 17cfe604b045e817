#pragma once

#include <QtGlobal>

#include <chrono>

/// What one request may take at most. The defaults are the program's; tests have less patience.
struct FetchLimits {
    /// From one sign of life to the next.
    std::chrono::milliseconds silence{10'000};
    /// The same for HEAD.
    std::chrono::milliseconds headSilence{6'000};
    /// From the first byte sent to the last one read, however steadily it drips.
    std::chrono::milliseconds total{60'000};
    /// A longer Retry-After is cut to this.
    std::chrono::milliseconds retryWait{60'000};
    /// The first wait where a refusing server names none or a shorter one; each further one is
    /// twice as long.
    std::chrono::milliseconds retryPause{400};
    int retries = 3;
    int redirects = 10;
    /// Of the body after decompression. More than any page or picture of use.
    qint64 bodyBytes = qint64(32) * 1024 * 1024;
    /// What a connection may bring that is no part of a body: heads, and what is read ahead.
    qint64 unreadBytes = qint64(16) * 1024 * 1024;
};
