#pragma once

#include "StatLabels.h"

#include <QWidget>

#include <array>

class ClickLabel;
class ModelHub;
class QCheckBox;
class QComboBox;
class QFrame;
class QPushButton;
class QRadioButton;
class SampleBox;

namespace quorvel {
class AppModel;
}

// The Add DNA window: typed samples go to the library and the main list one after another,
// and the statistics panel predicts the typed sample's pet.
class Form2 final : public QWidget {
    Q_OBJECT
public:
    Form2(quorvel::AppModel &model, ModelHub &hub, QWidget *parent = nullptr);

    QFrame *Picture4 = nullptr;
    std::array<SampleBox *, 12> Text1{};
    QComboBox *Combo1 = nullptr; // quality
    QComboBox *Combo2 = nullptr; // planet
    std::array<QRadioButton *, 2> Option1{};
    ClickLabel *Label1 = nullptr; // ">>"
    QFrame *Picture1 = nullptr;
    StatLabelArray Label23{};
    QCheckBox *Check1 = nullptr;
    QPushButton *Command4 = nullptr; // "Save"
    QPushButton *Command1 = nullptr; // "Exit"

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void BuildInputs();
    void BuildStatsPanel();
    void BuildBottomRow();
    void SetTabOrder();

    void Form_Load();
    void Form_Unload();
    void Command4_Click();
    void Check1_Click();
    void Label1_Click();
    void Text1_GotFocus(int box);
    void Text1_KeyPress(int box);
    void Text1_LostFocus(int box);
    void EvaluateTypedSample();
    void ResetBoxes();

    quorvel::AppModel &model_;
    ModelHub &hub_;
    // Set once the window has run its closing steps; the boxes then no longer act, since
    // the main window and its model may go away before this one is deleted.
    bool unloaded_ = false;
};
