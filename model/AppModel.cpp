#include "AppModel.h"

#include "Numeric.h"
#include "PetStore.h"
#include "ReadNumber.h"
#include "Skins.h"
#include "TypedSample.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace quorvel {

AppModel::AppModel() {
    // The five category lists start folded.
    for (const Category category : kCategories)
        folds_[static_cast<std::size_t>(ListFold(category))] = true;
}

LevelEquations AppModel::Equations() const {
    return {settings_[Setting::Old], settings_[Setting::New1], settings_[Setting::New2]};
}

void AppModel::StartLoad() {
    ClearTemplate(ClearScope::WholeTemplate);
    sort_.Active = false;
    Tell(&AppModelObserver::SortChanged);
}

FileRead AppModel::ReadDnaFile(LoadMode mode) {
    const bool emptyAndSaved = library_.Count == 0 && !libraryChanged_;
    const int count = library_.Count;
    const FileRead read = ReadDnaFileAt(lastDnaFile_, mode);
    if (read != FileRead::NotOpened && mode == LoadMode::Replace)
        libraryChanged_ = false;
    else if (mode == LoadMode::Append && library_.Count > count && !emptyAndSaved)
        libraryChanged_ = true;
    return read;
}

FileRead AppModel::RecoverDnaFile(const std::string &path) {
    const int count = library_.Count;
    const FileRead read = ReadDnaFileAt(path, LoadMode::Append);
    if (library_.Count > count)
        libraryChanged_ = true;
    return read;
}

FileRead AppModel::ReadDnaFileAt(const std::string &path, LoadMode mode) {
    if (path.empty())
        return FileRead::NotOpened;
    // A folder, a vanished or an unreadable file ends the load before anything changes.
    std::error_code error;
    std::ifstream in;
    if (std::filesystem::is_regular_file(path, error))
        in.open(path, std::ios::binary);
    if (!in.is_open()) {
        ClearTemplate(ClearScope::WholeTemplate);
        return FileRead::NotOpened;
    }
    if (mode == LoadMode::Replace) {
        library_.ClearLibrary();
        Tell(&AppModelObserver::RowsCleared);
    }
    // The rows go into the list together once the reader stops; those read before a bad line
    // stay, like the records.
    std::vector<std::pair<int, RowCells>> rows;
    const LoadEnd end =
        LoadDnaStream(in, library_, [&rows](int slot, const RowCells &cells) { rows.emplace_back(slot, cells); });
    Tell(&AppModelObserver::RowsAppended, rows);
    if (end == LoadEnd::Complete)
        return FileRead::Complete;
    ClearTemplate(ClearScope::WholeTemplate);
    return FileRead::Stopped;
}

bool AppModel::SavesWithoutDialog(SaveMode mode) const {
    return mode == SaveMode::Save && !lastDnaFile_.empty();
}

std::string AppModel::DnaFileText(SaveMode mode, const std::vector<int> &shownSlots) const {
    std::vector<int> slots;
    if (mode == SaveMode::AsShown) {
        const std::size_t rows = std::min<std::size_t>(static_cast<std::size_t>(library_.Count), shownSlots.size());
        slots.assign(shownSlots.begin(), shownSlots.begin() + static_cast<std::ptrdiff_t>(rows));
    } else {
        for (int slot = 1; slot <= library_.Count; ++slot)
            slots.push_back(slot);
    }
    return FormatDnaFile(library_, slots, mode == SaveMode::SaveWithData);
}

void AppModel::SortDnaList(ListColumn column) {
    sort_.Column = column;
    sort_.Ascending = !sort_.Ascending;
    sort_.Active = true;
    sort_.Sorted = true;
    Tell(&AppModelObserver::SortChanged);
}

void AppModel::NoSort() {
    sort_.Sorted = false;
    RebuildRows();
}

void AppModel::RebuildRows() {
    sort_.Active = false;
    Tell(&AppModelObserver::SortChanged);
    Tell(&AppModelObserver::RowsRebuilt);
    library_.SelectedRow = library_.SelectedRecord;
}

void AppModel::SelectRow(int row, int slot) {
    library_.SelectedRecord = static_cast<int16_t>(slot);
    library_.SelectedRow = static_cast<int16_t>(row);
    Tell(&AppModelObserver::SelectionChanged);
}

void AppModel::SetSelectedRow(int row) {
    library_.SelectedRow = static_cast<int16_t>(row);
}

