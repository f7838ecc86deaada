#include "PetStats.h"

#include "DnaRecord.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

constexpr LevelEquations kAll{true, true, true};
constexpr LevelEquations kOldOnly{true, false, false};

ValueArray Filled(Value v) {
    ValueArray values;
    values.fill(v);
    return values;
}

} // namespace

TEST(PetStats, SampleOfFiveHundredsRoundsHalvesToEven) {
    const PetPrediction p = PredictPetStats(Filled(500), PredictionSource::Sample, kAll);
    // Defense 106.5 and damage 87.5 - 361.5 go to the even neighbour.
    const std::pair<int, const char *> labels[] = {
        {HealthLabel, "4020"}, {RegenLabel, "43"},        {StateResistLabel, "50%"},
        {DefenseLabel, "106"}, {CriticalSaveLabel, "4%"}, {DamageLabel, "88 - 362"},
        {ToHitLabel, "107"},   {CriticalHitLabel, "4%"},  {AggroBonusLabel, "12.5%"},
    };
    for (const auto &[label, text] : labels)
        EXPECT_EQ(p.labels[label], text) << label;
    EXPECT_TRUE(p.level.anyRan);
    EXPECT_EQ(p.level.lastCreatureLevel, 47.13f);
}

TEST(PetStats, EquationChoiceDrivesLevelTextAndArmor) {
    // L = 250, 255, 247; the last equation's level gives the level armor (47 - 16) * 87.
    const struct {
        LevelEquations equations;
        const char *level;
        float level0;
        const char *armor;
    } cases[] = {
        {kAll, "49.78 / 50.2 / 47.13", 47.0f, "3000 [2697]"},
        {kOldOnly, "49.78", 50.0f, "3000 [2958]"},
        {{false, false, true}, " / 47.13", 47.0f, "3000 [2697]"},
        {{}, "", 0.0f, "3000 [0]"},
    };
    for (const auto &c : cases) {
        const PetPrediction p = PredictPetStats(Filled(500), PredictionSource::Sample, c.equations);
        EXPECT_EQ(p.labels[LevelLabel], c.level);
        EXPECT_EQ(p.level.level0, c.level0) << c.level;
        EXPECT_EQ(p.labels[ArmorLabel], c.armor) << c.level;
    }
    EXPECT_FALSE(PredictPetStats(Filled(500), PredictionSource::Sample, {}).level.anyRan);
}

TEST(PetStats, TemplateSourceShowsRegenTenths) {
    // 325 / 70 + 325 / 14 = 27.857...: rounded 28, ten times rounded down 278.
    EXPECT_EQ(PredictPetStats(Filled(325), PredictionSource::Template, {}).labels[RegenLabel], "28 (278)");
    EXPECT_EQ(PredictPetStats(Filled(325), PredictionSource::Sample, {}).labels[RegenLabel], "28");
}

TEST(CreatureLevel, WholeLevelOfOneHundred) {
    // Hardiness and Fortitude 1000 make X = 10000 in every equation and no Power: L = 100.
    ValueArray v{};
    v[Hardiness] = 1000;
    v[Fortitude] = 1000;
    const CreatureLevel all = PredictCreatureLevel(v, PredictionSource::Sample, kAll);
    EXPECT_EQ(all.text, "10.63 / 11.7 / 10.04");
    EXPECT_EQ(all.level0, 10.0f);
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
    // With all others at 500, X + 30 Pwr = 40000 does not fit 16 bits: L = 400, 405, 395.
    v = Filled(500);
    v[Power] = 1000;
    const PetPrediction p = PredictPetStats(v, PredictionSource::Sample, kAll);
    EXPECT_EQ(p.labels[LevelLabel], "104.68 / 110.33 / 100.1");
    EXPECT_EQ(p.labels[ArmorLabel], "3000 [7308]");
}

TEST(CreatureLevel, SingleTextsKeepSevenDigits) {
    // 16666 Power and 20 Fortitude: L = 5000; Old alone ends negative and the level armor counts as 0.
    ValueArray v{};
    v[Fortitude] = 20;
    v[Power] = 16666;
    const PetPrediction p = PredictPetStats(v, PredictionSource::Sample, {true, true, false});
    EXPECT_EQ(p.labels[LevelLabel], "-97629.22 / 12854.11");
    EXPECT_EQ(p.labels[ArmorLabel], "120 [1116906]");
    EXPECT_EQ(PredictPetStats(v, PredictionSource::Sample, kOldOnly).labels[ArmorLabel], "120 [0]");
    // L = 20000: 201417.61 and 201402 * 87 only keep seven digits in single precision.
    v = {};
    v[Power] = 66667;
    const PetPrediction h = PredictPetStats(v, PredictionSource::Sample, {false, true, false});
    EXPECT_EQ(h.labels[LevelLabel] + " " + h.labels[ArmorLabel], " / 201417.6 0 [1.752197E+7]");
}

TEST(StatTexts, RoundingSignsAndFifteenDigits) {
    EXPECT_EQ(DamageText(50), "-4 - 90");
    EXPECT_EQ(DamageText(71), "0 - 103"); // -0.016 shows as 0
    EXPECT_EQ(CriticalHitText(0), "0%");  // slightly negative
    EXPECT_EQ(StateResistText(1, 0) + " " + AggroBonusText(1), "0.08% 0.03%");
    EXPECT_EQ(RegenText(35, 0) + " " + RegenText(105, 0), "0 2"); // 0.5 and 1.5 to the even 0 and 2
    EXPECT_EQ(HealthText(2000000, 0), "13240050");
    EXPECT_EQ(HealthText(1e14, 0), "662000000000050");
}
