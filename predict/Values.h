#pragma once

#include <array>
#include <cstdint>

namespace quorvel {

// Template and prediction values are signed whole numbers held wider than 16 bits,
// so that sums and products of large game values never overflow.
using Value = int32_t;
using ValueArray = std::array<Value, 10>;

constexpr int kCategoryCount = 5;

// Physique, Prowess, Mental, Psychology, Aggressiveness; category c owns attributes 2c and 2c+1.
enum TemplateCategory : int { Physique, Prowess, Mental, Psychology, Aggressiveness };

} // namespace quorvel
