#include "gathering/searchtrace.h"

#include "gathering/decodedpage.h"

#include <algorithm>
#include <array>
#include <functional>

namespace {

/// Whether pages are good without what that key leads to: an album need not have all fields, and
/// results end on some page.
bool mayBeMissing(const QString &key)
{
    constexpr std::array words{"Year", "Genre", "ArtURL", "Track", "nextResultsPage"};
    return std::any_of(words.begin(), words.end(),
                       [&key](const char *word) { return key.contains(QLatin1String(word)); });
}

QString firstRow(const QList<QStringList> &rows)
{
    return pieceOfPage(rows.constFirst().join(QStringLiteral(" | ")), 0);
}

/// A list without an entry is a list; it only holds no row.
SearchStep stepOf(SearchStep used, const MissingMarker &missing)
{
    const bool isInsideList = !missing.key.isEmpty() && !missing.key.startsWith(u"list");
    return used == SearchStep::List && isInsideList ? SearchStep::Row : used;
}

} // namespace

void SearchTrace::beginPage(const FetchResult &result)
{
    mResult = &result;
    const bool isElsewhere = !result.finalURL.isEmpty() && result.finalURL != result.url;
    mPages.push_back({.url = result.url, .redirectedTo = isElsewhere ? result.finalURL : QUrl()});
}

/// A page of which something came was the one that was asked for, whatever else stands on it.
/// Pictures are judged later, by the source.
void SearchTrace::endPage()
{
    Page &page = mPages.back();
    if (!page.isFollowed) {
        page.obstacle = obstacleOf(*mResult);
        page.isFollowed =
            !page.obstacle && mResult->MIMEType.value_or(QString()).startsWith(u"image/");
        if (mResult->data.isEmpty())
            noteProblem(SearchStep::Page, QLatin1String(tooShort));
        page.beginning = pieceOfPage(decodedPage(mResult->data.left(1000)), 0);
    }
    mResult = nullptr;
}

void SearchTrace::follow()
{
    if (mResult)
        mPages.back().isFollowed = true;
}

/// Null when no page is at hand.
SearchTrace::Use *SearchTrace::useOf(const QString &key, SearchStep step)
{
    if (!mResult)
        return nullptr;
    QList<Use> &uses = mPages.back().uses;
    const auto found =
        std::find_if(uses.begin(), uses.end(), [&](const Use &use) { return use.key == key; });
    return found == uses.end() ? &uses.emplace_back(Use{step, key}) : &*found;
}

void SearchTrace::noteRows(const QString &key, const QString &page, const QVariantMap &recipe,
                           const QList<QStringList> &rows)
{
    Use *use = useOf(key, SearchStep::List);
    if (!use || use->wasFound)
        return;
    use->wasFound = !rows.isEmpty();
    if (use->wasFound)
        use->value = firstRow(rows);
    else if (use->missing.piece.isEmpty())
        use->missing = missingMarkerOfRecipe(page, recipe);
}

/// A field of nothing but blanks tells as little as none.
void SearchTrace::noteField(const QString &key, const QString &page, const QString &marker,
                            const std::optional<QString> &found, qsizetype from)
{
    Use *use = useOf(key, SearchStep::Field);
    if (!use || use->wasFound)
        return;
    use->wasFound = found && !found->isEmpty();
    if (use->wasFound) {
        use->value = pieceOfPage(*found, 0);
    } else if (use->missing.piece.isEmpty()) {
        const auto missing = missingMarker(page, {}, marker, Qt::CaseSensitive, from);
        use->markerIsThere = !missing;
        use->missing = missing.value_or(
            MissingMarker{{}, marker, pieceOfPage(page, page.indexOf(marker, from))});
    }
}

void SearchTrace::noteProblem(SearchStep step, const QString &reason)
{
    if (!mResult)
        return;
    mPages.back().problemStep = step;
    mPages.back().problem = reason;
}

