#include "Experiment.h"

#include "Numeric.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quorvel {

namespace {

constexpr int kRowBoxes = 10;
constexpr int kPointBoxes = 12;

std::string PercentText(int percent) {
    return FormatWhole(percent) + "%";
}

// The box holding the percentage figure: each box stands for ten points.
int BoxOf(int percent) {
    return static_cast<int>(std::floor(percent / 10.0));
}

// Adds the share of one attribute's 140 and holds the result at the cap.
Value Raised(Value own, double share, Value cap) {
    const Value raised = ToValue(static_cast<double>(own) + std::floor(share * 140));
    return std::min(raised, cap);
}

} // namespace

void CreateSession(ExperimentSession &s) {
    s = ExperimentSession{};
    for (int c = 0; c < kCategoryCount; ++c) {
        s.Rows[c].fill(BoxColour::White);
        s.Visible[c].fill(true);
        s.CurrentPercentText[c] = "10%";
        s.CapPercentText[c] = "100%";
    }
    s.Points.fill(BoxColour::White);
    s.ValueTexts.fill("0 [0]");
}

void OpenExperiment(ExperimentSession &s, DnaTemplate &t, int expPoints) {
    s.PointPending = false;
    s.RemainingPoints = std::clamp(expPoints, 0, kPointBoxes);
    RefreshPointsColumn(s);
    for (int c = 0; c < kCategoryCount; ++c) {
        const int percent = PairPercent(t.Caps[2 * c], t.Caps[2 * c + 1]);
        s.CapPercentText[c] = PercentText(percent);
        // Boxes beyond the cap go; nothing here brings them back.
        for (int b = std::max(BoxOf(percent) + 1, 0); b < kRowBoxes; ++b)
            s.Visible[c][b] = false;
    }
    RefreshExperimentView(s, t);
}

void RefreshPointsColumn(ExperimentSession &s) {
    for (int b = 0; b < kPointBoxes; ++b)
        s.Points[b] = b < s.RemainingPoints ? BoxColour::Yellow : BoxColour::White;
}

void RefreshExperimentView(ExperimentSession &s, DnaTemplate &t) {
    for (auto &row : s.Rows)
        row.fill(BoxColour::White);
    for (int c = 0; c < kCategoryCount; ++c) {
        const int percent = PairPercent(t.Current[2 * c], t.Current[2 * c + 1]);
        s.RowPercent[c] = percent;
        s.CurrentPercentText[c] = PercentText(percent);
        const int n = BoxOf(percent);
        for (int b = 0; b < std::min(n, kRowBoxes); ++b)
            s.Rows[c][b] = BoxColour::Yellow;
        // A row at its cap is yellow up to its last visible box.
        if (s.CurrentPercentText[c] == s.CapPercentText[c] && n >= 0 && n < kRowBoxes)
            s.Rows[c][n] = BoxColour::Yellow;
    }
    for (int a = 0; a < static_cast<int>(Attribute::Power); ++a)
        s.ValueTexts[a] = ValueCapText(t.Current[a], t.Caps[a]);
    s.ValueTexts[Index(Attribute::Power)] =
        PowerCapText(t.Current[Index(Attribute::Power)], t.Caps[Index(Attribute::Power)]);
}

void PlacePoint(ExperimentSession &s, Category category, int b) {
    const int c = static_cast<int>(category);
    const bool onBox = c >= 0 && c < kCategoryCount && b >= 0 && b < kRowBoxes;
    if (onBox && s.RemainingPoints > 0) {
        auto &row = s.Rows[c];
        if (!s.PointPending && row[b] == BoxColour::White) {
            --s.RemainingPoints;
            s.PointPending = true;
            s.PendingCategory = category;
            *std::find(row.begin(), row.end(), BoxColour::White) = BoxColour::Green;
        } else if (row[b] == BoxColour::Green) {
            ++s.RemainingPoints;
            s.PointPending = false;
            s.PendingCategory = category;
            row[b] = BoxColour::White;
        }
    }
    RefreshPointsColumn(s);
}

void RunExperiment(ExperimentSession &s, DnaTemplate &t) {
    const int c = static_cast<int>(s.PendingCategory);
    if (!s.PointPending || c < 0 || c >= kCategoryCount)
        return;
    const Value x = t.Current[2 * c];
    const Value y = t.Current[2 * c + 1];
    const int64_t sum = static_cast<int64_t>(x) + y;
    // Two values that sum to zero have no shares: the point is split evenly.
    const double shareX = sum == 0 ? 0.5 : y / static_cast<double>(sum);
    const double shareY = sum == 0 ? 0.5 : x / static_cast<double>(sum);
    t.Current[2 * c] = Raised(x, shareX, t.Caps[2 * c]);
    t.Current[2 * c + 1] = Raised(y, shareY, t.Caps[2 * c + 1]);
    s.PointPending = false;
    RefreshExperimentView(s, t);
}

void ResetSession(ExperimentSession &s, DnaTemplate &t, int expPoints) {
    for (int k = 0; k < kAttributeCount; ++k)
        t.Current[k] = StartValue(t.Caps[k]);
    OpenExperiment(s, t, expPoints);
}

} // namespace quorvel