void AppModel::StoreSelectedText(ListColumn column, const std::string &text) {
    DnaRecord &record = library_.Selected();
    if (column == ListColumn::Name) {
        record.Name = text;
    } else {
        int16_t &field = column == ListColumn::Level
                             ? record.Level
                             : record.Attributes[Index(column) - Index(ListColumn::FirstAttribute)];
        if (const std::optional<int16_t> value = ToInt16(ReadNumber(text)))
            field = *value;
    }
    WriteSelectedCell(column);
}

void AppModel::StoreSelectedPlanet(int planet) {
    library_.Selected().Planet = static_cast<int16_t>(std::max(planet, 0));
    WriteSelectedCell(ListColumn::Planet);
}

void AppModel::StoreSelectedQuality(int quality) {
    library_.Selected().Quality = static_cast<float>(std::max(quality, 0));
    WriteSelectedCell(ListColumn::Quality);
}

void AppModel::StoreSelectedOrigin(int origin) {
    library_.Selected().Origin = static_cast<int16_t>(origin);
    WriteSelectedCell(ListColumn::Origin);
}

void AppModel::WriteSelectedCell(ListColumn column) {
    // Every store of the editor ends here; a store counts as a change even when it keeps the value.
    libraryChanged_ = true;
    // A selection without a row (nothing loaded yet) changes the sample only.
    Tell(&AppModelObserver::CellWritten, static_cast<int>(library_.SelectedRow), column,
         EditedCell(library_.Selected(), column));
}

std::optional<int> AppModel::NewDnaRecord() {
    const std::optional<int> slot = library_.AppendRecord();
    if (!slot)
        return std::nullopt;
    // The slot may still hold a sample of a longer library loaded before.
    DnaRecord &record = library_.Records[static_cast<std::size_t>(*slot)];
    record = DnaRecord{};
    record.Name = "New DNA";
    // The new row shows its number and name; its other cells stay empty until it is edited.
    RowCells cells;
    cells[Index(ListColumn::Slot)] = FormatWhole(*slot);
    cells[Index(ListColumn::Name)] = record.Name;
    ShowNewSample(*slot, cells);
    SelectRow(*slot, *slot);
    return slot;
}

bool AppModel::AddDnaRecord(const DnaRecord &record) {
    const std::optional<int> slot = library_.AppendRecord();
    if (!slot)
        return false;
    library_.Records[static_cast<std::size_t>(*slot)] = record;
    ShowNewSample(*slot, EditedRowCells(record, *slot));
    return true;
}

void AppModel::ShowNewSample(int slot, const RowCells &cells) {
    libraryChanged_ = true;
    // A sorted list is not written cell by cell: it is rebuilt in slot order.
    if (sort_.Sorted) {
        sort_.Sorted = false;
        RebuildRows();
    } else {
        Tell(&AppModelObserver::RowsAppended, std::vector<std::pair<int, RowCells>>{{slot, cells}});
    }
}

void AppModel::PutDnaInTemplate(Category category) {
    PutSample(category, library_.Selected());
}

void AppModel::PutSampleInTemplate(Category category, int slot) {
    PutSample(category, library_.Records[static_cast<std::size_t>(std::clamp(slot, 0, kMaxSamples))]);
}

void AppModel::PutSample(Category category, const DnaRecord &record) {
    const CategoryView view = quorvel::PutDnaInTemplate(template_, category, record);
    Tell(&AppModelObserver::CategoryFilled, category, view);
    EvaluateTemplate();
}

void AppModel::PutDnaInFirstFreeSlot() {
    if (const std::optional<Category> category = FirstFreeCategory(template_))
        PutDnaInTemplate(*category);
}

void AppModel::ClearTemplate(ClearScope scope, Category category) {
    if (scope == ClearScope::WholeTemplate) {
        ClearWholeTemplate(template_);
        shownPet_.reset();
        Tell(&AppModelObserver::TemplateCleared);
        return;
    }
    ClearCategory(template_, category);
    Tell(&AppModelObserver::CategoryCleared, category);
    EvaluateTemplate();
}

void AppModel::ToggleExperiment(Category category) {
    quorvel::ToggleExperiment(template_, category);
    Tell(&AppModelObserver::ExperimentToggled, category, template_.Experimented[Index(category)]);
    EvaluateTemplate();
}

void AppModel::ClearExperiment() {
    // Marking a category experimented and toggling it back gives it its evaluated values again.
    for (const Category category : kCategories) {
        template_.Experimented[Index(category)] = true;
        ToggleExperiment(category);
    }
}

