#pragma once

// How the layers fit:
//   core/     records, reference tables, number reading, the DNA and settings files.
//   predict/  the template, its evaluation, the pet statistics, levels, skins and the
//             experimentation rules.
//   model/    AppModel: everything the program keeps while it runs, and its operations by
//             name. It calls core/ and predict/, returns texts and rows, and tells one
//             AppModelObserver what changed. No Qt, no widget.
//   ui/       the windows. ModelHub is the observer: it turns each change into a Qt signal.
//             Every window and panel takes the model and the hub, calls operations on a
//             user's action and redraws itself from the signals. Dialogs, message boxes,
//             QSaveFile, the settings file's place and window geometry stay there.
// core/ and predict/ know nothing above them; the model knows nothing of ui/.

#include "DnaFile.h"
#include "DnaRecord.h"
#include "Experiment.h"
#include "PetStats.h"
#include "SettingsFile.h"
#include "StoredPet.h"
#include "Template.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvel {

// The toolbar's save commands: "Save", "Save As", "Save With Data" and "WYSIWYG".
enum class SaveMode { Save, SaveAs, SaveWithData, AsShown };

// A load replaces the library; an append adds to it.
enum class LoadMode { Replace, Append };

// How a DNA file read ended.
enum class FileRead {
    Complete, // every line was read: the caption shows the path
    Stopped,  // a short or bad line, a full library or a read error; what was read stays
    NotOpened // no file named, a folder, or a file that cannot be opened: nothing changed
};

// "Clear" and the category list's double-click: one category, evaluated afterwards, or the
// whole template with every caption back to its start text and no evaluation.
enum class ClearScope { OneCategory, WholeTemplate };

// The parts of the main window that fold: the five category lists, the template values
// panel, the pet panel and the editor.
enum class FoldPart : int {
    PhysiqueList,
    ProwessList,
    MentalList,
    PsychologyList,
    AggressivenessList,
    ValuesPanel,
    PetPanel,
    Editor
};
constexpr int kFoldParts = 8;

constexpr FoldPart ListFold(Category category) {
    return static_cast<FoldPart>(category);
}

// The DNA list's one sort state.
struct ListSort {
    // True after a header click, until "No Sort", the editor's "New" or an Add DNA save
    // rebuild the list (ListSorted). A load switches the sorting off but leaves this alone.
    bool Sorted = false;
    // The list keeps its rows sorted, and new rows go to their sorted place.
    bool Active = false;
    ListColumn Column = ListColumn::Slot;
    // Flips on every header click, whichever the column; the first click sorts ascending.
    bool Ascending = false;
};

// Hears what the model changed. The list keeps the texts of its rows (the loader shows
// fields as they were typed), so row changes say what to do to the rows shown.
class AppModelObserver {
public:
    virtual ~AppModelObserver() = default;

    // The list is to show every sample anew in slot order with the rebuild's cells, unsorted.
    virtual void RowsRebuilt() = 0;
    virtual void RowsCleared() = 0;
    // Rows to add at the end (or at their sorted place while the sorting is active).
    virtual void RowsAppended(const std::vector<std::pair<int, RowCells>> &rows) = 0;
    // One cell of the row at a position (from 1).
    virtual void CellWritten(int row, ListColumn column, const std::string &text) = 0;
    virtual void SortChanged() = 0;
    virtual void SelectionChanged() = 0;

    virtual void CategoryFilled(Category category, const CategoryView &view) = 0;
    virtual void CategoryCleared(Category category) = 0;
    virtual void TemplateCleared() = 0;
    virtual void ExperimentToggled(Category category, bool experimented) = 0;
    virtual void TemplateEvaluated(const TemplateEvaluation &shown) = 0;
    // The main window's prediction: after every evaluation, and for a dropped sample.
    virtual void PetPredicted(const StatTexts &texts) = 0;

    virtual void FoldChanged(FoldPart part, bool folded) = 0;
    virtual void SettingsChanged() = 0;
    // A pet stored, renamed, removed or put back; the whole list is to be shown anew.
    virtual void StoredPetsChanged() = 0;
};

