#pragma once

#include "PetStat.h"
#include "Values.h"

#include <array>
#include <string>

namespace quorvel {

enum class PredictionSource { Sample, Template };

// Which creature-level equations run, in the order Old, New1, New2.
struct LevelEquations {
    bool Old = false;
    bool New1 = false;
    bool New2 = false;
};

struct CreatureLevel {
    std::string Text;    // "10.63 / 11.7 / 10.04"; empty when no equation runs
    float Level0 = 0.0f; // the last equation's level rounded to a whole number; 0 when none ran
    bool AnyRan = false; // when true, LastCreatureLevel is the program's new last level
    float LastCreatureLevel = 0.0f;
};

// The numbers of the creature level, before any text.
struct CreatureLevelNumbers {
    std::array<float, 3> Levels{}; // each equation's 2-decimal level, Old, New1, New2
    std::array<bool, 3> Ran{};
    float Level0 = 0.0f;
    bool AnyRan = false;
    float LastCreatureLevel = 0.0f;
};

CreatureLevelNumbers PredictCreatureLevelNumbers(const ValueArray &v, PredictionSource source, LevelEquations eq);

// The numbers and their text.
CreatureLevel PredictCreatureLevel(const ValueArray &v, PredictionSource source, LevelEquations eq);

// Label23 texts, index 0 Health .. 10 Level (PetStat), "." as decimal separator.
using StatTexts = std::array<std::string, 11>;

enum class LevelEquation { Old, New1, New2 };

// P(L) of one creature-level equation, term by term from left to right. The powers are exact
// for whole-number L of moderate size (the main window's prediction) and come from std::pow
// otherwise.
double LevelPolynomial(LevelEquation equation, double level);

// X of the creature-level equations before Power, added left to right in the order written:
// Hardiness nine times, Dexterity, Endurance and Fierceness twice, Intellect once (Old, New2)
// or twice (New1), the others once. Each prediction adds its own Power term at the end.
template <typename T> T LevelSum(const std::array<T, 10> &v, T intellectWeight) {
    return 9 * v[0] + v[1] + 2 * v[2] + 2 * v[3] + intellectWeight * v[4] + v[5] + v[6] + v[7] + 2 * v[8];
}

struct PetPrediction {
    StatTexts Labels;
    CreatureLevel Level;
};

PetPrediction PredictPetStats(const ValueArray &v, PredictionSource source, LevelEquations eq);

// The numbers of the statistics, on double inputs in Attribute order, as the texts below show them
// (a percentage without its "%").
double HealthValue(double hrd, double dex);
double RegenValue(double dpn, double end); // the rounded regen
double StateResistValue(double intel, double hrd);
double DefenseValue(double dex, double intel);
double CriticalSaveValue(double dpn);
double DamageLowValue(double pwr);
double DamageHighValue(double pwr);
double ToHitValue(double clv);
double CriticalHitValue(double frc);
double AggroBonusValue(double crg);

// The whole-number weighted level L of one equation.
double WeightedLevel(const ValueArray &v, PredictionSource source, LevelEquation equation);

// P(L) of one equation rounded to 2 decimals in double precision: the creature level before it is
// stored as single precision.
double CreatureLevelValue(const ValueArray &v, PredictionSource source, LevelEquation equation);

// The statistics shared by the single-sample, template and typed-sample predictions,
// on double inputs in Attribute order; each is the shown text (without level).
std::string HealthText(double hrd, double dex);
std::string RegenText(double dpn, double end); // the rounded regen alone, without the template's tenths
std::string StateResistText(double intel, double hrd);
std::string DefenseText(double dex, double intel);
std::string CriticalSaveText(double dpn);
std::string DamageText(double pwr);
std::string ToHitText(double clv);
std::string CriticalHitText(double frc);
std::string AggroBonusText(double crg);

} // namespace quorvel
