#pragma once

#include "Form1.h"

#include <QCoreApplication>
#include <QString>

// The soak reads the program's own state only through this view of the model, so that a
// change of where the program keeps it is a change of these few lines.
class ProgramState {
public:
    explicit ProgramState(Form1 &form) : model_(form.Model()) {}

    const quorvel::DnaLibrary &Library() const { return model_.Library(); }
    const quorvel::DnaTemplate &Template() const { return model_.Template(); }
    const quorvel::Settings &Settings() const { return model_.Settings(); }
    quorvel::LevelEquations Equations() const { return model_.Equations(); }
    const quorvel::ExperimentSession &Session() const { return model_.Session(); }
    float LastCreatureLevel() const { return model_.LastCreatureLevel(); }
    bool ListSorted() const { return model_.Sort().Sorted; }
    QString LastDnaFile() const { return QString::fromStdString(model_.LastDnaFile()); }
    bool LibraryChanged() const { return model_.LibraryChanged(); }
    // Where the window keeps unsaved samples when it closes: beside the settings file, here
    // the program's folder.
    static QString RecoveryPath() {
        return QCoreApplication::applicationDirPath() + QStringLiteral("/quorvel-unsaved.txt");
    }

private:
    const quorvel::AppModel &model_;
};
