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

/// Whether an answer of status 200 says nothing but that the service has too much to do: an error
/// in words alone, or with the code of a quota or of a busy server.
[[nodiscard]] bool saysBusy(int status, const QByteArray &body);
