#pragma once

#include "gathering/fetchresult.h"
#include "gathering/searchstep.h"

#include <QJsonDocument>

/// What a service that speaks JSON answered.
struct JsonAnswer {
    std::optional<QJsonDocument> document{}; ///< of an answer that tells of no failure
    SearchStep failedAt = SearchStep::Page;
    /// Why there is no document, or, with one, what is wrong if nothing comes of it.
    QString reason{};
};

/// Status and contents decide, not the length. A key "error" in the body is a failure even with
/// the status 200, as some services send it, unless its code says that there is no such thing.
[[nodiscard]] JsonAnswer jsonAnswerOf(const FetchResult &result);
