#include "FinderSearch.h"

#include "Numeric.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorvel::finder {

namespace {

constexpr int kLeafDepth = kCategoryCount - 1;
constexpr double kSumSlack = 1e-6;

} // namespace

Searcher::Searcher(const FinderModel &model, RankedList &list, const std::atomic<bool> *cancel)
    : model_(model), list_(list), cancel_(cancel) {
    used_.assign(static_cast<std::size_t>(model.SampleCount()) + 1, 0);
}

bool Searcher::StartAtRoot() {
    const FinderSettings &settings = model_.Settings();
    // With every category fixed, the last one is left for the leaves to evaluate.
    root_ = std::min(model_.FixedCount(), kLeafDepth);
    for (int d = 0; d < root_; ++d) {
        const int k = model_.Order()[d];
        const int slot = settings.FixedSlots[k];
        slots_[k] = slot;
        ++used_[static_cast<std::size_t>(slot)];
        for (int a = 0; a < kAttributeCount; ++a)
            sums_[d + 1][a] = sums_[d][a] + model_.ProductsOfSlot(k, slot)[a];
    }
    if (root_ == kLeafDepth) {
        // Nothing to divide among threads: at most one category is left to choose.
        Node(kLeafDepth);
        return false;
    }
    nodes_ += 1;
    return Prepare(root_, states_[root_]);
}

void Searcher::AdoptRoot(const Searcher &owner) {
    root_ = owner.root_;
    slots_ = owner.slots_;
    used_ = owner.used_;
    sums_ = owner.sums_;
    states_[root_] = owner.states_[root_];
    solvers_[root_] = owner.solvers_[root_];
    pairSolver_ = owner.pairSolver_;
}

std::size_t Searcher::Tasks() const {
    const std::size_t children = model_.Candidates(model_.Order()[root_]).size();
    return root_ + 2 < kLeafDepth ? children * Grandchildren() : children;
}

std::size_t Searcher::Grandchildren() const {
    return model_.Candidates(model_.Order()[root_ + 1]).size();
}

std::optional<std::size_t> Searcher::RunTask(std::size_t task) {
    Refresh();
    if (root_ + 2 >= kLeafDepth) {
        if (Child(root_, states_[root_], task))
            return std::nullopt;
        return task + 1;
    }
    const std::size_t child = task / Grandchildren();
    if (!entered_ || *entered_ != child) {
        LeaveRootChild();
        const Verdict verdict = Judge(states_[root_], child);
        if (verdict == Verdict::Stop)
            return child * Grandchildren();
        entered_ = child;
        if (verdict == Verdict::Enter) {
            Enter(root_, child);
            childEntered_ = true;
            ++nodes_;
            childOpen_ = !Cancelled() && Prepare(root_ + 1, states_[root_ + 1]);
        }
        childStopped_ = false;
    }
    if (childOpen_ && !childStopped_)
        childStopped_ = !Child(root_ + 1, states_[root_ + 1], task % Grandchildren());
    return std::nullopt;
}

void Searcher::LeaveRootChild() {
    if (childEntered_)
        Leave(root_, *entered_);
    entered_.reset();
    childEntered_ = false;
    childOpen_ = false;
}

void Searcher::Refresh() {
    const uint64_t version = list_.Version();
    if (version != version_) {
        threshold_ = list_.Current();
        version_ = version;
    }
}

Slots Searcher::SmallestSlots() const {
    Slots lowest{};
    for (int c = 0; c < kCategoryCount; ++c)
        lowest[c] = slots_[c] != 0 ? slots_[c] : model_.SmallestSlot(c);
    return lowest;
}

bool Searcher::BeatsTuple() const {
    return SmallestSlots() < threshold_.Last.Slots;
}

void Searcher::Node(int depth) {
    ++nodes_;
    if (Cancelled())
        return;
    NodeState &state = states_[depth];
    if (!Prepare(depth, state))
        return;
    if (depth == kLeafDepth) {
        Leaves();
        return;
    }
    const std::size_t count = model_.Candidates(state.Free.List[0]).size();
    for (std::size_t i = 0; i < count; ++i) {
        if (!Child(depth, state, i))
            break;
    }
}

double Searcher::LaterGoalBound(const NodeState &state, int category, std::size_t index) const {
    const GoalShape &shape = model_.Shape();
    const int main = shape.Attributes[0];
    ValueArray current{};
    const double sum = state.OthersHi[main] + model_.Products(category, main)[index] + kSumSlack;
    current[main] = model_.Current(main, ToValue(RoundHalfEven(sum)));
    if (shape.Count == 2)
        current[shape.Attributes[1]] = state.In.CurHi[shape.Attributes[1]];
    return model_.Score(current);
}

Searcher::Verdict Searcher::Judge(const NodeState &state, std::size_t index) const {
    const int k = state.Free.List[0];
    const int slot = model_.Candidates(k)[index];
    if (!model_.Settings().Reuse && used_[static_cast<std::size_t>(slot)] != 0)
        return Verdict::Skip;
    if (state.TiesOnly && model_.SlotOrdered() && threshold_.Full) {
        // Only the slots can still win, and they only grow from here on.
        Slots lowest = SmallestSlots();
        lowest[k] = slot;
        if (!(lowest < threshold_.Last.Slots))
            return Verdict::Stop;
    }
    if (state.FallingGoal && threshold_.Full && LaterGoalBound(state, k, index) < threshold_.Last.Score)
        return Verdict::Stop;
    // The cheaper tests first.
    if (state.Pairing && PairingRulesOut(state, index))
        return Verdict::Skip;
    if (state.DualActive && solvers_[state.SolverDepth].ChildValue(state.Dual, k, index) > state.Dual.Tolerance)
        return Verdict::Skip;
    if (model_.Shape().Count > 0 && threshold_.Full && ChildGoalBound(state, k, index) < threshold_.Last.Score)
        return Verdict::Skip;
    if (LevelRulesOut(state, k, index))
        return Verdict::Skip;
    return Verdict::Enter;
}

