#include "TypedSample.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

using Typed = std::array<double, 10>;

constexpr LevelEquations kOldOnly{true, false, false};
constexpr LevelEquations kNew1Only{false, true, false};

Typed PowerOnly(double power) {
    Typed v{};
    v[9] = power;
    return v;
}

} // namespace

TEST(TypedSample, StatisticsFromUnroundedValues) {
    Typed v{};
    v[0] = 100;
    v[2] = 50;
    const TypedEvaluation e = EvaluateTypedSample(v, {});
    EXPECT_EQ(e.labels[HealthLabel], "778");
    EXPECT_EQ(e.labels[LevelLabel], "");
    EXPECT_FALSE(e.anyRan);
    v.fill(500);
    EXPECT_EQ(EvaluateTypedSample(v, {}).labels[RegenLabel], "43"); // no tenths in this window
    // Armor is Int(Frt x 6): 2.4 and -0.6 round down.
    v.fill(0);
    v[1] = 0.4;
    EXPECT_EQ(EvaluateTypedSample(v, {}).labels[ArmorLabel], "2 [0]");
    v[1] = -0.1;
    EXPECT_EQ(EvaluateTypedSample(v, {}).labels[ArmorLabel], "-1 [0]");
}

TEST(TypedSample, LevelFromTheUnroundedBaseWithLinesJoinedByLineBreaks) {
    const TypedEvaluation e = EvaluateTypedSample(PowerOnly(1000), kOldOnly);
    EXPECT_EQ(e.labels[LevelLabel], "67.33"); // L = 300, P = 67.332
    EXPECT_EQ(e.labels[ArmorLabel], "0 [4437]");
    // L = 1.5 stays unrounded: 3.2447; the whole-number base 2 would give 3.23.
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(5), kOldOnly).labels[LevelLabel], "3.24");

    // New2 weighs Power by 29.459: L = 294.59, P = 63.38; New1 L = 300, P = 65.8776.
    const TypedEvaluation all = EvaluateTypedSample(PowerOnly(1000), {true, true, true});
    EXPECT_EQ(all.labels[LevelLabel], "67.33\r\n65.88\r\n63.38");
    EXPECT_TRUE(all.anyRan);
    EXPECT_EQ(all.lastCreatureLevel, 63.38f);
    EXPECT_EQ(all.labels[ArmorLabel], "0 [4089]"); // (63 - 16) * 87, the last equation's
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(1000), kNew1Only).labels[LevelLabel], "\r\n65.88");
}

TEST(TypedSample, LevelArmorBeyondSixteenBitsIsLeftOut) {
    // Level 392: 376 * 87 = 32712 still fits; level 393 gives 32799.
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(2727), kNew1Only).labels[ArmorLabel], "0 [32712]");
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(2728), kNew1Only).labels[ArmorLabel], "0");
    // A level far outside 16 bits is still shown, without level armor.
    Typed v{};
    v[0] = 1e6;
    v[1] = 10;
    const TypedEvaluation e = EvaluateTypedSample(v, kOldOnly);
    EXPECT_EQ(e.labels[ArmorLabel] + " " + e.labels[LevelLabel], "60 -7.200948E+8");
}
