#pragma once

#include "StoredPet.h"

#include <array>
#include <optional>
#include <string>

namespace quorvel {

// The statistics as numbers, one a column of the stored-pets table: the figure in front of
// each text (Regen without the template's tenths, Armor without the level armor, percentages
// without "%"), the damage range as its two ends, and the level as the last figure of the
// level text (the equation that ran last, the one a skin compares against).
enum class PetColumn : int {
    Health,
    Regen,
    Armor,
    ToHit,
    Defense,
    StateResist,
    CriticalHit,
    CriticalSave,
    AggroBonus,
    DamageLow,
    DamageHigh,
    Level
};
constexpr int kPetColumnCount = 12;

// "Health", ..., "Damage low", "Damage high", "Level".
extern const std::array<const char *, kPetColumnCount> PetColumnNames;

// A column is empty when its text has no figure where one belongs (the level of a prediction
// with every equation off has none).
using PetNumbers = std::array<std::optional<double>, kPetColumnCount>;

// The numbers of the statistics panel's texts, Health .. Level.
PetNumbers ReadStatNumbers(const std::array<std::string, kPetStatTexts> &shown);

PetNumbers ReadPetNumbers(const StoredPet &pet);

// True when every column but the level has its number: the reader's test of a stored pet.
bool HasAllStatistics(const PetNumbers &numbers);

// Higher is better everywhere except the level: a lower level is a pet more players can train.
enum class Verdict { Same, Better, Worse, Unknown };

struct PetDifference {
    std::optional<double> Difference;                     // second minus first, rounded to 2 decimals
    quorvel::Verdict Verdict = quorvel::Verdict::Unknown; // how the second pet compares with the first
};

std::array<PetDifference, kPetColumnCount> ComparePets(const StoredPet &first, const StoredPet &second);

} // namespace quorvel
