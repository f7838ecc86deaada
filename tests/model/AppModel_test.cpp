#include "AppModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

using namespace quorvel;

namespace {

// Keeps what the list would be told, as words and cells.
class Recorder final : public AppModelObserver {
public:
    std::vector<std::string> told;
    std::vector<std::pair<int, RowCells>> appended;
    std::vector<std::pair<ListColumn, std::string>> cells;

    void RowsRebuilt() override { told.push_back("rebuilt"); }
    void RowsCleared() override { told.push_back("cleared"); }
    void RowsAppended(const std::vector<std::pair<int, RowCells>> &rows) override {
        told.push_back("appended");
        appended.insert(appended.end(), rows.begin(), rows.end());
    }
    void CellWritten(int, ListColumn column, const std::string &text) override { cells.emplace_back(column, text); }
    void SortChanged() override {}
    void SelectionChanged() override {}
    void CategoryFilled(Category, const CategoryView &) override {}
    void CategoryCleared(Category) override {}
    void TemplateCleared() override { told.push_back("template cleared"); }
    void ExperimentToggled(Category, bool) override {}
    void TemplateEvaluated(const TemplateEvaluation &) override {}
    void PetPredicted(const StatTexts &) override {}
    void FoldChanged(FoldPart, bool) override {}
    void SettingsChanged() override {}
    void StoredPetsChanged() override { told.push_back("pets"); }
};

std::string WriteFile(const std::string &name, const std::string &text) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
}

DnaRecord Sample() {
    DnaRecord record;
    record.Name = "Rex";
    record.Attributes[Index(Attribute::Power)] = -5;
    record.Planet = 7;
    record.Origin = 1;
    record.Quality = 6.0f;
    return record;
}

} // namespace

TEST(AppModel, AddDnaWritesTheEditorsCellsUntilASortWhichALoadDoesNotUndo) {
    AppModel model;
    Recorder list;
    model.SetObserver(&list);
    ASSERT_TRUE(model.AddDnaRecord(Sample()));
    ASSERT_EQ(list.appended.size(), 1u);
    // The Add DNA row and the editor's stores of the same sample show the same cells.
    const RowCells &row = list.appended[0].second;
    model.SelectRow(1, 1);
    model.StoreSelectedText(ListColumn::Name, "Rex");
    model.StoreSelectedText(AttributeColumn(Index(Attribute::Power)), "-5");
    model.StoreSelectedPlanet(7);
    model.StoreSelectedOrigin(1);
    model.StoreSelectedQuality(6);
    for (const auto &[column, text] : list.cells)
        EXPECT_EQ(text, row[Index(column)]);
    EXPECT_EQ(std::vector<std::string>(row.begin(), row.begin() + 3), (std::vector<std::string>{"1", "Rex", "   0"}));
    EXPECT_EQ(row[Index(ListColumn::Quality)], "Unknown");

    // After a header click a load switches the sorting off, but the list still counts as
    // sorted: the next save rebuilds it instead of writing cells.
    model.SortDnaList(ListColumn::Name);
    model.SetLastDnaFile(WriteFile("model-one.txt", "1,2,3,4,5,6,7,8,9,10,One\r\n"));
    model.StartLoad();
    EXPECT_EQ(model.ReadDnaFile(LoadMode::Append), FileRead::Complete);
    EXPECT_FALSE(model.Sort().Active);
    EXPECT_TRUE(model.Sort().Sorted);
    list.told.clear();
    ASSERT_TRUE(model.AddDnaRecord(Sample()));
    EXPECT_EQ(list.told, std::vector<std::string>{"rebuilt"});
    EXPECT_FALSE(model.Sort().Sorted);
}

TEST(AppModel, AFileThatCannotBeOpenedChangesNothingButTheTemplate) {
    AppModel model;
    Recorder list;
    model.SetObserver(&list);
    model.AddDnaRecord(Sample());
    list.told.clear();
    for (const std::string &path : {std::filesystem::temp_directory_path().string(), std::string("/no/such/file")}) {
        model.SetLastDnaFile(path);
        EXPECT_EQ(model.ReadDnaFile(LoadMode::Replace), FileRead::NotOpened);
    }
    EXPECT_EQ(list.told, (std::vector<std::string>{"template cleared", "template cleared"}));
    EXPECT_EQ(model.Library().Count, 1);
    // "WYSIWYG" writes no more rows than there are samples.
    EXPECT_EQ(model.DnaFileText(SaveMode::AsShown, {1, 1}), model.DnaFileText(SaveMode::Save, {}));
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
    ASSERT_TRUE(model.NewDnaRecord());
    EXPECT_TRUE(model.LibraryChanged());
    model.ReadDnaFile(LoadMode::Replace);
    ASSERT_TRUE(model.AddDnaRecord(Sample()));
    EXPECT_TRUE(model.LibraryChanged());
    EXPECT_EQ(model.RecoveryText(), model.DnaFileText(SaveMode::SaveAs, {}));

    // Recovered samples are in no file of the user's, also in an empty library; the last DNA
    // file stays the user's.
    AppModel next;
    next.SetLastDnaFile(file);
    EXPECT_EQ(next.RecoverDnaFile(WriteFile("model-recovery.txt", model.RecoveryText())), FileRead::Complete);
    EXPECT_EQ(next.Library().Count, 3);
    EXPECT_EQ(next.Library().Records[3].Name, "Rex");
    EXPECT_TRUE(next.LibraryChanged());
    EXPECT_EQ(next.LastDnaFile(), file);
}

