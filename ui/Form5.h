#pragma once

#include "StatLabels.h"

#include <QWidget>

#include <array>

class ClickLabel;
class ModelHub;
class QCheckBox;
class QFrame;
class QLabel;
class QPushButton;

namespace quorvel {
class AppModel;
}

// The experimentation window: the template's values, the predicted pet, the points column
// and the five category rows of boxes. The session itself lives in the program's state; this
// window only draws it and passes clicks on.
class Form5 final : public QWidget {
    Q_OBJECT
public:
    // Creating the window runs its opening steps on the template as it stands.
    Form5(quorvel::AppModel &model, ModelHub &hub, QWidget *parent = nullptr);

    QFrame *Picture2 = nullptr;
    std::array<QLabel *, 11> Label14{};
    QFrame *Picture3 = nullptr;
    StatLabelArray Label23{};
    QFrame *Picture15 = nullptr;
    QLabel *Label4 = nullptr;
    std::array<QFrame *, 12> Picture4{};
    QLabel *Label1 = nullptr;
    QFrame *Picture1 = nullptr;
    std::array<QLabel *, 5> Label2{};
    std::array<QLabel *, 5> Label42{};
    std::array<QLabel *, 5> Label5{};
    // The boxes of the rows Physique .. Aggressiveness (Picture5 .. Picture9), box 0 on the left.
    std::array<std::array<ClickLabel *, 10>, 5> Boxes{};
    QPushButton *Command1 = nullptr; // "Done Experimenting"
    QPushButton *Command2 = nullptr; // "Run Experiment!"
    QPushButton *Command3 = nullptr; // "Reset"
    QCheckBox *Check1 = nullptr;     // "Always on top"

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void BuildValuesPanel();
    void BuildStatsPanel();
    void BuildPointsColumn();
    void BuildCategoryRows();
    void BuildButtons();

    void OpenExperimentWindow();
    // The window's options again, then the session and the pet: after opening and after "Reset".
    void ShowOpenedSession();
    void PlaceBox(int category, int box);
    void Command2_Click();
    void Command3_Click();
    void Check1_Click();
    void CloseExperimentWindow();

    // Boxes, percentages, points and values from the session; then the pet from Current.
    void ShowSession();
    void PredictPet();

    quorvel::AppModel &model_;
    ModelHub &hub_;
};
