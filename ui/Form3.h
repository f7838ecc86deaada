#pragma once

#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QScrollBar;

namespace quorvel {
class AppModel;
}

// The Options window: the nine options and the experimentation points.
class Form3 final : public QWidget {
    Q_OBJECT
public:
    explicit Form3(quorvel::AppModel &model, QWidget *parent = nullptr);

    std::array<QCheckBox *, 9> Check1{};
    QScrollBar *HScroll1 = nullptr;
    QLabel *Label3 = nullptr;
    QPushButton *Command4 = nullptr; // "Save"
    QPushButton *Command1 = nullptr; // "Cancel"
    // The display scale, kept apart from the settings file; it counts from the next start.
    QComboBox *DisplayScaleBox = nullptr;

private:
    void BuildControls();
    void BuildDisplayScale();
    void Form_Load();
    void HScroll1_Change(int value);
    void Command4_Click();

    quorvel::AppModel &model_;
};