void AppModel::StartSampleExperiment() {
    ClearExperiment();
    template_.Caps.fill(1000);
    const AttributeArray &sample = library_.Selected().Attributes;
    std::copy(sample.begin(), sample.end(), template_.Current.begin());
}

void AppModel::PredictSelectedSample() {
    const AttributeArray &sample = library_.Selected().Attributes;
    ValueArray values{};
    std::copy(sample.begin(), sample.end(), values.begin());
    const StatTexts texts = PredictPet(values, PredictionSource::Sample);
    shownPet_ = StoredPetFromSample(library_.Selected(), texts, {});
    Tell(&AppModelObserver::PetPredicted, texts);
}

std::optional<std::string> AppModel::ChooseSkin(int index) {
    std::optional<std::string> level = ApplySkinLevel(index, lastCreatureLevel_);
    if (level && shownPet_) {
        shownPet_->Shown[static_cast<std::size_t>(PetStat::Level)] = *level;
        shownPet_->Name = DefaultPetName(*shownPet_);
    }
    return level;
}

void AppModel::EvaluateTemplate() {
    Tell(&AppModelObserver::TemplateEvaluated, quorvel::EvaluateTemplate(template_));
    const StatTexts texts = PredictPet(template_.Current, PredictionSource::Template);
    shownPet_ = StoredPetFromTemplate(template_, texts, {});
    Tell(&AppModelObserver::PetPredicted, texts);
}

StatTexts AppModel::PredictPet(const ValueArray &values, PredictionSource source) {
    const PetPrediction prediction = PredictPetStats(values, source, Equations());
    if (prediction.Level.AnyRan)
        lastCreatureLevel_ = prediction.Level.LastCreatureLevel;
    return prediction.Labels;
}

void AppModel::OpenSession() {
    CreateSession(session_);
    // A points value from a hand-edited settings file is held to the twelve boxes there are.
    OpenExperiment(session_, template_, settings_.ExpPoints);
}

void AppModel::PlacePoint(Category category, int box) {
    quorvel::PlacePoint(session_, category, box);
}

void AppModel::RunExperiment() {
    quorvel::RunExperiment(session_, template_);
}

void AppModel::ResetSession() {
    quorvel::ResetSession(session_, template_, settings_.ExpPoints);
}

StatTexts AppModel::PredictTemplatePet() {
    return PredictPet(template_.Current, PredictionSource::Template);
}

StatTexts AppModel::EvaluateTypedSample(const std::array<double, kAttributeCount> &typed) {
    const TypedEvaluation result = quorvel::EvaluateTypedSample(typed, Equations());
    if (result.AnyRan)
        lastCreatureLevel_ = result.LastCreatureLevel;
    return result.Labels;
}

bool AppModel::ToggleLiveEvaluation() {
    liveEvaluation_ = !liveEvaluation_;
    return liveEvaluation_;
}

void AppModel::ToggleFold(FoldPart part) {
    bool &folded = folds_[static_cast<std::size_t>(part)];
    folded = !folded;
    Tell(&AppModelObserver::FoldChanged, part, folded);
}

void AppModel::FoldAllLists() {
    const bool fold = !foldAllUnfolds_;
    for (const Category category : kCategories) {
        folds_[static_cast<std::size_t>(ListFold(category))] = fold;
        Tell(&AppModelObserver::FoldChanged, ListFold(category), fold);
    }
    foldAllUnfolds_ = fold;
}

int AppModel::ClampExpPoints() {
    settings_.ExpPoints = quorvel::ClampExpPoints(settings_.ExpPoints);
    return settings_.ExpPoints;
}

void AppModel::SaveOptions(const std::array<bool, kSettingCount> &options, int expPoints) {
    settings_.Options = options;
    settings_.ExpPoints = expPoints;
    Tell(&AppModelObserver::SettingsChanged);
}

void AppModel::TakeSettingsFile(const SettingsFileData &data) {
    settings_ = data.Settings;
    // The points column of the experimentation window has twelve boxes.
    settings_.ExpPoints = std::clamp(settings_.ExpPoints, 0, 12);
    if (settings_[Setting::Load])
        lastDnaFile_ = data.LastDnaFile;
    Tell(&AppModelObserver::SettingsChanged);
}

SettingsFileData AppModel::SettingsFileContents() {
    SettingsFileData data;
    data.Settings.Options = settings_.Options;
    data.Settings.ExpPoints = ClampExpPoints();
    data.LastDnaFile = lastDnaFile_;
    return data;
}

} // namespace quorvel
