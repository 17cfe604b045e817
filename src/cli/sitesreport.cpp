#include "cli/sitesreport.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

using Answer = SiteFinding::Answer;

QString nameOf(Answer answer)
{
    switch (answer) {
    case Answer::Found:
        return u"found"_s;
    case Answer::Incomplete:
        return u"incomplete"_s;
    case Answer::NothingFound:
        return u"nothing found"_s;
    case Answer::Blocked:
        return u"blocked"_s;
    case Answer::NotReachable:
        return u"not reachable"_s;
    case Answer::NoSite:
        return u"no site configured"_s;
    case Answer::NoSuchSource:
        break;
    }
    return u"no source of that name"_s;
}

QString nameOf(SearchStep step)
{
    switch (step) {
    case SearchStep::Page:
        return u"page"_s;
    case SearchStep::List:
        return u"list"_s;
    case SearchStep::Row:
        return u"row"_s;
    case SearchStep::Field:
        break;
    }
    return u"field"_s;
}

QString whatFailed(SearchStep step)
{
    switch (step) {
    case SearchStep::Page:
        return u"no page"_s;
    case SearchStep::List:
        return u"list not found"_s;
    case SearchStep::Row:
        return u"no row matched"_s;
    case SearchStep::Field:
        break;
    }
    return u"no field read"_s;
}

bool hasFailure(Answer answer)
{
    return answer == Answer::Incomplete || answer == Answer::NothingFound
        || answer == Answer::Blocked || answer == Answer::NotReachable;
}

QString shown(const QUrl &url)
{
    return url.toString(QUrl::FullyEncoded);
}

QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QString line(const char *label, const QString &text)
{
    return text.isEmpty() ? QString() : u"\n  %1 %2"_s.arg(QLatin1String(label), -8).arg(text);
}

} // namespace

QJsonObject listedAsJson(const ListedSource &source)
{
    return {
        {u"source"_s, source.className},
        {u"known"_s, source.isKnown},
        {u"configured"_s, source.hasSite},
        {u"supplies"_s, QJsonArray::fromStringList(keysOfAssets(source.supplies))},
        {u"missingKeys"_s, QJsonArray::fromStringList(source.missingKeys)},
    };
}

QString listedAsText(const ListedSource &source)
{
    if (!source.isKnown)
        return source.className + u": "_s + nameOf(Answer::NoSuchSource);
    const QString state = source.hasSite ? u"configured"_s : nameOf(Answer::NoSite);
    return source.className + u": "_s + state + line("supplies", summaryOfAssets(source.supplies))
        + line("missing", source.missingKeys.join(u", "_s));
}

QJsonObject findingAsJson(const SiteFinding &finding)
{
    const SearchFailure &failure = finding.failure;
    const bool failed = hasFailure(finding.answer);
    return {
        {u"source"_s, finding.className},
        {u"answer"_s, nameOf(finding.answer)},
        {u"found"_s, QJsonArray::fromStringList(keysOfAssets(finding.found))},
        {u"missing"_s, QJsonArray::fromStringList(keysOfAssets(finding.missing))},
        {u"step"_s, failed ? QJsonValue(nameOf(failure.step)) : QJsonValue()},
        {u"reason"_s, textOrNull(failure.reason)},
        {u"url"_s, textOrNull(shown(failure.url))},
        {u"redirectedTo"_s, textOrNull(shown(failure.redirectedTo))},
        {u"key"_s, textOrNull(failure.key)},
        {u"marker"_s, textOrNull(failure.marker)},
        {u"piece"_s, textOrNull(failure.piece)},
    };
}

QString findingAsText(const SiteFinding &finding)
{
    const SearchFailure &failure = finding.failure;
    QString text = finding.className + u": "_s + nameOf(finding.answer);
    if (finding.answer == Answer::NothingFound || finding.answer == Answer::Incomplete)
        text += u", "_s + whatFailed(failure.step);
    text += line("found", summaryOfAssets(finding.found));
    if (finding.answer == Answer::Incomplete)
        text += line("missing", summaryOfAssets(finding.missing));
    return text + line("reason", failure.reason) + line("page", shown(failure.url))
        + line("led to", shown(failure.redirectedTo)) + line("key", failure.key)
        + line("marker", pieceOfPage(failure.marker, 0)) + line("there", failure.piece);
}