void Searcher::Enter(int depth, std::size_t index) {
    const int k = model_.Order()[depth];
    const int slot = model_.Candidates(k)[index];
    slots_[k] = slot;
    ++used_[static_cast<std::size_t>(slot)];
    for (int a = 0; a < kAttributeCount; ++a)
        sums_[depth + 1][a] = sums_[depth][a] + model_.Products(k, a)[index];
}

void Searcher::Leave(int depth, std::size_t index) {
    const int k = model_.Order()[depth];
    --used_[static_cast<std::size_t>(model_.Candidates(k)[index])];
    slots_[k] = 0;
}

bool Searcher::Child(int depth, const NodeState &state, std::size_t index) {
    const Verdict verdict = Judge(state, index);
    if (verdict == Verdict::Enter) {
        Enter(depth, index);
        Node(depth + 1);
        Leave(depth, index);
    }
    return verdict != Verdict::Stop;
}

void Searcher::Leaves() {
    const NodeState &state = states_[kLeafDepth];
    const int k = state.Free.List[0];
    const FinderSettings &settings = model_.Settings();
    const GoalShape &shape = model_.Shape();
    // The caps are summed from Physique on, as the template evaluation sums them: the filled
    // categories before k form a prefix, those after it are added one by one.
    Doubles10 prefix{};
    for (int a = 0; a < kAttributeCount; ++a) {
        double sum = 0.0;
        for (int c = 0; c < k; ++c)
            sum += model_.ProductsOfSlot(c, slots_[c])[a];
        prefix[a] = sum;
    }
    const auto cap = [&](int a, std::size_t index) {
        double sum = prefix[a] + model_.Products(k, a)[index];
        for (int c = k + 1; c < kCategoryCount; ++c)
            sum += model_.ProductsOfSlot(c, slots_[c])[a];
        return ToValue(RoundHalfEven(sum));
    };
    std::array<bool, kAttributeCount> isGoal{};
    for (int j = 0; j < shape.Count; ++j)
        isGoal[shape.Attributes[j]] = true;

    const std::vector<int> &candidates = model_.Candidates(k);
    // With a falling goal the candidates that can still reach the list's last score are the
    // first ones: the main value falls along them, the other one is at most its highest.
    std::size_t end = candidates.size();
    if (state.FallingGoal && threshold_.Full) {
        const int main = shape.Attributes[0];
        ValueArray highest{};
        if (shape.Count == 2)
            highest[shape.Attributes[1]] = state.In.CurHi[shape.Attributes[1]];
        std::size_t reaching = 0;
        while (reaching < end) {
            const std::size_t middle = reaching + (end - reaching) / 2;
            highest[main] = model_.Current(main, cap(main, middle));
            if (model_.Score(highest) < threshold_.Last.Score)
                end = middle;
            else
                reaching = middle + 1;
        }
    }
    // The level sum's linear lower bound of those candidates, all at once.
    if (state.LeafFilter) {
        leafLevel_.assign(end, 0.0);
        for (int a = 0; a < kAttributeCount; ++a) {
            const double slope = state.LeafBound.LevelSlope[a];
            const double *products = model_.Products(k, a).data();
            for (std::size_t i = 0; i < end; ++i)
                leafLevel_[i] += slope * products[i];
        }
    }
    for (std::size_t i = 0; i < end; ++i) {
        const int slot = candidates[i];
        if (!settings.Reuse && used_[static_cast<std::size_t>(slot)] != 0)
            continue;
        if (state.LeafFilter && leafLevel_[i] > state.LeafRoom)
            continue;
        ++evaluated_;
        ValueArray current{};
        double score = 0.0;
        if (shape.Count > 0) {
            for (int j = 0; j < shape.Count; ++j) {
                const int a = shape.Attributes[j];
                current[a] = model_.Current(a, cap(a, i));
            }
            score = model_.Score(current);
            if (threshold_.Full && score < threshold_.Last.Score)
                continue;
        }
        for (int a = 0; a < kAttributeCount; ++a) {
            if (!isGoal[a])
                current[a] = model_.Current(a, cap(a, i));
        }
        const double level = model_.LevelOf(model_.WeightedLevelOf(current));
        if (!model_.Levels().Allowed(level))
            continue;
        // Adding zero turns a rounded -0 into the 0 the panel shows.
        FoundTemplate found;
        found.Score = (shape.Count > 0 ? score : level) + 0.0;
        found.Level = level + 0.0;
        found.Slots = slots_;
        found.Slots[k] = slot;
        if (state.TiesOnly && model_.SlotOrdered() && threshold_.Full && !(found.Slots < threshold_.Last.Slots))
            break;
        if (threshold_.Admits(found)) {
            list_.Offer(found);
            Refresh();
        }
    }
}

} // namespace quorvel::finder
