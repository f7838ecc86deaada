// Samples no DNA file holds survive closing: the window writes them to a recovery file beside
// the settings file, and "Recover Unsaved Samples" appends them in the next run.
#include "Form1.h"

#include "UiText.h"
#include "WholeFile.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStatusBar>

namespace {

const QString kRecoveryNote =
    QStringLiteral("Unsaved samples from the last run can be recovered: Load, Recover Unsaved Samples.");

} // namespace

// Closing asks nothing and writes nothing over the user's file. A recovery file that cannot
// be written (a folder in its place, a full disk) is left as it was, without a word: the
// window is closing, and the old file, if any, stays whole.
void Form1::WriteRecoveryFile() {
    if (!model_.LibraryChanged() || model_.Library().Count == 0)
        return;
    const QString path = RecoveryPath();
    QDir().mkpath(QFileInfo(path).path());
    WriteWholeFile(path, model_.RecoveryText());
}

void Form1::RemoveRecoveryFile() {
    if (QFileInfo(RecoveryPath()).isFile())
        QFile::remove(RecoveryPath());
    ShowRecoveryState();
}

void Form1::RecoverUnsavedSamples() {
    // Read as "Append DNA" reads, but the caption and the last DNA file stay the user's, so
    // that "Save" still writes the user's own file.
    model_.StartLoad();
    if (model_.RecoverDnaFile(FromQt(RecoveryPath())) != quorvel::FileRead::NotOpened)
        recovered_ = true;
    ShowRecoveryState();
}

void Form1::ShowRecoveryState() {
    const bool there = QFileInfo(RecoveryPath()).isFile();
    recover_->setEnabled(there);
    // The note joins whatever else the status bar says, and leaves once the samples are back
    // in the library or the file is gone.
    QString message = StatusBar1->currentMessage();
    message.remove(kRecoveryNote);
    message = message.trimmed();
    if (there && !recovered_)
        message = message.isEmpty() ? kRecoveryNote : message + QStringLiteral("  ") + kRecoveryNote;
    if (message.isEmpty())
        StatusBar1->clearMessage();
    else
        StatusBar1->showMessage(message);
}
