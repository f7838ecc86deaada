#pragma once

#include "StatLabels.h"

#include <QObject>

class ClickLabel;
class ModelHub;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QWidget;

namespace quorvel {
class AppModel;
enum class FoldPart : int;
} // namespace quorvel

// The pet prediction panel of the main window: statistics, the drop label, the skin box.
// It shows the model's predictions.
class PredictionPanel final : public QObject {
    Q_OBJECT
public:
    PredictionPanel(quorvel::AppModel &model, ModelHub &hub, QWidget *central);

    QFrame *Picture3 = nullptr;
    ClickLabel *Label4 = nullptr;    // folds Picture3
    QLabel *Label3 = nullptr;        // "Drop your DNA Template here to predict a pet"
    QLabel *HealthCaption = nullptr; // Label14(11)
    StatLabelArray Label23{};
    QComboBox *Combo3 = nullptr;
    QPushButton *Command1 = nullptr; // "Store this pet", while a prediction is shown
    QPushButton *Command8 = nullptr; // "E"

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // The item the box shows, or -1 while its text is no item's (such as "Choose Skin").
    int ChosenSkin() const;
    // Every statistic back to "0", as the whole-template clear leaves them.
    void ClearStats();
    // "Store this pet": asks a name and keeps the pet shown.
    void StorePet();
    // Item `index` of the skin box raises the level shown to the skin's minimum.
    void ApplySkinLevel(int index);
    // The pet panel folds; it moves up when the values panel above it folds.
    void ShowFold(quorvel::FoldPart part, bool folded);

    quorvel::AppModel &model_;
};
