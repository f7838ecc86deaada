#include "Template.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace quorvel;

namespace {

DnaRecord Sample(const std::string &name, int16_t value, float quality = 0.0f) {
    DnaRecord r;
    r.Name = name;
    r.Attributes.fill(value);
    r.Quality = quality;
    return r;
}

// A template after the whole-template clear, with `record` in every category.
DnaTemplate FilledWith(const DnaRecord &record) {
    DnaTemplate t;
    ClearWholeTemplate(t);
    for (int c = 0; c < kCategoryCount; ++c)
        PutDnaInTemplate(t, c, record);
    return t;
}

DnaTemplate WithQualities(std::array<float, kCategoryCount> qualities) {
    DnaTemplate t;
    for (int c = 0; c < kCategoryCount; ++c)
        t.Slots[c].Quality = qualities[c];
    return t;
}

} // namespace

TEST(CategoryWeights, EveryPairColumnSumsToOne) {
    for (int p = 0; p < kCategoryCount; ++p) {
        double sum = 0.0;
        for (int k = 0; k < kCategoryCount; ++k)
            sum += CategoryWeights[k][p];
        EXPECT_NEAR(sum, 1.0, 1e-12) << p;
    }
}

TEST(PutDnaInTemplate, LinesContributionsAndSelectedLine) {
    DnaTemplate t;
    t.Experimented = {true, true, false, true, true};
    DnaRecord r = Sample("Rancor A", 0, 4.0f);
    r.Attributes[Hardiness] = 512;
    r.Attributes[Fortitude] = 340;
    r.Attributes[Power] = 77;

    const CategoryView physique = PutDnaInTemplate(t, Physique, r);
    EXPECT_EQ(physique.lines[0], "Rancor A");
    EXPECT_EQ(physique.lines[1], "Hrd:512  |  Frt:340");
    EXPECT_EQ(physique.lines[5], "Frc:0  |  Pwr:77");
    EXPECT_EQ(physique.selectedLine, 1);
    EXPECT_EQ(physique.contributions[0], "340"); // 340.8 rounded down
    EXPECT_EQ(physique.contributions[4], "13");  // 0.17 * 77 = 13.09
    EXPECT_EQ(t.Experimented, (std::array<bool, 5>{}));
    EXPECT_EQ(t.Slots[Physique].Attributes[Fortitude], 340);
    EXPECT_EQ(t.Slots[Physique].Quality, 4.0f);

    const CategoryView prowess = PutDnaInTemplate(t, Prowess, r);
    EXPECT_EQ(std::pair(prowess.selectedLine, prowess.contributions[0]),
              std::pair(2, std::string("213"))); // 0.25 * 852
}

TEST(PutDnaInTemplate, NegativeContributionsRoundDownAndBadCategoryIsIgnored) {
    DnaTemplate t;
    DnaRecord r = Sample("", 0);
    r.Attributes[Hardiness] = -3;
    EXPECT_EQ(PutDnaInTemplate(t, Physique, r).contributions[0], "-2"); // -1.2
    EXPECT_EQ(PutDnaInTemplate(t, Physique, r).lines[0], "");

    EXPECT_EQ(PutDnaInTemplate(t, 5, Sample("x", 9)).selectedLine, 0);
    EXPECT_EQ(PutDnaInTemplate(t, -1, Sample("x", 9)).lines[0], "");
    for (const TemplateSlot &slot : t.Slots)
        EXPECT_NE(slot.Name, "x");
}

TEST(ClearTemplate, OneCategoryAndWholeTemplate) {
    DnaTemplate t = FilledWith(Sample("s", 500, 3.0f));
    EvaluateTemplate(t);
    ToggleExperiment(t, Mental);
    const ValueArray caps = t.Caps;

    ClearCategory(t, Prowess);
    EXPECT_EQ(t.Slots[Prowess].Name + t.Slots[Physique].Name + t.CurrentName, "-s-");
    EXPECT_EQ(t.Slots[Prowess].Attributes, ValueArray{});
    EXPECT_EQ(t.Slots[Prowess].Quality + t.CurrentQuality, 0.0f);
    EXPECT_EQ(t.Current, ValueArray{});
    EXPECT_FALSE(t.Experimented[Mental]);
    EXPECT_EQ(t.Caps, caps);

    t.Current[Power] = 400;
    t.Experimented[Psychology] = true;
    ClearWholeTemplate(t);
    for (const TemplateSlot &slot : t.Slots) {
        EXPECT_EQ(slot.Name, "-");
        EXPECT_EQ(slot.Attributes, ValueArray{});
    }
    EXPECT_EQ(t.Current[Power], 400);
    EXPECT_TRUE(t.Experimented[Psychology]);
    EXPECT_EQ(t.Caps, caps);
}

TEST(FirstFreeCategory, FollowsTheDashNames) {
    DnaTemplate t;
    EXPECT_EQ(FirstFreeCategory(t), -1); // empty names before the first clear
    ClearWholeTemplate(t);
    EXPECT_EQ(FirstFreeCategory(t), 0);
    PutDnaInTemplate(t, Physique, Sample("a", 1));
    PutDnaInTemplate(t, Mental, Sample("b", 1));
    EXPECT_EQ(FirstFreeCategory(t), 1);
    EXPECT_EQ(FilledWith(Sample("c", 1)).Slots[4].Name, "c");
    EXPECT_EQ(FirstFreeCategory(FilledWith(Sample("c", 1))), -1);
}

