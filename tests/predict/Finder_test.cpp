#include "Finder.h"
#include "FinderLevels.h"

#include "PetStats.h"
#include "Template.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <random>
#include <string>
#include <thread>
#include <vector>

using namespace quorvel;

namespace {

constexpr std::array<LevelEquation, 3> kEquations{LevelEquation::Old, LevelEquation::New1, LevelEquation::New2};

// One template of the brute force, evaluated through the main window's path: the five samples
// put into the categories, EvaluateTemplate (after "+" on all five when experimented) and the
// panel's texts read back as numbers.
struct Evaluated {
    std::array<int, kCategoryCount> Slots{};
    std::array<double, kFinderGoalCount - 1> Scores{}; // Health .. Damage
    std::array<double, 3> Levels{};                    // Old, New1, New2
};

double Number(const std::string &text) {
    return std::stod(text);
}

Evaluated Evaluate(DnaTemplate &t, bool experimented) {
    EvaluateTemplate(t);
    if (experimented) {
        for (const Category category : kCategories)
            ToggleExperiment(t, category);
        EvaluateTemplate(t);
    }
    Evaluated e;
    const StatTexts labels = PredictPetStats(t.Current, PredictionSource::Template, {}).Labels;
    const std::string &damage = labels[Index(PetStat::Damage)];
    e.Scores = {
        Number(labels[Index(PetStat::Health)]),      Number(labels[Index(PetStat::Regen)]),
        Number(labels[Index(PetStat::Armor)]),       Number(labels[Index(PetStat::ToHit)]),
        Number(labels[Index(PetStat::Defense)]),     Number(labels[Index(PetStat::StateResist)]),
        Number(labels[Index(PetStat::CriticalHit)]), Number(labels[Index(PetStat::CriticalSave)]),
        Number(labels[Index(PetStat::AggroBonus)]),  Number(damage) + Number(damage.substr(damage.find(" - ", 1) + 3))};
    for (std::size_t q = 0; q < kEquations.size(); ++q)
        e.Levels[q] = CreatureLevelValue(t.Current, PredictionSource::Template, kEquations[q]);
    return e;
}

// Every template of the library (samples reused) with the fixed categories, in slot order.
std::vector<Evaluated> EvaluateAll(const DnaLibrary &library, bool experimented,
                                   const std::array<int, kCategoryCount> &fixed) {
    std::vector<Evaluated> all;
    DnaTemplate t;
    Evaluated e;
    const auto fill = [&](const auto &self, int k) -> void {
        if (k == kCategoryCount) {
            const std::array<int, kCategoryCount> slots = e.Slots;
            e = Evaluate(t, experimented);
            e.Slots = slots;
            all.push_back(e);
            return;
        }
        for (int slot = 1; slot <= library.Count; ++slot) {
            if (fixed[k] != 0 && fixed[k] != slot)
                continue;
            PutDnaInTemplate(t, kCategories[static_cast<std::size_t>(k)],
                             library.Records[static_cast<std::size_t>(slot)]);
            e.Slots[k] = slot;
            self(self, k + 1);
        }
    };
    fill(fill, 0);
    return all;
}

std::vector<FoundTemplate> BruteForce(const std::vector<Evaluated> &all, const FinderSettings &settings) {
    const auto q = static_cast<std::size_t>(settings.Equation);
    std::vector<FoundTemplate> kept;
    for (const Evaluated &e : all) {
        bool ok = true;
        for (int k = 0; k < kCategoryCount; ++k) {
            ok = ok && (settings.FixedSlots[k] == 0 || settings.FixedSlots[k] == e.Slots[k]);
            for (int j = 0; j < k && !settings.Reuse; ++j)
                ok = ok && e.Slots[j] != e.Slots[k];
        }
        if (!ok || (settings.MaxLevel && !(e.Levels[q] <= *settings.MaxLevel)))
            continue;
        const double score =
            settings.Goal == FinderGoal::Level ? e.Levels[q] : e.Scores[static_cast<std::size_t>(settings.Goal)];
        kept.push_back({score, e.Levels[q], e.Slots});
    }
    const std::size_t k = std::min(kept.size(), static_cast<std::size_t>(settings.TopK));
    std::partial_sort(kept.begin(), kept.begin() + static_cast<std::ptrdiff_t>(k), kept.end(), RanksBefore);
    kept.resize(k);
    return kept;
}

// The first difference between two lists, or nothing when they are the same.
std::string Difference(const std::vector<FoundTemplate> &found, const std::vector<FoundTemplate> &expected) {
    const auto text = [](const FoundTemplate &t) {
        char line[160];
        std::snprintf(line, sizeof line, "%.17g %.17g %d %d %d %d %d", t.Score, t.Level, t.Slots[0], t.Slots[1],
                      t.Slots[2], t.Slots[3], t.Slots[4]);
        return std::string(line);
    };
    for (std::size_t i = 0; i < std::max(found.size(), expected.size()); ++i) {
        if (i >= found.size() || i >= expected.size())
            return "lengths " + std::to_string(found.size()) + " and " + std::to_string(expected.size());
        const FoundTemplate &a = found[i];
        const FoundTemplate &b = expected[i];
        if (a.Score != b.Score || a.Level != b.Level || a.Slots != b.Slots)
            return "at " + std::to_string(i) + ": " + text(a) + " instead of " + text(b);
    }
    return "";
}

// A library whose values are drawn from `pool` (or from pool[0] to pool[1] when it has two).
DnaLibrary RandomLibrary(std::mt19937 &random, int count, const std::vector<int> &pool) {
    std::uniform_int_distribution<int> between(pool.front(), pool.back());
    std::uniform_int_distribution<std::size_t> pick(0, pool.size() - 1);
    DnaLibrary library;
    library.Count = static_cast<int16_t>(count);
    for (int slot = 1; slot <= count; ++slot) {
        DnaRecord &r = library.Records[static_cast<std::size_t>(slot)];
        for (int16_t &v : r.Attributes)
            v = static_cast<int16_t>(pool.size() == 2 ? between(random) : pool[pick(random)]);
    }
    return library;
}

} // namespace

