#include "Finder.h"
#include "FinderSearch.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace quorvel {

namespace {

using Clock = std::chrono::steady_clock;

// Progress reports from the threads, at most one every 20 ms.
class ProgressReporter final {
public:
    ProgressReporter(const FinderProgress &progress, std::size_t total) : progress_(progress), total_(total) {}

    void TaskDone() {
        const std::size_t done = ++done_;
        if (!progress_)
            return;
        const int64_t now =
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now().time_since_epoch()).count();
        int64_t last = last_.load();
        if (now - last >= 20 && last_.compare_exchange_strong(last, now))
            progress_(static_cast<double>(done) / static_cast<double>(total_));
    }

private:
    const FinderProgress &progress_;
    std::size_t total_;
    std::atomic<std::size_t> done_{0};
    std::atomic<int64_t> last_{0};
};

} // namespace

FinderResult FindTemplates(const DnaLibrary &library, const FinderSettings &settings, const FinderProgress &progress,
                           const std::atomic<bool> *cancel) {
    FinderResult result;
    if (FindSettingsProblem(library, settings))
        return result;
    const finder::FinderModel model(library, settings);
    finder::RankedList list(static_cast<std::size_t>(settings.TopK));
    finder::Searcher first(model, list, cancel);
    std::vector<finder::Searcher> searchers;
    if (first.StartAtRoot()) {
        // The threads take the tasks in order, best share of the goal first, and share the
        // ranked list, whose threshold prunes for all of them.
        const std::size_t tasks = first.Tasks();
        const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 1u, 16u);
        searchers.reserve(threads);
        for (unsigned t = 0; t < threads; ++t)
            searchers.emplace_back(model, list, cancel);
        std::atomic<std::size_t> next{0};
        std::atomic<std::size_t> end{tasks};
        ProgressReporter reporter(progress, tasks);
        const auto work = [&](finder::Searcher &searcher) {
            searcher.AdoptRoot(first);
            for (std::size_t i = next++; i < end.load() && !searcher.Cancelled(); i = next++) {
                if (const std::optional<std::size_t> stop = searcher.RunTask(i)) {
                    // No later task can enter the list: the other threads may stop there too.
                    std::size_t current = end.load();
                    while (*stop < current && !end.compare_exchange_weak(current, *stop)) {
                    }
                }
                reporter.TaskDone();
            }
            searcher.LeaveRootChild();
        };
        std::vector<std::thread> pool;
        for (unsigned t = 1; t < threads; ++t)
            pool.emplace_back(work, std::ref(searchers[t]));
        work(searchers[0]);
        for (std::thread &thread : pool)
            thread.join();
    }
    result.Templates = list.Take();
    result.Evaluated = first.Evaluated();
    result.Nodes = first.Nodes();
    for (const finder::Searcher &searcher : searchers) {
        result.Evaluated += searcher.Evaluated();
        result.Nodes += searcher.Nodes();
    }
    result.Cancelled = cancel != nullptr && cancel->load();
    if (progress && !result.Cancelled)
        progress(1.0);
    return result;
}

} // namespace quorvel
