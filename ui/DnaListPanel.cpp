#include "DnaListPanel.h"

#include "AppState.h"
#include "DnaListView.h"
#include "Numeric.h"
#include "ReadNumber.h"
#include "Twips.h"
#include "UiText.h"

#include <QHeaderView>
#include <QLabel>
#include <QMenu>

#include <cmath>

using namespace quorvel;

namespace {

struct ColumnInfo {
    const char *header;
    int widthTwips;
};

constexpr std::array<ColumnInfo, kListColumns> kColumns{{{"#", 0},
                                                         {"ID", 1400},
                                                         {"Hard", 600},
                                                         {"Fort", 600},
                                                         {"Dex", 600},
                                                         {"Endu", 700},
                                                         {"Int", 600},
                                                         {"Clev", 600},
                                                         {"Depend", 800},
                                                         {"Cour", 600},
                                                         {"Fierc", 600},
                                                         {"Power", 700},
                                                         {"Level", 700},
                                                         {"Planet", 1200},
                                                         {"W/M", 1000},
                                                         {"Quality", 1000}}};

} // namespace

DnaListPanel::DnaListPanel(AppState &state, QWidget *central) : QObject(central), state_(state) {
    ViewLabel = MakeLabel(central, QStringLiteral("Label2_5"), QStringLiteral("DNA View:"), 4200, 750, 975, 255);

    ListView1 = new DnaListView(central);
    ListView1->setObjectName(QStringLiteral("ListView1"));
    PlaceTwips(ListView1, 4200, 960, 8895, 6855);

    TreeView1 = new QTreeWidget(central);
    TreeView1->setObjectName(QStringLiteral("TreeView1"));
    TreeView1->setHeaderHidden(true);
    PlaceTwips(TreeView1, 4200, 960, 8895, 6855);
    TreeView1->hide();

    CreateColumns();
    BuildPetTree();
    BuildMenu();

    connect(ListView1, &DnaListView::buttonPressed, this, [this](Qt::MouseButton button, const QPoint &at) {
        SelectFromList();
        if (button == Qt::RightButton)
            m_test->popup(at, m_test->defaultAction());
    });
    connect(ListView1, &DnaListView::buttonReleased, this, [this] {
        SelectFromList();
        emit rowReleased();
    });
    connect(ListView1, &DnaListView::dragStarting, this, [this] {
        SelectFromList();
        emit rowReleased();
    });
    connect(ListView1, &DnaListView::rowDoubleClicked, this, [this] {
        SelectFromList();
        emit rowDoubleClicked();
    });
    connect(ListView1->header(), &QHeaderView::sectionClicked, this, &DnaListPanel::SortDnaList);
    connect(ListView1->header(), &QHeaderView::sectionResized, this, [this](int column, int, int newSize) {
        // A width the user has not touched keeps its exact twips, so an unchanged run
        // writes the settings file back as it was read.
        if (TwipsToPx(static_cast<int>(widthsTwips_[column])) != newSize)
            widthsTwips_[column] = PxToTwips(newSize);
    });
}