void SearchTrace::noteRefused(const QUrl &url)
{
    mPages.push_back(
        {.url = url,
         .obstacle = FetchObstacle{Obstacle::NotReachable, QStringLiteral("cannot be asked")}});
}

QString SearchTrace::Use::reason() const
{
    if (missing.marker.isEmpty())
        return QStringLiteral("the definition lacks it");
    return markerIsThere ? QStringLiteral("nothing can be read behind the marker")
                         : QStringLiteral("the marker is not there");
}

/// Where every page led to another that was there already, the last one on which anything was
/// looked for.
std::optional<SearchFailure> SearchTrace::firstFailure() const
{
    const auto page = std::find_if(mPages.begin(), mPages.end(),
                                   [](const Page &each) { return !each.isFollowed; });
    if (page != mPages.end())
        return failureOf(*page);
    const auto last = std::find_if(mPages.rbegin(), mPages.rend(),
                                   [](const Page &each) { return !each.uses.isEmpty(); });
    return last == mPages.rend() ? std::nullopt : std::optional(failureOfUses(*last));
}

std::optional<SearchFailure> SearchTrace::firstMissingField(const QStringList &words) const
{
    const auto isWanted = [&words](const Use &use) {
        return use.step == SearchStep::Field && !use.wasFound
            && std::any_of(words.begin(), words.end(),
                           [&use](const QString &word) { return use.key.contains(word); });
    };
    for (const Page &page : mPages) {
        const auto use = std::find_if(page.uses.begin(), page.uses.end(), isWanted);
        if (use != page.uses.end())
            return failureOf(*use, page);
    }
    return std::nullopt;
}

SearchFailure SearchTrace::failureOf(const Page &page)
{
    SearchFailure failure{.url = page.url, .redirectedTo = page.redirectedTo};
    failure.piece = page.beginning;
    if (page.obstacle && page.problemStep == SearchStep::Page) {
        failure.obstacle = page.obstacle->kind;
        failure.reason = page.obstacle->reason;
    } else if (!page.problem.isEmpty()) {
        failure.step = page.problemStep;
        failure.reason = page.problem;
    } else if (!page.uses.isEmpty()) {
        failure = failureOfUses(page);
    } else {
        failure.step = SearchStep::Field;
        failure.reason = QStringLiteral("nothing that was looked for is on the page");
    }
    return failure;
}

SearchFailure SearchTrace::failureOfUses(const Page &page)
{
    const auto first = [&page](const std::function<bool(const Use &)> &isOne) {
        const auto found = std::find_if(page.uses.begin(), page.uses.end(), isOne);
        return found == page.uses.end() ? nullptr : &*found;
    };
    if (const Use *missing =
            first([](const Use &use) { return !use.wasFound && !mayBeMissing(use.key); }))
        return failureOf(*missing, page);
    if (const Use *list = first([](const Use &use) { return use.step == SearchStep::List; }))
        return mismatchOf(*list, page);
    const Use *field = first([](const Use &use) { return use.wasFound; });
    return field ? mismatchOf(*field, page) : failureOf(page.uses.constFirst(), page);
}

SearchFailure SearchTrace::failureOf(const Use &use, const Page &page)
{
    const bool isInRecipe = !use.missing.key.isEmpty();
    const bool isOwnRecipe = use.key.isEmpty(); // the whole definition is one
    return {.step = stepOf(use.step, use.missing),
            .reason = use.reason(),
            .url = page.url,
            .redirectedTo = page.redirectedTo,
            .key = isInRecipe && !isOwnRecipe ? use.key + u'/' + use.missing.key
                                              : use.key + use.missing.key,
            .marker = use.missing.marker,
            .piece = use.missing.piece};
}

/// Everything was cut out, and nothing of it is what was searched for.
SearchFailure SearchTrace::mismatchOf(const Use &use, const Page &page)
{
    return {.step = SearchStep::Row,
            .reason = QStringLiteral("what was read does not fit the song"),
            .url = page.url,
            .redirectedTo = page.redirectedTo,
            .key = use.key,
            .piece = use.value};
}
