#include "Experiment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

using namespace quorvel;

using Texts = std::vector<std::string>;

namespace {

constexpr BoxColour W = BoxColour::White, Y = BoxColour::Yellow, G = BoxColour::Green;

using Row = std::array<BoxColour, 10>;

// A template with every cap and current value as given.
DnaTemplate With(Value cap, Value current) {
    DnaTemplate t;
    t.Caps.fill(cap);
    t.Current.fill(current);
    return t;
}

// A session opened on `t` with `points` points.
ExperimentSession Opened(DnaTemplate &t, int points) {
    ExperimentSession s;
    CreateSession(s);
    OpenExperiment(s, t, points);
    return s;
}

} // namespace

TEST(ExperimentOpening, CapPercentHidesBoxesUntilANewWindowAndPointsAreClamped) {
    DnaTemplate t = With(1000, 300);
    t.Caps[Index(Attribute::Hardiness)] = 450;
    t.Caps[Index(Attribute::Fortitude)] = 460;
    ExperimentSession s = Opened(t, 20);
    EXPECT_EQ((Texts{s.CapPercentText[Index(Category::Physique)], s.CapPercentText[Index(Category::Prowess)]}),
              (Texts{"45%", "100%"}));
    EXPECT_EQ(s.Visible[Index(Category::Physique)], (std::array<bool, 10>{1, 1, 1, 1, 1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(s.RemainingPoints, 12);
    t.Caps.fill(1000);
    OpenExperiment(s, t, -3);
    EXPECT_EQ(std::pair(s.Visible[Index(Category::Physique)][5], std::count(s.Points.begin(), s.Points.end(), Y)),
              std::pair(false, std::ptrdiff_t{0}));
    CreateSession(s);
    EXPECT_TRUE(s.Visible[Index(Category::Physique)][5]);
}

TEST(ExperimentView, RowsFollowCurrentPercentAndStartValuesAboveCapsFillThem) {
    DnaTemplate t = With(1000, 500);
    t.Current[Index(Attribute::Hardiness)] = t.Caps[Index(Attribute::Hardiness)] = 300;
    t.Current[Index(Attribute::Fortitude)] = t.Caps[Index(Attribute::Fortitude)] = 320;
    ExperimentSession s = Opened(t, 3);
    EXPECT_EQ((Texts{s.CurrentPercentText[Index(Category::Physique)], s.CapPercentText[Index(Category::Physique)]}),
              (Texts{"31%", "31%"}));
    // 50% of 100% fills five boxes; at the cap percentage the box holding it is yellow too.
    EXPECT_EQ(s.Rows[Index(Category::Prowess)], (Row{Y, Y, Y, Y, Y, W, W, W, W, W}));
    EXPECT_EQ(s.Rows[Index(Category::Physique)], (Row{Y, Y, Y, Y, W, W, W, W, W, W}));
    t = With(1000, 0);
    ResetSession(s, t, 4);
    EXPECT_EQ((Texts{s.CurrentPercentText[Index(Category::Physique)], s.ValueTexts[Index(Attribute::Hardiness)]}),
              (Texts{"115%", "1150 [1000]"}));
    EXPECT_EQ(s.Rows[Index(Category::Physique)], (Row{Y, Y, Y, Y, Y, Y, Y, Y, Y, Y}));
    PlacePoint(s, Category::Physique, 9); // yellow: nothing
    EXPECT_EQ(s.RemainingPoints, 4);
}

TEST(PlacePoint, PlaceGiveBackLastPointAndRun) {
    DnaTemplate t = With(1000, 300); // 30%: boxes 0..2 yellow
    ExperimentSession s = Opened(t, 5);
    PlacePoint(s, Category::Mental, 7); // the green box is the row's first white one
    EXPECT_EQ(s.Rows[Index(Category::Mental)], (Row{Y, Y, Y, G, W, W, W, W, W, W}));
    EXPECT_EQ(std::count(s.Points.begin(), s.Points.end(), Y), 4);
    PlacePoint(s, Category::Prowess, 5); // white while a point is placed: nothing
    EXPECT_EQ(std::pair(s.PendingCategory, s.Rows[Index(Category::Prowess)][3]), std::pair(Category::Mental, W));
    PlacePoint(s, Category::Mental, 3); // the green box gives the point back
    EXPECT_EQ(std::tuple(s.PointPending, s.RemainingPoints, s.Rows[Index(Category::Mental)][3]),
              std::tuple(false, 5, W));
    RunExperiment(s, t); // no point placed: nothing
    EXPECT_EQ(t.Current[Index(Attribute::Intellect)], 300);
    s = Opened(t, 1);
    PlacePoint(s, Category::Psychology, 4);
    PlacePoint(s, Category::Psychology, 3); // the last point, placed, stays placed
    EXPECT_EQ(std::pair(s.RemainingPoints, s.Rows[Index(Category::Psychology)][3]), std::pair(0, G));
    RunExperiment(s, t);
    EXPECT_EQ((Texts{s.CurrentPercentText[Index(Category::Psychology)], s.ValueTexts[Index(Attribute::Dependability)]}),
              (Texts{"37%", "370 [1000]"}));
}

TEST(RunExperiment, SplitsOneHundredFortyByShares) {
    const std::array<Value, 5> cases[] = {
        // x, y, cap of x, then x and y after the experiment
        {512, 340, 1000, 567, 424}, {300, 100, 1000, 335, 205},     // 55.87 and 84.13 round down
        {0, 0, 1000, 70, 70},       {0, 0, 50, 50, 70},             // no shares: an even split
        {700, 0, 1000, 700, 140},   {1150, 1150, 1000, 1000, 1000}, // start values above the caps come down
    };
    for (const auto &[x, y, capX, wantX, wantY] : cases) {
        DnaTemplate t = With(1000, 500);
        t.Current[Index(Attribute::Intellect)] = x;
        t.Current[Index(Attribute::Cleverness)] = y;
        t.Caps[Index(Attribute::Intellect)] = capX;
        ExperimentSession s = Opened(t, 3);
        s.PointPending = true;
        s.PendingCategory = Category::Mental;
        RunExperiment(s, t);
        EXPECT_EQ(std::pair(t.Current[Index(Attribute::Intellect)], t.Current[Index(Attribute::Cleverness)]),
                  std::pair(wantX, wantY))
            << x;
        EXPECT_FALSE(s.PointPending);
    }
}
