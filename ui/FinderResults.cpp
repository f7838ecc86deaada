#include "FinderResults.h"

#include "Captions.h"
#include "FinderSupport.h"
#include "PetNumbers.h"
#include "UiText.h"

#include <QHeaderView>
#include <QTreeWidget>

namespace {

constexpr int kSortRole = Qt::UserRole;
constexpr int kIndexRole = Qt::UserRole + 1;
constexpr int kFirstName = 3;
constexpr int kFirstStat = kFirstName + quorvel::kCategoryCount;
constexpr int kStatColumns = 10; // Health .. Damage; the level has a column of its own

// Rows sort by the number a cell shows where there is one, by text elsewhere.
class FoundTemplateItem final : public QTreeWidgetItem {
public:
    using QTreeWidgetItem::QTreeWidgetItem;

    bool operator<(const QTreeWidgetItem &other) const override {
        const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
        const QVariant mine = data(column, kSortRole);
        const QVariant theirs = other.data(column, kSortRole);
        if (mine.isValid() && theirs.isValid())
            return mine.toDouble() < theirs.toDouble();
        return text(column) < other.text(column);
    }
};

// The number a statistic's column sorts by: the damage range counts low + high, the others
// the figure in front of their text.
double StatValue(const quorvel::PetNumbers &numbers, int stat) {
    const auto at = [&numbers](quorvel::PetColumn column) { return numbers[static_cast<int>(column)].value_or(0.0); };
    if (stat == static_cast<int>(quorvel::PetStat::Damage))
        return at(quorvel::PetColumn::DamageLow) + at(quorvel::PetColumn::DamageHigh);
    return numbers[stat].value_or(0.0);
}

void SetNumber(QTreeWidgetItem *row, int column, const std::string &text, double value) {
    row->setText(column, ShownNumber(text));
    row->setData(column, kSortRole, value);
    row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
}

} // namespace

void SetUpFoundTemplatesList(QTreeWidget *list) {
    QStringList headers{QStringLiteral("Rank"), QStringLiteral("Score"), QStringLiteral("Level")};
    for (const quorvel::Category category : quorvel::kCategories)
        headers << CategoryName(category);
    for (int stat = 0; stat < kStatColumns; ++stat)
        headers << StatCaption(stat).chopped(1);
    list->setHeaderLabels(headers);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setSortingEnabled(true);
    list->sortByColumn(0, Qt::AscendingOrder);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void ShowFoundTemplates(QTreeWidget *list, const quorvel::DnaLibrary &library,
                        const std::vector<quorvel::FoundTemplate> &found, const quorvel::FinderSettings &settings,
                        quorvel::LevelEquations equations) {
    list->setSortingEnabled(false);
    list->clear();
    for (std::size_t i = 0; i < found.size(); ++i) {
        const quorvel::FoundTemplate &t = found[i];
        auto *row = new FoundTemplateItem(list);
        const int rank = static_cast<int>(i) + 1;
        SetNumber(row, 0, std::to_string(rank), rank);
        row->setData(0, kIndexRole, rank - 1);
        SetNumber(row, 1, quorvel::FinderScoreText(settings.Goal, t.Score), t.Score);
        SetNumber(row, 2, quorvel::FinderLevelText(t.Level), t.Level);
        for (int category = 0; category < quorvel::kCategoryCount; ++category) {
            const int slot = t.Slots[static_cast<std::size_t>(category)];
            row->setText(kFirstName + category, ToQt(library.Records[static_cast<std::size_t>(slot)].Name));
            row->setToolTip(kFirstName + category, QStringLiteral("Sample %1 of the library").arg(slot));
        }
        const quorvel::StatTexts pet = quorvel::FoundTemplatePet(library, t.Slots, settings.Experimented, equations);
        const quorvel::PetNumbers numbers = quorvel::ReadStatNumbers(pet);
        for (int stat = 0; stat < kStatColumns; ++stat)
            SetNumber(row, kFirstStat + stat, pet[static_cast<std::size_t>(stat)], StatValue(numbers, stat));
    }
    list->setSortingEnabled(true);
}

std::optional<std::size_t> FoundTemplateIndex(const QTreeWidgetItem *row) {
    if (!row)
        return std::nullopt;
    const QVariant index = row->data(0, kIndexRole);
    if (!index.isValid())
        return std::nullopt;
    return static_cast<std::size_t>(index.toInt());
}
