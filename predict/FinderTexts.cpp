#include "Finder.h"

#include "Numeric.h"
#include "ReferenceTables.h"

#include <cstddef>

namespace quorvel {

namespace {

// The goals' command-line words; their names are the statistics' names.
constexpr std::array<const char *, kFinderGoalCount> kGoalKeywords{
    "health",       "regen",         "armor",       "to-hit", "defense", "state-resist",
    "critical-hit", "critical-save", "aggro-bonus", "damage", "level"};

static_assert(kFinderGoalCount == kStatNameCount);

} // namespace

std::string FinderGoalName(FinderGoal goal) {
    return StatTable[static_cast<std::size_t>(goal)];
}

std::string FinderGoalKeyword(FinderGoal goal) {
    return kGoalKeywords[static_cast<std::size_t>(goal)];
}

std::optional<FinderGoal> ParseFinderGoal(const std::string &keyword) {
    for (std::size_t i = 0; i < kGoalKeywords.size(); ++i) {
        if (keyword == kGoalKeywords[i])
            return static_cast<FinderGoal>(i);
    }
    return std::nullopt;
}

std::string FinderScoreText(FinderGoal goal, double score) {
    return goal == FinderGoal::Level ? FinderLevelText(score) : FormatDouble(score);
}

std::string FinderLevelText(double level) {
    return FormatSingle(ToSingle(level));
}

} // namespace quorvel
