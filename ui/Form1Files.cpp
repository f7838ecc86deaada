#include "Form1.h"

#include "DnaListPanel.h"
#include "DnaListView.h"
#include "UiText.h"

#include <QFileDialog>

void Form1::LoadDnaFile(quorvel::LoadMode mode, bool useLastFile) {
    model_.StartLoad();
    if (!useLastFile) {
        QFileDialog dialog(this, QStringLiteral("Load DNA"), ProgramFolder(), QStringLiteral("Textfile (*.txt)"));
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        // Any name is taken; one that cannot be opened ends the load without a word.
        dialog.setFileMode(QFileDialog::AnyFile);
        const int answer = dialog.exec();
        // The keyboard comes back to this window, also where no window manager hands it back,
        // and to the DNA list rather than to the first box of the window.
        activateWindow();
        list_->ListView1->setFocus();
        if (answer != QDialog::Accepted || dialog.selectedFiles().isEmpty())
            return;
        model_.SetLastDnaFile(FromQt(dialog.selectedFiles().constFirst()));
    }
    if (model_.ReadDnaFile(mode) == quorvel::FileRead::Complete)
        ShowFileCaption();
}
