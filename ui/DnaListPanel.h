#pragma once

#include "DnaFile.h"

#include <QObject>
#include <QString>

#include <utility>
#include <vector>

class AppState;
class DnaListView;
class QLabel;
class QMenu;
class QTreeWidget;
class QWidget;

// The DNA list at the right of the main window, its "Pet View" tree, its view label and
// the "Send to" pop-up menu. Rows are addressed by position, counted from 1.
class DnaListPanel : public QObject {
    Q_OBJECT
public:
    DnaListPanel(AppState &state, QWidget *central);

    DnaListView *ListView1 = nullptr;
    QTreeWidget *TreeView1 = nullptr;
    QLabel *ViewLabel = nullptr; // Label2(5)
    QMenu *m_test = nullptr;

    void RebuildDnaList();
    int AddDnaRow(int slot);
    // Appends finished rows, slot and cells 1.. as the loader gives them, in one step.
    void AppendDnaRows(const std::vector<std::pair<int, quorvel::RowCells>> &rows);
    void SetDnaCell(int row, int column, const QString &text);
    void ClearDnaRows();
    void SetListSorting(bool on);
    void SortDnaList(int column);
    void SelectFromList();
    int RowCount() const;
    QString RowText(int row, int column) const;
    // The slot shown by the row at a position, read from its "#" text.
    int RowSlot(int row) const;

    void ShowDnaView();
    void ShowPetView();

    // Column widths in twips, as the settings file keeps them.
    double ColumnWidthTwips(int column) const;
    void SetColumnWidthTwips(int column, double twips);

signals:
    void rowReleased();      // a mouse button released over the list
    void rowDoubleClicked(); // after the selection was taken from the list
    void sendToCategory(int category);

private:
    void CreateColumns();
    void BuildPetTree();
    void BuildMenu();
    void UpdateSelectedRow();
    void ResortIfOn();

    AppState &state_;
    bool sortingOn_ = false;
    Qt::SortOrder sortOrder_ = Qt::DescendingOrder; // the first header click sorts ascending
    std::array<double, quorvel::kListColumns> widthsTwips_{};
};
