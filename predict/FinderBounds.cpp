#include "FinderBounds.h"

#include "Numeric.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace quorvel::finder {

namespace {

// Sums of at most five products differ from the template's own sums by far less than this.
constexpr double kSumSlack = 1e-6;
// From this cap on the start-value rule never falls.
constexpr Value kRisingFrom = -75;

// The start-value rule before its rounding, a convex parabola.
double StartCurve(double cap) {
    return (cap / 1000 + 0.15) * cap - 0.1;
}

double StartSlope(double cap) {
    return cap / 500 + 0.15;
}

// A convex function that the current value of `attribute` stays below (up to `roundingSlack`)
// at every whole cap: the start-value curve or the cap itself, Power's at least 113.
double UpperCurve(const FinderModel &model, int attribute, double cap) {
    const double curve = model.Settings().Experimented ? cap : StartCurve(cap);
    return attribute == At(Attribute::Power) ? std::max(curve, 113.0) : curve;
}

// A line over the caps [lo, hi] that a convex curve stays below: the chord, or, with a given
// slope, the lowest line of that slope above both ends. Returns slope and constant of
// current <= slope x r + constant in the unrounded cap r (a cap is r rounded, off by a half).
std::pair<double, double> UpperLine(const FinderModel &model, int attribute, Value lo, Value hi,
                                    std::optional<double> keptSlope) {
    const double curveLo = UpperCurve(model, attribute, lo);
    const double curveHi = UpperCurve(model, attribute, hi);
    const double slope = keptSlope.value_or(hi > lo ? (curveHi - curveLo) / (static_cast<double>(hi) - lo) : 0.0);
    const double constant = std::max(curveLo - slope * lo, curveHi - slope * hi);
    const double rounding = model.Settings().Experimented ? 0.0 : 0.5;
    const double slack = 1e-9 * (1 + std::fabs(curveLo) + std::fabs(curveHi));
    return {slope, constant + 0.5 * std::fabs(slope) + rounding + slack};
}

// The smallest whole value in [lo, hi] at which a non-decreasing `test` holds (hi when none).
template <typename Test> Value FirstWhere(Value lo, Value hi, Test test) {
    while (lo < hi) {
        const Value middle = lo + (hi - lo) / 2;
        if (test(middle))
            hi = middle;
        else
            lo = middle + 1;
    }
    return lo;
}

// The least value of the inner sum (weights x current values) that can still round to `score`.
double InnerSumNeeded(FinderGoal goal, double score) {
    switch (goal) {
    case FinderGoal::Health:
        return score - 50.5;
    case FinderGoal::Defense:
        return score - 4.5;
    case FinderGoal::StateResist: {
        // The 2-decimal value n / 100 of the rounded hundredfold sum.
        double n = RoundHalfEven(score * 100);
        while ((n - 1) / 100 >= score)
            n -= 1;
        while (n / 100 < score)
            n += 1;
        return (n - 0.5) / 100;
    }
    default:
        return score - 0.5;
    }
}

bool AllZero(const Doubles10 &values) {
    return std::all_of(values.begin(), values.end(), [](double v) { return v == 0.0; });
}

} // namespace

Intervals NodeIntervals(const FinderModel &model, const Doubles10 &assigned, const FreeCategories &free) {
    Intervals in;
    for (int a = 0; a < kAttributeCount; ++a) {
        double lo = assigned[a];
        double hi = assigned[a];
        for (int f = 0; f < free.Count; ++f) {
            lo += model.LowestProducts(free.List[f])[a];
            hi += model.HighestProducts(free.List[f])[a];
        }
        in.CapLo[a] = ToValue(RoundHalfEven(lo - kSumSlack));
        in.CapHi[a] = ToValue(RoundHalfEven(hi + kSumSlack));
        const auto [curLo, curHi] = model.CurrentRange(a, in.CapLo[a], in.CapHi[a]);
        in.CurLo[a] = curLo;
        in.CurHi[a] = curHi;
    }
    in.LevelLo = model.WeightedLevelOf(in.CurLo);
    in.LevelHi = model.WeightedLevelOf(in.CurHi);
    return in;
}

void SetLevelTangents(const FinderModel &model, const Intervals &in, const Doubles10 &touch, LinearBound &bound) {
    const bool experimented = model.Settings().Experimented;
    bound.LevelConstant = 0.0;
    for (int a = 0; a < kAttributeCount; ++a) {
        const double t = std::clamp(touch[a], static_cast<double>(in.CapLo[a]), static_cast<double>(in.CapHi[a]));
        // current >= slope x r + constant for every cap: the current value is the rounded
        // curve (or the cap), the cap the rounded sum r, each off by at most a half.
        double slope = 1.0;
        double constant = -0.5;
        if (!experimented) {
            slope = StartSlope(t);
            const double curve = StartCurve(t);
            constant = curve - slope * t - 0.5 * std::fabs(slope) - 0.5 - 1e-9 * (1 + std::fabs(curve));
        }
        // Power's current value is at least 113 whatever the cap.
        if (a == At(Attribute::Power) && slope * t + constant < 113) {
            slope = 0.0;
            constant = 113;
        }
        const double weight = model.LevelWeights()[a];
        bound.LevelSlope[a] = weight * slope;
        bound.LevelConstant += weight * constant;
    }
}

