#pragma once

#include "gathering/fetchobstacle.h"
#include "gathering/searchstep.h"
#include "text/missingmarker.h"

#include <QList>
#include <QStringList>

#include <vector>

/// The first step of a search that led nowhere.
struct SearchFailure {
    SearchStep step = SearchStep::Page;
    std::optional<Obstacle> obstacle{}; ///< none: the site answered, and nothing was found
    QString reason{};
    QUrl url{}; ///< the page; empty when none was asked for
    QUrl redirectedTo{}; ///< empty: not redirected
    QString key{}; ///< of the definition, such as "parseAlbumList/listBegin"
    QString marker{}; ///< that the page lacks
    QString piece{}; ///< of the page, where the marker was expected
};

/// What each step of a search looked for and found. A source keeps one only for somebody who asks
/// why nothing was found.
class SearchTrace {
public:
    static constexpr auto tooShort = "the answer is too short to be a page";

    // Told by the base of all sources, in the order in which things happen. What is told between
    // beginPage() and endPage() is about that page.
    void beginPage(const FetchResult &result);
    void endPage();
    /// Something came of the page at hand: an album, or a further fetch.
    void follow();
    void noteRows(const QString &key, const QString &page, const QVariantMap &recipe,
                  const QList<QStringList> &rows);
    /// `found` is what was read behind the marker, which was looked for from `from` on.
    void noteField(const QString &key, const QString &page, const QString &marker,
                   const std::optional<QString> &found, qsizetype from = 0);
    /// What is wrong with the page at hand, unless something comes of it. A row or field that is
    /// not there is no fault of the site's, whatever the status.
    void noteProblem(SearchStep step, const QString &reason);
    /// A form that the queue did not take: its host failed a moment ago, or nothing is in it.
    void noteRefused(const QUrl &url);

    /// For a search without an album; nothing when no page was asked for.
    [[nodiscard]] std::optional<SearchFailure> firstFailure() const;
    /// The first field that some page lacked, of those whose key holds one of the words.
    [[nodiscard]] std::optional<SearchFailure> firstMissingField(const QStringList &words) const;

private:
    /// One key of the definition, used on a page once or often.
    struct Use {
        SearchStep step;
        QString key;
        bool wasFound = false;
        bool markerIsThere = false; ///< with nothing behind it
        MissingMarker missing{}; ///< of the first time that it was not found
        QString value{}; ///< of the first time that it was

        [[nodiscard]] QString reason() const; ///< why it was not found
    };

    struct Page {
        QUrl url;
        QUrl redirectedTo{};
        std::optional<FetchObstacle> obstacle{};
        bool isFollowed = false;
        SearchStep problemStep = SearchStep::Page;
        QString problem{}; ///< empty: none was seen
        QList<Use> uses{};
        QString beginning{};
    };

    [[nodiscard]] Use *useOf(const QString &key, SearchStep step);
    [[nodiscard]] static SearchFailure failureOf(const Page &page);
    [[nodiscard]] static SearchFailure failureOfUses(const Page &page);
    [[nodiscard]] static SearchFailure failureOf(const Use &use, const Page &page);
    [[nodiscard]] static SearchFailure mismatchOf(const Use &use, const Page &page);

    std::vector<Page> mPages;
    const FetchResult *mResult = nullptr; ///< of the page at hand
};
