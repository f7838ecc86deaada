#include "Experiment.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quorvel;

namespace {

constexpr BoxColour W = BoxColour::White;
constexpr BoxColour Y = BoxColour::Yellow;
constexpr BoxColour G = BoxColour::Green;

using Row = std::array<BoxColour, 10>;

DnaTemplate WithCaps(Value cap) {
    DnaTemplate t;
    t.Caps.fill(cap);
    return t;
}

// A session opened on `t` with `points` points.
ExperimentSession Opened(DnaTemplate &t, int points) {
    ExperimentSession s;
    CreateSession(s);
    OpenExperiment(s, t, points);
    return s;
}

int CountOf(const std::array<BoxColour, 12> &boxes, BoxColour colour) {
    return static_cast<int>(std::count(boxes.begin(), boxes.end(), colour));
}

} // namespace

TEST(ExperimentOpening, CapPercentHidesBoxesUntilANewWindow) {
    DnaTemplate t = WithCaps(1000);
    t.Caps[Hardiness] = 450;
    t.Caps[Fortitude] = 460;
    t.Current.fill(300);
    ExperimentSession s = Opened(t, 5);
    EXPECT_EQ(s.CapPercentText[Physique] + " " + s.CapPercentText[Prowess], "45% 100%");
    EXPECT_EQ(s.Visible[Physique], (std::array<bool, 10>{1, 1, 1, 1, 1, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(s.Visible[Prowess][9]);

    t.Caps = WithCaps(1000).Caps;
    OpenExperiment(s, t, 5);
    EXPECT_FALSE(s.Visible[Physique][5]);
    CreateSession(s);
    EXPECT_TRUE(s.Visible[Physique][5]);
    EXPECT_EQ(s.Rows[Physique], Row{});
}

TEST(ExperimentOpening, PointsColumnIsClamped) {
    DnaTemplate t = WithCaps(500);
    for (const auto &[points, kept] : {std::pair{5, 5}, {20, 12}, {-3, 0}}) {
        const ExperimentSession s = Opened(t, points);
        EXPECT_EQ(s.RemainingPoints, kept);
        for (int b = 0; b < 12; ++b)
            EXPECT_EQ(s.Points[b], b < kept ? Y : W) << points << " " << b;
    }
}

TEST(ExperimentView, RowsFollowCurrentPercent) {
    DnaTemplate t = WithCaps(1000);
    t.Current.fill(500);
    t.Current[Hardiness] = 300;
    t.Current[Fortitude] = 320;
    ExperimentSession s = Opened(t, 3);
    EXPECT_EQ(s.CurrentPercentText[Physique], "31%");
    EXPECT_EQ(s.Rows[Physique], (Row{Y, Y, Y, W, W, W, W, W, W, W}));

    // At the cap percentage the box holding it is yellow too.
    t.Caps[Hardiness] = 300;
    t.Caps[Fortitude] = 320;
    s = Opened(t, 3);
    EXPECT_EQ(s.Rows[Physique], (Row{Y, Y, Y, Y, W, W, W, W, W, W}));
    EXPECT_EQ(s.ValueTexts[Hardiness], "300 [300]");
}

TEST(ExperimentView, StartValuesAboveCapsFillTheRow) {
    DnaTemplate t = WithCaps(1000);
    ExperimentSession s;
    CreateSession(s);
    ResetSession(s, t, 4);
    EXPECT_EQ(t.Current[Hardiness], 1150);
    EXPECT_EQ(s.CurrentPercentText[Physique], "115%");
    EXPECT_EQ(s.Rows[Physique], (Row{Y, Y, Y, Y, Y, Y, Y, Y, Y, Y}));
    EXPECT_EQ(s.ValueTexts[Hardiness], "1150 [1000]");

    PlacePoint(s, Physique, 9); // yellow: nothing
    EXPECT_FALSE(s.PointPending);
    EXPECT_EQ(s.RemainingPoints, 4);
}

TEST(ExperimentView, PowerBelowMinimumIsRaised) {
    DnaTemplate t = WithCaps(1000);
    t.Current.fill(400);
    t.Current[Power] = 50;
    const ExperimentSession s = Opened(t, 1);
    EXPECT_EQ(s.ValueTexts[Power], "113\r\n [Min val]");
    EXPECT_EQ(t.Current[Power], 113);
    EXPECT_EQ(s.ValueTexts[Fierceness], "400 [1000]");
}

TEST(PlacePoint, PlaceReturnAndLastPoint) {
    DnaTemplate t = WithCaps(1000);
    t.Current.fill(300); // 30%: boxes 0..2 yellow
    ExperimentSession s = Opened(t, 5);

    PlacePoint(s, Mental, 7); // the green box is the row's first white one
    EXPECT_EQ(s.RemainingPoints, 4);
    EXPECT_TRUE(s.PointPending);
    EXPECT_EQ(s.Rows[Mental], (Row{Y, Y, Y, G, W, W, W, W, W, W}));
    EXPECT_EQ(CountOf(s.Points, Y), 4);

    PlacePoint(s, Prowess, 5); // white while a point is placed: nothing
    EXPECT_EQ(s.PendingCategory, Mental);
    EXPECT_EQ(s.Rows[Prowess][3], W);

    PlacePoint(s, Mental, 3); // the green box returns the point
    EXPECT_FALSE(s.PointPending);
    EXPECT_EQ(s.Rows[Mental][3], W);
    EXPECT_EQ(CountOf(s.Points, Y), 5);

    s = Opened(t, 1);
    PlacePoint(s, Psychology, 4);
    EXPECT_EQ(s.RemainingPoints, 0);
    PlacePoint(s, Psychology, 3); // the last point, placed, stays placed
    EXPECT_EQ(s.RemainingPoints, 0);
    EXPECT_EQ(s.Rows[Psychology][3], G);
}

TEST(RunExperiment, SplitsOneHundredFortyByShares) {
    const struct {
        Value x, y, capX, capY, wantX, wantY;
    } cases[] = {
        {512, 340, 1000, 1000, 567, 424},                                       // 55.87 and 84.13 rounded down
        {300, 100, 1000, 1000, 335, 205}, {1150, 1150, 1000, 1000, 1000, 1000}, // start values above the caps come down
        {0, 0, 1000, 1000, 70, 70},                                             // no shares: even split
        {0, 0, 50, 1000, 50, 70},         {700, 0, 1000, 1000, 700, 140},
    };
    for (const auto &c : cases) {
        DnaTemplate t = WithCaps(1000);
        t.Current.fill(500);
        t.Current[Intellect] = c.x;
        t.Current[Cleverness] = c.y;
        t.Caps[Intellect] = c.capX;
        t.Caps[Cleverness] = c.capY;
        ExperimentSession s = Opened(t, 3);
        s.PointPending = true;
        s.PendingCategory = Mental;
        RunExperiment(s, t);
        EXPECT_EQ(std::pair(t.Current[Intellect], t.Current[Cleverness]), std::pair(c.wantX, c.wantY))
            << c.x << "," << c.y;
        EXPECT_FALSE(s.PointPending);
        EXPECT_EQ(t.Current[Hardiness], 500);
    }
}

TEST(RunExperiment, NeedsAPlacedPointAndResetRestores) {
    DnaTemplate t = WithCaps(1000);
    t.Current.fill(500);
    ExperimentSession s = Opened(t, 2);
    RunExperiment(s, t);
    EXPECT_EQ(t.Current[Hardiness], 500);

    PlacePoint(s, Physique, 8);
    RunExperiment(s, t);
    EXPECT_EQ(t.Current[Hardiness], 570);
    EXPECT_EQ(s.CurrentPercentText[Physique], "57%");

    ResetSession(s, t, 2);
    EXPECT_EQ(t.Current[Hardiness], 1150);
    EXPECT_EQ(s.RemainingPoints, 2);
    EXPECT_FALSE(s.PointPending);
}
