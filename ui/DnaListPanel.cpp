#include "DnaListPanel.h"

#include "AppModel.h"
#include "DnaListView.h"
#include "ModelHub.h"
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

DnaListPanel::DnaListPanel(AppModel &model, ModelHub &hub, QWidget *central) : QObject(central), model_(model) {
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
        model_.PutDnaInFirstFreeSlot();
    });
    connect(ListView1->header(), &QHeaderView::sectionClicked, this, &DnaListPanel::SortDnaList);
    connect(ListView1->header(), &QHeaderView::sectionResized, this, [this](int column, int, int newSize) {
        // A width the user has not touched keeps its exact twips, so an unchanged run
        // writes the settings file back as it was read.
        if (TwipsToPx(static_cast<int>(widthsTwips_[column])) != newSize)
            widthsTwips_[column] = PxToTwips(newSize);
    });

    connect(&hub, &ModelHub::rowsRebuilt, this, &DnaListPanel::RebuildDnaList);
    connect(&hub, &ModelHub::rowsCleared, ListView1, &QTreeWidget::clear);
    connect(&hub, &ModelHub::rowsAppended, this, &DnaListPanel::AppendDnaRows);
    connect(&hub, &ModelHub::cellWritten, this, &DnaListPanel::SetDnaCell);
    connect(&hub, &ModelHub::sortChanged, this, &DnaListPanel::ApplySort);
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
        connect(action, &QAction::triggered, this, [this, i] { model_.PutDnaInTemplate(static_cast<Category>(i)); });
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

std::vector<int> DnaListPanel::ShownSlots() const {
    std::vector<int> shown;
    for (int row = 1; row <= RowCount(); ++row)
        shown.push_back(RowSlot(row));
    return shown;
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
    ApplySort();
}

void DnaListPanel::SetDnaCell(int row, ListColumn column, const std::string &text) {
    if (QTreeWidgetItem *item = ListView1->topLevelItem(row - 1))
        item->setText(static_cast<int>(column), ToQt(text));
}

void DnaListPanel::ApplySort() {
    const ListSort &sort = model_.Sort();
    const Qt::SortOrder order = sort.Ascending ? Qt::AscendingOrder : Qt::DescendingOrder;
    QHeaderView *header = ListView1->header();
    if (sort.Active)
        header->setSortIndicator(static_cast<int>(sort.Column), order);
    header->setSortIndicatorShown(sort.Active);
    if (sort.Active)
        ListView1->sortItems(static_cast<int>(sort.Column), order);
}

void DnaListPanel::RebuildDnaList() {
    ListView1->setUpdatesEnabled(false);
    ListView1->clear();
    const DnaLibrary &library = model_.Library();
    QList<QTreeWidgetItem *> items;
    items.reserve(library.Count);
    for (int slot = 1; slot <= library.Count; ++slot) {
        const RowCells cells = RebuildRowCells(library.Records[static_cast<std::size_t>(slot)], slot);
        QStringList texts;
        texts.reserve(kListColumns);
        for (const auto &cell : cells)
            texts << ToQt(cell);
        items << new DnaListItem(texts);
    }
    ListView1->addTopLevelItems(items);
    ListView1->setUpdatesEnabled(true);
}

void DnaListPanel::SortDnaList(int column) {
    model_.SortDnaList(static_cast<ListColumn>(column));
    // The selected sample's row has moved.
    const int selected = model_.Library().SelectedRecord;
    for (int row = 1; row <= RowCount(); ++row) {
        if (RowSlot(row) == selected) {
            model_.SetSelectedRow(row);
            return;
        }
    }
}

void DnaListPanel::SelectFromList() {
    const QList<QTreeWidgetItem *> selected = ListView1->selectedItems();
    if (selected.isEmpty())
        return;
    const int row = ListView1->indexOfTopLevelItem(selected.first()) + 1;
    model_.SelectRow(row, RowSlot(row));
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
