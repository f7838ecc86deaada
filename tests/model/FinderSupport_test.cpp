#include "FinderSupport.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

DnaRecord Sample(const std::string &name, int16_t value) {
    DnaRecord record;
    record.Name = name;
    record.Attributes.fill(value);
    record.Quality = 2.0f;
    return record;
}

} // namespace

// A filled category is found by name, values and quality, at the first slot that matches; an
// empty one (cleared, or never filled) is not looked up; an edited sample is reported missing.
TEST(FinderSupport, FilledCategoriesFindTheirSlots) {
    DnaLibrary library;
    library.Count = 4;
    library.Records[1] = Sample("Ridge", 300);
    library.Records[2] = Sample("Dusk", 400);
    library.Records[3] = Sample("Dusk", 400);
    library.Records[4] = Sample("Dusk", 401);
    DnaTemplate t;
    PutDnaInTemplate(t, Category::Physique, library.Records[3]);
    PutDnaInTemplate(t, Category::Prowess, library.Records[4]);
    PutDnaInTemplate(t, Category::Psychology, Sample("Ridge", 299));
    ClearCategory(t, Category::Mental);

    const FilledSlots filled = FilledCategorySlots(library, t);
    EXPECT_EQ(filled.Kept, (std::array<int, kCategoryCount>{2, 4, 0, 0, 0}));
    EXPECT_EQ(filled.Missing, std::vector<Category>{Category::Psychology});

    // The sample's quality counts too.
    library.Records[4].Quality = 3.0f;
    EXPECT_EQ(FilledCategorySlots(library, t).Missing,
              (std::vector<Category>{Category::Prowess, Category::Psychology}));
}

TEST(FinderSupport, PresetEquationIsTheLastOneSwitchedOn) {
    Settings settings;
    EXPECT_EQ(PresetEquation(settings), LevelEquation::Old);
    settings[Setting::New1] = true;
    settings[Setting::Old] = true;
    EXPECT_EQ(PresetEquation(settings), LevelEquation::New1);
    settings[Setting::New2] = true;
    EXPECT_EQ(PresetEquation(settings), LevelEquation::New2);
}