void SetGoalCondition(const FinderModel &model, const Intervals &in, double score, bool keepSlopes,
                      LinearBound &bound) {
    const GoalShape &shape = model.Shape();
    const bool experimented = model.Settings().Experimented;
    if (!keepSlopes) {
        bound.GoalSlope.fill(0.0);
        bound.ChordSlope.fill(0.0);
    }
    bound.GoalActive = false;
    if (shape.Count == 0 || model.Score(in.CurLo) >= score || (keepSlopes && AllZero(bound.GoalSlope)))
        return;
    if (shape.Count == 1) {
        // One current value: the score is reached exactly from some cap on.
        const int g = shape.Attributes[0];
        if (!experimented && in.CapLo[g] < kRisingFrom)
            return;
        ValueArray current{};
        const auto reaches = [&](Value c) {
            current[g] = c;
            return model.Score(current) >= score;
        };
        const Value needed = FirstWhere(in.CurLo[g], in.CurHi[g], reaches);
        const Value cap = FirstWhere(in.CapLo[g], in.CapHi[g], [&](Value c) { return model.Current(g, c) >= needed; });
        bound.GoalSlope[g] = 1.0;
        bound.GoalNeed = cap - 0.5 - kSumSlack;
        bound.GoalActive = true;
        return;
    }
    // The two current values each have to be high enough with the other at its highest: the
    // chords need only cover the caps from there on, which keeps them close to the curve.
    double need = InnerSumNeeded(model.Settings().Goal, score);
    need -= 1e-7 * (1 + std::fabs(need));
    for (int j = 0; j < shape.Count; ++j) {
        const int a = shape.Attributes[j];
        const int other = shape.Attributes[1 - j];
        Value from = in.CapLo[a];
        if (experimented || from >= kRisingFrom) {
            ValueArray current{};
            current[other] = in.CurHi[other];
            from = FirstWhere(in.CapLo[a], in.CapHi[a], [&](Value c) {
                current[a] = model.Current(a, c);
                return model.Score(current) >= score;
            });
        }
        const auto [slope, constant] =
            UpperLine(model, a, from, in.CapHi[a], keepSlopes ? std::optional(bound.ChordSlope[a]) : std::nullopt);
        bound.ChordSlope[a] = slope;
        bound.GoalSlope[a] = shape.Weights[j] * slope;
        need -= shape.Weights[j] * constant;
    }
    bound.GoalNeed = need;
    bound.GoalActive = true;
}

void SetLevelGoalCondition(const FinderModel &model, const Intervals &in, int64_t weightedLevel, bool keepSlopes,
                           LinearBound &bound) {
    if (!keepSlopes) {
        bound.GoalSlope.fill(0.0);
        bound.ChordSlope.fill(0.0);
    }
    bound.GoalActive = false;
    if (weightedLevel <= in.LevelLo || (keepSlopes && AllZero(bound.GoalSlope)))
        return;
    // Z / 100 must round to weightedLevel or more.
    double need = (static_cast<double>(weightedLevel) - 0.5) * 100;
    need -= 1e-7 * (1 + std::fabs(need));
    for (int a = 0; a < kAttributeCount; ++a) {
        const auto [slope, constant] = UpperLine(model, a, in.CapLo[a], in.CapHi[a],
                                                 keepSlopes ? std::optional(bound.ChordSlope[a]) : std::nullopt);
        const double weight = model.LevelWeights()[a];
        bound.ChordSlope[a] = slope;
        bound.GoalSlope[a] = weight * slope;
        need -= weight * constant;
    }
    bound.GoalNeed = need;
    bound.GoalActive = true;
}

double LevelSumLimit(int64_t weightedLevel) {
    const double limit = (static_cast<double>(weightedLevel) + 0.5) * 100;
    return limit + 1e-7 * (1 + std::fabs(limit));
}

Remaining RemainingSides(const LinearBound &bound, const Doubles10 &assigned, double levelSumLimit) {
    Remaining left{bound.GoalNeed, levelSumLimit - bound.LevelConstant};
    for (int a = 0; a < kAttributeCount; ++a) {
        left.Goal -= bound.GoalSlope[a] * assigned[a];
        left.Level -= bound.LevelSlope[a] * assigned[a];
    }
    return left;
}

