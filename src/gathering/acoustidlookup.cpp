#include "gathering/acoustidlookup.h"

#include "gathering/fetchobstacle.h"

#include <QCoreApplication>

#include <utility>

AcoustIDLookup::AcoustIDLookup(SiteDefinition definition, HVHTTPQueue &queue, Question question)
    : WebDBInterface(std::move(definition), queue)
    , mQuestion(std::move(question))
{
}

void AcoustIDLookup::startSearch()
{
    const QUrl url(resources().textOrEmpty(QStringLiteral("queryPOST")));
    const bool isAsked = !url.isEmpty()
        && postSearch(url, form(), [this](const FetchResult &result) { gotAnswer(result); });
    if (!isAsked)
        mAnswer.problem = qtTrId("ErrorServiceNotReached");
}

QByteArray AcoustIDLookup::form() const
{
    return "client=" + QUrl::toPercentEncoding(mQuestion.clientKey)
        + "&duration=" + QByteArray::number(mQuestion.song.seconds)
        + "&fingerprint=" + QUrl::toPercentEncoding(QString::fromLatin1(mQuestion.fingerprint))
        + "&meta=recordings+releasegroups+compress&format=json";
}

void AcoustIDLookup::gotAnswer(const FetchResult &result)
{
    const double minScore = resources().number(QStringLiteral("minScore"));
    if (result.data.isEmpty())
        mAnswer.problem =
            result.error ? result.error->localizedDescription : qtTrId("ErrorServiceNotReached");
    else
        mAnswer = readAcoustIDAnswer(result.data, minScore, mQuestion.song);
    const auto obstacle = mAnswer.isStrange ? obstacleOf(result) : std::nullopt;
    if (obstacle) // tells more than that the answer is none of the service
        mAnswer.problem = obstacle->reason;
}