TEST(Finder, SameListAsEvaluatingEveryTemplate) {
    struct Case {
        int Count;
        std::vector<int> Pool;
        std::array<int, kCategoryCount> Fixed;
    };
    const Case cases[] = {
        {7, {100, 999}, {}},                                                                   // the game's range
        {7, {-32768, -32767, -20000, -1000, -76, -75, -74, -1, 0, 112, 113, 5461, 32767}, {}}, // extremes
        {7, {300, 500, 500, 700}, {}},                                                         // many ties
        {3, {100, 999}, {}},                                                                   // fewer than five
        {20, {-300, 1500}, {3, 0, 0, 0, 17}},                                                  // larger, two fixed
        {10, {100, 999}, {0, 0, 4, 0, 0}},                                                     // four to choose
        {100, {100, 999}, {5, 0, 9, 0, 33}},                                                   // many candidates
    };
    std::mt19937 random(20240611);
    int compared = 0;
    for (const Case &c : cases) {
        const DnaLibrary library = RandomLibrary(random, c.Count, c.Pool);
        for (const bool experimented : {false, true}) {
            const std::vector<Evaluated> all = EvaluateAll(library, experimented, c.Fixed);
            std::uniform_int_distribution<std::size_t> any(0, all.size() - 1);
            for (int goal = 0; goal < kFinderGoalCount; ++goal) {
                for (int variant = 0; variant < 6; ++variant) {
                    FinderSettings settings;
                    settings.Goal = static_cast<FinderGoal>(goal);
                    settings.Experimented = experimented;
                    settings.Equation = kEquations[static_cast<std::size_t>(variant + goal) % 3];
                    settings.Reuse = variant % 2 == 1;
                    settings.FixedSlots = c.Fixed;
                    // More than there are templates for the smallest library.
                    settings.TopK = std::array{1, 3, 10, 40}[static_cast<std::size_t>(variant + goal) % 4];
                    if (c.Count < kCategoryCount)
                        settings.TopK = 1000000;
                    // No limit; a limit exactly at a template's level; one just below it.
                    const double level = all[any(random)].Levels[static_cast<std::size_t>(settings.Equation)];
                    if (variant >= 2)
                        settings.MaxLevel = variant < 4 ? level : std::nextafter(level, -1e300);
                    if (variant == 5 && c.Fixed[1] == 0)
                        settings.FixedSlots[1] = 1 + static_cast<int>(any(random) % c.Count);
                    const std::vector<FoundTemplate> expected = BruteForce(all, settings);
                    const FinderResult found = FindTemplates(library, settings);
                    ASSERT_EQ(Difference(found.Templates, expected), "")
                        << "count " << c.Count << " goal " << goal << " variant " << variant << " experimented "
                        << experimented;
                    ++compared;
                }
            }
        }
    }
    EXPECT_EQ(compared, 7 * 2 * 11 * 6);
}

TEST(Finder, SettingsThatCannotBeSearched) {
    std::mt19937 random(7);
    const DnaLibrary library = RandomLibrary(random, 6, {100, 999});
    FinderSettings settings;
    EXPECT_FALSE(FinderSettingsError(library, settings));
    const std::pair<std::array<int, kCategoryCount>, const char *> cases[] = {
        {{7, 0, 0, 0, 0}, "Slot 7 is not in the library (1 to 6)."},
        {{0, 0, -1, 0, 0}, "Slot -1 is not in the library (1 to 6)."},
        {{2, 0, 0, 2, 0}, "Slot 2 is fixed to two categories; allow reuse to use a sample twice."},
    };
    for (const auto &[fixed, message] : cases) {
        settings.FixedSlots = fixed;
        EXPECT_EQ(FinderSettingsError(library, settings).value_or(""), message);
        EXPECT_TRUE(FindTemplates(library, settings).Templates.empty());
    }
    // With reuse one sample may fill two categories.
    settings.Reuse = true;
    EXPECT_FALSE(FinderSettingsError(library, settings));
    EXPECT_EQ(FindTemplates(library, settings).Templates.size(), 10u);
    settings = {};
    settings.TopK = 0;
    EXPECT_EQ(FinderSettingsError(library, settings).value_or(""),
              "The number of templates to find must be at least 1.");
    settings = {};
    settings.MaxLevel = std::nan("");
    EXPECT_EQ(FinderSettingsError(library, settings).value_or(""), "The level limit is not a number.");
}

