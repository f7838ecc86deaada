#include "FinderLevels.h"

#include "Numeric.h"

#include <algorithm>
#include <limits>

namespace quorvel::finder {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::size_t kBlock = 64;

} // namespace

LevelTable::LevelTable(LevelEquation equation, int64_t first, int64_t last, std::optional<double> maxLevel)
    : first_(first), limited_(maxLevel.has_value()), maxLevel_(maxLevel.value_or(0.0)) {
    const auto count = static_cast<std::size_t>(last - first + 1);
    levels_.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        levels_[i] = RoundHalfEven(LevelPolynomial(equation, static_cast<double>(first + static_cast<int64_t>(i))), 2);
    disallowedFrom_ = Last() + 1;
    while (disallowedFrom_ > first_ && !Allowed(Level(disallowedFrom_ - 1)))
        --disallowedFrom_;
    const std::size_t blocks = (count + kBlock - 1) / kBlock;
    while (leaves_ < blocks)
        leaves_ *= 2;
    lowest_.assign(2 * leaves_, kInfinity);
    highestKept_.assign(2 * leaves_, -kInfinity);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t leaf = leaves_ + i / kBlock;
        lowest_[leaf] = std::min(lowest_[leaf], levels_[i]);
        highestKept_[leaf] = std::max(highestKept_[leaf], Kept(i));
    }
    for (std::size_t node = leaves_ - 1; node >= 1; --node) {
        lowest_[node] = std::min(lowest_[2 * node], lowest_[2 * node + 1]);
        highestKept_[node] = std::max(highestKept_[2 * node], highestKept_[2 * node + 1]);
    }
}

double LevelTable::Kept(std::size_t i) const {
    return Allowed(levels_[i]) ? levels_[i] : -kInfinity;
}

template <typename Fits>
std::optional<std::size_t> LevelTable::FindBlock(const std::vector<double> &tree, std::size_t from, std::size_t to,
                                                 bool last, Fits fits) const {
    // Depth-first over the tree nodes that overlap [from, to], nearer end first.
    struct Span {
        std::size_t Node, Begin, End;
    };
    Span stack[2 * 64];
    std::size_t size = 0;
    stack[size++] = {1, 0, leaves_ - 1};
    while (size > 0) {
        const Span s = stack[--size];
        if (s.End < from || s.Begin > to || !fits(tree[s.Node]))
            continue;
        if (s.Begin == s.End)
            return s.Begin;
        const std::size_t middle = s.Begin + (s.End - s.Begin) / 2;
        const Span left{2 * s.Node, s.Begin, middle};
        const Span right{2 * s.Node + 1, middle + 1, s.End};
        stack[size++] = last ? left : right;
        stack[size++] = last ? right : left;
    }
    return std::nullopt;
}

template <typename Value, typename Fits>
std::optional<int64_t> LevelTable::Find(const std::vector<double> &tree, Value value, int64_t lo, int64_t hi, bool last,
                                        Fits fits) const {
    lo = std::max(lo, First());
    hi = std::min(hi, Last());
    if (lo > hi)
        return std::nullopt;
    const auto from = static_cast<std::size_t>(lo - first_);
    const auto to = static_cast<std::size_t>(hi - first_);
    // Along the L of [a, b] in the search's direction.
    const auto scan = [&](std::size_t a, std::size_t b) -> std::optional<std::size_t> {
        for (std::size_t n = 0; n <= b - a; ++n) {
            const std::size_t i = last ? b - n : a + n;
            if (fits(value(i)))
                return i;
        }
        return std::nullopt;
    };
    // The whole blocks between the partial ones at the two ends.
    const auto inner = [&]() -> std::optional<std::size_t> {
        const std::size_t firstBlock = from / kBlock + 1;
        const std::size_t lastBlock = to / kBlock;
        if (firstBlock >= lastBlock)
            return std::nullopt;
        const std::optional<std::size_t> block = FindBlock(tree, firstBlock, lastBlock - 1, last, fits);
        if (!block)
            return std::nullopt;
        return scan(*block * kBlock, *block * kBlock + kBlock - 1);
    };
    std::optional<std::size_t> found;
    if (from / kBlock == to / kBlock) {
        found = scan(from, to);
    } else {
        const std::size_t headEnd = (from / kBlock + 1) * kBlock - 1;
        const std::size_t tailStart = to / kBlock * kBlock;
        found = last ? scan(tailStart, to) : scan(from, headEnd);
        if (!found)
            found = inner();
        if (!found)
            found = last ? scan(from, headEnd) : scan(tailStart, to);
    }
    if (!found)
        return std::nullopt;
    return first_ + static_cast<int64_t>(*found);
}

std::optional<int64_t> LevelTable::LastAtMost(int64_t lo, int64_t hi, double most) const {
    // A NaN bound matches nothing, like the comparison of a level with it.
    return Find(
        lowest_, [this](std::size_t i) { return levels_[i]; }, lo, hi, true,
        [most](double lowest) { return lowest <= most; });
}

std::optional<int64_t> LevelTable::FirstAllowedAtLeast(int64_t lo, int64_t hi, double least) const {
    return Find(
        highestKept_, [this](std::size_t i) { return Kept(i); }, lo, hi, false,
        [least](double highest) { return highest >= least; });
}

std::optional<int64_t> LevelTable::LastAllowedAtLeast(int64_t lo, int64_t hi, double least) const {
    return Find(
        highestKept_, [this](std::size_t i) { return Kept(i); }, lo, hi, true,
        [least](double highest) { return highest >= least; });
}

std::optional<double> LevelTable::HighestAllowed(int64_t lo, int64_t hi) const {
    // The partial blocks at the two ends L by L, the whole blocks between through the tree.
    lo = std::max(lo, First());
    hi = std::min(hi, Last());
    double highest = -kInfinity;
    if (lo <= hi) {
        const auto from = static_cast<std::size_t>(lo - first_);
        const auto to = static_cast<std::size_t>(hi - first_);
        const std::size_t firstWhole = (from + kBlock - 1) / kBlock;
        const std::size_t endWhole = (to + 1) / kBlock; // blocks before this one end inside
        if (firstWhole >= endWhole) {
            for (std::size_t i = from; i <= to; ++i)
                highest = std::max(highest, Kept(i));
        } else {
            for (std::size_t i = from; i < firstWhole * kBlock; ++i)
                highest = std::max(highest, Kept(i));
            for (std::size_t i = endWhole * kBlock; i <= to; ++i)
                highest = std::max(highest, Kept(i));
            std::size_t left = firstWhole + leaves_;
            std::size_t right = endWhole + leaves_;
            for (; left < right; left /= 2, right /= 2) {
                if (left & 1)
                    highest = std::max(highest, highestKept_[left++]);
                if (right & 1)
                    highest = std::max(highest, highestKept_[--right]);
            }
        }
    }
    if (highest == -kInfinity)
        return std::nullopt;
    return highest;
}

} // namespace quorvel::finder
