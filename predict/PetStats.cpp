#include "PetStats.h"

#include "DnaRecord.h"
#include "Numeric.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quorvel {

namespace {

std::string Percent(double value) {
    std::string text;
    AppendDouble(text, value);
    text += '%';
    return text;
}

// The level armor of a whole-number level, in single precision; levels below 16 give none.
float LevelArmor(float level0) {
    const float above = level0 - 16.0f;
    return above > 0.0f ? above * 87.0f : 0.0f;
}

// Folds one equation's P(L) into the result: level0 and the 2-decimal level come from the
// equation that ran last.
void AddEquation(CreatureLevelNumbers &result, LevelEquation equation, double level) {
    const double p = LevelPolynomial(equation, level);
    const auto index = static_cast<std::size_t>(equation);
    result.Level0 = static_cast<float>(RoundHalfEven(p, 0));
    result.LastCreatureLevel = static_cast<float>(RoundHalfEven(p, 2));
    result.Levels[index] = result.LastCreatureLevel;
    result.Ran[index] = true;
    result.AnyRan = true;
}

} // namespace

double HealthValue(double hrd, double dex) {
    return RoundHalfEven(hrd * 6.62 + dex * 1.32 + 50, 0);
}

double RegenValue(double dpn, double end) {
    return RoundHalfEven(dpn / 70 + end / 14, 0);
}

double StateResistValue(double intel, double hrd) {
    return RoundHalfEven(intel / 12 + hrd / 60, 2);
}

double DefenseValue(double dex, double intel) {
    return RoundHalfEven(dex * 0.17 + intel * 0.035 + 4, 0);
}

double CriticalSaveValue(double dpn) {
    return RoundHalfEven((dpn + 0.0132) / 125.02, 2);
}

double DamageLowValue(double pwr) {
    return RoundHalfEven(pwr * 0.204 - 14.5, 0);
}

double DamageHighValue(double pwr) {
    return RoundHalfEven(pwr * 0.603 + 60, 0);
}

double ToHitValue(double clv) {
    return RoundHalfEven((clv + 22.673) / 4.9047, 0);
}

double CriticalHitValue(double frc) {
    return RoundHalfEven((frc - 0.0048) / 125, 2);
}

double AggroBonusValue(double crg) {
    return RoundHalfEven((crg + 0.0000009) / 40, 2);
}

std::string HealthText(double hrd, double dex) {
    return FormatDouble(HealthValue(hrd, dex));
}

std::string RegenText(double dpn, double end) {
    return FormatDouble(RegenValue(dpn, end));
}

std::string StateResistText(double intel, double hrd) {
    return Percent(StateResistValue(intel, hrd));
}

std::string DefenseText(double dex, double intel) {
    return FormatDouble(DefenseValue(dex, intel));
}

std::string CriticalSaveText(double dpn) {
    return Percent(CriticalSaveValue(dpn));
}

std::string DamageText(double pwr) {
    std::string text;
    AppendDouble(text, DamageLowValue(pwr));
    text += " - ";
    AppendDouble(text, DamageHighValue(pwr));
    return text;
}

std::string ToHitText(double clv) {
    return FormatDouble(ToHitValue(clv));
}

std::string CriticalHitText(double frc) {
    return Percent(CriticalHitValue(frc));
}

std::string AggroBonusText(double crg) {
    return Percent(AggroBonusValue(crg));
}

double LevelPolynomial(LevelEquation equation, double level) {
    const double squared = std::pow(level, 2);
    // A whole L below 2^17 has an exact cube below 2^53, which is what std::pow gives too.
    const bool exactCube = std::fabs(level) < 131072.0 && static_cast<double>(static_cast<int32_t>(level)) == level;
    const double cubed = exactCube ? squared * level : std::pow(level, 3);
    switch (equation) {
    case LevelEquation::Old:
        return (cubed * -0.000001 + squared * 0.0011) - level * 0.0265 + 3.282;
    case LevelEquation::New1:
        return (squared * 0.0005 + level * 0.0709) - 0.3924;
    case LevelEquation::New2:
        return (cubed * -0.000001 + squared * 0.0011) - level * 0.0337 + 3.4125;
    }
    return 0.0;
}

