#pragma once

#include "PetStats.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvel::finder {

// The 2-decimal level of every whole weighted level L in a range, with the range questions the
// search asks. P(L) is not monotone (it falls below L = 13 and again for very large L), so the
// questions look at every L of a range: through two segment trees over blocks of L, and along
// the L of a block.
class LevelTable final {
public:
    LevelTable(LevelEquation equation, int64_t first, int64_t last, std::optional<double> maxLevel);

    int64_t First() const { return first_; }
    int64_t Last() const { return first_ + static_cast<int64_t>(levels_.size()) - 1; }
    // The level of L inside the range.
    double Level(int64_t weightedLevel) const { return levels_[static_cast<std::size_t>(weightedLevel - first_)]; }
    bool Allowed(double level) const { return !limited_ || level <= maxLevel_; }
    // Every L from this one on (to the end of the range) has a level beyond the limit.
    int64_t DisallowedFrom() const { return disallowedFrom_; }

    // The largest L in [lo, hi] whose level is at most `most`; nothing when there is none.
    std::optional<int64_t> LastAtMost(int64_t lo, int64_t hi, double most) const;
    // The highest allowed level of an L in [lo, hi]; nothing when no level there is allowed.
    std::optional<double> HighestAllowed(int64_t lo, int64_t hi) const;
    // The smallest and the largest L in [lo, hi] whose level is allowed and at least `least`.
    std::optional<int64_t> FirstAllowedAtLeast(int64_t lo, int64_t hi, double least) const;
    std::optional<int64_t> LastAllowedAtLeast(int64_t lo, int64_t hi, double least) const;

private:
    // The level of the i-th L when it is allowed, else minus infinity.
    double Kept(std::size_t i) const;
    // The first or last L in [lo, hi] whose value passes `fits`: `value` gives the value of
    // the i-th L, `tree` holds the same kind of value summed up over blocks, and a block
    // passes when one of its L does.
    template <typename Value, typename Fits>
    std::optional<int64_t> Find(const std::vector<double> &tree, Value value, int64_t lo, int64_t hi, bool last,
                                Fits fits) const;
    // The first or last block in [from, to] whose tree value passes `fits`.
    template <typename Fits>
    std::optional<std::size_t> FindBlock(const std::vector<double> &tree, std::size_t from, std::size_t to, bool last,
                                         Fits fits) const;

    int64_t first_;
    int64_t disallowedFrom_ = 0;
    bool limited_;
    double maxLevel_;
    std::vector<double> levels_;
    std::size_t leaves_ = 1;          // blocks in the trees, a power of two
    std::vector<double> lowest_;      // per tree node: the lowest level below it
    std::vector<double> highestKept_; // per tree node: the highest allowed level below it
};

} // namespace quorvel::finder
