#include "FinderSearch.h"

#include "Numeric.h"

#include <algorithm>
#include <cmath>
#include <limits>

// The bounds of one node of the search and the filters it hands its children.
namespace quorvel::finder {

namespace {

constexpr double kSumSlack = 1e-6;
constexpr Value kRisingFrom = -75;
// Rounds of fresh tangents at the root and, by the number of free categories, below it.
constexpr int kRootRounds = 6;
constexpr std::array<int, kCategoryCount + 1> kNodeRounds{0, 0, 1, 2, 2, 2};
// With two free categories the pairing replaces the node's own rounds (but for the root's).
constexpr int kPairingFree = 2;

} // namespace

bool Searcher::Prepare(int depth, NodeState &state) {
    Refresh();
    state.Free.Count = kCategoryCount - depth;
    for (int f = 0; f < state.Free.Count; ++f)
        state.Free.List[f] = model_.Order()[depth + f];
    state.In = NodeIntervals(model_, sums_[depth], state.Free);
    state.DualActive = false;
    state.Pairing = false;
    state.LeafFilter = false;
    state.TiesOnly = false;
    for (int a = 0; a < kAttributeCount; ++a)
        state.Touch[a] = depth > root_ && states_[depth - 1].DualActive
                             ? states_[depth - 1].Touch[a]
                             : (static_cast<double>(state.In.CapLo[a]) + state.In.CapHi[a]) / 2;
    const bool open = model_.Settings().Goal == FinderGoal::Level ? PrepareLevelGoal(depth, state)
                                                                  : PrepareStatisticGoal(depth, state);
    if (!open)
        return false;

    const int k = state.Free.List[0];
    for (int a = 0; a < kAttributeCount; ++a) {
        state.OthersLo[a] = sums_[depth][a];
        state.OthersHi[a] = sums_[depth][a];
        for (int f = 1; f < state.Free.Count; ++f) {
            state.OthersLo[a] += model_.LowestProducts(state.Free.List[f])[a];
            state.OthersHi[a] += model_.HighestProducts(state.Free.List[f])[a];
        }
    }
    const GoalShape &shape = model_.Shape();
    state.FallingGoal = false;
    if (shape.Count > 0) {
        const int g = shape.Attributes[0];
        const double lowestSum = state.OthersLo[g] + model_.LowestProducts(k)[g] - kSumSlack;
        state.FallingGoal = model_.Settings().Experimented || RoundHalfEven(lowestSum) >= kRisingFrom;
    }
    return true;
}

bool Searcher::PrepareLevelGoal(int depth, NodeState &state) {
    const Intervals &in = state.In;
    const LevelTable &levels = model_.Levels();
    const std::optional<double> best = levels.HighestAllowed(in.LevelLo, in.LevelHi);
    if (!best)
        return false;
    // The weighted levels whose level can still enter the list: any allowed one while the
    // list is not full.
    const Threshold &t = threshold_;
    const double least = t.Full ? t.Last.Score : -std::numeric_limits<double>::infinity();
    if (t.Full) {
        if (*best < least || (*best == least && !BeatsTuple()))
            return false;
        state.TiesOnly = *best == least;
    }
    const int64_t lowest = *levels.FirstAllowedAtLeast(in.LevelLo, in.LevelHi, least);
    const int64_t highest = *levels.LastAllowedAtLeast(in.LevelLo, in.LevelHi, least);
    return LimitLevel(depth, state, least, lowest, highest);
}

bool Searcher::PrepareStatisticGoal(int depth, NodeState &state) {
    const Intervals &in = state.In;
    const LevelTable &levels = model_.Levels();
    const double most = model_.Settings().MaxLevel.value_or(std::numeric_limits<double>::infinity());
    std::optional<int64_t> highest = levels.LastAtMost(in.LevelLo, in.LevelHi, most);
    if (!highest)
        return false;
    const Threshold &t = threshold_;
    if (t.Full) {
        const double best = model_.Score(in.CurHi);
        if (best < t.Last.Score)
            return false;
        state.TiesOnly = best == t.Last.Score;
        if (state.TiesOnly) {
            // Only a lower level, or the same level and smaller slots, can still win.
            highest = levels.LastAtMost(in.LevelLo, in.LevelHi, std::min(most, t.Last.Level));
            if (!highest)
                return false;
            const double below = std::nextafter(t.Last.Level, -std::numeric_limits<double>::infinity());
            if (!levels.LastAtMost(in.LevelLo, in.LevelHi, std::min(most, below)) && !BeatsTuple())
                return false;
        }
    }
    // While the list is not full every score can enter it.
    const double least = t.Full ? t.Last.Score : -std::numeric_limits<double>::infinity();
    return LimitLevel(depth, state, least, in.LevelLo, *highest);
}

bool Searcher::LimitLevel(int depth, NodeState &state, double score, int64_t lowest, int64_t highest) {
    if (lowest <= state.In.LevelLo && highest >= state.In.LevelHi)
        return true;
    if (state.Free.Count >= 2 && !RunDual(depth, state, score, lowest, highest))
        return false;
    if (state.Free.Count == kPairingFree)
        SetPairing(depth, state, score, lowest, highest);
    if (state.Free.Count == 1 && highest < state.In.LevelHi)
        SetLeafFilter(depth, state, highest);
    return true;
}

void Searcher::SetGoalSide(const NodeState &state, double score, int64_t lowest, bool keepSlopes,
                           LinearBound &bound) const {
    if (model_.Settings().Goal == FinderGoal::Level)
        SetLevelGoalCondition(model_, state.In, lowest, keepSlopes, bound);
    else
        SetGoalCondition(model_, state.In, score, keepSlopes, bound);
}

bool Searcher::RunDual(int depth, NodeState &state, double score, int64_t lowest, int64_t highest) {
    const double limit = LevelSumLimit(highest);
    if (depth > root_ && states_[depth - 1].DualActive) {
        const NodeState &parent = states_[depth - 1];
        LinearBound bound = parent.Bound;
        SetGoalSide(state, score, lowest, true, bound);
        const DualSolver::Result result =
            solvers_[parent.SolverDepth].Solve(model_, bound, sums_[depth], state.Free, limit);
        if (result.Impossible)
            return false;
        state.Bound = bound;
        state.Dual = result;
        state.SolverDepth = parent.SolverDepth;
        state.DualActive = true;
    }
    const int rounds = depth == root_                     ? kRootRounds
                       : state.Free.Count == kPairingFree ? 0
                                                          : kNodeRounds[state.Free.Count];
    for (int round = 0; round < rounds; ++round) {
        LinearBound bound;
        SetLevelTangents(model_, state.In, state.Touch, bound);
        SetGoalSide(state, score, lowest, false, bound);
        solvers_[depth].Linearize(model_, bound, state.Free);
        const DualSolver::Result result = solvers_[depth].Solve(model_, bound, sums_[depth], state.Free, limit);
        if (result.Impossible)
            return false;
        state.Bound = bound;
        state.Dual = result;
        state.SolverDepth = depth;
        state.DualActive = true;
        state.Touch = result.ChoiceSums;
    }
    return true;
}

bool Searcher::LevelRulesOut(const NodeState &state, int category, std::size_t index) const {
    const int64_t beyond = model_.Levels().DisallowedFrom();
    if (beyond > model_.Levels().Last())
        return false;
    ValueArray lowest{};
    for (int a = 0; a < kAttributeCount; ++a) {
        const double product = model_.Products(category, a)[index];
        const Value lo = ToValue(RoundHalfEven(state.OthersLo[a] + product - kSumSlack));
        lowest[a] =
            lo >= kRisingFrom
                ? model_.Current(a, lo)
                : model_.CurrentRange(a, lo, ToValue(RoundHalfEven(state.OthersHi[a] + product + kSumSlack))).first;
    }
    return model_.WeightedLevelOf(lowest) >= beyond;
}

void Searcher::SetPairing(int depth, NodeState &state, double score, int64_t lowest, int64_t highest) {
    LinearBound &bound = state.PairBound;
    SetLevelTangents(model_, state.In, state.Touch, bound);
    SetGoalSide(state, score, lowest, false, bound);
    DualSolver &solver = pairSolver_;
    solver.Linearize(model_, bound, state.Free);
    state.PairLeft = RemainingSides(bound, sums_[depth], LevelSumLimit(highest));
    state.PairTolerance = 1e-7 * (1 + std::fabs(state.PairLeft.Level));
    // The staircase of the second category: by falling goal share, the candidates whose level
    // share is below that of every candidate before them. Each has the least level share of
    // all candidates with at least its goal share. A one-attribute goal has the candidates in
    // falling order of goal share already. Only candidates that some child could pair with
    // count: what the first category brings at most bounds what is left for the second.
    const std::vector<double> &firstGoal = solver.GoalShares(state.Free.List[0]);
    const std::vector<double> &firstLevel = solver.LevelShares(state.Free.List[0]);
    const double levelRoom =
        state.PairLeft.Level + state.PairTolerance - *std::min_element(firstLevel.begin(), firstLevel.end());
    const double goalNeed = state.PairLeft.Goal - *std::max_element(firstGoal.begin(), firstGoal.end());
    const std::vector<double> &goal = solver.GoalShares(state.Free.List[1]);
    const std::vector<double> &level = solver.LevelShares(state.Free.List[1]);
    std::vector<std::pair<double, double>> &points = pairPoints_;
    points.clear();
    for (std::size_t i = 0; i < goal.size(); ++i) {
        if (level[i] <= levelRoom && (!bound.GoalActive || goal[i] >= goalNeed))
            points.emplace_back(goal[i], level[i]);
    }
    if (model_.Shape().Count != 1)
        std::sort(points.begin(), points.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
    state.PairGoal.clear();
    state.LeastLevelShare.clear();
    double below = std::numeric_limits<double>::infinity();
    for (const auto &[x, y] : points) {
        if (y < below) {
            state.PairGoal.push_back(x);
            state.LeastLevelShare.push_back(below = y);
        }
    }
    state.Pairing = true;
}

bool Searcher::PairingRulesOut(const NodeState &state, std::size_t index) const {
    const DualSolver &solver = pairSolver_;
    const int first = state.Free.List[0];
    const std::vector<double> &goal = state.PairGoal;
    // The least level share of the second category's candidates that reach the need with this
    // child is that of the last step of the staircase that reaches it.
    std::size_t reaching = goal.size();
    if (state.PairBound.GoalActive) {
        const double need = state.PairLeft.Goal - solver.GoalShares(first)[index];
        reaching = static_cast<std::size_t>(
            std::partition_point(goal.begin(), goal.end(), [need](double x) { return x >= need; }) - goal.begin());
    }
    if (reaching == 0)
        return true;
    const double least = state.LeastLevelShare[reaching - 1] + solver.LevelShares(first)[index];
    return least > state.PairLeft.Level + state.PairTolerance;
}

void Searcher::SetLeafFilter(int depth, NodeState &state, int64_t weightedLevel) {
    for (int a = 0; a < kAttributeCount; ++a)
        state.Touch[a] = (static_cast<double>(state.In.CapLo[a]) + state.In.CapHi[a]) / 2;
    SetLevelTangents(model_, state.In, state.Touch, state.LeafBound);
    double room = LevelSumLimit(weightedLevel) - state.LeafBound.LevelConstant;
    for (int a = 0; a < kAttributeCount; ++a)
        room -= state.LeafBound.LevelSlope[a] * sums_[depth][a];
    state.LeafRoom = room + 1e-7 * (1 + std::fabs(room));
    state.LeafFilter = true;
}

double Searcher::ChildGoalBound(const NodeState &state, int category, std::size_t index) const {
    const GoalShape &shape = model_.Shape();
    ValueArray current{};
    for (int j = 0; j < shape.Count; ++j) {
        const int a = shape.Attributes[j];
        const double product = model_.Products(category, a)[index];
        const Value lo = ToValue(RoundHalfEven(state.OthersLo[a] + product - kSumSlack));
        const Value hi = ToValue(RoundHalfEven(state.OthersHi[a] + product + kSumSlack));
        current[a] = model_.CurrentRange(a, lo, hi).second;
    }
    return model_.Score(current);
}

} // namespace quorvel::finder