TEST(AppModel, FoldAllAlternatesAndLeavesThePanelsAlone) {
    AppModel model;
    EXPECT_TRUE(model.Folded(FoldPart::MentalList));
    model.FoldAllLists();
    EXPECT_FALSE(model.Folded(FoldPart::MentalList));
    EXPECT_FALSE(model.FoldAllUnfolds());
    model.ToggleFold(FoldPart::PhysiqueList);
    model.FoldAllLists();
    EXPECT_TRUE(model.Folded(FoldPart::PhysiqueList) && model.Folded(FoldPart::AggressivenessList));
    EXPECT_FALSE(model.Folded(FoldPart::Editor) || model.Folded(FoldPart::ValuesPanel));
}

TEST(AppModel, StoredPetsFollowTheShownPetAndComeBackIntoTheTemplate) {
    AppModel model;
    Recorder list;
    model.SetObserver(&list);
    model.Settings()[Setting::Old] = true;
    EXPECT_FALSE(model.ShownPet());
    for (int16_t value : {300, 400, 500}) {
        DnaRecord record = Sample();
        record.Name = "S" + std::to_string(value);
        record.Attributes.fill(value);
        model.AddDnaRecord(record);
    }
    // The template: slots 1, 2, 3 in the first three categories, Mental experimented.
    for (int slot = 1; slot <= 3; ++slot) {
        model.SelectRow(slot, slot);
        model.PutDnaInTemplate(static_cast<Category>(slot - 1));
    }
    model.ToggleExperiment(Category::Mental);
    ASSERT_TRUE(model.ShownPet());
    EXPECT_EQ(model.ShownPet()->Source, PetSource::Template);
    // A skin's level is the level shown, also in the default name.
    const std::string level = *model.ChooseSkin(68);
    EXPECT_EQ(level, "40");
    EXPECT_EQ(model.ShownPet()->Name, "S300 level 40");
    list.told.clear();
    model.StoreShownPet("", "2024-05-01T18:30:00");
    EXPECT_EQ(list.told, std::vector<std::string>{"pets"});
    const StoredPet stored = model.StoredPets().at(0);
    EXPECT_EQ(stored.Name, "S300 level 40");
    EXPECT_EQ(stored.Text(PetStat::Level), "40");

    // A dropped sample is shown; a whole-template clear shows nothing to store.
    model.SelectRow(3, 3);
    model.PredictSelectedSample();
    model.StoreShownPet("Big one", "2024-05-02");
    EXPECT_EQ(model.StoredPets().at(1).Source, PetSource::Sample);
    EXPECT_EQ(model.UseStoredPet(1), std::vector<Category>{}); // a sample pet has no template
    model.ClearTemplate(ClearScope::WholeTemplate);
    EXPECT_FALSE(model.ShownPet());
    model.StoreShownPet("nothing", "");
    EXPECT_EQ(model.StoredPets().size(), 2u);

    // A sample changed in the library is missing, and then nothing is put back.
    model.SelectRow(2, 2);
    model.StoreSelectedText(AttributeColumn(Index(Attribute::Power)), "401");
    EXPECT_EQ(model.UseStoredPet(0), std::vector<Category>{Category::Prowess});
    EXPECT_EQ(model.Template().Slots[0].Name, "-");
    model.StoreSelectedText(AttributeColumn(Index(Attribute::Power)), "400");
    EXPECT_EQ(model.UseStoredPet(0), std::vector<Category>{});
    EXPECT_EQ(model.Template().Slots[2].Name + model.Template().Slots[3].Name, "S500-");
    EXPECT_EQ(model.Template().Experimented, (std::array<bool, 5>{false, false, true, false, false}));
    EXPECT_EQ(model.Template().Current, stored.Values);
    EXPECT_EQ(model.ShownPet()->Shown[static_cast<int>(PetStat::Health)], stored.Text(PetStat::Health));

    // Removing and inserting again; the file text reads back the same list.
    const std::optional<StoredPet> removed = model.RemoveStoredPet(0);
    EXPECT_FALSE(model.RemoveStoredPet(5));
    model.InsertStoredPet(0, *removed);
    model.RenameStoredPet(1, "Renamed, \"quoted\"");
    const std::vector<StoredPet> pets = model.StoredPets();
    EXPECT_EQ(model.ReadStoredPetsText(model.StoredPetsText()), std::vector<int>{});
    EXPECT_EQ(model.StoredPets(), pets);
}
