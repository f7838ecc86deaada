#include "Form1.h"

#include "DnaFile.h"
#include "DnaListPanel.h"
#include "TemplatePanel.h"
#include "UiText.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

#include <fstream>
#include <utility>
#include <vector>

namespace {

const QString kDnaFilter = QStringLiteral("Textfile (*.txt)");

} // namespace

void Form1::LoadDnaFile(bool replace, bool useLastFile) {
    template_->ClearTemplate(6);
    list_->SetListSorting(false);
    if (!useLastFile) {
        QFileDialog dialog(this, QStringLiteral("Load DNA"), ProgramFolder(), kDnaFilter);
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        // Any name is taken; one that cannot be opened ends the load below without a word.
        dialog.setFileMode(QFileDialog::AnyFile);
        const int answer = dialog.exec();
        // The keyboard comes back to this window, also where no window manager hands it back.
        activateWindow();
        if (answer != QDialog::Accepted || dialog.selectedFiles().isEmpty())
            return;
        state_.LastDnaFile = dialog.selectedFiles().constFirst();
    }
    if (state_.LastDnaFile.isEmpty())
        return;

    // A folder, a vanished or an unreadable file ends the load before anything changes.
    const QFileInfo info(state_.LastDnaFile);
    std::ifstream in;
    if (info.isFile())
        in.open(QFile::encodeName(state_.LastDnaFile).toStdString(), std::ios::binary);
    if (!in.is_open()) {
        template_->ClearTemplate(6);
        return;
    }
    if (replace) {
        state_.Library.ClearLibrary();
        list_->ClearDnaRows();
    }
    // The rows go into the list together once the reader stops; those read before a bad line
    // stay, like the records.
    std::vector<std::pair<int, quorvel::RowCells>> rows;
    const quorvel::LoadEnd end = quorvel::LoadDnaStream(
        in, state_.Library, [&rows](int slot, const quorvel::RowCells &cells) { rows.emplace_back(slot, cells); });
    list_->AppendDnaRows(rows);
    if (end == quorvel::LoadEnd::Complete)
        ShowFileCaption();
    else
        template_->ClearTemplate(6);
}
