#include "FinderSupport.h"

#include <algorithm>

namespace quorvel {

namespace {

// A category is empty after a clear ("-") and before the first one (no name, no values).
bool IsEmpty(const TemplateSlot &slot) {
    const bool noValues = std::all_of(slot.Attributes.begin(), slot.Attributes.end(), [](Value v) { return v == 0; });
    return slot.Name == "-" || (slot.Name.empty() && noValues && slot.Quality == 0.0f);
}

} // namespace

LevelEquation PresetEquation(const Settings &settings) {
    if (settings[Setting::New2])
        return LevelEquation::New2;
    if (settings[Setting::New1])
        return LevelEquation::New1;
    return LevelEquation::Old;
}

FilledSlots FilledCategorySlots(const DnaLibrary &library, const DnaTemplate &t) {
    FilledSlots result;
    for (const Category category : kCategories) {
        const TemplateSlot &slot = t.Slots[Index(category)];
        if (IsEmpty(slot))
            continue;
        if (const std::optional<int> kept = library.FindSample(slot.Name, slot.Attributes, slot.Quality))
            result.Kept[Index(category)] = *kept;
        else
            result.Missing.push_back(category);
    }
    return result;
}

bool SameSample(const DnaRecord &a, const DnaRecord &b) {
    return a.Name == b.Name && a.Attributes == b.Attributes && a.Quality == b.Quality;
}

bool SameSamples(const DnaLibrary &a, const DnaLibrary &b) {
    if (a.Count != b.Count)
        return false;
    for (int s = 1; s <= a.Count; ++s) {
        if (!SameSample(a.Records[static_cast<std::size_t>(s)], b.Records[static_cast<std::size_t>(s)]))
            return false;
    }
    return true;
}

StatTexts FoundTemplatePet(const DnaLibrary &library, const std::array<int, kCategoryCount> &chosen, bool experimented,
                           LevelEquations equations) {
    DnaTemplate t;
    for (const Category category : kCategories) {
        const int slot = std::clamp(chosen[Index(category)], 0, kMaxSamples);
        PutDnaInTemplate(t, category, library.Records[static_cast<std::size_t>(slot)]);
    }
    EvaluateTemplateNumbers(t);
    if (experimented) {
        for (const Category category : kCategories)
            ToggleExperiment(t, category);
        EvaluateTemplateNumbers(t);
    }
    return PredictPetStats(t.Current, PredictionSource::Template, equations).Labels;
}

} // namespace quorvel
