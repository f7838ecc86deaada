// The template finder on the bench's generated 500-sample library: every goal with no level
// limit and with the limits 30 and 50 (Old equation), top 10, distinct samples. Prints a table
// row per search (time, processor time of all threads, templates evaluated, partial templates
// examined), then the median and the worst time.
//   quorvel_bench_finder [goal...]   (keywords such as damage; all goals when none is given)
#include "DnaFile.h"
#include "Finder.h"
#include "Samples.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

using namespace quorvel;

int main(int argc, char **argv) {
    DnaLibrary library;
    std::istringstream in(bench::SampleDnaText(kMaxSamples));
    LoadDnaStream(in, library, [](int, const RowCells &) {});

    std::vector<FinderGoal> goals;
    for (int i = 1; i < argc; ++i) {
        if (const std::optional<FinderGoal> goal = ParseFinderGoal(argv[i]))
            goals.push_back(*goal);
    }
    if (goals.empty()) {
        for (int g = 0; g < kFinderGoalCount; ++g)
            goals.push_back(static_cast<FinderGoal>(g));
    }

    std::printf("finder, %d samples|limit|time|cpu (all threads)|evaluated|nodes|best\n", library.Count);
    std::vector<double> times;
    for (const FinderGoal goal : goals) {
        for (const std::optional<double> limit : {std::optional<double>(), std::optional(30.0), std::optional(50.0)}) {
            FinderSettings settings;
            settings.Goal = goal;
            settings.MaxLevel = limit;
            const auto start = std::chrono::steady_clock::now();
            const std::clock_t cpuStart = std::clock();
            const FinderResult result = FindTemplates(library, settings);
            const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
            const double cpu = static_cast<double>(std::clock() - cpuStart) / CLOCKS_PER_SEC;
            times.push_back(seconds);
            const std::string best =
                result.Templates.empty() ? "-" : FinderScoreText(goal, result.Templates.front().Score);
            std::printf("%s|%s|%.3f s|%.3f s|%llu|%llu|%s\n", FinderGoalKeyword(goal).c_str(),
                        limit ? FinderLevelText(*limit).c_str() : "none", seconds, cpu,
                        static_cast<unsigned long long>(result.Evaluated),
                        static_cast<unsigned long long>(result.Nodes), best.c_str());
            std::fflush(stdout);
        }
    }
    const double worst = *std::max_element(times.begin(), times.end());
    const double median = bench::Median(times);
    std::printf("median|%.3f s|target <= 1 s|%s\n", median, median <= 1.0 ? "met" : "MISSED");
    std::printf("worst|%.3f s|target <= 5 s|%s\n", worst, worst <= 5.0 ? "met" : "MISSED");
    return 0;
}
