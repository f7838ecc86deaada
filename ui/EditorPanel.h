#pragma once

#include <QObject>

#include <array>

class ClickLabel;
class ModelHub;
class QCheckBox;
class QComboBox;
class QFrame;
class QPushButton;
class QRadioButton;
class SampleBox;
class QWidget;

namespace quorvel {
class AppModel;
}

// The sample editor below the DNA list: it stores what is typed in the model's selected sample.
class EditorPanel final : public QObject {
    Q_OBJECT
public:
    EditorPanel(quorvel::AppModel &model, ModelHub &hub, QWidget *central);

    QFrame *Picture4 = nullptr;
    ClickLabel *Label41 = nullptr; // folds Picture4
    std::array<SampleBox *, 12> Text1{};
    QComboBox *Combo2 = nullptr; // planet
    QComboBox *Combo1 = nullptr; // quality
    std::array<QRadioButton *, 2> Option1{};
    QCheckBox *Check1 = nullptr;     // "LFocus"
    QPushButton *Command3 = nullptr; // "Edit"
    QPushButton *Command4 = nullptr; // "New"

    // Fills the boxes from the selected sample; stores nothing.
    void ShowRecordInEditor();
    // Stores box 0..11 into the selected sample and its row; other numbers do nothing.
    void ApplyEditorToRecord(int box);
    void Command3_Click(); // "Edit": every box, the planet, the quality and the origin
    void Command4_Click(); // "New": appends a sample and selects it
    void Check1_Click();   // leave-box editing on or off
    void Combo1_LostFocus();
    void Combo2_LostFocus();
    void Option1_Click();
    void Text1_GotFocus(int box);
    // Enter: boxes 0..10 give the focus to the next box.
    void Text1_KeyPress(int box);
    void Text1_LostFocus(int box);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BuildControls();
    void StorePlanet();
    void StoreQuality();
    void StoreOrigin();
    void ShowChoice(QComboBox *combo, int position);
    void SetFolded(bool folded);

    quorvel::AppModel &model_;
};
