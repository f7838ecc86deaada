#pragma once

#include "DnaRecord.h"
#include "PetStats.h"
#include "Values.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// The template finder: the best templates of a library for one goal, found exactly (the same
// list as evaluating every template) by a branch and bound over the five categories.
namespace quorvel {

// What the finder maximises: a number of the statistics panel, or the creature level.
enum class FinderGoal {
    Health,
    Regen, // the rounded regen
    Armor, // Fortitude x 6
    ToHit,
    Defense,
    StateResist,  // the percentage without "%"
    CriticalHit,  // the percentage without "%"
    CriticalSave, // the percentage without "%"
    AggroBonus,   // the percentage without "%"
    Damage,       // low + high of the damage range
    Level         // the chosen equation's 2-decimal level
};
constexpr int kFinderGoalCount = 11;

struct FinderSettings {
    FinderGoal Goal = FinderGoal::Health;
    // Keeps the templates whose 2-decimal level (double precision) is at most this.
    std::optional<double> MaxLevel;
    LevelEquation Equation = LevelEquation::Old;
    bool Experimented = false; // every category at its caps, Power still raised to 113
    bool Reuse = false;        // one sample may fill several categories
    // Library slot (1..Count) a category is fixed to, 0 when the finder chooses. Without reuse
    // the fixed samples are used up like chosen ones.
    std::array<int, kCategoryCount> FixedSlots{};
    int TopK = 10;
};

struct FoundTemplate {
    double Score = 0.0;
    double Level = 0.0;                      // the 2-decimal level before single precision
    std::array<int, kCategoryCount> Slots{}; // library slots, Physique first
};

struct FinderResult {
    std::vector<FoundTemplate> Templates; // best first, at most topK
    uint64_t Evaluated = 0;               // complete templates evaluated
    uint64_t Nodes = 0;                   // partial templates examined
    bool Cancelled = false;               // the list is what was found before the cancel
};

// The ranking: score descending, then level ascending, then the five slots, Physique first,
// smaller first. A total order on distinct templates.
bool RanksBefore(const FoundTemplate &a, const FoundTemplate &b);

// Why the settings cannot be searched in this library; nothing when they can. `Category` is the
// category whose fixed slot is wrong; for a slot fixed twice, `Other` is the earlier category
// fixed to it. FindTemplates returns an empty list for such settings.
struct FinderSettingsProblem {
    enum class Kind { NoTemplatesAsked, LevelNotANumber, SlotNotInLibrary, SlotFixedTwice };
    Kind What = Kind::NoTemplatesAsked;
    int Slot = 0;
    int Category = 0;
    int Other = 0;
};
std::optional<FinderSettingsProblem> FindSettingsProblem(const DnaLibrary &library, const FinderSettings &settings);
// The problem as one sentence, as the window shows it.
std::optional<std::string> FinderSettingsError(const DnaLibrary &library, const FinderSettings &settings);

// The fraction of the search done, 0 to 1. Called from the search's worker threads, at most
// every few milliseconds.
using FinderProgress = std::function<void(double fraction)>;

// The top `topK` templates of the library in ranking order. Runs on every core and returns when
// done, or soon after `*cancel` becomes true.
FinderResult FindTemplates(const DnaLibrary &library, const FinderSettings &settings,
                           const FinderProgress &progress = {}, const std::atomic<bool> *cancel = nullptr);

// Texts shared by the finder's window and its command-line tool.
std::string FinderGoalName(FinderGoal goal);    // "Health", "To hit", "Aggro bonus", "Level"
std::string FinderGoalKeyword(FinderGoal goal); // "health", "to-hit", "aggro-bonus", "level"
std::optional<FinderGoal> ParseFinderGoal(const std::string &keyword);
// The score as the statistics panel writes its number: 4020, 12.5 (no "%"), 176; a Level score
// like the level text.
std::string FinderScoreText(FinderGoal goal, double score);
// The level as the panel writes it: single precision, up to 7 significant digits (49.78).
std::string FinderLevelText(double level);

} // namespace quorvel
