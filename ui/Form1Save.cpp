#include "Form1.h"

#include "DnaListPanel.h"
#include "UiText.h"
#include "WholeFile.h"

#include <QMessageBox>

#include <string>

namespace {

// Writes the whole text or nothing: the old file is replaced only once the new one is
// complete. When the file cannot be created or written, the user is told the path and
// the reason, and the old file stays as it was.
bool SaveWholeFile(QWidget *parent, const QString &path, const std::string &text) {
    const QString failure = WriteWholeFile(path, text);
    if (failure.isEmpty())
        return true;
    QMessageBox failed(QMessageBox::Warning, QStringLiteral("Save DNA"),
                       QStringLiteral("Could not save %1:\n%2").arg(path, failure), QMessageBox::Ok, parent);
    failed.exec();
    parent->activateWindow();
    return false;
}

bool Confirmed(QWidget *parent, const QString &path) {
    QMessageBox ask(QMessageBox::Question, QStringLiteral("Save DNA"), QStringLiteral("Save to %1?").arg(path),
                    QMessageBox::Yes | QMessageBox::No, parent);
    const bool yes = ask.exec() == QMessageBox::Yes;
    parent->activateWindow();
    return yes;
}

} // namespace

void Form1::SaveDnaFile(quorvel::SaveMode mode) {
    const bool usesLastFile = model_.SavesWithoutDialog(mode);
    if (!usesLastFile) {
        const QString chosen = ChooseDnaFile(QFileDialog::AcceptSave);
        if (chosen.isEmpty())
            return;
        model_.SetLastDnaFile(FromQt(chosen));
        if (!Confirmed(this, chosen))
            return;
    }

    const std::string text = model_.DnaFileText(mode, list_->ShownSlots());
    const QString path = ToQt(model_.LastDnaFile());
    if (!SaveWholeFile(this, path, text))
        return;
    model_.LibrarySaved();
    RemoveRecoveryFile();

    if (usesLastFile) {
        QMessageBox saved(QMessageBox::NoIcon, QStringLiteral("Saved"),
                          QStringLiteral("Your file has been saved as %1").arg(path), QMessageBox::Ok, this);
        saved.exec();
        activateWindow();
    }
    ShowFileCaption();
}
