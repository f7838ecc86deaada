#include "PetStore.h"

#include "Numeric.h"
#include "PetNumbers.h"

#include <algorithm>

namespace quorvel {

namespace {

bool HasSample(const PetSample &sample) {
    return !sample.Name.empty() && sample.Name != "-";
}

StoredPet WithShown(StoredPet pet, const StatTexts &shown, std::string date) {
    std::copy(shown.begin(), shown.end(), pet.Shown.begin());
    pet.Date = std::move(date);
    pet.Name = DefaultPetName(pet);
    return pet;
}

} // namespace

StoredPet StoredPetFromTemplate(const DnaTemplate &t, const StatTexts &shown, std::string date) {
    StoredPet pet;
    pet.Source = PetSource::Template;
    for (int c = 0; c < kCategoryCount; ++c)
        pet.Samples[c] = {t.Slots[c].Name, t.Slots[c].Attributes};
    pet.Values = t.Current;
    pet.Caps = t.Caps;
    pet.Experimented = t.Experimented;
    return WithShown(std::move(pet), shown, std::move(date));
}

StoredPet StoredPetFromSample(const DnaRecord &sample, const StatTexts &shown, std::string date) {
    StoredPet pet;
    pet.Source = PetSource::Sample;
    pet.Samples[0].Name = sample.Name;
    std::copy(sample.Attributes.begin(), sample.Attributes.end(), pet.Samples[0].Attributes.begin());
    pet.Values = pet.Samples[0].Attributes;
    return WithShown(std::move(pet), shown, std::move(date));
}

std::string DefaultPetName(const StoredPet &pet) {
    const auto named = std::find_if(pet.Samples.begin(), pet.Samples.end(), HasSample);
    std::string name = named != pet.Samples.end() ? named->Name : "Pet";
    if (const auto level = ReadPetNumbers(pet)[static_cast<int>(PetColumn::Level)]) {
        name += " level ";
        AppendDouble(name, *level);
    }
    return name;
}

PetSamplesInLibrary FindPetSamples(const StoredPet &pet, const DnaLibrary &library) {
    PetSamplesInLibrary found;
    for (int c = 0; c < kPetSamples; ++c) {
        const PetSample &sample = pet.Samples[c];
        if (!HasSample(sample))
            continue;
        found.Slots[c] = library.FindSample(sample.Name, sample.Attributes);
        if (!found.Slots[c])
            found.Missing.push_back(c);
    }
    return found;
}

} // namespace quorvel