void DnaListPanel::CreateColumns() {
    QStringList headers;
    for (const auto &column : kColumns)
        headers << QString::fromLatin1(column.header);
    ListView1->setColumnCount(kListColumns);
    ListView1->setHeaderLabels(headers);
    QHeaderView *header = ListView1->header();
    header->setMinimumSectionSize(0);
    header->setStretchLastSection(false);
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(false);
    auto *headerItem = ListView1->headerItem();
    for (int c = 0; c < kListColumns; ++c) {
        headerItem->setTextAlignment(c, (c == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        SetColumnWidthTwips(c, kColumns[static_cast<std::size_t>(c)].widthTwips);
    }
}

void DnaListPanel::BuildPetTree() {
    auto *root = new QTreeWidgetItem(TreeView1, {QStringLiteral("Receipe:")});
    root->setData(0, Qt::UserRole, QStringLiteral("rec"));
    for (int n = 1; n <= 9; ++n) {
        auto *child = new QTreeWidgetItem(root, {QStringLiteral("Recept %1").arg(n)});
        child->setData(0, Qt::UserRole, QStringLiteral("namn%1").arg(n));
    }
    root->setExpanded(true);
}

void DnaListPanel::BuildMenu() {
    m_test = new QMenu(QStringLiteral("Test"), ListView1);
    m_test->setObjectName(QStringLiteral("m_test"));
    const std::array<std::pair<const char *, const char *>, 5> entries{{{"m_phys", "Send to Physique"},
                                                                        {"m_prow", "Send to Prowess"},
                                                                        {"m_ment", "Send to Mental"},
                                                                        {"m_psych", "Send to Psychology"},
                                                                        {"m_aggro", "Send to Aggresiveness"}}};
    for (int i = 0; i < 5; ++i) {
        auto *action = m_test->addAction(QString::fromLatin1(entries[static_cast<std::size_t>(i)].second));
        action->setObjectName(QString::fromLatin1(entries[static_cast<std::size_t>(i)].first));
        connect(action, &QAction::triggered, this, [this, i] { emit sendToCategory(i); });
        if (i == 0)
            m_test->setDefaultAction(action);
    }
}

double DnaListPanel::ColumnWidthTwips(int column) const {
    return widthsTwips_[static_cast<std::size_t>(column)];
}

void DnaListPanel::SetColumnWidthTwips(int column, double twips) {
    widthsTwips_[static_cast<std::size_t>(column)] = twips;
    ListView1->header()->resizeSection(column, TwipsToPx(static_cast<int>(std::floor(twips))));
}

int DnaListPanel::RowCount() const {
    return ListView1->topLevelItemCount();
}

QString DnaListPanel::RowText(int row, int column) const {
    const QTreeWidgetItem *item = ListView1->topLevelItem(row - 1);
    return item ? item->text(column) : QString();
}

int DnaListPanel::RowSlot(int row) const {
    const auto slot = ToInt16(ReadNumber(FromQt(RowText(row, 0))));
    return slot ? *slot : 0;
}

int DnaListPanel::AddDnaRow(int slot) {
    auto *item = new DnaListItem(QStringList{QString::number(slot)});
    ListView1->addTopLevelItem(item);
    ResortIfOn();
    return ListView1->indexOfTopLevelItem(item) + 1;
}

void DnaListPanel::AppendDnaRows(const std::vector<std::pair<int, RowCells>> &rows) {
    QList<QTreeWidgetItem *> items;
    items.reserve(static_cast<qsizetype>(rows.size()));
    for (const auto &[slot, cells] : rows) {
        QStringList texts;
        texts.reserve(kListColumns);
        texts << QString::number(slot);
        for (int c = 1; c < kListColumns; ++c)
            texts << ToQt(cells[static_cast<std::size_t>(c)]);
        items << new DnaListItem(texts);
    }
    ListView1->addTopLevelItems(items);
    ResortIfOn();
}

void DnaListPanel::SetDnaCell(int row, int column, const QString &text) {
    if (QTreeWidgetItem *item = ListView1->topLevelItem(row - 1))
        item->setText(column, text);
}

void DnaListPanel::ClearDnaRows() {
    ListView1->clear();
}

void DnaListPanel::SetListSorting(bool on) {
    sortingOn_ = on;
    ListView1->header()->setSortIndicatorShown(on);
    ResortIfOn();
}

void DnaListPanel::ResortIfOn() {
    if (sortingOn_)
        ListView1->sortItems(state_.SortColumn, sortOrder_);
}

void DnaListPanel::RebuildDnaList() {
    SetListSorting(false);
    ListView1->setUpdatesEnabled(false);
    ClearDnaRows();
    QList<QTreeWidgetItem *> items;
    items.reserve(state_.Library.Count);
    for (int slot = 1; slot <= state_.Library.Count; ++slot) {
        const RowCells cells = RebuildRowCells(state_.Library.Records[static_cast<std::size_t>(slot)], slot);
        QStringList texts;
        texts.reserve(kListColumns);
        for (const auto &cell : cells)
            texts << ToQt(cell);
        items << new DnaListItem(texts);
    }
    ListView1->addTopLevelItems(items);
    ListView1->setUpdatesEnabled(true);
    state_.Library.SelectedRow = state_.Library.SelectedRecord;
}

void DnaListPanel::SortDnaList(int column) {
    state_.SortColumn = column;
    sortOrder_ = sortOrder_ == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    ListView1->header()->setSortIndicator(column, sortOrder_);
    SetListSorting(true);
    state_.ListSorted = true;
    UpdateSelectedRow();
}

void DnaListPanel::UpdateSelectedRow() {
    for (int row = 1; row <= RowCount(); ++row) {
        if (RowSlot(row) == state_.Library.SelectedRecord) {
            state_.Library.SelectedRow = static_cast<int16_t>(row);
            return;
        }
    }
}

void DnaListPanel::SelectFromList() {
    const QList<QTreeWidgetItem *> selected = ListView1->selectedItems();
    if (selected.isEmpty())
        return;
    const int row = ListView1->indexOfTopLevelItem(selected.first()) + 1;
    state_.Library.SelectedRecord = static_cast<int16_t>(RowSlot(row));
    state_.Library.SelectedRow = static_cast<int16_t>(row);
}

void DnaListPanel::ShowDnaView() {
    ListView1->show();
    TreeView1->hide();
    ViewLabel->setText(QStringLiteral("DNA View"));
}

void DnaListPanel::ShowPetView() {
    TreeView1->show();
    ListView1->hide();
    ViewLabel->setText(QStringLiteral("Pet View"));
}
