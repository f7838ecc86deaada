#pragma once

#include "DnaFile.h"

#include <QObject>
#include <QString>

#include <utility>
#include <vector>

class DnaListView;
class ModelHub;
class QLabel;
class QMenu;
class QTreeWidget;
class QWidget;

namespace quorvel {
class AppModel;
}

// The DNA list at the right of the main window, its "Pet View" tree, its view label and
// the "Send to" pop-up menu. Rows are addressed by position, counted from 1. The rows
// follow the model's row changes and sort state; a click picks the sample in the model.
class DnaListPanel final : public QObject {
    Q_OBJECT
public:
    DnaListPanel(quorvel::AppModel &model, ModelHub &hub, QWidget *central);

    DnaListView *ListView1 = nullptr;
    QTreeWidget *TreeView1 = nullptr;
    QLabel *ViewLabel = nullptr; // Label2(5)
    QMenu *m_test = nullptr;

    int RowCount() const;
    // The slots of the rows as shown, top to bottom.
    std::vector<int> ShownSlots() const;

    void ShowDnaView();
    void ShowPetView();

    // Column widths in twips, as the settings file keeps them.
    double ColumnWidthTwips(int column) const;
    void SetColumnWidthTwips(int column, double twips);

signals:
    void rowReleased(); // a mouse button released over the list

private:
    void CreateColumns();
    void BuildPetTree();
    void BuildMenu();
    void RebuildDnaList();
    // Appends finished rows, slot and cells 1.. as the model gives them, in one step.
    void AppendDnaRows(const std::vector<std::pair<int, quorvel::RowCells>> &rows);
    void SetDnaCell(int row, quorvel::ListColumn column, const std::string &text);
    void ApplySort();
    void SortDnaList(int column);
    void SelectFromList();
    QString RowText(int row, int column) const;
    // The slot shown by the row at a position, read from its "#" text.
    int RowSlot(int row) const;

    quorvel::AppModel &model_;
    std::array<double, quorvel::kListColumns> widthsTwips_{};
};