// Everything the program keeps while it runs, and the program's operations on it. The
// main window owns the one instance; the other windows come and go and work on it, so a
// test starts from a fresh state with a new main window.
class AppModel final {
public:
    AppModel();

    // The one listener; nothing is told before it is set.
    void SetObserver(AppModelObserver *observer) { observer_ = observer; }

    DnaLibrary &Library() { return library_; }
    const DnaLibrary &Library() const { return library_; }
    const DnaTemplate &Template() const { return template_; }
    float LastCreatureLevel() const { return lastCreatureLevel_; }
    quorvel::Settings &Settings() { return settings_; }
    const quorvel::Settings &Settings() const { return settings_; }
    LevelEquations Equations() const;
    const std::string &LastDnaFile() const { return lastDnaFile_; }
    void SetLastDnaFile(std::string path) { lastDnaFile_ = std::move(path); }
    const ListSort &Sort() const { return sort_; }
    bool Folded(FoldPart part) const { return folds_[static_cast<std::size_t>(part)]; }
    bool LiveEvaluation() const { return liveEvaluation_; }
    const ExperimentSession &Session() const { return session_; }

    // DNA files. A load or append starts before its file is chosen: the whole template is
    // cleared and the list's sorting switched off. Then LastDnaFile is read.
    void StartLoad();
    FileRead ReadDnaFile(LoadMode mode);
    // Appends the samples of a recovery file as an append does; LastDnaFile stays the user's file.
    FileRead RecoverDnaFile(const std::string &path);

    // True while the library holds samples or values that no DNA file has: after "Edit", a
    // leave-box store, "New", an Add DNA save, an append or a recovery; false after a load and
    // after a save. An append into an empty library that holds nothing unsaved keeps it false,
    // since every sample is then in the file just read (the start-up's reload is such an append).
    bool LibraryChanged() const { return libraryChanged_; }
    // A DNA file now holds the library.
    void LibrarySaved() { libraryChanged_ = false; }
    // The text a recovery file keeps: every sample in slot order, as "Save" writes them.
    std::string RecoveryText() const { return DnaFileText(SaveMode::Save, {}); }
    // "Save" goes to LastDnaFile without a dialog once there is one.
    bool SavesWithoutDialog(SaveMode mode) const;
    // The file's text; "WYSIWYG" follows the slots of the rows as shown, the others slot order.
    std::string DnaFileText(SaveMode mode, const std::vector<int> &shownSlots) const;

    // The DNA list and the selection.
    void SortDnaList(ListColumn column);
    // "No Sort": the rows back in slot order.
    void NoSort();
    void SelectRow(int row, int slot);
    // The selected sample's row moved (after a sort).
    void SetSelectedRow(int row);

    // The editor: stores a typed name, attribute or level in the selected sample and writes
    // its cell; a number beyond the 16-bit range is not stored and the cell shows the value kept.
    void StoreSelectedText(ListColumn column, const std::string &text);
    void StoreSelectedPlanet(int planet);
    void StoreSelectedQuality(int quality);
    void StoreSelectedOrigin(int origin);
    // "New": appends a "New DNA" sample and selects it; nothing when the library is full.
    std::optional<int> NewDnaRecord();
    // The Add DNA window's "Save"; false when the library is full.
    bool AddDnaRecord(const DnaRecord &record);

    // The template.
    void PutDnaInTemplate(Category category);
    // The sample of library slot `slot` (0..500) into a category; the selection stays as it is.
    void PutSampleInTemplate(Category category, int slot);
    // The selected sample into the first category whose slot is named "-".
    void PutDnaInFirstFreeSlot();
    void ClearTemplate(ClearScope scope, Category category = Category::Physique);
    void ToggleExperiment(Category category);
    // "Clear Experiment": every category back to its evaluated values.
    void ClearExperiment();
    // "E": the template cleared of experiments, then caps of 1000 and the selected sample's values.
    void StartSampleExperiment();
    // A sample dropped on the prediction label: its pet.
    void PredictSelectedSample();
    // The level text after choosing skin `index`, from the last creature level; the pet shown
    // takes it as its level.
    std::optional<std::string> ChooseSkin(int index);

