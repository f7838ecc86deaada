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

std::optional<std::string> FinderSettingsError(const DnaLibrary &library, const FinderSettings &settings) {
    if (settings.TopK < 1)
        return "The number of templates to find must be at least 1.";
    if (settings.MaxLevel && std::isnan(*settings.MaxLevel))
        return "The level limit is not a number.";
    const int count = library.Count;
    for (int k = 0; k < kCategoryCount; ++k) {
        const int slot = settings.FixedSlots[k];
        if (slot == 0)
            continue;
        if (slot < 1 || slot > count) {
            return "Slot " + std::to_string(slot) + " is not in the library" +
                   (count > 0 ? " (1 to " + std::to_string(count) + ")." : ", which is empty.");
        }
        for (int other = 0; other < k && !settings.Reuse; ++other) {
            if (settings.FixedSlots[other] == slot)
                return "Slot " + std::to_string(slot) +
                       " is fixed to two categories; allow reuse to use a sample twice.";
        }
    }
    return std::nullopt;
}

} // namespace quorvel
