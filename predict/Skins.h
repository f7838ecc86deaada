#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quorvel {

struct Skin {
    const char *Name;
    int16_t MinLevel;
};

constexpr int kSkinCount = 69;
extern const std::array<Skin, kSkinCount> SkinTable;

// "Angler [2]" .. "Kimogila [40]", in table order.
std::string SkinItemText(int index);

// The level text shown after choosing skin `index`: the minimum as a whole number when
// the last level is at or below it, otherwise the last level (single precision). Nothing
// for an index outside the table.
std::optional<std::string> ApplySkinLevel(int index, float lastCreatureLevel);

} // namespace quorvel
