#include "TypedSample.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

using Typed = std::array<double, 10>;

constexpr LevelEquations kOldOnly{true, false, false};

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
    EXPECT_EQ(e.labels[ArmorLabel], "0 [0]");

    v.fill(500);
    const TypedEvaluation all = EvaluateTypedSample(v, {});
    EXPECT_EQ(all.labels[DefenseLabel], "106");
    EXPECT_EQ(all.labels[DamageLabel], "88 - 362");
    EXPECT_EQ(all.labels[RegenLabel], "43"); // no tenths in this window
    EXPECT_EQ(all.labels[AggroBonusLabel], "12.5%");

    v.fill(0);
    v[1] = 0.4; // Int(2.4)
    EXPECT_EQ(EvaluateTypedSample(v, {}).labels[ArmorLabel], "2 [0]");
    v[1] = -0.1; // Int(-0.6)
    EXPECT_EQ(EvaluateTypedSample(v, {}).labels[ArmorLabel], "-1 [0]");
}

TEST(TypedSample, LevelFromTheUnroundedBase) {
    const TypedEvaluation e = EvaluateTypedSample(PowerOnly(1000), kOldOnly);
    EXPECT_EQ(e.labels[LevelLabel], "67.33"); // L = 300, P = 67.332
    EXPECT_TRUE(e.anyRan);
    EXPECT_EQ(e.lastCreatureLevel, 67.33f);
    EXPECT_EQ(e.labels[ArmorLabel], "0 [4437]");

    // L = 1.5 stays unrounded: 3.2447; the whole-number base 2 would give 3.23.
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(5), kOldOnly).labels[LevelLabel], "3.24");
}

TEST(TypedSample, LinesJoinedByLineBreaks) {
    // New2 weighs Power by 29.459: L = 294.59, P = 63.38; New1 L = 300, P = 65.8776.
    const TypedEvaluation e = EvaluateTypedSample(PowerOnly(1000), {true, true, true});
    EXPECT_EQ(e.labels[LevelLabel], "67.33\r\n65.88\r\n63.38");
    EXPECT_EQ(e.lastCreatureLevel, 63.38f);
    EXPECT_EQ(e.labels[ArmorLabel], "0 [4089]"); // (63 - 16) * 87, the last equation's
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(1000), {false, true, false}).labels[LevelLabel], "\r\n65.88");
}

TEST(TypedSample, LevelArmorBeyondSixteenBitsIsLeftOut) {
    constexpr LevelEquations new1{false, true, false};
    // Level 392: 376 * 87 = 32712 still fits; level 393 gives 32799.
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(2727), new1).labels[ArmorLabel], "0 [32712]");
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(2728), new1).labels[ArmorLabel], "0");

    // A level far outside 16 bits is still shown, without level armor.
    Typed v{};
    v[0] = 1e6;
    v[1] = 10;
    const TypedEvaluation e = EvaluateTypedSample(v, kOldOnly);
    EXPECT_EQ(e.labels[ArmorLabel], "60");
    EXPECT_EQ(e.labels[LevelLabel], "-7.200948E+8");
}
