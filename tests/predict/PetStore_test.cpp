#include "PetNumbers.h"
#include "PetStore.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace quorvel;

namespace {

constexpr LevelEquations kAll{true, true, true};

DnaRecord Sample(const char *name, int16_t value) {
    DnaRecord r{name};
    r.Attributes.fill(value);
    r.Attributes[Index(Attribute::Power)] = static_cast<int16_t>(value + 1);
    return r;
}

} // namespace

TEST(PetStore, FromSampleAndDefaultNames) {
    DnaRecord sample{"Gurk"};
    sample.Attributes.fill(500);
    const auto prediction =
        PredictPetStats(ValueArray{500, 500, 500, 500, 500, 500, 500, 500, 500, 500}, PredictionSource::Sample, kAll);
    const StoredPet pet = StoredPetFromSample(sample, prediction.Labels, "2024-05-02");
    EXPECT_EQ(pet.Source, PetSource::Sample);
    EXPECT_EQ(pet.Samples[0].Name + "|" + pet.Samples[1].Name, "Gurk|");
    EXPECT_EQ(pet.Values, pet.Samples[0].Attributes);
    EXPECT_EQ(pet.Caps, PetValues{});
    EXPECT_EQ(pet.Name, "Gurk level 47.13"); // the last equation's figure of "49.78 / 50.2 / 47.13"
    // No equation on: the name alone; no sample anywhere: "Pet".
    StoredPet empty = pet;
    empty.Shown[static_cast<int>(PetStat::Level)].clear();
    EXPECT_EQ(DefaultPetName(empty), "Gurk");
    empty.Samples[0] = {"-", {}};
    EXPECT_EQ(DefaultPetName(empty), "Pet");
}

TEST(PetStore, SamplesAreFoundByNameAndAttributes) {
    DnaLibrary library;
    library.Records[*library.AppendRecord()] = Sample("Rancor", 500);
    library.Records[*library.AppendRecord()] = Sample("Kaadu", 399); // same name, other values
    library.Records[*library.AppendRecord()] = Sample("Kaadu", 400);
    library.Records[*library.AppendRecord()] = Sample("Kaadu", 400);

    DnaTemplate t;
    ClearWholeTemplate(t);
    PutDnaInTemplate(t, Category::Physique, library.Records[1]);
    PutDnaInTemplate(t, Category::Prowess, library.Records[3]);
    PutDnaInTemplate(t, Category::Aggressiveness, Sample("Gone", 300));
    const StoredPet pet = StoredPetFromTemplate(t, {}, "");
    const PetSamplesInLibrary found = FindPetSamples(pet, library);
    EXPECT_EQ(found.Slots, (std::array<std::optional<int>, 5>{1, 3, {}, {}, {}}));
    EXPECT_EQ(found.Missing, std::vector<int>{static_cast<int>(Category::Aggressiveness)});

    // A sample renamed in the library is missing; one beyond Count is not looked at.
    library.Records[1].Name = "Rancor B";
    library.Count = 2;
    EXPECT_EQ(FindPetSamples(pet, library).Missing,
              (std::vector<int>{static_cast<int>(Category::Physique), static_cast<int>(Category::Prowess),
                                static_cast<int>(Category::Aggressiveness)}));
}
