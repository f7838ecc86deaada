#include "Finder.h"
#include "FinderLevels.h"

#include "PetStats.h"
#include "Template.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <tuple>
#include <vector>

using namespace quorvel;

namespace {

constexpr std::array<LevelEquation, 3> kEquations{LevelEquation::Old, LevelEquation::New1, LevelEquation::New2};

// A template as the main window evaluates it: EvaluateTemplate (after "+" on all five when
// experimented), the panel's texts read back as numbers in the goals' order, and the levels.
struct Evaluated {
    std::array<int, kCategoryCount> Slots{};
    std::array<double, kFinderGoalCount - 1> Scores{};
    std::array<double, 3> Levels{};
};

// Every template of the library (samples reused) with the fixed categories.
std::vector<Evaluated> EvaluateAll(const DnaLibrary &library, bool experimented,
                                   const std::array<int, kCategoryCount> &fixed) {
    std::vector<Evaluated> all;
    DnaTemplate t;
    std::array<int, kCategoryCount> slots{};
    const auto fill = [&](const auto &self, std::size_t k) -> void {
        if (k == kCategoryCount) {
            EvaluateTemplate(t);
            if (experimented) {
                for (const Category category : kCategories)
                    ToggleExperiment(t, category);
                EvaluateTemplate(t);
            }
            Evaluated &e = all.emplace_back(Evaluated{slots, {}, {}});
            const StatTexts labels = PredictPetStats(t.Current, PredictionSource::Template, {}).Labels;
            for (std::size_t g = 0; g < Index(PetStat::Damage); ++g)
                e.Scores[g] = std::stod(labels[g]);
            const std::string &damage = labels[Index(PetStat::Damage)];
            e.Scores.back() = std::stod(damage) + std::stod(damage.substr(damage.find(" - ", 1) + 3));
            for (std::size_t q = 0; q < kEquations.size(); ++q)
                e.Levels[q] = CreatureLevelValue(t.Current, PredictionSource::Template, kEquations[q]);
            return;
        }
        for (int slot = 1; slot <= library.Count; ++slot) {
            if (fixed[k] == 0 || fixed[k] == slot) {
                PutDnaInTemplate(t, kCategories[k], library.Records[static_cast<std::size_t>(slot)]);
                slots[k] = slot;
                self(self, k + 1);
            }
        }
    };
    fill(fill, 0);
    return all;
}

// Best first: the highest score, then the lowest level, then the smallest slots.
using Row = std::tuple<double, double, std::array<int, kCategoryCount>>;

std::vector<Row> Rows(const std::vector<FoundTemplate> &found) {
    std::vector<Row> rows;
    for (const FoundTemplate &t : found)
        rows.emplace_back(-t.Score, t.Level, t.Slots);
    return rows;
}

std::vector<Row> BruteForce(const std::vector<Evaluated> &all, const FinderSettings &settings) {
    const auto q = static_cast<std::size_t>(settings.Equation);
    std::vector<Row> kept;
    for (const Evaluated &e : all) {
        bool ok = !settings.MaxLevel || e.Levels[q] <= *settings.MaxLevel;
        for (std::size_t k = 0; k < kCategoryCount; ++k) {
            ok = ok && (settings.FixedSlots[k] == 0 || settings.FixedSlots[k] == e.Slots[k]);
            for (std::size_t j = 0; j < k && !settings.Reuse; ++j)
                ok = ok && e.Slots[j] != e.Slots[k];
        }
        if (ok)
            kept.emplace_back(settings.Goal == FinderGoal::Level ? -e.Levels[q] : -e.Scores[Index(settings.Goal)],
                              e.Levels[q], e.Slots);
    }
    const auto k = static_cast<std::ptrdiff_t>(std::min(kept.size(), static_cast<std::size_t>(settings.TopK)));
    std::partial_sort(kept.begin(), kept.begin() + k, kept.end());
    kept.resize(static_cast<std::size_t>(k));
    return kept;
}

// A library whose values are drawn from `pool` (or from pool[0] to pool[1] when it has two).
DnaLibrary RandomLibrary(std::mt19937 &random, int count, const std::vector<int> &pool) {
    std::uniform_int_distribution<int> between(pool.front(), pool.back());
    std::uniform_int_distribution<std::size_t> pick(0, pool.size() - 1);
    DnaLibrary library;
    library.Count = static_cast<int16_t>(count);
    for (int slot = 1; slot <= count; ++slot)
        for (int16_t &v : library.Records[static_cast<std::size_t>(slot)].Attributes)
            v = static_cast<int16_t>(pool.size() == 2 ? between(random) : pool[pick(random)]);
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
        {20, {-300, 1500}, {3, 0, 0, 0, 17}},                                                  // two fixed
        {10, {100, 999}, {0, 0, 4, 0, 0}},                                                     // four to choose
        {100, {100, 999}, {5, 0, 9, 0, 33}},                                                   // many candidates
    };
    std::mt19937 random(20240611);
    for (const Case &c : cases) {
        const DnaLibrary library = RandomLibrary(random, c.Count, c.Pool);
        for (const bool experimented : {false, true}) {
            const std::vector<Evaluated> all = EvaluateAll(library, experimented, c.Fixed);
            std::uniform_int_distribution<std::size_t> any(0, all.size() - 1);
            for (int goal = 0; goal < kFinderGoalCount; ++goal) {
                // Reuse on odd variants; no limit, a limit at a template's level, one just below it;
                // the last one fixes one more category.
                for (int variant = 0; variant < 6; ++variant) {
                    FinderSettings settings{static_cast<FinderGoal>(goal),
                                            std::nullopt,
                                            kEquations[static_cast<std::size_t>(variant + goal) % 3],
                                            experimented,
                                            variant % 2 == 1,
                                            c.Fixed,
                                            std::array{1, 3, 10, 40}[static_cast<std::size_t>(variant + goal) % 4]};
                    if (c.Count < kCategoryCount)
                        settings.TopK = 1000000;
                    const double level = all[any(random)].Levels[static_cast<std::size_t>(settings.Equation)];
                    if (variant >= 2)
                        settings.MaxLevel = variant < 4 ? level : std::nextafter(level, -1e300);
                    if (variant == 5 && c.Fixed[1] == 0)
                        settings.FixedSlots[1] = 1 + static_cast<int>(any(random) % c.Count);
                    ASSERT_EQ(Rows(FindTemplates(library, settings).Templates), BruteForce(all, settings))
                        << "count " << c.Count << " goal " << goal << " variant " << variant << " experimented "
                        << experimented;
                }
            }
        }
    }
}

