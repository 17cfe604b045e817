// Pages of one host, answered after 50 ms each, eight at a time: 200 of them cannot take less than
// 1,250 ms. The counter "times_possible" is the ratio to that.

#include "gathering/httpqueue.h"
#include "support/httpserver.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <benchmark/benchmark.h>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace {
constexpr int pages = 200;
constexpr std::chrono::milliseconds answerTime{50};
constexpr double possibleSeconds = 1.25;

QString pathOf(int page)
{
    return QStringLiteral("/%1").arg(page);
}

/// Serves the pages in a process of its own, as long as ours lives; gives their address.
QUrl startServer()
{
    int ends[2];
    if (pipe(ends) != 0)
        qFatal("no pipe");
    QByteArray address(64, '\0');
    if (fork() != 0) {
        if (read(ends[0], address.data(), static_cast<size_t>(address.size())) <= 0)
            qFatal("no server");
        return QUrl(QString::fromLatin1(address.constData()));
    }
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    int none = 0;
    QCoreApplication program(none, nullptr);
    HttpServer server;
    for (int page = 0; page < pages; ++page)
        server.serve(pathOf(page), {.body = QByteArray(20'000, 'x'), .delay = answerTime});
    address = server.url({}).toEncoded();
    if (write(ends[1], address.constData(), static_cast<size_t>(address.size())) <= 0)
        qFatal("nobody asks");
    _exit(QCoreApplication::exec());
}

void fetchPages(benchmark::State &state)
{
    static const QUrl address = startServer();
    static int none = 0;
    static QCoreApplication program(none, nullptr);
    const auto begun = std::chrono::steady_clock::now();
    for (auto _ : state) {
        HVHTTPQueue queue({});
        QObject owner;
        QEventLoop untilAnswered;
        int answered = 0;
        for (int page = 0; page < pages; ++page)
            queue.addURL(address.resolved(QUrl(pathOf(page))), &owner,
                         [&](const FetchResult &result) {
                             if (result.status != 200)
                                 state.SkipWithError("a page is missing");
                             if (++answered == pages)
                                 untilAnswered.quit();
                         });
        untilAnswered.exec();
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begun;
    state.counters["times_possible"] =
        taken.count() / static_cast<double>(state.iterations()) / possibleSeconds;
}
BENCHMARK(fetchPages)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
} // namespace
