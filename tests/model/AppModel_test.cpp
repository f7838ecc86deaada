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
};

std::string WriteFile(const std::string &name, const std::string &text) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
}

DnaRecord Sample() {
    DnaRecord record;
    record.Name = "Rex";
    record.Attributes[Power] = -5;
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
    model.StoreSelectedText(AttributeColumn(Power), "-5");
    model.StoreSelectedPlanet(7);
    model.StoreSelectedOrigin(1);
    model.StoreSelectedQuality(6);
    for (const auto &[column, text] : list.cells)
        EXPECT_EQ(text, row[ColumnIndex(column)]);
    EXPECT_EQ(std::vector<std::string>(row.begin(), row.begin() + 3), (std::vector<std::string>{"1", "Rex", "   0"}));
    EXPECT_EQ(row[ColumnIndex(ListColumn::Quality)], "Unknown");

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
