#pragma once

#include "gathering/fetchresult.h"

enum class Obstacle {
    NotReachable, ///< no answer, or one that says that there is no such page
    Blocked, ///< the site answers, but not us
};

/// Why a fetch did not give the page that was asked for.
struct FetchObstacle {
    Obstacle kind;
    QString reason; ///< such as "status 403"
};

/// Nothing when a page came that may be what was asked for. Blocked are the statuses 401, 403 and
/// 429, and pages that want to know whether a person asks.
[[nodiscard]] std::optional<FetchObstacle> obstacleOf(const FetchResult &result);

/// Whether the site could not be asked: no answer came, its server fails, or it lets us not in. A
/// site that knows no such page has answered.
[[nodiscard]] bool isUnanswered(const FetchResult &result);