double WeightedLevel(const ValueArray &v, PredictionSource source, LevelEquation equation) {
    // The integer sums are formed in 64 bits: Power 1000 with the other values at several
    // hundred already leaves the 16-bit range the values are stored in.
    std::array<int64_t, 10> wide{};
    std::copy(v.begin(), v.end(), wide.begin());
    const int64_t power = wide[Index(Attribute::Power)];
    switch (equation) {
    case LevelEquation::Old:
    case LevelEquation::New1: {
        const int64_t sum = LevelSum<int64_t>(wide, equation == LevelEquation::New1 ? 2 : 1);
        if (source == PredictionSource::Sample)
            return RoundHalfEven(static_cast<double>(sum + 30 * power) / 100);
        return RoundHalfEven((static_cast<double>(power) * 29.999 + static_cast<double>(sum)) / 100);
    }
    case LevelEquation::New2:
        return RoundHalfEven((static_cast<double>(power) * 29.459 + static_cast<double>(LevelSum<int64_t>(wide, 1))) /
                             100);
    }
    return 0.0;
}

double CreatureLevelValue(const ValueArray &v, PredictionSource source, LevelEquation equation) {
    return RoundHalfEven(LevelPolynomial(equation, WeightedLevel(v, source, equation)), 2);
}

CreatureLevelNumbers PredictCreatureLevelNumbers(const ValueArray &v, PredictionSource source, LevelEquations eq) {
    CreatureLevelNumbers result;
    if (eq.Old)
        AddEquation(result, LevelEquation::Old, WeightedLevel(v, source, LevelEquation::Old));
    if (eq.New1)
        AddEquation(result, LevelEquation::New1, WeightedLevel(v, source, LevelEquation::New1));
    if (eq.New2)
        AddEquation(result, LevelEquation::New2, WeightedLevel(v, source, LevelEquation::New2));
    return result;
}

CreatureLevel PredictCreatureLevel(const ValueArray &v, PredictionSource source, LevelEquations eq) {
    const CreatureLevelNumbers numbers = PredictCreatureLevelNumbers(v, source, eq);
    CreatureLevel result;
    result.Level0 = numbers.Level0;
    result.AnyRan = numbers.AnyRan;
    result.LastCreatureLevel = numbers.LastCreatureLevel;
    // Old starts the text, New1 and New2 append to it.
    result.Text.reserve(32);
    for (std::size_t i = 0; i < numbers.Levels.size(); ++i) {
        if (!numbers.Ran[i])
            continue;
        if (i > 0)
            result.Text += " / ";
        AppendSingle(result.Text, numbers.Levels[i]);
    }
    return result;
}

PetPrediction PredictPetStats(const ValueArray &v, PredictionSource source, LevelEquations eq) {
    const auto at = [&v](Attribute a) { return static_cast<double>(v[Index(a)]); };
    PetPrediction result;
    StatTexts &labels = result.Labels;

    labels[Index(PetStat::Health)] = HealthText(at(Attribute::Hardiness), at(Attribute::Dexterity));
    labels[Index(PetStat::Regen)] = RegenText(at(Attribute::Dependability), at(Attribute::Endurance));
    if (source == PredictionSource::Template) {
        const double tenths = std::floor((at(Attribute::Dependability) / 70 + at(Attribute::Endurance) / 14) * 10);
        std::string &regen = labels[Index(PetStat::Regen)];
        regen += " (";
        AppendDouble(regen, tenths);
        regen += ')';
    }
    labels[Index(PetStat::StateResist)] = StateResistText(at(Attribute::Intellect), at(Attribute::Hardiness));
    labels[Index(PetStat::Defense)] = DefenseText(at(Attribute::Dexterity), at(Attribute::Intellect));
    labels[Index(PetStat::CriticalSave)] = CriticalSaveText(at(Attribute::Dependability));
    labels[Index(PetStat::Damage)] = DamageText(at(Attribute::Power));
    labels[Index(PetStat::ToHit)] = ToHitText(at(Attribute::Cleverness));
    labels[Index(PetStat::CriticalHit)] = CriticalHitText(at(Attribute::Fierceness));
    labels[Index(PetStat::AggroBonus)] = AggroBonusText(at(Attribute::Courage));

    result.Level = PredictCreatureLevel(v, source, eq);
    labels[Index(PetStat::Level)] = result.Level.Text;
    const int64_t armor = 6 * static_cast<int64_t>(v[Index(Attribute::Fortitude)]);
    std::string &armorText = labels[Index(PetStat::Armor)];
    AppendWhole(armorText, armor);
    armorText += " [";
    AppendSingle(armorText, LevelArmor(result.Level.Level0));
    armorText += ']';
    return result;
}

} // namespace quorvel
