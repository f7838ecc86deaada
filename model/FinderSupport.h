#pragma once

// What the template finder's window needs of the program's state, without Qt: the search
// itself is FindTemplates in predict/.

#include "DnaRecord.h"
#include "PetStats.h"
#include "SettingsFile.h"
#include "Template.h"

#include <array>
#include <vector>

namespace quorvel {

// The equation a search starts with: the last one the options switch on, Old when none.
LevelEquation PresetEquation(const Settings &settings);

// The library slots of the template's filled categories. The template keeps copies of its
// samples, not their slots, so each is looked up by name, values and quality; the first
// matching slot wins. Empty categories get 0, and so do samples no longer in the library,
// whose categories `Missing` lists.
struct FilledSlots {
    std::array<int, kCategoryCount> Kept{};
    std::vector<Category> Missing;
};
FilledSlots FilledCategorySlots(const DnaLibrary &library, const DnaTemplate &t);

// A sample is the same while its name, values and quality are.
bool SameSample(const DnaRecord &a, const DnaRecord &b);
// The same samples in the same slots.
bool SameSamples(const DnaLibrary &a, const DnaLibrary &b);

// The pet of five library slots (Physique first) as the main window predicts it once they
// are in the template, with the equations the options switch on (the Armor's bracket follows
// the last of them); experimented, every category is at its caps as after "+" on all five.
StatTexts FoundTemplatePet(const DnaLibrary &library, const std::array<int, kCategoryCount> &chosen, bool experimented,
                           LevelEquations equations);

} // namespace quorvel
