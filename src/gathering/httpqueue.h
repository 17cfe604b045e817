#pragma once

#include "base/clock.h"
#include "gathering/fetcherrors.h"
#include "gathering/fetchlimits.h"
#include "gathering/fetchresult.h"
#include "gathering/hostmanners.h"
#include "gathering/queueend.h"

#include <QObject>
#include <QString>

#include <memory>

class FetchFlow;
class Progress;

/// The one fetcher of the program: an ordered queue of URLs of which at most a fixed number load
/// at a time. It remembers hosts that failed, cuts over-long pages, keeps to each host's pace,
/// and gives every request exactly one answer, on a later turn of the event loop. The answer to
/// an owner that is gone by then is dropped.
class HVHTTPQueue : public QObject {
    Q_OBJECT

public:
    /// `cacheFolder` empty: responses are kept in memory only.
    explicit HVHTTPQueue(const QString &cacheFolder, const Clock &clock = systemClock(),
                         QObject *parent = nullptr, const FetchLimits &limits = {},
                         OnlineCheck isOnline = machineIsOnline);
    ~HVHTTPQueue() override;

    void setAgentString(const QString &agent);
    [[nodiscard]] QString agentString() const;
    void setMaximumHTMLLength(qint64 bytes); ///< 0: no limit
    void setSimultaneousConnections(int connections);
    [[nodiscard]] int currentNumberOfConnections() const;
    /// For all requests to `host` from now on, whoever makes them. Of what several askers set the
    /// longest times count.
    void setManners(const QString &host, const HostManners &manners, const QString &asker = {});
    void setCacheDiskCapacity(qint64 bytes);

    void addURL(const QUrl &url, QObject *owner, FetchCallback returnMethod,
                QueueEnd at = QueueEnd::Back);
    /// The same at the end of the queue; `indicator` (may be null) follows the load.
    void addURLUsingIndicator(const QUrl &url, QObject *owner, FetchCallback returnMethod,
                              Progress *indicator);
    /// A GET that asks the server and not the cache. An answer longer than `mostBytes` is a
    /// failure, and is not read further.
    void addURLIgnoringCache(const QUrl &url, QObject *owner, FetchCallback returnMethod,
                             qint64 mostBytes);
    /// Sends a form at once. False, and no answer follows, when there is no URL or body or when
    /// the host failed within the last 300 seconds.
    [[nodiscard]] bool postURL(const QUrl &url, QObject *owner, FetchCallback returnMethod,
                               const QByteArray &data);
    void getHeadersForURL(const QUrl &url, QObject *owner, FetchCallback returnMethod);

    /// Ends every request of `owner` for that URL; each is still answered, with the URL alone.
    /// Other owners of the same URL keep their load.
    void cancelURL(const QUrl &url, const QObject *owner);
    /// Ends every running load; what waits stays queued until something starts the queue again.
    void cancelAll();
    void removeURLFromCache(const QUrl &url);
    /// The kept answer, if any, is forgotten when the program ends.
    void keepForThisRun(const QUrl &url);

    // The queue as a table: one row for each request that is not answered yet, in order.
    [[nodiscard]] int numberOfRows() const;
    [[nodiscard]] QUrl urlOfRow(int row) const;
    /// "-Queued-", "-Wait-" or "%d bytes".
    [[nodiscard]] QString statusOfRow(int row) const;

Q_SIGNALS:
    void rowsChanged();
    /// One line that the user should read, such as that the internet is out of reach.
    void importantLog(const QString &line);

private:
    std::unique_ptr<FetchFlow> mFlow;
};
