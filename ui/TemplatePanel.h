#pragma once

#include <QObject>

#include <array>

struct AppState;
class PredictionPanel;
class ClickLabel;
class QFrame;
class QLabel;
class QListWidget;
class QPushButton;
class QWidget;

// The left column of the main window: the five template category boxes, their experiment
// buttons, the session buttons and the template values panel.
class TemplatePanel : public QObject {
    Q_OBJECT
public:
    TemplatePanel(AppState &state, PredictionPanel &prediction, QWidget *central);

    std::array<ClickLabel *, 5> Label2{};
    std::array<QListWidget *, 5> List1{};
    std::array<QFrame *, 5> Picture1{};
    std::array<QPushButton *, 5> Command2{};
    std::array<QLabel *, 5> Label28{};
    std::array<QLabel *, 5> Label42{};
    std::array<QLabel *, 25> Label43{};
    std::array<QFrame *, 5> Line1{};
    QPushButton *Command5 = nullptr; // "Unfold All"
    QPushButton *Command6 = nullptr; // "Clear Experiment"
    QPushButton *Command7 = nullptr; // "Simulate Exp. Session"

    QFrame *Picture2 = nullptr;
    ClickLabel *Label1 = nullptr;       // folds Picture2
    std::array<QLabel *, 11> Label14{}; // 0..9 values, 10 quality

    // Copies the selected sample into a category, redraws its box and evaluates.
    void PutDnaInTemplate(int category);
    // The selected sample into the first category whose slot is named "-".
    void PutDnaInFirstFreeSlot();
    void ToggleExperiment(int category);
    // Caps, current values, captions and buttons from the slots; then the pet prediction.
    void EvaluateTemplate();

    // A category 0..4 is emptied and the template evaluated; 5 or more empties every
    // category box and the template and statistics captions without an evaluation.
    void ClearTemplate(int category);

    // Folding of the category lists (twips heights 225 folded, 1200 unfolded).
    void SetListFolded(int category, bool folded);
    void SetValuesPanelFolded(bool folded);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BuildCategory(QWidget *central, int i, int left, int top);
    void BuildValuesPanel(QWidget *central);

    void ClearCategory(int category);
    void ClearWholeTemplate();
    // Every category back to "+" and the seven experiment buttons off until the next evaluation.
    void ResetExperimentButtons();
    void SetExperimentButtonsEnabled(bool enabled);
    // True when every category list has a selected line with text.
    bool TemplateComplete() const;
    // The contribution label of `pair` in box `category`.
    QLabel *ContributionLabel(int category, int pair) const;

    AppState &state_;
    PredictionPanel &prediction_;
};