TEST(Finder, CancelEndsTheSearchSoonAndKeepsARankedList) {
    // A full library and a goal that fights the level limit: long enough to be cancelled.
    std::mt19937 random(99);
    const DnaLibrary library = RandomLibrary(random, kMaxSamples, {100, 999});
    FinderSettings settings;
    settings.Goal = FinderGoal::Damage;
    settings.MaxLevel = 30;
    settings.TopK = 5;
    std::atomic<bool> cancel{true};
    const FinderResult at = FindTemplates(library, settings, {}, &cancel);
    EXPECT_TRUE(at.Cancelled);
    EXPECT_LE(at.Nodes, 2u);

    cancel = false;
    std::atomic<int> reports{0};
    using Clock = std::chrono::steady_clock;
    Clock::time_point cancelledAt{};
    const auto progress = [&](double fraction) {
        EXPECT_GE(fraction, 0.0);
        EXPECT_LE(fraction, 1.0);
        if (++reports == 1) {
            cancelledAt = Clock::now();
            cancel = true;
        }
    };
    const FinderResult result = FindTemplates(library, settings, progress, &cancel);
    const Clock::time_point end = Clock::now();
    ASSERT_TRUE(result.Cancelled);
    EXPECT_LT(std::chrono::duration<double>(end - cancelledAt).count(), 1.0);
    EXPECT_LE(result.Templates.size(), 5u);
    EXPECT_TRUE(std::is_sorted(result.Templates.begin(), result.Templates.end(), RanksBefore));

    // Not cancelled, the last report is the whole.
    double last = 0.0;
    const DnaLibrary small = RandomLibrary(random, 9, {100, 999});
    EXPECT_FALSE(FindTemplates(small, settings, [&](double f) { last = f; }).Cancelled);
    EXPECT_EQ(last, 1.0);
}

TEST(FinderLevels, RangeQuestionsMatchLookingAtEveryLevel) {
    // Ranges across the falling parts of P (below L = 13 and far above 700) and across the
    // table's blocks, with and without a limit.
    std::mt19937 random(5);
    for (const LevelEquation equation : kEquations) {
        for (const std::optional<double> limit :
             {std::optional<double>(), std::optional(10.0), std::optional(-100.0)}) {
            const finder::LevelTable table(equation, -300, 2000, limit);
            const auto allowed = [&](int64_t l) { return !limit || table.Level(l) <= *limit; };
            std::uniform_int_distribution<int64_t> any(-350, 2050);
            for (int n = 0; n < 300; ++n) {
                int64_t lo = any(random);
                int64_t hi = n % 3 == 0 ? lo + n % 70 : any(random);
                if (lo > hi)
                    std::swap(lo, hi);
                const double bound = table.Level(std::clamp<int64_t>(any(random), -300, 2000));
                std::optional<int64_t> lastAtMost, firstAtLeast, lastAtLeast;
                std::optional<double> highest;
                for (int64_t l = std::max<int64_t>(lo, -300); l <= std::min<int64_t>(hi, 2000); ++l) {
                    if (table.Level(l) <= bound)
                        lastAtMost = l;
                    if (allowed(l) && table.Level(l) >= bound) {
                        firstAtLeast = firstAtLeast.value_or(l);
                        lastAtLeast = l;
                    }
                    if (allowed(l))
                        highest = std::max(highest.value_or(-1e300), table.Level(l));
                }
                EXPECT_EQ(table.LastAtMost(lo, hi, bound), lastAtMost) << lo << " " << hi;
                EXPECT_EQ(table.FirstAllowedAtLeast(lo, hi, bound), firstAtLeast) << lo << " " << hi;
                EXPECT_EQ(table.LastAllowedAtLeast(lo, hi, bound), lastAtLeast) << lo << " " << hi;
                EXPECT_EQ(table.HighestAllowed(lo, hi), highest) << lo << " " << hi;
            }
            // Every L from DisallowedFrom on is beyond the limit, the one before it is not.
            for (int64_t l = table.DisallowedFrom(); l <= 2000; ++l)
                EXPECT_FALSE(allowed(l)) << l;
            if (table.DisallowedFrom() > -300) {
                EXPECT_TRUE(allowed(table.DisallowedFrom() - 1));
            }
        }
    }
}
