#pragma once

#include "gathering/fetch.h"

#include <QMultiHash>

/// All fetches that are not answered, found by address, and seen as a table with a row for each
/// who asked.
class FetchTable {
public:
    void add(const FetchPointer &fetch);
    void remove(const FetchPointer &fetch);
    void addAsker(Fetch &fetch, OwedResult owed, qint64 place);
    /// Pays those of `owner`, or everyone when there is none given.
    void pay(Fetch &fetch, const FetchResult &result, const QObject *owner = nullptr);

    [[nodiscard]] QList<FetchPointer> all() const { return mFetches.values(); }
    [[nodiscard]] QList<FetchPointer> of(const QUrl &url) const { return mFetches.values(url); }
    /// The GET that can serve one more who asks for the same; null when there is none.
    [[nodiscard]] FetchPointer getOf(const QUrl &url, CacheUse cacheUse) const;

    [[nodiscard]] int numberOfRows() const { return mNumberOfRows; }
    [[nodiscard]] const Fetch &fetchOfRow(int row);

private:
    void makeRows();

    QMultiHash<QUrl, FetchPointer> mFetches;
    int mNumberOfRows = 0;
    QList<const Fetch *> mRows; ///< made when somebody looks
    bool mRowsAreMade = false;
};
