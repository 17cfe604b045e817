#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

/// The one table of its type in the process, installed now and then and read everywhere, on
/// several threads at once. Each thread keeps hold of the table it last saw, so that reading costs
/// one look at a counter and no lock.
template<typename Table>
class InstalledTable {
public:
    static void install(Table table)
    {
        auto installed = std::make_shared<const Table>(std::move(table));
        const std::lock_guard lock(sMutex);
        sTable = std::move(installed);
        sGeneration.fetch_add(1, std::memory_order_release);
    }

    /// Valid until this thread asks again. An empty table before the first was installed.
    static const Table &current()
    {
        thread_local Seen seen;
        if (seen.generation != sGeneration.load(std::memory_order_acquire))
            seen = latest();
        return *seen.table;
    }

private:
    struct Seen {
        std::shared_ptr<const Table> table;
        unsigned generation = 0;
    };

    static Seen latest()
    {
        const std::lock_guard lock(sMutex);
        return {sTable, sGeneration.load(std::memory_order_relaxed)};
    }

    inline static std::mutex sMutex;
    inline static std::shared_ptr<const Table> sTable = std::make_shared<const Table>();
    inline static std::atomic<unsigned> sGeneration = 1;
};
