#pragma once

#include "EnumIndex.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace quorvel {

// Template and prediction values are signed whole numbers held wider than 16 bits,
// so that sums and products of large game values never overflow.
using Value = int32_t;
using ValueArray = std::array<Value, 10>;

constexpr int kCategoryCount = 5;

// A whole-numbered double as a Value. Results beyond the 32-bit range (only reachable with
// absurd inputs) are held at its ends instead of overflowing; NaN gives 0.
inline Value ToValue(double wholeNumber) {
    if (std::isnan(wholeNumber))
        return 0;
    constexpr double lowest = std::numeric_limits<Value>::min();
    constexpr double highest = std::numeric_limits<Value>::max();
    return static_cast<Value>(std::clamp(wholeNumber, lowest, highest));
}

// Physique, Prowess, Mental, Psychology, Aggressiveness; category c owns attributes 2c and 2c+1.
enum class Category : int { Physique, Prowess, Mental, Psychology, Aggressiveness };
constexpr std::array<Category, kCategoryCount> kCategories{Category::Physique, Category::Prowess, Category::Mental,
                                                           Category::Psychology, Category::Aggressiveness};

} // namespace quorvel
