#pragma once

#include "Finder.h"
#include "FinderLevels.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quorvel::finder {

using Doubles10 = std::array<double, kAttributeCount>;

// An attribute's position in the finder's arrays, which index attributes by int.
constexpr int At(Attribute attribute) {
    return static_cast<int>(Index(attribute));
}
using Slots = std::array<int, kCategoryCount>;

// The goal's statistic as a function of one or two current values (none for the level):
// score = f(sum of weight x current) with f non-decreasing. The first attribute weighs most.
struct GoalShape {
    int Count = 0;
    std::array<int, 2> Attributes{};
    std::array<double, 2> Weights{};
};

GoalShape ShapeOf(FinderGoal goal);

// Everything a search reads and never changes: the candidates of each category with their
// contributions to the caps, the start-value and level tables, and the exact evaluation.
class FinderModel final {
public:
    FinderModel(const DnaLibrary &library, const FinderSettings &settings);

    const FinderSettings &Settings() const { return settings_; }
    int SampleCount() const { return sampleCount_; }
    const GoalShape &Shape() const { return shape_; }
    // The categories in the order the search fills them: fixed ones first.
    const std::array<int, kCategoryCount> &Order() const { return order_; }
    int FixedCount() const { return fixedCount_; }
    // The candidates are in slot order, the categories in their own order after the fixed ones.
    bool SlotOrdered() const { return slotOrdered_; }

    // The candidates of a category, best share of the goal first, and their contributions
    // (value x category weight) to each attribute's cap, in the same order.
    const std::vector<int> &Candidates(int category) const { return candidates_[category]; }
    const std::vector<double> &Products(int category, int attribute) const { return products_[category][attribute]; }
    const Doubles10 &ProductsOfSlot(int category, int slot) const {
        return bySlot_[category][static_cast<std::size_t>(slot)];
    }
    const Doubles10 &LowestProducts(int category) const { return lowest_[category]; }
    const Doubles10 &HighestProducts(int category) const { return highest_[category]; }
    int SmallestSlot(int category) const { return smallestSlot_[category]; }

    // The current value of an attribute at a cap: the start-value rule (or the cap itself when
    // experimented), Power at least 113.
    Value Current(int attribute, Value cap) const;
    // The lowest and highest current value for caps in [lo, hi].
    std::pair<Value, Value> CurrentRange(int attribute, Value lo, Value hi) const;
    // The goal's score of a template with these current values (the level goal excluded).
    double Score(const ValueArray &current) const;
    int64_t WeightedLevelOf(const ValueArray &current) const;
    const LevelTable &Levels() const { return *levels_; }
    double LevelOf(int64_t weightedLevel) const;

    // Coefficient of each current value in the weighted level's sum.
    const Doubles10 &LevelWeights() const { return levelWeights_; }

private:
    void BuildCandidates(const DnaLibrary &library);
    void BuildLevels();

    FinderSettings settings_;
    int sampleCount_ = 0;
    GoalShape shape_;
    std::array<int, kCategoryCount> order_{};
    int fixedCount_ = 0;
    bool slotOrdered_ = false;
    std::array<std::vector<int>, kCategoryCount> candidates_;
    std::array<std::array<std::vector<double>, kAttributeCount>, kCategoryCount> products_;
    std::array<std::vector<Doubles10>, kCategoryCount> bySlot_;
    std::array<Doubles10, kCategoryCount> lowest_{};
    std::array<Doubles10, kCategoryCount> highest_{};
    std::array<int, kCategoryCount> smallestSlot_{};
    const Value *startValues_; // by cap, from the lowest cap of the table
    Doubles10 levelWeights_{};
    std::optional<LevelTable> levels_;
};

// The exact caps of a complete template, summed slot by slot from Physique as the template
// evaluation sums them.
ValueArray TemplateCaps(const FinderModel &model, const Slots &slots);

} // namespace quorvel::finder
