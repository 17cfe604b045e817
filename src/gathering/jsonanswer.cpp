#include "gathering/jsonanswer.h"

#include <QJsonObject>

namespace {

constexpr qsizetype longestShownError = 200; // characters

/// The service's own words: a text, or an object with a message in it.
QString shownError(const QJsonValue &error)
{
    const QJsonValue message = error.isObject() ? error[QLatin1String("message")] : error;
    return message.toVariant().toString().left(longestShownError);
}

/// Deezer's way to say what others say by the status 404.
constexpr int noDataCode = 800;

/// The codes with which it says what others say by the statuses 429 and 503.
constexpr int quotaCode = 4;
constexpr int busyCode = 700;

/// What says no more than that is short.
constexpr qsizetype longestBusyAnswer = 2000; // bytes

QString statusReason(int status)
{
    return QStringLiteral("status %1").arg(status);
}

} // namespace

JsonAnswer jsonAnswerOf(const FetchResult &result)
{
    if (result.error)
        return {.reason = result.error->localizedDescription};
    if (result.status == 404) // how services say that they have none of that name
        return {.failedAt = SearchStep::Row, .reason = statusReason(404)};
    if (result.status >= 400)
        return {.reason = statusReason(result.status)};
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(result.data, &problem);
    if (problem.error != QJsonParseError::NoError)
        return {.reason = QStringLiteral("no JSON but %1: %2")
                              .arg(result.MIMEType.value_or(QString()), problem.errorString())};
    const QJsonValue error = document.object().value(QLatin1String("error"));
    if (error[QLatin1String("code")].toInt() == noDataCode)
        return {.failedAt = SearchStep::Row, .reason = shownError(error)};
    if (!error.isUndefined() && !error.isNull())
        return {.reason = QStringLiteral("the service tells of an error: ") + shownError(error)};
    return {document, SearchStep::Row, QStringLiteral("nothing in the answer fits the song")};
}

bool saysBusy(int status, const QByteArray &body)
{
    if (status != 200 || body.size() > longestBusyAnswer || !body.trimmed().startsWith('{'))
        return false;
    const QJsonValue error = QJsonDocument::fromJson(body).object().value(QLatin1String("error"));
    const int code = error[QLatin1String("code")].toInt();
    return (error.isString() && !error.toString().isEmpty()) || code == quotaCode
        || code == busyCode;
}
