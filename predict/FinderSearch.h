#pragma once

#include "FinderBounds.h"
#include "FinderModel.h"
#include "FinderRanking.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel::finder {

// One search thread's depth-first branch and bound. Depth d means the first d categories of the
// model's order are filled; a node is pruned when its bounds show that no template below it can
// enter the ranked list.
class Searcher final {
public:
    Searcher(const FinderModel &model, RankedList &list, const std::atomic<bool> *cancel);

    // Fills the fixed categories; false when they alone already rule every template out.
    bool StartAtRoot();
    int RootDepth() const { return root_; }
    // Takes over the root that `owner` started, to search some of its tasks.
    void AdoptRoot(const Searcher &owner);
    // The search below the root in tasks, in order: the root's grandchildren (its children
    // when only two categories are free there), so that the threads share even the first
    // child's work.
    std::size_t Tasks() const;
    // Searches one task; when no later task can enter the list either, the first such task.
    std::optional<std::size_t> RunTask(std::size_t task);
    // Ends the last task's root child.
    void LeaveRootChild();

    uint64_t Evaluated() const { return evaluated_; }
    uint64_t Nodes() const { return nodes_; }
    bool Cancelled() const { return cancel_ != nullptr && cancel_->load(std::memory_order_relaxed); }

private:
    // What a node keeps for its children.
    struct NodeState {
        FreeCategories Free;
        Intervals In;
        Doubles10 OthersLo{}, OthersHi{}; // sums of the filled and the other free categories
        bool DualActive = false;
        LinearBound Bound;   // the linearization behind `Dual`
        int SolverDepth = 0; // the depth whose solver holds its candidates' shares
        DualSolver::Result Dual;
        // The main goal value falls along the candidates (its cap stays where the start-value
        // rule rises): a bound for one child holds for every later one.
        bool FallingGoal = false;
        bool TiesOnly = false; // no template below can score above the list's last
        Doubles10 Touch{};     // where the children's tangents start
        // With two free categories: the relaxation solved exactly for each child, from the
        // staircase of the second category's goal shares and least level shares.
        bool Pairing = false;
        LinearBound PairBound;
        Remaining PairLeft;
        double PairTolerance = 0.0;
        std::vector<double> PairGoal; // the staircase's goal shares, falling
        std::vector<double> LeastLevelShare;
        // For the leaves under a level limit: the level sum's linear lower bound, and the room
        // the chosen categories leave it.
        bool LeafFilter = false;
        LinearBound LeafBound;
        double LeafRoom = 0.0;
    };

    enum class Verdict { Enter, Skip, Stop }; // Stop: neither this child nor any later one

    void Node(int depth);
    Verdict Judge(const NodeState &state, std::size_t index) const;
    void Enter(int depth, std::size_t index);
    void Leave(int depth, std::size_t index);
    std::size_t Grandchildren() const;
    bool Prepare(int depth, NodeState &state);
    bool PrepareLevelGoal(int depth, NodeState &state);
    bool PrepareStatisticGoal(int depth, NodeState &state);
    // The Lagrangian bound for templates reaching `score` (weighted level `lowest` for the
    // level goal) with a weighted level of at most `highest`: first the parent's linearization
    // solved again for this node, then the node's own. false when the node is ruled out.
    bool RunDual(int depth, NodeState &state, double score, int64_t lowest, int64_t highest);
    // The bounds of a node whose templates must reach `score` (weighted level `lowest` for the
    // level goal) and stay at weighted level `highest` or below.
    bool LimitLevel(int depth, NodeState &state, double score, int64_t lowest, int64_t highest);
    void SetGoalSide(const NodeState &state, double score, int64_t lowest, bool keepSlopes, LinearBound &bound) const;
    // false: no later child can enter the list either.
    bool Child(int depth, const NodeState &state, std::size_t index);
    void Leaves();
    void Refresh();
    // The smallest slots a template below the node can have, and whether they rank before the
    // list's last.
    Slots SmallestSlots() const;
    bool BeatsTuple() const;
    // The child's least weighted level already lies where no level is allowed.
    bool LevelRulesOut(const NodeState &state, int category, std::size_t index) const;
    void SetPairing(int depth, NodeState &state, double score, int64_t lowest, int64_t highest);
    bool PairingRulesOut(const NodeState &state, std::size_t index) const;
    void SetLeafFilter(int depth, NodeState &state, int64_t weightedLevel);
    // The highest score of this child and the later ones, when the goal falls.
    double LaterGoalBound(const NodeState &state, int category, std::size_t index) const;
    double ChildGoalBound(const NodeState &state, int category, std::size_t index) const;

    const FinderModel &model_;
    RankedList &list_;
    const std::atomic<bool> *cancel_;
    Threshold threshold_;
    uint64_t version_ = ~uint64_t{0};
    int root_ = 0;
    Slots slots_{};
    std::vector<uint8_t> used_;
    std::array<Doubles10, kCategoryCount + 1> sums_{}; // per depth: contributions of the filled categories
    std::array<NodeState, kCategoryCount> states_{};
    std::array<DualSolver, kCategoryCount> solvers_{};
    DualSolver pairSolver_;         // the shares of the one depth with two free categories
    std::vector<double> leafLevel_; // the leaves' linear lower bounds of the level sum
    // Room for the pairing's points.
    std::vector<std::pair<double, double>> pairPoints_;
    std::optional<std::size_t> entered_; // the root child the tasks are in
    bool childEntered_ = false;          // it is filled in (it could enter the list)
    bool childOpen_ = false;             // its bounds let templates below it enter the list
    bool childStopped_ = false;          // its later grandchildren cannot
    uint64_t evaluated_ = 0;
    uint64_t nodes_ = 0;
};

} // namespace quorvel::finder
