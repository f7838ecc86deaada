#include "TypedSample.h"

#include "DnaRecord.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace quorvel;

using Texts = std::vector<std::string>;

namespace {

using Typed = std::array<double, 10>;

Typed PowerOnly(double power) {
    Typed v{};
    v[Index(Attribute::Power)] = power;
    return v;
}

} // namespace

TEST(TypedSample, StatisticsFromUnroundedValuesAndNoLevelWithoutEquations) {
    Typed v{};
    v[Index(Attribute::Hardiness)] = 100;
    v[Index(Attribute::Dexterity)] = 50;
    v[Index(Attribute::Fortitude)] = -0.1; // Armor is Int(Frt x 6): -0.6 rounds down
    const TypedEvaluation e = EvaluateTypedSample(v, {});
    EXPECT_EQ(
        (Texts{e.Labels[Index(PetStat::Health)], e.Labels[Index(PetStat::Armor)], e.Labels[Index(PetStat::Level)]}),
        (Texts{"778", "-1 [0]", ""}));
    EXPECT_FALSE(e.AnyRan);
}

TEST(TypedSample, LevelFromTheUnroundedBaseWithLinesJoinedByLineBreaks) {
    const TypedEvaluation e = EvaluateTypedSample(PowerOnly(1000), {true, false, false});
    EXPECT_EQ((Texts{e.Labels[Index(PetStat::Level)], e.Labels[Index(PetStat::Armor)]}),
              (Texts{"67.33", "0 [4437]"})); // L = 300, P = 67.332
    // L = 1.5 stays unrounded: 3.2447; the whole-number base 2 would give 3.23.
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(5), {true, false, false}).Labels[Index(PetStat::Level)], "3.24");
    // New2 weighs Power by 29.459: L = 294.59, P = 63.38; New1 L = 300, P = 65.8776.
    const TypedEvaluation all = EvaluateTypedSample(PowerOnly(1000), {true, true, true});
    EXPECT_EQ((Texts{all.Labels[Index(PetStat::Level)], all.Labels[Index(PetStat::Armor)]}),
              (Texts{"67.33\r\n65.88\r\n63.38", "0 [4089]"}));
    EXPECT_EQ(std::pair(all.AnyRan, all.LastCreatureLevel), std::pair(true, 63.38f));
}
