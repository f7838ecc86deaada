#pragma once

#include "DnaRecord.h"
#include "Experiment.h"
#include "PetStats.h"
#include "SettingsFile.h"
#include "Template.h"

#include <QString>

#include <array>

// Everything the program keeps while it runs. Form1 owns the one instance; the other
// windows come and go and work on it, so a test starts from a fresh state with a new Form1.
struct AppState {
    quorvel::DnaLibrary Library;
    quorvel::DnaTemplate Template;
    float LastCreatureLevel = 0.0f;
    quorvel::Settings Settings;
    QString LastDnaFile;
    bool ListSorted = false;
    int SortColumn = 0;
    // Folded parts: 0..4 the category lists, 5 the evaluation panel, 6 the pet panel, 7 the editor.
    std::array<bool, 8> FoldState{};
    // The Add DNA window's live evaluation switch; it outlives the window.
    bool LiveEvaluation = false;
    quorvel::ExperimentSession Session;

    quorvel::LevelEquations Equations() const {
        return {Settings[quorvel::Old], Settings[quorvel::New1], Settings[quorvel::New2]};
    }
};
