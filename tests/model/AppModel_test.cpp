#include "AppModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace quorvel;

namespace {

std::string WriteFile(const std::string &name, const std::string &text) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
}

DnaRecord Sample(const std::string &name, int16_t value) {
    DnaRecord record;
    record.Name = name;
    record.Attributes.fill(value);
    return record;
}

} // namespace

TEST(AppModel, AFailedLoadClearsOnlyTheTemplateAndALoadAfterASortLeavesTheNextAddARebuild) {
    AppModel model;
    ASSERT_TRUE(model.AddDnaRecord(Sample("Rex", 7)));
    model.PutDnaInTemplate(Category::Physique);
    for (const std::string &path : {std::filesystem::temp_directory_path().string(), std::string("/no/such/file")}) {
        model.SetLastDnaFile(path);
        EXPECT_EQ(model.ReadDnaFile(LoadMode::Replace), FileRead::NotOpened);
    }
    EXPECT_EQ(model.Template().Slots[0].Name, "-");
    EXPECT_EQ(model.Library().Count, 1);
    // "WYSIWYG" writes no more rows than there are samples.
    EXPECT_EQ(model.DnaFileText(SaveMode::AsShown, {1, 1}), model.DnaFileText(SaveMode::Save, {}));

    // After a header click a load switches the sorting off, but the list still counts as
    // sorted: the next add rebuilds it in slot order instead of appending a row.
    model.SortDnaList(ListColumn::Name);
    model.SetLastDnaFile(WriteFile("model-one.txt", "1,2,3,4,5,6,7,8,9,10,One\r\n"));
    model.StartLoad();
    EXPECT_EQ(model.ReadDnaFile(LoadMode::Append), FileRead::Complete);
    EXPECT_FALSE(model.Sort().Active);
    EXPECT_TRUE(model.Sort().Sorted);
    ASSERT_TRUE(model.AddDnaRecord(Sample("Rex", 7)));
    EXPECT_FALSE(model.Sort().Sorted);
}

TEST(AppModel, TheLibraryIsChangedUntilAFileHoldsItAgain) {
    AppModel model;
    const std::string file = WriteFile("model-two.txt", "1,2,3,4,5,6,7,8,9,10,One\r\n2,2,3,4,5,6,7,8,9,10,Two\r\n");
    // The start-up's reload into an empty library: every sample is in the file just read.
    model.SetLastDnaFile(file);
    model.ReadDnaFile(LoadMode::Append);
    EXPECT_FALSE(model.LibraryChanged());
    model.ReadDnaFile(LoadMode::Append);
    EXPECT_TRUE(model.LibraryChanged());
    model.LibrarySaved();
    EXPECT_FALSE(model.LibraryChanged());
    // A store counts even when it keeps the value; a file that cannot be opened is no load.
    model.SelectRow(1, 1);
    model.StoreSelectedText(ListColumn::Name, "One");
    EXPECT_TRUE(model.LibraryChanged());
    model.SetLastDnaFile("/no/such/file");
    model.ReadDnaFile(LoadMode::Replace);
    EXPECT_TRUE(model.LibraryChanged());
    model.SetLastDnaFile(file);
    model.ReadDnaFile(LoadMode::Replace);
    EXPECT_FALSE(model.LibraryChanged());
}

TEST(AppModel, FoldAllLeavesThePanelsAlone) {
    AppModel model;
    model.FoldAllLists();
    model.FoldAllLists();
    EXPECT_TRUE(model.Folded(FoldPart::PhysiqueList) && model.Folded(FoldPart::AggressivenessList));
    EXPECT_FALSE(model.Folded(FoldPart::Editor) || model.Folded(FoldPart::ValuesPanel));
}

TEST(AppModel, StoredPetsKeepASkinsLevelAndComeBackIntoTheTemplateWithTheirExperiments) {
    AppModel model;
    model.Settings()[Setting::Old] = true;
    for (const int16_t value : {300, 400, 500})
        model.AddDnaRecord(Sample(std::string("S").append(std::to_string(value)), value));
    for (int slot = 1; slot <= 3; ++slot) {
        model.SelectRow(slot, slot);
        model.PutDnaInTemplate(static_cast<Category>(slot - 1));
    }
    model.ToggleExperiment(Category::Mental);
    EXPECT_EQ(*model.ChooseSkin(68), "40");
    model.StoreShownPet("", "2024-05-01T18:30:00");
    const StoredPet stored = model.StoredPets().at(0);
    EXPECT_EQ(stored.Name, "S300 level 40");
    EXPECT_EQ(stored.Caps, model.Template().Caps);
    model.PredictSelectedSample();
    model.StoreShownPet("Big one", "2024-05-02");

    // A sample pet has no template to give; a template pet empties the categories it had empty
    // and gets its experiments back.
    model.SelectRow(1, 1);
    model.PutDnaInTemplate(Category::Psychology);
    const ValueArray before = model.Template().Current;
    EXPECT_EQ(model.UseStoredPet(1), std::vector<Category>{});
    EXPECT_EQ(model.Template().Current, before);
    EXPECT_EQ(model.UseStoredPet(0), std::vector<Category>{});
    std::string names;
    for (const TemplateSlot &slot : model.Template().Slots)
        names += slot.Name;
    EXPECT_EQ(names, "S300S400S500--");
    EXPECT_EQ(model.Template().Experimented, (std::array<bool, 5>{false, false, true, false, false}));
    EXPECT_EQ(model.Template().Current, stored.Values);
    EXPECT_FALSE(model.RemoveStoredPet(5));
}
