#pragma once

#include "FinderModel.h"

#include <array>
#include <cstdint>
#include <vector>

// Bounds on what the templates below a partial template can reach. Every bound is sound for
// any values (negative and extreme ones too): they follow from the monotone formulas evaluated
// at interval ends, from tangents and chords of the convex start-value rule, and from a
// Lagrangian relaxation in which the free categories choose independently.
namespace quorvel::finder {

// The categories still free, in the order the search fills them.
struct FreeCategories {
    std::array<int, kCategoryCount> List{};
    int Count = 0;
};

// The caps, current values and weighted levels the free categories can still produce.
struct Intervals {
    ValueArray CapLo{}, CapHi{}, CurLo{}, CurHi{};
    int64_t LevelLo = 0, LevelHi = 0; // the weighted level L
};

// `assigned` is the sum of the filled categories' contributions to each cap.
Intervals NodeIntervals(const FinderModel &model, const Doubles10 &assigned, const FreeCategories &free);

// A linear relaxation of "reaches the threshold and stays within the level limit", in the
// unrounded caps r[a] (sums of contributions):
//   level side: sum of levelSlope[a] x r[a] + levelConstant <= Z, the level sum
//               Power x factor + X, for every template;
//   goal side:  sum of goalSlope[a] x r[a] >= goalNeed for every template that reaches the
//               threshold (only when goalActive).
struct LinearBound {
    Doubles10 LevelSlope{};
    double LevelConstant = 0.0;
    Doubles10 GoalSlope{};
    double GoalNeed = 0.0;
    bool GoalActive = false;
    Doubles10 ChordSlope{}; // the slope of each goal attribute's upper line, before its weight
};

// The level side from tangents of the start-value rule at the caps `touch` (each kept inside
// its interval).
void SetLevelTangents(const FinderModel &model, const Intervals &in, const Doubles10 &touch, LinearBound &bound);

// The goal side for reaching `score` (a statistic goal). With `keepSlopes` the goal slopes stay
// those already in `bound` and only the need is recomputed for these intervals. goalActive
// stays false when every template below reaches the score, or when the current value is not
// monotone over the interval.
void SetGoalCondition(const FinderModel &model, const Intervals &in, double score, bool keepSlopes, LinearBound &bound);

// The goal side of the level goal: the level sum must reach weighted level `weightedLevel`.
void SetLevelGoalCondition(const FinderModel &model, const Intervals &in, int64_t weightedLevel, bool keepSlopes,
                           LinearBound &bound);

// What the free categories must still bring: the goal side's need and the room under the level
// limit, after the filled categories' shares (sums in `assigned`).
struct Remaining {
    double Goal = 0.0;
    double Level = 0.0;
};
Remaining RemainingSides(const LinearBound &bound, const Doubles10 &assigned, double levelSumLimit);

// The largest level sum Z that still rounds to a weighted level of at most L.
double LevelSumLimit(int64_t weightedLevel);

// The Lagrangian dual of the relaxation: the free categories choose independently, the goal
// side is moved into the objective with a multiplier, and the least level sum is compared with
// the limit.
class DualSolver final {
public:
    struct Result {
        bool Impossible = false; // no choice of the free categories meets both sides
        double DualValue = 0.0;  // the dual value; above the tolerance means impossible
        double Multiplier = 0.0;
        double Tolerance = 0.0;
        std::array<double, kCategoryCount> CategoryMinimum{}; // by category
        Doubles10 ChoiceSums{}; // unrounded caps of the relaxation's choice, for the next tangents
    };

    // The candidates' shares of both sides.
    void Linearize(const FinderModel &model, const LinearBound &bound, const FreeCategories &free);

    // The dual's best multiplier for a partial template whose free categories were linearized
    // with the same slopes (the need and the constants may differ). Extends the hulls it walks.
    Result Solve(const FinderModel &model, const LinearBound &bound, const Doubles10 &assigned,
                 const FreeCategories &free, double levelSumLimit);

    // The dual value a child would have with candidate `index` in `category`, at the same
    // multiplier: above the tolerance, the child cannot meet both sides.
    double ChildValue(const Result &result, int category, std::size_t index) const {
        return result.DualValue - result.CategoryMinimum[category] + level_[category][index] -
               result.Multiplier * goal_[category][index];
    }

    // The candidates' shares of the two sides, in candidate order.
    const std::vector<double> &LevelShares(int category) const { return level_[category]; }
    const std::vector<double> &GoalShares(int category) const { return goal_[category]; }

private:
    struct Vertex {
        double X;
        double Level;
        std::size_t Candidate;
    };
    // The vertex after the last one of a category's hull, found when first needed; false at
    // the hull's end.
    bool ExtendHull(int category);

    std::array<std::vector<double>, kCategoryCount> level_;
    std::array<std::vector<double>, kCategoryCount> goal_;
    // Per category the part of the lower hull of the points (goal share, level share) that a
    // multiplier can choose: from the least level share on to the largest goal share.
    std::array<std::vector<Vertex>, kCategoryCount> hull_;
    std::array<bool, kCategoryCount> hullDone_{};
};

} // namespace quorvel::finder
