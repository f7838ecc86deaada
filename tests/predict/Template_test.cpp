#include "Template.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>
#include <vector>

using namespace quorvel;

using Texts = std::vector<std::string>;

namespace {

constexpr const char *kWarning = "CL prediction won't be correct";

// A template after the whole-template clear, with a sample of all `value` in every category.
DnaTemplate FilledWith(int16_t value) {
    DnaRecord r{"s"};
    r.Attributes.fill(value);
    DnaTemplate t;
    ClearWholeTemplate(t);
    for (const Category c : kCategories)
        PutDnaInTemplate(t, c, r);
    return t;
}

} // namespace

TEST(PutDnaInTemplate, LinesContributionsAndSelectedLine) {
    DnaTemplate t;
    t.Experimented = {true, true, false, true, true};
    const DnaRecord r{"Rancor A", {512, 340}};
    const CategoryView physique = PutDnaInTemplate(t, Category::Physique, r);
    EXPECT_EQ((Texts{physique.Lines[0], physique.Lines[1]}), (Texts{"Rancor A", "Hrd:512  |  Frt:340"}));
    EXPECT_EQ(physique.SelectedLine, 1);
    EXPECT_EQ(physique.Contributions[0], "340"); // 0.4 * 852 = 340.8 rounded down
    EXPECT_EQ(t.Experimented, (std::array<bool, 5>{}));
    const CategoryView prowess = PutDnaInTemplate(t, Category::Prowess, r); // weight 0.25
    EXPECT_EQ(std::pair(prowess.SelectedLine, prowess.Contributions[0]), std::pair(2, std::string("213")));
    // No such category: nothing is stored.
    EXPECT_EQ(PutDnaInTemplate(t, static_cast<Category>(5), DnaRecord{"x"}).Lines[0] +
                  t.Slots[Index(Category::Aggressiveness)].Name,
              "");
}

TEST(ClearTemplate, EmptiedSlotsAreNamedDashAndCapsStay) {
    DnaTemplate t;
    EXPECT_EQ(FirstFreeCategory(t), std::nullopt); // empty names before the first clear
    t = FilledWith(500);
    EvaluateTemplate(t);
    ToggleExperiment(t, Category::Mental);
    const ValueArray caps = t.Caps;
    ClearCategory(t, Category::Prowess);
    EXPECT_EQ(FirstFreeCategory(t), Category::Prowess);
    EXPECT_EQ(
        std::tuple(t.Slots[Index(Category::Prowess)].Attributes, t.Current, t.Experimented[Index(Category::Mental)]),
        std::tuple(ValueArray{}, ValueArray{}, false));
    t.Current[Index(Attribute::Power)] = 400;
    ClearWholeTemplate(t);
    EXPECT_EQ(t.Slots[Index(Category::Physique)].Name + t.Slots[Index(Category::Aggressiveness)].Name, "--");
    EXPECT_EQ(std::tuple(t.Slots[Index(Category::Physique)].Attributes, t.Current[Index(Attribute::Power)], t.Caps),
              std::tuple(ValueArray{}, 400, caps));
}

TEST(EvaluateTemplate, FiveEqualSamplesExperimentedPairsAndPowerMinimum) {
    DnaTemplate t = FilledWith(500);
    TemplateEvaluation e = EvaluateTemplate(t);
    EXPECT_EQ((Texts{e.Label14[Index(Attribute::Hardiness)], e.Label42[Index(Category::Physique)]}),
              (Texts{"325 [500]", "32/50%"}));
    ToggleExperiment(t, Category::Mental); // the pair takes its caps
    EXPECT_EQ(t.Current[Index(Attribute::Intellect)], 500);
    t.Current[Index(Attribute::Intellect)] = 595;
    t.Current[Index(Attribute::Cleverness)] = 605;
    t.Caps[Index(Attribute::Intellect)] = 700;
    t.Caps[Index(Attribute::Cleverness)] = 700;
    e = EvaluateTemplate(t);
    EXPECT_EQ((Texts{e.Label14[Index(Attribute::Hardiness)], e.Label42[Index(Category::Mental)],
                     e.Label14[Index(Attribute::Cleverness)]}),
              (Texts{"325 [500]", "60/70%", "605 [700]"}));
    // Power 0 is raised to 113 after the percentages were taken.
    t = {};
    e = EvaluateTemplate(t);
    EXPECT_EQ((Texts{e.Label14[Index(Attribute::Power)], e.Label42[Index(Category::Aggressiveness)]}),
              (Texts{"113\r\n [Min val]", "0/0%"}));
    EXPECT_EQ(std::pair(t.Current[Index(Attribute::Power)], t.Caps[Index(Attribute::Power)]), std::pair(113, 0));
}

TEST(TemplateTexts, StartValuesPercentsAndPowerMinimum) {
    for (const auto &[cap, start] : {std::pair{500, 325}, {850, 850}, {1000, 1150}, {0, 0}, {32767, 1078591}})
        EXPECT_EQ(StartValue(cap), start) << cap;
    EXPECT_EQ(PairPercent(32767, 32767), 3276);
    Value power = 112;
    EXPECT_EQ(PowerCapText(power, 400), "113\r\n [Min val]");
    EXPECT_EQ(PowerCapText(power, 400), "113 [400]");
}

// The mean of the slots' quality weights; 5.999999999999999 in double still counts as 6.
TEST(TemplateQuality, MeanOfWeightsAndWarning) {
    const std::pair<std::array<float, kCategoryCount>, const char *> cases[] = {
        {{6, 0, 0, 0, 0}, "Average"}, {{1, 1, 1, 1, 0}, "Below Average"}, {{0, 0, 6, 6, 6}, "Unknown"},
        {{3, 6, 6, 3, 4}, "Unknown"}, {{7, 7, 7, 7, 7}, "Poor"},          {{6, 6, 6, 6, 6}, kWarning},
        {{2, 2, 2, 2, 8}, kWarning},  {{0, -1, 0, 0, 0}, kWarning},       {{0, 0, NAN, 0, 0}, kWarning},
    };
    for (const auto &[qualities, text] : cases) {
        DnaTemplate t;
        for (int k = 0; k < kCategoryCount; ++k)
            t.Slots[k].Quality = qualities[k];
        EXPECT_EQ(EvaluateTemplate(t).QualityText, text) << qualities[0] << " " << qualities[4];
    }
}
