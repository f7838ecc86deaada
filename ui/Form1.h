#pragma once

#include "AppModel.h"
#include "ModelHub.h"

#include <QFileDialog>
#include <QMainWindow>
#include <QPointer>
#include <QUndoStack>

#include <array>
#include <optional>

class DnaListPanel;
class QAction;
class EditorPanel;
class FindTemplateWindow;
class Form2;
class Form3;
class Form4;
class Form5;
class PredictionPanel;
class StoredPetsWindow;
class QStatusBar;
class QToolBar;
class TemplatePanel;

// The main window: every panel of the tool, the toolbar, start-up and closing. It owns the
// program's one model and its hub; the panels and the other windows work on those.
class Form1 final : public QMainWindow {
    Q_OBJECT
public:
    explicit Form1(QWidget *parent = nullptr);
    ~Form1() override;

    quorvel::AppModel &Model() { return model_; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private slots:
    // The toolbar's commands.
    void LoadDna();
    void AppendDna();
    void Save();
    void SaveAs();
    void SaveWithData();
    void SaveAsShown();
    void ClearTemplate();
    void NoSort();
    void ShowAddDna();
    void ShowStoredPets();
    void RecoverUnsavedSamples();
    void ShowFindTemplate();
    void ShowDnaView();
    void ShowPetView();
    void ShowOptions();
    void ShowAbout();

    void ClearExperiment();
    void SimulateExpSession();
    void ExperimentOnSample();
    void SecondaryWindowOpened();
    void SecondaryWindowClosed();

private:
    void StartMainWindow();
    void BuildToolbar();
    void LayoutMainWindow();
    void ExitApp();
    // The DNA file dialog; an empty path when it was cancelled.
    QString ChooseDnaFile(QFileDialog::AcceptMode mode);
    void LoadDnaFile(quorvel::LoadMode mode, bool useLastFile);
    void SaveDnaFile(quorvel::SaveMode mode);
    void ReadSettingsFile();
    void WriteSettingsFile();
    // The stored pets' file beside the settings file: read at start, written on every change.
    QString StoredPetsPath() const;
    // The recovery file beside the settings file: the library as it was when the window
    // closed with samples no DNA file holds.
    QString RecoveryPath() const;
    void WriteRecoveryFile();
    void RemoveRecoveryFile();
    // "Recover Unsaved Samples" enabled while the file is there, and the status bar's note.
    void ShowRecoveryState();
    void ReadStoredPetsFile();
    void WriteStoredPetsFile();
    void OpenExperimentWindow(bool canReset);
    // "Quorvel v0.55 [path]" once a file was loaded or saved.
    void ShowFileCaption();
    QString ProgramFolder() const;

    quorvel::AppModel model_;
    ModelHub hub_{model_};
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
    QPointer<StoredPetsWindow> storedPets_;
    QPointer<FindTemplateWindow> finder_;
    QAction *recover_ = nullptr;
    bool recovered_ = false; // the recovery file's samples are back in the library
    // Deleting and renaming stored pets can be undone for the whole run.
    QUndoStack petUndo_;
    // False when the file of stored pets could not be read, or its bad lines not kept aside:
    // then it is not written over.
    bool petsFileWritable_ = true;
    // The window's place and size as the settings file gave them (left, top, width, height, twips).
    std::array<std::optional<double>, 4> placementTwips_{};
};
