#include "PetStats.h"

#include "DnaRecord.h"
#include "Numeric.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quorvel {

namespace {

std::string Rounded(double x, int decimals) {
    return FormatDouble(RoundHalfEven(x, decimals));
}

std::string Percent(double x) {
    std::string text;
    AppendDouble(text, RoundHalfEven(x, 2));
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

std::string HealthText(double hrd, double dex) {
    return Rounded(hrd * 6.62 + dex * 1.32 + 50, 0);
}

std::string RegenText(double dpn, double end) {
    return Rounded(dpn / 70 + end / 14, 0);
}

std::string StateResistText(double intel, double hrd) {
    return Percent(intel / 12 + hrd / 60);
}

std::string DefenseText(double dex, double intel) {
    return Rounded(dex * 0.17 + intel * 0.035 + 4, 0);
}

std::string CriticalSaveText(double dpn) {
    return Percent((dpn + 0.0132) / 125.02);
}

std::string DamageText(double pwr) {
    std::string text;
    AppendDouble(text, RoundHalfEven(pwr * 0.204 - 14.5, 0));
    text += " - ";
    AppendDouble(text, RoundHalfEven(pwr * 0.603 + 60, 0));
    return text;
}

std::string ToHitText(double clv) {
    return Rounded((clv + 22.673) / 4.9047, 0);
}

std::string CriticalHitText(double frc) {
    return Percent((frc - 0.0048) / 125);
}

std::string AggroBonusText(double crg) {
    return Percent((crg + 0.0000009) / 40);
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

CreatureLevelNumbers PredictCreatureLevelNumbers(const ValueArray &v, PredictionSource source, LevelEquations eq) {
    // The integer sums are formed in 64 bits: Power 1000 with the other values at several
    // hundred already leaves the 16-bit range the values are stored in.
    std::array<int64_t, 10> wide{};
    std::copy(v.begin(), v.end(), wide.begin());
    const int64_t oldSum = LevelSum<int64_t>(wide, 1);
    const int64_t new1Sum = LevelSum<int64_t>(wide, 2);
    const double power = static_cast<double>(v[Index(Attribute::Power)]);

    const auto weightedLevel = [&](int64_t sum) {
        if (source == PredictionSource::Sample)
            return RoundHalfEven(static_cast<double>(sum + 30 * wide[Index(Attribute::Power)]) / 100);
        return RoundHalfEven((power * 29.999 + static_cast<double>(sum)) / 100);
    };

    CreatureLevelNumbers result;
    if (eq.Old)
        AddEquation(result, LevelEquation::Old, weightedLevel(oldSum));
    if (eq.New1)
        AddEquation(result, LevelEquation::New1, weightedLevel(new1Sum));
    if (eq.New2)
        AddEquation(result, LevelEquation::New2, RoundHalfEven((power * 29.459 + static_cast<double>(oldSum)) / 100));
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
