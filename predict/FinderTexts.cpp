#include "Finder.h"

#include "Numeric.h"

#include <cstddef>

namespace quorvel {

namespace {

struct GoalWords {
    const char *Name;
    const char *Keyword;
};

constexpr std::array<GoalWords, kFinderGoalCount> kGoalWords{{
    {"Health", "health"},
    {"Regen", "regen"},
    {"Armor", "armor"},
    {"To hit", "to-hit"},
    {"Defense", "defense"},
    {"State Resist", "state-resist"},
    {"Critical hit", "critical-hit"},
    {"Critical save", "critical-save"},
    {"Aggro bonus", "aggro-bonus"},
    {"Damage", "damage"},
    {"Level", "level"},
}};

const GoalWords &WordsOf(FinderGoal goal) {
    return kGoalWords[static_cast<std::size_t>(goal)];
}

} // namespace

std::string FinderGoalName(FinderGoal goal) {
    return WordsOf(goal).Name;
}

std::string FinderGoalKeyword(FinderGoal goal) {
    return WordsOf(goal).Keyword;
}

std::optional<FinderGoal> ParseFinderGoal(const std::string &keyword) {
    for (std::size_t i = 0; i < kGoalWords.size(); ++i) {
        if (keyword == kGoalWords[i].Keyword)
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
