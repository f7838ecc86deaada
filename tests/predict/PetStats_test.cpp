#include "PetStats.h"
#include "Skins.h"
#include "TypedSample.h"

#include "DnaRecord.h"

#include <gtest/gtest.h>

#include <optional>
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

using Typed = std::array<double, 10>;

Typed PowerOnly(double power) {
    Typed v{};
    v[Index(Attribute::Power)] = power;
    return v;
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

TEST(TypedSample, StatisticsAndLevelsFromUnroundedValuesAndNoLevelWithoutEquations) {
    Typed v{};
    v[Index(Attribute::Hardiness)] = 100;
    v[Index(Attribute::Dexterity)] = 50;
    v[Index(Attribute::Fortitude)] = -0.1; // Armor is Int(Frt x 6): -0.6 rounds down
    const TypedEvaluation e = EvaluateTypedSample(v, {});
    EXPECT_EQ(
        (Texts{e.Labels[Index(PetStat::Health)], e.Labels[Index(PetStat::Armor)], e.Labels[Index(PetStat::Level)]}),
        (Texts{"778", "-1 [0]", ""}));
    EXPECT_FALSE(e.AnyRan);
    // The level comes from the unrounded base; the equations' lines are joined by line breaks.
    const TypedEvaluation old = EvaluateTypedSample(PowerOnly(1000), kOldOnly);
    EXPECT_EQ((Texts{old.Labels[Index(PetStat::Level)], old.Labels[Index(PetStat::Armor)]}),
              (Texts{"67.33", "0 [4437]"})); // L = 300, P = 67.332
    // L = 1.5 stays unrounded: 3.2447; the whole-number base 2 would give 3.23.
    EXPECT_EQ(EvaluateTypedSample(PowerOnly(5), kOldOnly).Labels[Index(PetStat::Level)], "3.24");
    // New2 weighs Power by 29.459: L = 294.59, P = 63.38; New1 L = 300, P = 65.8776.
    const TypedEvaluation all = EvaluateTypedSample(PowerOnly(1000), kAll);
    EXPECT_EQ((Texts{all.Labels[Index(PetStat::Level)], all.Labels[Index(PetStat::Armor)]}),
              (Texts{"67.33\r\n65.88\r\n63.38", "0 [4089]"}));
    EXPECT_EQ(std::pair(all.AnyRan, all.LastCreatureLevel), std::pair(true, 63.38f));
}

TEST(Skins, RowsRiseInLevelAndAChosenSkinRaisesTheLevelToItsMinimum) {
    for (int i = 1; i < kSkinCount; ++i)
        EXPECT_LE(SkinTable[i - 1].MinLevel, SkinTable[i].MinLevel) << i;
    // The first and last row of each group: with rising levels they fix every row's level.
    const std::pair<int, const char *> items[] = {
        {0, "Angler [2]"},    {20, "Vir Vur [2]"},      {21, "Bageraset [5]"}, {48, "Zucca Boar [5]"},
        {49, "Huf Dun [10]"}, {52, "Woolamander [10]"}, {53, "Gronda [15]"},   {59, "Vesp [15]"},
        {60, "Malkloc [20]"}, {61, "Torton [20]"},      {62, "Graul [25]"},    {65, "Sharnaff [25]"},
        {66, "Fambaa [30]"},  {67, "Rancor [35]"},      {68, "Kimogila [40]"},
    };
    for (const auto &[index, text] : items)
        EXPECT_EQ(SkinItemText(index), text) << index;
    // A chosen skin raises the level to its minimum.
    const std::tuple<int, float, std::optional<std::string>> cases[] = {
        {0, 49.78f, "49.78"}, {68, 23.61f, "40"}, {68, 40.0f, "40"}, {21, -3.5f, "5"}, {69, 10.0f, std::nullopt}};
    for (const auto &[skin, level, shown] : cases)
        EXPECT_EQ(ApplySkinLevel(skin, level), shown) << skin << " " << level;
}
