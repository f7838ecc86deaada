#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quorvel {

constexpr int kPlanetCount = 12;
constexpr int kQualityCount = 8;
constexpr int kOriginCount = 2;
constexpr int kCategoryNameCount = 5;
constexpr int kAttributeNameCount = 10;
constexpr int kStatNameCount = 11;

extern const std::array<const char *, kPlanetCount> PlanetTable;   // 0 = "?"
extern const std::array<const char *, kQualityCount> QualityTable; // entry 7 empty
extern const std::array<int16_t, kQualityCount> QualityWeights;    // 0 1 2 3 4 5 10 0
extern const std::array<const char *, kOriginCount> OriginTable;   // "Wild", "Mission"
// The template categories, "Physique" .. "Aggressiveness".
extern const std::array<const char *, kCategoryNameCount> CategoryTable;
// The ten attributes, "Hardiness" .. "Power".
extern const std::array<const char *, kAttributeNameCount> AttributeTable;
// The pet statistics in the order of the statistics panel, "Health" .. "Damage", "Level".
extern const std::array<const char *, kStatNameCount> StatTable;

// The quality float rounded to a whole number, halves to even (2.5 -> 2, 6.5 -> 6);
// -1 for a value that is no index at all (infinite, not a number, beyond a million).
int QualityIndex(float quality);
bool IsValidQuality(float quality); // index within 0..7
bool IsValidPlanet(int planet);     // 0..11
bool IsValidOrigin(int origin);     // 0..1

// Lookups; an index outside the table gives nothing.
std::optional<std::string> PlanetName(int planet);
std::optional<std::string> OriginName(int origin);
std::optional<std::string> QualityName(float quality);
std::optional<int> QualityWeight(float quality);

} // namespace quorvel
