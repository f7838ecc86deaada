#include "Form1.h"

#include "DnaListPanel.h"
#include "DnaListView.h"
#include "UiText.h"

QString Form1::ChooseDnaFile(QFileDialog::AcceptMode mode) {
    const bool open = mode == QFileDialog::AcceptOpen;
    QFileDialog dialog(this, open ? QStringLiteral("Load DNA") : QStringLiteral("Save DNA"), ProgramFolder(),
                       QStringLiteral("Textfile (*.txt)"));
    dialog.setAcceptMode(mode);
    if (open) {
        // Any name is taken; one that cannot be opened ends the load without a word.
        dialog.setFileMode(QFileDialog::AnyFile);
    } else {
        // The program asks its own question before writing.
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    }
    const int answer = dialog.exec();
    // The keyboard comes back to this window, also where no window manager hands it back.
    activateWindow();
    if (answer != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

void Form1::LoadDnaFile(quorvel::LoadMode mode, bool useLastFile) {
    model_.StartLoad();
    if (!useLastFile) {
        const QString chosen = ChooseDnaFile(QFileDialog::AcceptOpen);
        // The keyboard goes to the DNA list rather than to the first box of the window.
        list_->ListView1->setFocus();
        if (chosen.isEmpty())
            return;
        model_.SetLastDnaFile(FromQt(chosen));
    }
    const quorvel::FileRead read = model_.ReadDnaFile(mode);
    if (read == quorvel::FileRead::Complete)
        ShowFileCaption();
    // A load the user asked for replaces whatever the last run left unsaved.
    if (read != quorvel::FileRead::NotOpened && mode == quorvel::LoadMode::Replace)
        RemoveRecoveryFile();
}
