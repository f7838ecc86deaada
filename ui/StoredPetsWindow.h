#pragma once

#include <QWidget>

#include <cstddef>
#include <vector>

class ModelHub;
class QLabel;
class QPushButton;
class QTableWidget;
class QUndoStack;

namespace quorvel {
class AppModel;
} // namespace quorvel

// The "Stored Pets" window: the stored pets in a sortable table, two of them side by side,
// and their renaming, deletion (undone through the main window's pet undo stack), "Use" and
// export. It shows the model's list and redraws itself whenever the list changes.
class StoredPetsWindow final : public QWidget {
    Q_OBJECT
public:
    StoredPetsWindow(quorvel::AppModel &model, ModelHub &hub, QUndoStack &undo, QString folder,
                     QWidget *parent = nullptr);

private:
    void ShowPets();
    void ShowComparison();
    void FitComparison();
    void EnableButtons();
    // The chosen pets' places in the model's list, in the order of the table's rows.
    std::vector<std::size_t> SelectedPets() const;
    void RenamePet();
    void DeletePets();
    void UsePet();
    void ExportPets();

    quorvel::AppModel &model_;
    QUndoStack &undo_;
    QString folder_; // where the export dialog starts
    QTableWidget *table_ = nullptr;
    QTableWidget *comparison_ = nullptr;
    QPushButton *rename_ = nullptr;
    QPushButton *delete_ = nullptr;
    QPushButton *undoButton_ = nullptr;
    QPushButton *use_ = nullptr;
    QPushButton *export_ = nullptr;
    QLabel *message_ = nullptr;
};