TEST(EvaluateTemplate, FiveEqualSamplesAndPowerMinimum) {
    DnaRecord r = Sample("h", 0);
    r.Attributes[Hardiness] = 500;
    DnaTemplate t = FilledWith(r);
    const TemplateEvaluation e = EvaluateTemplate(t);
    EXPECT_EQ(t.Caps[Hardiness], 500);
    EXPECT_EQ(t.Current[Hardiness], 325);
    EXPECT_EQ(e.label14[Hardiness], "325 [500]");
    EXPECT_EQ(e.label14[Fortitude], "0 [0]");
    // Power 0 is raised to 113 after the percentages were taken.
    EXPECT_EQ(e.label14[Power], "113\r\n [Min val]");
    EXPECT_EQ(t.Current[Power], 113);
    EXPECT_EQ(t.Caps[Power], 0);
    EXPECT_EQ(e.label42[Aggressiveness], "0/0%");
    EXPECT_EQ(e.label42[Physique], "16/25%");
}

TEST(EvaluateTemplate, OneSampleUsesItsRowOfWeights) {
    DnaTemplate t;
    ClearWholeTemplate(t);
    PutDnaInTemplate(t, Aggressiveness, Sample("a", 1000));
    const TemplateEvaluation e = EvaluateTemplate(t);
    EXPECT_EQ(e.label14[Hardiness], "100 [250]");
    EXPECT_EQ(e.label14[Endurance], "17 [75]");
    EXPECT_EQ(e.label14[Cleverness], "10 [50]");
    EXPECT_EQ(e.label14[Courage], "54 [170]");
    EXPECT_EQ(e.label14[Power], "239 [420]");
}

TEST(EvaluateTemplate, CapsRoundHalvesToEven) {
    // Hardiness only in the Mental slot, weight 0.05: 0.5, 1.5 and 2.5.
    const std::pair<int16_t, Value> cases[] = {{10, 0}, {30, 2}, {50, 2}};
    for (const auto &[value, cap] : cases) {
        DnaTemplate t;
        DnaRecord r = Sample("m", 0);
        r.Attributes[Hardiness] = value;
        PutDnaInTemplate(t, Mental, r);
        EvaluateTemplate(t);
        EXPECT_EQ(t.Caps[Hardiness], cap) << value;
    }
}

TEST(EvaluateTemplate, ExperimentedPairsKeepTheirValues) {
    DnaTemplate t = FilledWith(Sample("s", 500));
    EvaluateTemplate(t);
    ToggleExperiment(t, Physique);
    EXPECT_TRUE(t.Experimented[Physique]);
    TemplateEvaluation e = EvaluateTemplate(t);
    EXPECT_EQ(e.label14[Hardiness], "500 [500]");
    EXPECT_EQ(e.label42[Physique], "50/50%");
    EXPECT_EQ(e.label14[Dexterity], "325 [500]");

    ToggleExperiment(t, Physique);
    EXPECT_FALSE(t.Experimented[Physique]);
    EXPECT_EQ(t.Current[Hardiness], 500); // until the evaluation recomputes it
    e = EvaluateTemplate(t);
    EXPECT_EQ(e.label14[Hardiness], "325 [500]");

    t.Experimented[Mental] = true;
    t.Current[Intellect] = 595;
    t.Current[Cleverness] = 605;
    t.Caps[Intellect] = 700;
    t.Caps[Cleverness] = 700;
    e = EvaluateTemplate(t);
    EXPECT_EQ(e.label42[Mental], "60/70%");
    EXPECT_EQ(e.label14[Cleverness], "605 [700]");
}

TEST(StartValue, CapsAroundTheThousand) {
    // The last one lies far beyond 16 bits.
    for (const auto &[cap, start] : {std::pair{500, 325}, {850, 850}, {1000, 1150}, {0, 0}, {32767, 1078591}})
        EXPECT_EQ(StartValue(cap), start) << cap;
}

TEST(PairTexts, PercentAndPowerMinimum) {
    EXPECT_EQ(PairPercent(595, 605), 60);
    EXPECT_EQ(PairPercent(450, 460), 45);
    EXPECT_EQ(PairPercent(-5, 0), -1);
    EXPECT_EQ(PairPercent(32767, 32767), 3276); // beyond 16 bits as a sum

    Value power = 112;
    EXPECT_EQ(PowerCapText(power, 400), "113\r\n [Min val]");
    EXPECT_EQ(power, 113);
    EXPECT_EQ(PowerCapText(power, 400), "113 [400]");
    EXPECT_EQ(ValueCapText(595, 700), "595 [700]");
}

TEST(TemplateQuality, MeanOfWeightsAndWarning) {
    const struct {
        std::array<float, kCategoryCount> qualities;
        float mean;
        const char *text;
    } cases[] = {
        {{2, 2, 2, 2, 2}, 2.0f, "Average"},
        {{6, 0, 0, 0, 0}, 2.0f, "Average"},
        {{1, 1, 1, 1, 0}, 0.8f, "Below Average"},
        {{0, 0, 6, 6, 6}, 6.0f, "Unknown"},
        {{3, 6, 6, 3, 4}, 6.0f, "Unknown"}, // 5.999999999999999 in double
        {{6, 6, 6, 6, 6}, 10.0f, "CL prediction won't be correct"},
        {{7, 7, 7, 7, 7}, 0.0f, "Poor"},
    };
    for (const auto &c : cases) {
        DnaTemplate t = WithQualities(c.qualities);
        EXPECT_EQ(EvaluateTemplate(t).qualityText, c.text);
        EXPECT_EQ(t.CurrentQuality, c.mean);
    }
}

TEST(TemplateQuality, QualityOutsideTheTableWarns) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (float bad : {8.0f, -1.0f, 1e30f, nan}) {
        DnaTemplate t = WithQualities({2, 2, 2, 2, bad});
        EXPECT_EQ(EvaluateTemplate(t).qualityText, "CL prediction won't be correct") << bad;
    }
}
