#pragma once

#include "AppState.h"

#include <QMainWindow>
#include <QPointer>

#include <array>
#include <optional>

class DnaListPanel;
class EditorPanel;
class Form2;
class Form3;
class Form4;
class Form5;
class PredictionPanel;
class QAction;
class QCheckBox;
class QStatusBar;
class QToolBar;
class TemplatePanel;

// The main window: every panel of the tool, the toolbar, start-up and closing.
class Form1 : public QMainWindow {
    Q_OBJECT
public:
    explicit Form1(QWidget *parent = nullptr);
    ~Form1() override;

    AppState &State() { return state_; }
    DnaListPanel &List() { return *list_; }
    TemplatePanel &Template() { return *template_; }

    // The options the Add DNA and experimentation windows follow as they open: the main
    // window minimised, the window always on top (its check box set).
    void ApplySecondaryWindowOptions(QWidget *window, QCheckBox *alwaysOnTop);
    // A secondary window closed: the DNA list gets the focus and the main window its normal state.
    void SecondaryWindowClosed();

    // "Quorvel v0.55 [path]" once a file was loaded or saved.
    void ShowFileCaption();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void StartMainWindow();
    void BuildToolbar();
    void ToolbarAction(const QString &caption);
    void LayoutMainWindow();
    void ToggleFold(int part);
    void FoldAllLists();
    void ExitApp();
    void LoadDnaFile(bool replace, bool useLastFile);
    void SaveDnaFile(int mode);
    void ReadSettingsFile();
    void WriteSettingsFile();
    void ShowAbout();
    void ShowAddDna();
    void ShowOptions();
    void ClearExperiment();
    void SimulateExpSession();
    void ExperimentOnSample();
    QString ProgramFolder() const;

    AppState state_;
    QWidget *central_ = nullptr;
    QToolBar *Toolbar1 = nullptr;
    QStatusBar *StatusBar1 = nullptr;
    DnaListPanel *list_ = nullptr;
    TemplatePanel *template_ = nullptr;
    PredictionPanel *prediction_ = nullptr;
    EditorPanel *editor_ = nullptr;
    QPointer<Form2> form2_;
    QPointer<Form3> form3_;
    QPointer<Form4> form4_;
    QPointer<Form5> form5_;
    // The window's place and size as the settings file gave them (left, top, width, height, twips).
    std::array<std::optional<double>, 4> placementTwips_{};
};
