#include "Finder.h"

#include <cmath>

namespace quorvel {

bool RanksBefore(const FoundTemplate &a, const FoundTemplate &b) {
    if (a.Score != b.Score)
        return a.Score > b.Score;
    if (a.Level != b.Level)
        return a.Level < b.Level;
    return a.Slots < b.Slots;
}

std::optional<FinderSettingsProblem> FindSettingsProblem(const DnaLibrary &library, const FinderSettings &settings) {
    using Kind = FinderSettingsProblem::Kind;
    if (settings.TopK < 1)
        return FinderSettingsProblem{Kind::NoTemplatesAsked};
    if (settings.MaxLevel && std::isnan(*settings.MaxLevel))
        return FinderSettingsProblem{Kind::LevelNotANumber};
    for (int k = 0; k < kCategoryCount; ++k) {
        const int slot = settings.FixedSlots[k];
        if (slot == 0)
            continue;
        if (slot < 1 || slot > library.Count)
            return FinderSettingsProblem{Kind::SlotNotInLibrary, slot, k};
        for (int other = 0; other < k && !settings.Reuse; ++other) {
            if (settings.FixedSlots[other] == slot)
                return FinderSettingsProblem{Kind::SlotFixedTwice, slot, k, other};
        }
    }
    return std::nullopt;
}

std::optional<std::string> FinderSettingsError(const DnaLibrary &library, const FinderSettings &settings) {
    const std::optional<FinderSettingsProblem> problem = FindSettingsProblem(library, settings);
    if (!problem)
        return std::nullopt;
    const std::string slot = "Slot " + std::to_string(problem->Slot);
    const int count = library.Count;
    switch (problem->What) {
    case FinderSettingsProblem::Kind::NoTemplatesAsked:
        return "The number of templates to find must be at least 1.";
    case FinderSettingsProblem::Kind::LevelNotANumber:
        return "The level limit is not a number.";
    case FinderSettingsProblem::Kind::SlotNotInLibrary:
        return slot + " is not in the library" +
               (count > 0 ? " (1 to " + std::to_string(count) + ")." : ", which is empty.");
    case FinderSettingsProblem::Kind::SlotFixedTwice:
        return slot + " is fixed to two categories; allow reuse to use a sample twice.";
    }
    return std::nullopt;
}

} // namespace quorvel
