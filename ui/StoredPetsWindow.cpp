#include "StoredPetsWindow.h"

#include "AppModel.h"
#include "Captions.h"
#include "ModelHub.h"
#include "Numeric.h"
#include "PetCommands.h"
#include "PetNumbers.h"
#include "Twips.h"
#include "UiText.h"
#include "WholeFile.h"
#include "Widgets.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QUndoStack>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>

using namespace quorvel;

namespace {

constexpr int kPetRole = Qt::UserRole;        // the pet's place in the model's list, on the name cell
constexpr int kNumberRole = Qt::UserRole + 1; // a statistic's number, for sorting
constexpr int kFixedColumns = 3;              // name, source, date
const QColor kBetterColour(0, 128, 0);
const QColor kWorseColour(192, 0, 0);

QString NumberText(double value) {
    return ShownNumber(FormatDouble(value));
}

// A statistic's cell: its number as the windows write numbers, sorted by value; a cell with no
// number (no level) sorts before every number.
class NumberItem final : public QTableWidgetItem {
public:
    explicit NumberItem(std::optional<double> value) {
        if (value) {
            setText(NumberText(*value));
            setData(kNumberRole, *value);
        }
        setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }

    bool operator<(const QTableWidgetItem &other) const override {
        const QVariant mine = data(kNumberRole);
        const QVariant theirs = other.data(kNumberRole);
        if (!mine.isValid() || !theirs.isValid())
            return !mine.isValid() && theirs.isValid();
        return mine.toDouble() < theirs.toDouble();
    }
};

QTableWidget *MakeTable(QWidget *parent, const QString &name, const QStringList &headers) {
    auto *table = new QTableWidget(0, static_cast<int>(headers.size()), parent);
    table->setObjectName(name);
    table->setHorizontalHeaderLabels(headers);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->verticalHeader()->setVisible(false);
    return table;
}

QPushButton *MakeButton(QWidget *parent, QBoxLayout *row, const QString &name, const QString &caption) {
    auto *button = new QPushButton(caption, parent);
    button->setObjectName(name);
    row->addWidget(button);
    return button;
}

} // namespace

StoredPetsWindow::StoredPetsWindow(AppModel &model, ModelHub &hub, QUndoStack &undo, QString folder, QWidget *parent)
    : QWidget(parent), model_(model), undo_(undo), folder_(std::move(folder)) {
    SetUpSecondaryWindow(this, QStringLiteral("StoredPetsWindow"), QStringLiteral("Stored Pets"));
    resize(TwipsToPx(14400), TwipsToPx(8400)); // 960 x 560 px at 100 %

    QStringList headers = {QStringLiteral("Name"), QStringLiteral("Source"), QStringLiteral("Date")};
    for (const char *column : PetColumnNames)
        headers.append(QString::fromLatin1(column));
    table_ = MakeTable(this, QStringLiteral("storedPetsTable"), headers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    // The stored order until a header is clicked.
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    table_->setSortingEnabled(true);

    comparison_ = MakeTable(this, QStringLiteral("storedPetsComparison"), {});
    comparison_->setRowCount(kPetColumnCount);
    comparison_->setColumnCount(3);
    comparison_->verticalHeader()->setVisible(true);
    QStringList statistics;
    for (const char *column : PetColumnNames)
        statistics.append(QString::fromLatin1(column));
    comparison_->setVerticalHeaderLabels(statistics);
    comparison_->setSelectionMode(QAbstractItemView::NoSelection);

    auto *buttons = new QHBoxLayout;
    rename_ = MakeButton(this, buttons, QStringLiteral("storedPetsRename"), QStringLiteral("Rename"));
    delete_ = MakeButton(this, buttons, QStringLiteral("storedPetsDelete"), QStringLiteral("Delete"));
    undoButton_ = MakeButton(this, buttons, QStringLiteral("storedPetsUndo"), QStringLiteral("Undo"));
    use_ = MakeButton(this, buttons, QStringLiteral("storedPetsUse"), QStringLiteral("Use"));
    export_ = MakeButton(this, buttons, QStringLiteral("storedPetsExport"), QStringLiteral("Export"));
    buttons->addStretch();
    delete_->setShortcut(QKeySequence::Delete);
    undoButton_->setShortcut(QKeySequence::Undo);
    use_->setToolTip(QStringLiteral("Put the pet's samples back into the template"));

    message_ = new QLabel(this);
    message_->setObjectName(QStringLiteral("storedPetsMessage"));
    message_->setWordWrap(true);

    auto *tables = new QHBoxLayout;
    tables->addWidget(table_, 1);
    tables->addWidget(comparison_);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(tables, 1);
    layout->addLayout(buttons);
    layout->addWidget(message_);

    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        ShowComparison();
        EnableButtons();
    });
    // The pet in the higher row is the first one, also after a sort.
    connect(table_->model(), &QAbstractItemModel::layoutChanged, this, &StoredPetsWindow::ShowComparison);
    connect(rename_, &QPushButton::clicked, this, &StoredPetsWindow::RenamePet);
    connect(delete_, &QPushButton::clicked, this, &StoredPetsWindow::DeletePets);
    connect(undoButton_, &QPushButton::clicked, &undo_, &QUndoStack::undo);
    connect(use_, &QPushButton::clicked, this, &StoredPetsWindow::UsePet);
    connect(export_, &QPushButton::clicked, this, &StoredPetsWindow::ExportPets);
    connect(&undo_, &QUndoStack::canUndoChanged, undoButton_, &QPushButton::setEnabled);
    connect(&hub, &ModelHub::storedPetsChanged, this, &StoredPetsWindow::ShowPets);
    ShowPets();
}

