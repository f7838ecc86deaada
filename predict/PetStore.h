#pragma once

#include "DnaRecord.h"
#include "PetStats.h"
#include "StoredPet.h"
#include "Template.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace quorvel {

// A pet from the template: its slots, current values, caps and experiment flags, with the
// statistics panel's texts ("." as decimal point) as they were shown. Named by DefaultPetName.
StoredPet StoredPetFromTemplate(const DnaTemplate &t, const StatTexts &shown, std::string date);

// A pet from one dropped sample: the sample in the first category, its attributes as the values.
StoredPet StoredPetFromSample(const DnaRecord &sample, const StatTexts &shown, std::string date);

// The Physique sample's name (a sample pet: its sample's; an empty Physique: the first category
// with a sample; none at all: "Pet"), then " level " and the level figure the table shows.
std::string DefaultPetName(const StoredPet &pet);

// Where a template pet's samples are in the library: a sample is there when a slot holds the
// same name and the same ten attributes (the first such slot). Categories the pet had empty
// ("" or "-") find nothing and miss nothing.
struct PetSamplesInLibrary {
    std::array<std::optional<int>, kPetSamples> Slots{};
    std::vector<int> Missing; // categories, Physique = 0
};

PetSamplesInLibrary FindPetSamples(const StoredPet &pet, const DnaLibrary &library);

} // namespace quorvel
