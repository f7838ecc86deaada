#include "PetStats.h"

#include "DnaRecord.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

using namespace quorvel;

using Texts = std::vector<std::string>;

namespace {

constexpr LevelEquations kAll{true, true, true};
constexpr LevelEquations kOldOnly{true, false, false};

ValueArray Filled(Value v) {
    ValueArray values;
    values.fill(v);
    return values;
}

} // namespace

TEST(PetStats, SampleOfFiveHundredsAndTheChoiceOfEquations) {
    // Defense 106.5 and damage 87.5 - 361.5 go to the even neighbour; L = 250, 255, 247, and the
    // last equation's level gives the level armor (47 - 16) * 87.
    const PetPrediction p = PredictPetStats(Filled(500), PredictionSource::Sample, kAll);
    EXPECT_EQ(p.Labels, (StatTexts{"4020", "43", "3000 [2697]", "107", "106", "50%", "4%", "4%", "12.5%", "88 - 362",
                                   "49.78 / 50.2 / 47.13"}));
    EXPECT_EQ(std::pair(p.Level.Level0, p.Level.LastCreatureLevel), std::pair(47.0f, 47.13f));
    const std::tuple<LevelEquations, Texts, float> cases[] = {
        {kOldOnly, {"3000 [2958]", "49.78"}, 50.0f},
        {{false, false, true}, {"3000 [2697]", " / 47.13"}, 47.0f},
        {{}, {"3000 [0]", ""}, 0.0f}};
    for (const auto &[equations, texts, level0] : cases) {
        const PetPrediction one = PredictPetStats(Filled(500), PredictionSource::Sample, equations);
        EXPECT_EQ((Texts{one.Labels[Index(PetStat::Armor)], one.Labels[Index(PetStat::Level)]}), texts);
        EXPECT_EQ(std::pair(one.Level.Level0, one.Level.AnyRan), std::pair(level0, level0 != 0.0f));
    }
}

TEST(CreatureLevel, WholeLevelOfOneHundredAndTheSources) {
    // Hardiness and Fortitude 1000 make X = 10000 in every equation and no Power: L = 100.
    ValueArray v{};
    v[Index(Attribute::Hardiness)] = 1000;
    v[Index(Attribute::Fortitude)] = 1000;
    const PetPrediction p = PredictPetStats(v, PredictionSource::Sample, kAll);
    EXPECT_EQ((Texts{p.Labels[Index(PetStat::Level)], p.Labels[Index(PetStat::Armor)]}),
              (Texts{"10.63 / 11.7 / 10.04", "6000 [0]"}));
    EXPECT_EQ(p.Level.Level0, 10.0f);
    EXPECT_EQ(PredictCreatureLevel(v, PredictionSource::Sample, kOldOnly).Level0, 11.0f);
    // Sample: (150 + 30000) / 100 = 301.5 rounds to the even 302; template: 301.49 gives 301.
    v = {};
    v[Index(Attribute::Fortitude)] = 150;
    v[Index(Attribute::Power)] = 1000;
    EXPECT_EQ(PredictCreatureLevel(v, PredictionSource::Sample, kOldOnly).Text, "68.06");
    EXPECT_EQ(PredictCreatureLevel(v, PredictionSource::Template, kOldOnly).Text, "67.7");
    // 325 / 70 + 325 / 14 = 27.857...: rounded 28, ten times rounded down 278.
    EXPECT_EQ(PredictPetStats(Filled(325), PredictionSource::Template, {}).Labels[Index(PetStat::Regen)], "28 (278)");
}
