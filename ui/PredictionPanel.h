#pragma once

#include "StatLabels.h"

#include <QObject>

struct AppState;
class ClickLabel;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QWidget;

// The pet prediction panel of the main window: statistics, the drop label, the skin box.
class PredictionPanel : public QObject {
    Q_OBJECT
public:
    PredictionPanel(AppState &state, QWidget *central);

    QFrame *Picture3 = nullptr;
    ClickLabel *Label4 = nullptr;    // folds Picture3
    QLabel *Label3 = nullptr;        // "Drop your DNA Template here to predict a pet"
    QLabel *HealthCaption = nullptr; // Label14(11)
    StatLabelArray Label23{};
    QComboBox *Combo3 = nullptr;
    QPushButton *Command1 = nullptr; // "Store this pet", no action
    QPushButton *Command8 = nullptr; // "E"

    // Every statistic back to "0", as the whole-template clear leaves them.
    void ClearStats();

    // The pet of ten values into the statistics; the level also becomes the last creature level.
    void PredictPetStats(const quorvel::ValueArray &values, quorvel::PredictionSource source);

    // A sample dropped on Label3: the selected sample's pet.
    void Label3_DragDrop();
    // Item `index` of the skin box raises the level shown to the skin's minimum.
    void ApplySkinLevel(int index);

    void SetFolded(bool folded);
    void MoveTo(int leftTwips, int topTwips);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // The item the box shows, or -1 while its text is no item's (such as "Choose Skin").
    int ChosenSkin() const;

    AppState &state_;
};
