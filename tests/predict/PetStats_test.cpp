#include "PetStats.h"

#include "DnaRecord.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

constexpr LevelEquations kAll{true, true, true};
constexpr LevelEquations kOldOnly{true, false, false};
constexpr LevelEquations kNone{};

ValueArray Filled(Value v) {
    ValueArray values;
    values.fill(v);
    return values;
}

} // namespace

TEST(PetStats, SampleOfFiveHundredsRoundsHalvesToEven) {
    const PetPrediction p = PredictPetStats(Filled(500), PredictionSource::Sample, kAll);
    EXPECT_EQ(p.labels[HealthLabel], "4020");
    EXPECT_EQ(p.labels[RegenLabel], "43");
    EXPECT_EQ(p.labels[StateResistLabel], "50%");
    EXPECT_EQ(p.labels[DefenseLabel], "106"); // 106.5
    EXPECT_EQ(p.labels[CriticalSaveLabel], "4%");
    EXPECT_EQ(p.labels[DamageLabel], "88 - 362"); // 87.5 and 361.5
    EXPECT_EQ(p.labels[ToHitLabel], "107");
    EXPECT_EQ(p.labels[CriticalHitLabel], "4%");
    EXPECT_EQ(p.labels[AggroBonusLabel], "12.5%");
    // L = 250, 255, 247; the last equation's level gives the level armor (47 - 16) * 87.
    EXPECT_EQ(p.labels[LevelLabel], "49.78 / 50.2 / 47.13");
    EXPECT_EQ(p.level.level0, 47.0f);
    EXPECT_TRUE(p.level.anyRan);
    EXPECT_EQ(p.level.lastCreatureLevel, 47.13f);
    EXPECT_EQ(p.labels[ArmorLabel], "3000 [2697]");
}

TEST(PetStats, EquationChoiceDrivesLevelTextAndArmor) {
    const PetPrediction oldOnly = PredictPetStats(Filled(500), PredictionSource::Sample, kOldOnly);
    EXPECT_EQ(oldOnly.labels[LevelLabel], "49.78");
    EXPECT_EQ(oldOnly.level.level0, 50.0f);
    EXPECT_EQ(oldOnly.labels[ArmorLabel], "3000 [2958]");

    const PetPrediction none = PredictPetStats(Filled(500), PredictionSource::Sample, kNone);
    EXPECT_EQ(none.labels[LevelLabel], "");
    EXPECT_FALSE(none.level.anyRan);
    EXPECT_EQ(none.level.level0, 0.0f);
    EXPECT_EQ(none.labels[ArmorLabel], "3000 [0]");

    const PetPrediction new2Only = PredictPetStats(Filled(500), PredictionSource::Sample, {false, false, true});
    EXPECT_EQ(new2Only.labels[LevelLabel], " / 47.13");
}

TEST(PetStats, TemplateSourceShowsRegenTenths) {
    // 325 / 70 + 325 / 14 = 27.857...: rounded 28, ten times rounded down 278.
    EXPECT_EQ(PredictPetStats(Filled(325), PredictionSource::Template, kNone).labels[RegenLabel], "28 (278)");
    EXPECT_EQ(PredictPetStats(Filled(325), PredictionSource::Sample, kNone).labels[RegenLabel], "28");
}

TEST(CreatureLevel, WholeLevelOfOneHundred) {
    // Hardiness and Fortitude 1000 make X = 10000 in every equation and no Power: L = 100.
    ValueArray v{};
    v[Hardiness] = 1000;
    v[Fortitude] = 1000;
    const CreatureLevel all = PredictCreatureLevel(v, PredictionSource::Sample, kAll);
    EXPECT_EQ(all.text, "10.63 / 11.7 / 10.04");
    EXPECT_EQ(all.level0, 10.0f);
    EXPECT_EQ(all.lastCreatureLevel, 10.04f);
    EXPECT_EQ(PredictCreatureLevel(v, PredictionSource::Sample, kOldOnly).level0, 11.0f);
    // Level 10 is below 16: no level armor.
    EXPECT_EQ(PredictPetStats(v, PredictionSource::Sample, kAll).labels[ArmorLabel], "6000 [0]");
}

TEST(CreatureLevel, SampleAddsThirtyPowerTemplateWeighs29999) {
    // Sample: (150 + 30000) / 100 = 301.5 rounds to the even 302; template: 301.49 gives 301.
    ValueArray v{};
    v[Fortitude] = 150;
    v[Power] = 1000;
    EXPECT_EQ(PredictCreatureLevel(v, PredictionSource::Sample, kOldOnly).text, "68.06");
    EXPECT_EQ(PredictCreatureLevel(v, PredictionSource::Template, kOldOnly).text, "67.7");
}

TEST(CreatureLevel, SumsBeyondSixteenBitsStayExact) {
    // X + 30 Pwr = 10000 + 30000 = 40000 does not fit 16 bits.
    ValueArray v = Filled(500);
    v[Power] = 1000;
    const PetPrediction p = PredictPetStats(v, PredictionSource::Sample, kAll);
    EXPECT_EQ(p.labels[LevelLabel], "104.68 / 110.33 / 100.1"); // L = 400, 405, 395
    EXPECT_EQ(p.labels[ArmorLabel], "3000 [7308]");
    EXPECT_EQ(p.labels[DamageLabel], "190 - 663"); // 189.5 to the even 190
}

TEST(CreatureLevel, SingleTextsKeepSevenDigits) {
    // 16666 Power and 20 Fortitude: L = 5000 for Old and New1.
    ValueArray v{};
    v[Fortitude] = 20;
    v[Power] = 16666;
    const PetPrediction p = PredictPetStats(v, PredictionSource::Sample, {true, true, false});
    EXPECT_EQ(p.labels[LevelLabel], "-97629.22 / 12854.11");
    EXPECT_EQ(p.labels[ArmorLabel], "120 [1116906]");
    // Old alone ends negative: the level armor counts as 0.
    EXPECT_EQ(PredictPetStats(v, PredictionSource::Sample, kOldOnly).labels[ArmorLabel], "120 [0]");

    // L = 20000: 201417.61 and 201402 * 87 only keep seven digits in single precision.
    ValueArray huge{};
    huge[Power] = 66667;
    const PetPrediction h = PredictPetStats(huge, PredictionSource::Sample, {false, true, false});
    EXPECT_EQ(h.labels[LevelLabel], " / 201417.6");
    EXPECT_EQ(h.labels[ArmorLabel], "0 [1.752197E+7]");
}

TEST(StatTexts, RoundingAndSigns) {
    EXPECT_EQ(DamageText(50), "-4 - 90");
    EXPECT_EQ(DamageText(71), "0 - 103"); // -0.016 shows as 0
    EXPECT_EQ(CriticalHitText(0), "0%");  // slightly negative
    EXPECT_EQ(StateResistText(1, 0), "0.08%");
    EXPECT_EQ(CriticalSaveText(1000), "8%");
    EXPECT_EQ(AggroBonusText(1), "0.03%");
    EXPECT_EQ(ToHitText(0), "5");
    EXPECT_EQ(RegenText(35, 0), "0");  // 0.5 to the even 0
    EXPECT_EQ(RegenText(105, 0), "2"); // 1.5 to the even 2
}

TEST(StatTexts, DoublesKeepFifteenDigits) {
    EXPECT_EQ(HealthText(2000000, 0), "13240050");
    EXPECT_EQ(HealthText(1e14, 0), "662000000000050");
}
