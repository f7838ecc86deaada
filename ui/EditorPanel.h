#pragma once

#include <QObject>

#include <array>

class AppState;
class ClickLabel;
class DnaListPanel;
class QCheckBox;
class QComboBox;
class QFrame;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;

// The sample editor below the DNA list.
class EditorPanel : public QObject {
    Q_OBJECT
public:
    EditorPanel(AppState &state, DnaListPanel &list, QWidget *central);

    QFrame *Picture4 = nullptr;
    ClickLabel *Label41 = nullptr; // folds Picture4
    std::array<QLineEdit *, 12> Text1{};
    QComboBox *Combo2 = nullptr; // planet
    QComboBox *Combo1 = nullptr; // quality
    std::array<QRadioButton *, 2> Option1{};
    QCheckBox *Check1 = nullptr;     // "LFocus"
    QPushButton *Command3 = nullptr; // "Edit"
    QPushButton *Command4 = nullptr; // "New"

    // Fills the boxes from the selected sample; stores nothing.
    void ShowRecordInEditor();
    void SetFolded(bool folded);

private:
    void BuildControls();

    AppState &state_;
    DnaListPanel &list_;
};