void DualSolver::Linearize(const FinderModel &model, const LinearBound &bound, const FreeCategories &free) {
    for (int f = 0; f < free.Count; ++f) {
        const int k = free.List[f];
        const std::size_t n = model.Candidates(k).size();
        std::vector<double> &level = level_[k];
        std::vector<double> &goal = goal_[k];
        level.assign(n, 0.0);
        goal.assign(n, 0.0);
        for (int a = 0; a < kAttributeCount; ++a) {
            const double *products = model.Products(k, a).data();
            const double ls = bound.LevelSlope[a];
            const double gs = bound.GoalSlope[a];
            for (std::size_t i = 0; i < n; ++i)
                level[i] += ls * products[i];
            if (gs != 0.0) {
                for (std::size_t i = 0; i < n; ++i)
                    goal[i] += gs * products[i];
            }
        }
        // The hull starts at the least level share (the largest goal share among equals).
        std::size_t lowest = 0;
        for (std::size_t i = 1; i < n; ++i) {
            if (level[i] < level[lowest] || (level[i] == level[lowest] && goal[i] > goal[lowest]))
                lowest = i;
        }
        hull_[k].clear();
        if (n > 0)
            hull_[k].push_back({goal[lowest], level[lowest], lowest});
        hullDone_[k] = n == 0;
    }
}

DualSolver::Result DualSolver::Solve(const FinderModel &model, const LinearBound &bound, const Doubles10 &assigned,
                                     const FreeCategories &free, double levelSumLimit) {
    Result result;
    const Remaining left = RemainingSides(bound, assigned, levelSumLimit);
    const double goalLeft = left.Goal;
    const double levelLeft = left.Level;
    // Each category's best choice for a multiplier m minimises level - m x goal: a vertex of its
    // lower hull. Raising m from 0 walks the hulls' edges in the order of their slopes until the
    // choices reach the goal's need (at once when the goal side is off).
    std::array<std::size_t, kCategoryCount> at{};
    double reached = 0.0;
    for (int f = 0; f < free.Count; ++f) {
        const int k = free.List[f];
        at[k] = 0;
        reached += hull_[k][0].X;
    }
    double multiplier = 0.0;
    while (bound.GoalActive && reached < goalLeft) {
        int next = -1;
        double slope = std::numeric_limits<double>::infinity();
        for (int f = 0; f < free.Count; ++f) {
            const int k = free.List[f];
            if (at[k] + 1 >= hull_[k].size() && !ExtendHull(k))
                continue;
            const std::vector<Vertex> &hull = hull_[k];
            const Vertex &p = hull[at[k]];
            const Vertex &q = hull[at[k] + 1];
            const double s = (q.Level - p.Level) / (q.X - p.X);
            if (s < slope) {
                slope = s;
                next = k;
            }
        }
        if (next < 0) {
            // Even the largest goal shares fall short.
            result.Impossible = true;
            result.DualValue = std::numeric_limits<double>::infinity();
            return result;
        }
        reached += hull_[next][at[next] + 1].X - hull_[next][at[next]].X;
        ++at[next];
        multiplier = std::max(multiplier, slope);
    }
    double value = multiplier * goalLeft - levelLeft;
    double scale = 1 + std::fabs(levelLeft) + std::fabs(multiplier * goalLeft);
    result.ChoiceSums = assigned;
    for (int f = 0; f < free.Count; ++f) {
        const int k = free.List[f];
        const Vertex &v = hull_[k][at[k]];
        result.CategoryMinimum[k] = v.Level - multiplier * v.X;
        value += result.CategoryMinimum[k];
        scale += std::fabs(v.Level) + std::fabs(multiplier * v.X);
        for (int a = 0; a < kAttributeCount; ++a)
            result.ChoiceSums[a] += model.Products(k, a)[v.Candidate];
    }
    result.Multiplier = multiplier;
    result.DualValue = value;
    result.Tolerance = 1e-7 * scale;
    result.Impossible = value > result.Tolerance;
    return result;
}

bool DualSolver::ExtendHull(int category) {
    if (hullDone_[category])
        return false;
    // The next vertex: of the points with a larger goal share, the one the edge reaches with
    // the least slope (the farthest of equal slopes).
    const Vertex from = hull_[category].back();
    const std::vector<double> &goal = goal_[category];
    const std::vector<double> &level = level_[category];
    std::size_t best = goal.size();
    double bestRise = 0.0;
    double bestRun = 1.0;
    for (std::size_t i = 0; i < goal.size(); ++i) {
        const double run = goal[i] - from.X;
        if (!(run > 0))
            continue;
        const double rise = level[i] - from.Level;
        // rise / run < bestRise / bestRun, compared without dividing (both runs are positive).
        const double cross = rise * bestRun - bestRise * run;
        if (best == goal.size() || cross < 0 || (cross == 0 && run > bestRun)) {
            best = i;
            bestRise = rise;
            bestRun = run;
        }
    }
    if (best == goal.size()) {
        hullDone_[category] = true;
        return false;
    }
    hull_[category].push_back({goal[best], level[best], best});
    return true;
}

} // namespace quorvel::finder
