#pragma once

#include "Template.h"

#include <array>
#include <string>

namespace quorvel {

// The colours a box of the experimentation window can have.
enum class BoxColour { White, Yellow, Green };

// The experimentation window's boxes and the session state. The colours are the state:
// a click's meaning is decided by the colour of the box clicked.
struct ExperimentSession {
    int RemainingPoints = 0;
    bool PointPending = false;
    Category PendingCategory = Category::Physique;
    std::array<int, kCategoryCount> RowPercent{};

    std::array<std::array<BoxColour, 10>, kCategoryCount> Rows{};
    std::array<std::array<bool, 10>, kCategoryCount> Visible{};
    std::array<BoxColour, 12> Points{};

    std::array<std::string, kCategoryCount> CurrentPercentText; // Label42
    std::array<std::string, kCategoryCount> CapPercentText;     // Label5
    std::array<std::string, 10> ValueTexts;                     // Label14 0..9
};

// A new window: every box visible and white.
void CreateSession(ExperimentSession &s);

// The opening steps (after the main-window effects): no point pending, points from
// `expPoints` (clamped to 0..12), cap percentages, boxes beyond the cap hidden, view refreshed.
void OpenExperiment(ExperimentSession &s, DnaTemplate &t, int expPoints);

void RefreshPointsColumn(ExperimentSession &s);
// Redraws rows and value texts from the template; raises Power to 113 in t.Current.
void RefreshExperimentView(ExperimentSession &s, DnaTemplate &t);

// A click on box b of row c.
void PlacePoint(ExperimentSession &s, Category category, int b);

// "Run Experiment!": raises the pending category's pair by 140 split in proportion,
// never above the caps (a pair of two zeros splits evenly), then redraws.
void RunExperiment(ExperimentSession &s, DnaTemplate &t);

// "Reset": Current from Caps by the start-value rule, then the opening steps.
void ResetSession(ExperimentSession &s, DnaTemplate &t, int expPoints);

} // namespace quorvel
