#pragma once

#include "AppModel.h"

#include <QObject>

#include <array>

class ClickLabel;
class ModelHub;
class QFrame;
class QLabel;
class QListWidget;
class QPushButton;
class QWidget;

// The left column of the main window: the five template category boxes, their experiment
// buttons, the session buttons and the template values panel. The user's actions go to the
// model; the panel redraws itself from the model's template changes.
class TemplatePanel final : public QObject {
    Q_OBJECT
public:
    TemplatePanel(quorvel::AppModel &model, ModelHub &hub, QWidget *central);

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

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BuildCategory(QWidget *central, int i, int left, int top);
    void BuildValuesPanel(QWidget *central);

    // A sample put in a category: its lines and contributions.
    void ShowCategory(quorvel::Category category, const quorvel::CategoryView &view);
    void ClearCategory(quorvel::Category category);
    void ClearWholeTemplate();
    // The box's tooltip and accessible description: its sample's name and ten values, or none.
    void ShowSampleTip(std::size_t category, const QString &tip);
    void ShowExperimented(quorvel::Category category, bool experimented);
    // Captions and buttons after an evaluation.
    void ShowEvaluation(const quorvel::TemplateEvaluation &shown);
    void FoldAllLists();
    // Folding of the category lists (twips heights 225 folded, 1200 unfolded) and the values panel.
    void ShowFold(quorvel::FoldPart part, bool folded);
    // Every category back to "+" and the seven experiment buttons off until the next evaluation.
    void ResetExperimentButtons();
    void SetExperimentButtonsEnabled(bool enabled);
    // True when every category list has a selected line with text.
    bool TemplateComplete() const;
    // The contribution label of `pair` in box `category`.
    QLabel *ContributionLabel(int category, int pair) const;

    quorvel::AppModel &model_;
};
