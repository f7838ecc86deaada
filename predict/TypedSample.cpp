#include "TypedSample.h"

#include "Numeric.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace quorvel {

namespace {

using Typed = std::array<double, 10>;

// X of the creature-level equations with the Power term the typed values take.
double WeightedSum(const Typed &v, double intellectWeight, double powerWeight) {
    return LevelSum(v, intellectWeight) + powerWeight * v[9];
}

// The bracket of the Armor label. Levels that do not fit 16 bits, or whose level armor
// does not, come only from absurd typed values; the bracket is then left out rather than
// showing a number the pet cannot have.
std::string LevelArmorBracket(std::optional<int16_t> wholeLevel) {
    if (!wholeLevel)
        return {};
    const int armor = std::max(*wholeLevel - 16, 0) * 87;
    if (!FitsInt16(armor))
        return {};
    return " [" + FormatWhole(armor) + "]";
}

} // namespace

TypedEvaluation EvaluateTypedSample(const Typed &v, LevelEquations eq) {
    TypedEvaluation result;
    StatTexts &labels = result.Labels;
    labels[Index(PetStat::Health)] = HealthText(v[0], v[2]);
    labels[Index(PetStat::Regen)] = RegenText(v[6], v[3]);
    labels[Index(PetStat::StateResist)] = StateResistText(v[4], v[0]);
    labels[Index(PetStat::Defense)] = DefenseText(v[2], v[4]);
    labels[Index(PetStat::CriticalSave)] = CriticalSaveText(v[6]);
    labels[Index(PetStat::Damage)] = DamageText(v[9]);
    labels[Index(PetStat::ToHit)] = ToHitText(v[5]);
    labels[Index(PetStat::CriticalHit)] = CriticalHitText(v[8]);
    labels[Index(PetStat::AggroBonus)] = AggroBonusText(v[7]);

    std::optional<int16_t> wholeLevel = 0;
    std::string text;
    const auto run = [&](LevelEquation equation, double sum) {
        const double p = LevelPolynomial(equation, sum / 100);
        wholeLevel = ToInt16(p);
        result.LastCreatureLevel = static_cast<float>(RoundHalfEven(p, 2));
        result.AnyRan = true;
        // Old starts the text; New1 and New2 go on a line of their own.
        if (equation == LevelEquation::Old)
            text.clear();
        else
            text += "\r\n";
        AppendSingle(text, result.LastCreatureLevel);
    };
    if (eq.Old)
        run(LevelEquation::Old, WeightedSum(v, 1, 30));
    if (eq.New1)
        run(LevelEquation::New1, WeightedSum(v, 2, 30));
    if (eq.New2)
        run(LevelEquation::New2, WeightedSum(v, 1, 29.459));

    labels[Index(PetStat::Level)] = std::move(text);
    labels[Index(PetStat::Armor)] = FormatDouble(std::floor(v[1] * 6)) + LevelArmorBracket(wholeLevel);
    return result;
}

} // namespace quorvel