// Libraries made for the bounds' edges: under a level limit, caps that all round down by
// almost a half (experimented), and a template tied with the list's last score.
TEST(Finder, SameListAtTheEdgesOfTheBounds) {
    struct Case {
        std::vector<AttributeArray> Samples;
        FinderSettings Settings;
    };
    const Case cases[] = {
        {{{}, {9, 9, 41, 41, 8, 28, 43, 43, 9}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 1000}},
         {FinderGoal::Health, 3.61, LevelEquation::Old, true, true, {1, 1, 1, 0, 1}, 3}},
        {{{30, 0, 0, 180}, {0, -50, -35, 110, 85, -60}, {80}, {130, 0, 150}, {50, 0, -80}, {70, 0, -30, 0, -68}},
         {FinderGoal::Defense, 2.6, LevelEquation::New1, false, true, {2, 0, 2, 0, 0}, 3}},
    };
    for (const Case &c : cases) {
        DnaLibrary library;
        library.Count = static_cast<int16_t>(c.Samples.size());
        for (std::size_t s = 0; s < c.Samples.size(); ++s)
            library.Records[s + 1].Attributes = c.Samples[s];
        const FinderSettings &settings = c.Settings;
        EXPECT_EQ(Rows(FindTemplates(library, settings).Templates),
                  BruteForce(EvaluateAll(library, settings.Experimented, settings.FixedSlots), settings));
    }
}

TEST(Finder, SettingsThatCannotBeSearched) {
    std::mt19937 random(7);
    const DnaLibrary library = RandomLibrary(random, 6, {100, 999});
    struct Case {
        std::array<int, kCategoryCount> Fixed;
        bool Reuse;
        int TopK;
        std::optional<double> MaxLevel;
        std::string Message;
    };
    const Case cases[] = {
        {{7, 0, 0, 0, 0}, false, 10, {}, "Slot 7 is not in the library (1 to 6)."},
        {{0, 0, -1, 0, 0}, false, 10, {}, "Slot -1 is not in the library (1 to 6)."},
        {{2, 0, 0, 2, 0}, false, 10, {}, "Slot 2 is fixed to two categories; allow reuse to use a sample twice."},
        {{2, 0, 0, 2, 0}, true, 10, {}, ""},
        {{}, false, 0, {}, "The number of templates to find must be at least 1."},
        {{}, false, 10, std::nan(""), "The level limit is not a number."},
    };
    for (const Case &c : cases) {
        const FinderSettings settings{
            FinderGoal::Health, c.MaxLevel, LevelEquation::Old, false, c.Reuse, c.Fixed, c.TopK};
        EXPECT_EQ(FinderSettingsError(library, settings).value_or(""), c.Message);
        EXPECT_EQ(FindTemplates(library, settings).Templates.size(), c.Message.empty() ? 10u : 0u) << c.Message;
    }
    FinderSettings one;
    one.FixedSlots[0] = 1;
    EXPECT_EQ(FinderSettingsError(DnaLibrary{}, one).value_or(""), "Slot 1 is not in the library, which is empty.");
}

TEST(FinderLevels, RangeQuestionsMatchLookingAtEveryLevel) {
    // Ranges across the falling parts of P (below L = 13 and far above 700) and across the
    // table's blocks, with and without a limit.
    std::mt19937 random(5);
    std::uniform_int_distribution<int64_t> any(-350, 2050);
    for (const LevelEquation equation : kEquations) {
        for (const std::optional<double> limit :
             {std::optional<double>(), std::optional(10.0), std::optional(-100.0)}) {
            const finder::LevelTable table(equation, -300, 2000, limit);
            const auto allowed = [&](int64_t l) { return !limit || table.Level(l) <= *limit; };
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
            EXPECT_TRUE(table.DisallowedFrom() == -300 || allowed(table.DisallowedFrom() - 1));
        }
    }
}