void StoredPetsWindow::ShowPets() {
    const std::vector<StoredPet> &pets = model_.StoredPets();
    // A rename keeps the chosen rows; a pet more or less starts with none chosen.
    const std::vector<std::size_t> chosen =
        static_cast<std::size_t>(table_->rowCount()) == pets.size() ? SelectedPets() : std::vector<std::size_t>{};
    table_->setSortingEnabled(false);
    table_->clearSelection();
    table_->setRowCount(static_cast<int>(pets.size()));
    for (std::size_t i = 0; i < pets.size(); ++i) {
        const StoredPet &pet = pets[i];
        const int row = static_cast<int>(i);
        auto *name = new QTableWidgetItem(ToQt(pet.Name));
        name->setData(kPetRole, static_cast<qulonglong>(i));
        table_->setItem(row, 0, name);
        table_->setItem(row, 1,
                        new QTableWidgetItem(pet.Source == PetSource::Template ? QStringLiteral("Template")
                                                                               : QStringLiteral("Sample")));
        table_->setItem(row, 2, new QTableWidgetItem(ToQt(pet.Date).replace(QLatin1Char('T'), QLatin1Char(' '))));
        const PetNumbers numbers = ReadPetNumbers(pet);
        for (int column = 0; column < kPetColumnCount; ++column)
            table_->setItem(row, kFixedColumns + column, new NumberItem(numbers[column]));
    }
    table_->setSortingEnabled(true);
    for (int row = 0; row < table_->rowCount(); ++row) {
        const auto pet = static_cast<std::size_t>(table_->item(row, 0)->data(kPetRole).toULongLong());
        if (std::find(chosen.begin(), chosen.end(), pet) != chosen.end())
            table_->selectionModel()->select(table_->model()->index(row, 0),
                                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    table_->resizeColumnsToContents();
    ShowComparison();
    EnableButtons();
}

std::vector<std::size_t> StoredPetsWindow::SelectedPets() const {
    QModelIndexList rows = table_->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end(), [](const QModelIndex &a, const QModelIndex &b) { return a.row() < b.row(); });
    std::vector<std::size_t> pets;
    for (const QModelIndex &row : rows)
        pets.push_back(static_cast<std::size_t>(table_->item(row.row(), 0)->data(kPetRole).toULongLong()));
    return pets;
}

void StoredPetsWindow::ShowComparison() {
    const std::vector<std::size_t> chosen = SelectedPets();
    comparison_->clearContents();
    if (chosen.size() != 2) {
        comparison_->setHorizontalHeaderLabels(
            {QStringLiteral("First pet"), QStringLiteral("Second pet"), QStringLiteral("Difference")});
        FitComparison();
        return;
    }
    const StoredPet &first = model_.StoredPets().at(chosen[0]);
    const StoredPet &second = model_.StoredPets().at(chosen[1]);
    comparison_->setHorizontalHeaderLabels({ToQt(first.Name), ToQt(second.Name), QStringLiteral("Difference")});
    const PetNumbers a = ReadPetNumbers(first);
    const PetNumbers b = ReadPetNumbers(second);
    const auto differences = ComparePets(first, second);
    for (int row = 0; row < kPetColumnCount; ++row) {
        comparison_->setItem(row, 0, new NumberItem(a[row]));
        comparison_->setItem(row, 1, new NumberItem(b[row]));
        const PetDifference &d = differences[row];
        auto *difference = new NumberItem(d.Difference);
        if (d.Difference && *d.Difference > 0)
            difference->setText(QLatin1Char('+') + difference->text());
        if (d.Verdict == Verdict::Better)
            difference->setForeground(kBetterColour);
        else if (d.Verdict == Verdict::Worse)
            difference->setForeground(kWorseColour);
        comparison_->setItem(row, 2, difference);
    }
    FitComparison();
}

// The comparison is as wide as its three columns, so that both pets and the difference show
// side by side; the table of all pets takes the rest of the window.
void StoredPetsWindow::FitComparison() {
    comparison_->resizeColumnsToContents();
    comparison_->setFixedWidth(comparison_->verticalHeader()->sizeHint().width() +
                               comparison_->horizontalHeader()->length() + 2 * comparison_->frameWidth());
}

void StoredPetsWindow::EnableButtons() {
    const std::vector<std::size_t> chosen = SelectedPets();
    const bool one = chosen.size() == 1;
    rename_->setEnabled(one);
    delete_->setEnabled(!chosen.empty());
    use_->setEnabled(one && model_.StoredPets().at(chosen[0]).Source == PetSource::Template);
    export_->setEnabled(!model_.StoredPets().empty());
    undoButton_->setEnabled(undo_.canUndo());
}

void StoredPetsWindow::RenamePet() {
    const std::vector<std::size_t> chosen = SelectedPets();
    if (chosen.size() != 1)
        return;
    QInputDialog dialog(this);
    dialog.setObjectName(QStringLiteral("RenamePetDialog"));
    dialog.setWindowTitle(QStringLiteral("Rename"));
    dialog.setLabelText(QStringLiteral("Name of the pet:"));
    dialog.setTextValue(ToQt(model_.StoredPets().at(chosen[0]).Name));
    const QString name = dialog.exec() == QDialog::Accepted ? dialog.textValue().trimmed() : QString();
    if (!name.isEmpty())
        undo_.push(new RenamePetCommand(model_, chosen[0], FromQt(name)));
}

void StoredPetsWindow::DeletePets() {
    std::vector<std::size_t> chosen = SelectedPets();
    if (chosen.empty())
        return;
    // From the back, so that each removal leaves the places of the others as they are.
    std::sort(chosen.rbegin(), chosen.rend());
    auto *removal = new QUndoCommand(QStringLiteral("Delete"));
    for (const std::size_t pet : chosen)
        new RemovePetCommand(model_, pet, removal);
    undo_.push(removal);
    message_->setText(chosen.size() == 1 ? QStringLiteral("1 pet deleted.")
                                         : QStringLiteral("%1 pets deleted.").arg(chosen.size()));
}

void StoredPetsWindow::UsePet() {
    const std::vector<std::size_t> chosen = SelectedPets();
    if (chosen.size() != 1)
        return;
    // A copy: the template's changes reach the windows, which may read the list meanwhile.
    const StoredPet pet = model_.StoredPets().at(chosen[0]);
    const std::vector<Category> missing = model_.UseStoredPet(chosen[0]);
    if (missing.empty()) {
        message_->setText(QStringLiteral("The samples of \"%1\" are in the template.").arg(ToQt(pet.Name)));
        return;
    }
    QStringList parts;
    for (const Category category : missing) {
        parts.append(QStringLiteral("%1 \"%2\"").arg(CategoryName(category), ToQt(pet.Samples[Index(category)].Name)));
    }
    message_->setText(
        QStringLiteral("Not in the library: %1. The template is unchanged.").arg(parts.join(QStringLiteral(", "))));
}

void StoredPetsWindow::ExportPets() {
    QFileDialog dialog(this, QStringLiteral("Export Stored Pets"), folder_, QStringLiteral("CSV (*.csv)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("csv"));
    const int answer = dialog.exec();
    activateWindow();
    if (answer != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().constFirst();
    const QString failure = WriteWholeFile(path, ExportStoredPets(model_.StoredPets()));
    message_->setText(failure.isEmpty() ? QStringLiteral("Exported to %1.").arg(path)
                                        : QStringLiteral("Could not export to %1: %2").arg(path, failure));
}
