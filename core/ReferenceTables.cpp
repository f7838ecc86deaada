#include "ReferenceTables.h"

#include "Numeric.h"

#include <cmath>

namespace quorvel {

const std::array<const char *, kPlanetCount> PlanetTable = {
    "?",   "Corellia", "Dantooine", "Dathomir", "Endor",    "Kashyyyk",
    "Lok", "Naboo",    "Rori",      "Talus",    "Tatooine", "Yavin 4",
};

const std::array<const char *, kQualityCount> QualityTable = {
    "Poor", "Below Average", "Average", "Above Average", "High", "Very High", "Unknown", "",
};

const std::array<int16_t, kQualityCount> QualityWeights = {0, 1, 2, 3, 4, 5, 10, 0};

const std::array<const char *, kOriginCount> OriginTable = {"Wild", "Mission"};
const std::array<const char *, kCategoryNameCount> CategoryTable = {"Physique", "Prowess", "Mental", "Psychology",
                                                                    "Aggressiveness"};
const std::array<const char *, kAttributeNameCount> AttributeTable = {
    "Hardiness",  "Fortitude",     "Dexterity", "Endurance",  "Intellect",
    "Cleverness", "Dependability", "Courage",   "Fierceness", "Power"};
const std::array<const char *, kStatNameCount> StatTable = {
    "Health",       "Regen",         "Armor",       "To hit", "Defense", "State Resist",
    "Critical hit", "Critical save", "Aggro bonus", "Damage", "Level"};

int QualityIndex(float quality) {
    const double index = RoundHalfEven(static_cast<double>(quality));
    // Anything that is no index at all (huge, infinite, not a number) lands outside every table.
    if (!std::isfinite(index) || std::fabs(index) > 1e6)
        return -1;
    return static_cast<int>(index);
}

bool IsValidQuality(float quality) {
    const int index = QualityIndex(quality);
    return index >= 0 && index < kQualityCount;
}

bool IsValidPlanet(int planet) {
    return planet >= 0 && planet < kPlanetCount;
}

bool IsValidOrigin(int origin) {
    return origin >= 0 && origin < kOriginCount;
}

std::optional<std::string> PlanetName(int planet) {
    if (!IsValidPlanet(planet))
        return std::nullopt;
    return PlanetTable[planet];
}

std::optional<std::string> OriginName(int origin) {
    if (!IsValidOrigin(origin))
        return std::nullopt;
    return OriginTable[origin];
}

std::optional<std::string> QualityName(float quality) {
    if (!IsValidQuality(quality))
        return std::nullopt;
    return QualityTable[QualityIndex(quality)];
}

std::optional<int> QualityWeight(float quality) {
    if (!IsValidQuality(quality))
        return std::nullopt;
    return QualityWeights[QualityIndex(quality)];
}

} // namespace quorvel
