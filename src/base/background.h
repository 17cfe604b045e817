#pragma once

#include <QFutureWatcher>
#include <QPromise>
#include <QThreadPool>

#include <memory>
#include <type_traits>

/// Runs `work` on another thread and hands what it returned to `then` on a later turn of the event
/// loop of `owner`, exactly once, or never when `owner` is gone by then. `work` must not throw
/// and must own all that it touches.
template<typename Work, typename Then>
void runInBackground(Work work, QObject *owner, Then then)
{
    using Answer = std::invoke_result_t<Work>;
    auto *watcher = new QFutureWatcher<Answer>(owner);
    QObject::connect(watcher, &QFutureWatcherBase::finished, watcher,
                     [watcher, then = std::move(then)] {
                         watcher->deleteLater();
                         then(watcher->result());
                     });
    // Shared because the thread pool copies what it runs.
    const auto promise = std::make_shared<QPromise<Answer>>();
    watcher->setFuture(promise->future());
    QThreadPool::globalInstance()->start([promise, work = std::move(work)] {
        promise->start();
        promise->addResult(work());
        promise->finish();
    });
}

/// Frees what holds very many things, which takes time, on another thread.
template<typename Value>
void destroyInBackground(Value value)
{
    QThreadPool::globalInstance()->start(
        [held = std::make_shared<Value>(std::move(value))]() mutable { held.reset(); });
}