    // The experimentation window's session on the template.
    void OpenSession();
    void PlacePoint(Category category, int box);
    void RunExperiment();
    void ResetSession();
    // The pet of the template's current values, as the experimentation window shows it.
    StatTexts PredictTemplatePet();

    // The Add DNA window's live prediction of typed values.
    StatTexts EvaluateTypedSample(const std::array<double, kAttributeCount> &typed);
    // ">>": the live evaluation switch; it outlives the window. Returns the new state.
    bool ToggleLiveEvaluation();

    // Folding. "Fold all" alternates between unfolding and folding the five lists.
    void ToggleFold(FoldPart part);
    void FoldAllLists();
    // True while the next "Fold all" click unfolds.
    bool FoldAllUnfolds() const { return foldAllUnfolds_; }

    // Settings. The Options window brings the points into 1..12 when it opens and stores
    // the nine options and the points on "Save".
    int ClampExpPoints();
    void SaveOptions(const std::array<bool, kSettingCount> &options, int expPoints);
    // From the settings file: the options, the points held to the twelve boxes there are,
    // and the last DNA file when it is to be loaded.
    void TakeSettingsFile(const SettingsFileData &data);
    // What the settings file keeps of the model (widths and placement are the windows').
    SettingsFileData SettingsFileContents();

    // Stored pets. The pet the main window's statistics panel shows, ready to be stored: named
    // by default, not dated; nothing while the panel shows no prediction.
    const std::optional<StoredPet> &ShownPet() const { return shownPet_; }
    const std::vector<StoredPet> &StoredPets() const { return storedPets_; }
    // Keeps the pet shown under `name` (the default name when it is empty) at the end of the list.
    void StoreShownPet(const std::string &name, std::string date);
    void RenameStoredPet(std::size_t index, std::string name);
    std::optional<StoredPet> RemoveStoredPet(std::size_t index);
    // Puts a removed pet back at its place (index at most the count).
    void InsertStoredPet(std::size_t index, StoredPet pet);
    // Puts a template pet's samples back into the template as "Send to" does, empties the
    // categories it had empty and sets its experimented categories again. When a sample is no
    // longer in the library (by name and attributes) nothing changes and the categories whose
    // sample is missing are returned.
    std::vector<Category> UseStoredPet(std::size_t index);
    // The stored-pets file: its text replaces the list; the lines skipped are returned.
    std::vector<int> ReadStoredPetsText(std::string_view text);
    std::string StoredPetsText() const { return WriteStoredPets(storedPets_); }

private:
    void Tell(auto member, const auto &...args) {
        if (observer_)
            (observer_->*member)(args...);
    }
    void EvaluateTemplate();
    void PutSample(Category category, const DnaRecord &record);
    StatTexts PredictPet(const ValueArray &values, PredictionSource source);
    void RebuildRows();
    // A sample appended by "New" or Add DNA: its row, or the whole list when it was sorted.
    void ShowNewSample(int slot, const RowCells &cells);
    void WriteSelectedCell(ListColumn column);
    FileRead ReadDnaFileAt(const std::string &path, LoadMode mode);

    DnaLibrary library_;
    DnaTemplate template_;
    float lastCreatureLevel_ = 0.0f;
    quorvel::Settings settings_;
    std::string lastDnaFile_; // UTF-8
    bool libraryChanged_ = false;
    ListSort sort_;
    std::array<bool, kFoldParts> folds_{};
    bool foldAllUnfolds_ = true;
    bool liveEvaluation_ = false;
    ExperimentSession session_;
    std::optional<StoredPet> shownPet_;
    std::vector<StoredPet> storedPets_;
    AppModelObserver *observer_ = nullptr;
};

} // namespace quorvel
