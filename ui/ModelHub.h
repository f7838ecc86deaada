#pragma once

#include "AppModel.h"

#include <QObject>

class QCheckBox;
class QWidget;

// The model's voice in the windows: each change the model reports becomes a signal, so that
// every window and panel redraws itself from the model. It also carries the main window's
// services to the secondary windows, which know neither the main window nor each other.
class ModelHub final : public QObject, public quorvel::AppModelObserver {
    Q_OBJECT
public:
    explicit ModelHub(quorvel::AppModel &model, QObject *parent = nullptr);
    ~ModelHub() override;

    // The options a secondary window follows as it opens: the main window minimised, the
    // window always on top (its check box set).
    void ApplySecondaryWindowOptions(QWidget *window, QCheckBox *alwaysOnTop);
    // A secondary window closed: the DNA list gets the focus and the main window its normal state.
    void SecondaryWindowClosed() { emit secondaryWindowClosed(); }

    void RowsRebuilt() override { emit rowsRebuilt(); }
    void RowsCleared() override { emit rowsCleared(); }
    void RowsAppended(const std::vector<std::pair<int, quorvel::RowCells>> &rows) override { emit rowsAppended(rows); }
    void CellWritten(int row, quorvel::ListColumn column, const std::string &text) override {
        emit cellWritten(row, column, text);
    }
    void SortChanged() override { emit sortChanged(); }
    void SelectionChanged() override { emit selectionChanged(); }
    void CategoryFilled(quorvel::Category category, const quorvel::CategoryView &view) override {
        emit categoryFilled(category, view);
    }
    void CategoryCleared(quorvel::Category category) override { emit categoryCleared(category); }
    void TemplateCleared() override { emit templateCleared(); }
    void ExperimentToggled(quorvel::Category category, bool experimented) override {
        emit experimentToggled(category, experimented);
    }
    void TemplateEvaluated(const quorvel::TemplateEvaluation &shown) override { emit templateEvaluated(shown); }
    void PetPredicted(const quorvel::StatTexts &texts) override { emit petPredicted(texts); }
    void FoldChanged(quorvel::FoldPart part, bool folded) override { emit foldChanged(part, folded); }
    void SettingsChanged() override { emit settingsChanged(); }
    void StoredPetsChanged() override { emit storedPetsChanged(); }

signals:
    void rowsRebuilt();
    void rowsCleared();
    void rowsAppended(const std::vector<std::pair<int, quorvel::RowCells>> &rows);
    void cellWritten(int row, quorvel::ListColumn column, const std::string &text);
    void sortChanged();
    void selectionChanged();
    void categoryFilled(quorvel::Category category, const quorvel::CategoryView &view);
    void categoryCleared(quorvel::Category category);
    void templateCleared();
    void experimentToggled(quorvel::Category category, bool experimented);
    void templateEvaluated(const quorvel::TemplateEvaluation &shown);
    void petPredicted(const quorvel::StatTexts &texts);
    void foldChanged(quorvel::FoldPart part, bool folded);
    void settingsChanged();
    void storedPetsChanged();
    void secondaryWindowOpened();
    void secondaryWindowClosed();

private:
    quorvel::AppModel &model_;
};
