#include "Invariants.h"

#include "DnaFile.h"
#include "Form1.h"
#include "Numeric.h"
#include "PetStats.h"
#include "ProgramState.h"
#include "ReadNumber.h"
#include "ReferenceTables.h"
#include "Skins.h"
#include "TestSupport.h"

#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

using namespace quorvel;

namespace {

QString Q(const std::string &text) {
    return QString::fromStdString(text);
}

constexpr std::size_t kPower = Index(Attribute::Power);

QTreeWidget *ListOf(Form1 &form) {
    return form.findChild<QTreeWidget *>(QStringLiteral("ListView1"));
}

QString LabelText(QWidget *window, const QString &name) {
    auto *label = window->findChild<QLabel *>(name);
    return label ? label->text() : QStringLiteral("<no %1>").arg(name);
}

// The slot a row shows, read from its "#" text as the program reads it.
int RowSlot(const QTreeWidgetItem *item) {
    const auto slot = ToInt16(ReadNumber(item->text(0).toStdString()));
    return slot ? *slot : -1;
}

// A number cell shows the stored value; a row that "New" added shows nothing until edited.
bool NumberCellShows(const QString &cell, int value) {
    const auto read = ToInt16(ReadNumber(cell.toStdString()));
    return read && *read == value;
}

bool WordCellShows(const QString &cell, const std::optional<std::string> &word, bool zero) {
    return cell == Q(word.value_or(std::string())) || (cell.isEmpty() && zero);
}

QString RowDiffers(const QTreeWidgetItem *item, const DnaRecord &r) {
    if (item->text(1) != Q(r.Name))
        return QStringLiteral("name '%1' against '%2'").arg(item->text(1).left(40), Q(r.Name).left(40));
    for (int a = 0; a < kAttributeCount; ++a) {
        if (!NumberCellShows(item->text(a + 2), r.Attributes[static_cast<std::size_t>(a)]))
            return QStringLiteral("column %1 '%2' against %3").arg(a + 2).arg(item->text(a + 2)).arg(r.Attributes[a]);
    }
    if (!NumberCellShows(item->text(12), r.Level))
        return QStringLiteral("level '%1' against %2").arg(item->text(12)).arg(r.Level);
    if (!WordCellShows(item->text(13), PlanetName(r.Planet), r.Planet == 0) ||
        !WordCellShows(item->text(14), OriginName(r.Origin), r.Origin == 0) ||
        !WordCellShows(item->text(15), QualityName(r.Quality), r.Quality == 0.0f))
        return QStringLiteral("words '%1|%2|%3' against %4 %5 %6")
            .arg(item->text(13), item->text(14), item->text(15))
            .arg(r.Planet)
            .arg(r.Origin)
            .arg(static_cast<double>(r.Quality));
    return {};
}

// Where the row that shows `slot` stands, from 1; 0 when none does.
int RowOfSlot(QTreeWidget *list, int slot) {
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        if (RowSlot(list->topLevelItem(row)) == slot)
            return row + 1;
    }
    return 0;
}

} // namespace

bool Invariants::Check(bool ok, const QString &what) {
    ++checks_;
    if (!ok && failure_.isEmpty())
        failure_ = what;
    return ok;
}

void Invariants::Restarted() {
    shown_ = Cleared();
    mayDiffer_.clear();
}

void Invariants::Before(Form1 &form) {
    failure_.clear();
    const ProgramState state(form);
    before_ = state.Template();
    // A store goes to the record SelectedRecord names and to the row at SelectedRow; when
    // that row shows another sample (after a load, say), both rows may show the other's values.
    const DnaLibrary &library = state.Library();
    QTreeWidget *list = ListOf(form);
    QTreeWidgetItem *item = list->topLevelItem(library.SelectedRow - 1);
    const bool coherent = item && RowSlot(item) == library.SelectedRecord && library.SelectedRecord <= library.Count;
    if (!coherent) {
        if (item)
            mayDiffer_.insert(RowSlot(item));
        mayDiffer_.insert(library.SelectedRecord);
    }
}

QString Invariants::After(Form1 &form, unsigned effects) {
    CheckNoModal();
    const QAction *recover = testsupport::ToolbarAction(&form, QStringLiteral("Recover Unsaved Samples"));
    Check(recover && recover->isEnabled() == QFileInfo(ProgramState::RecoveryPath()).isFile(),
          QStringLiteral("\"Recover Unsaved Samples\" is not enabled exactly while there is a recovery file"));
    CheckList(form, effects & Sorted);
    CheckPanels(form, effects);
    if (effects & SessionShown)
        CheckSessionWindow(form);
    return failure_;
}

void Invariants::CheckNoModal() {
    QWidget *modal = QApplication::activeModalWidget();
    Check(!modal, QStringLiteral("a modal window is left open: %1").arg(modal ? modal->windowTitle() : QString()));
    QWidget *popup = QApplication::activePopupWidget();
    Check(!popup, QStringLiteral("a pop-up is left open: %1").arg(popup ? popup->objectName() : QString()));
}

void Invariants::CheckList(Form1 &form, bool sorted) {
    const ProgramState state(form);
    const DnaLibrary &library = state.Library();
    QTreeWidget *list = ListOf(form);
    const int rows = list->topLevelItemCount();
    if (!Check(library.Count >= 0 && library.Count <= kMaxSamples,
               QStringLiteral("the library holds %1 samples").arg(library.Count)) ||
        !Check(rows == library.Count, QStringLiteral("%1 rows for %2 samples").arg(rows).arg(library.Count)))
        return;

    // Every sample has exactly one row, and the row shows it.
    std::vector<bool> seen(static_cast<std::size_t>(library.Count) + 1, false);
    for (int row = 1; row <= rows; ++row) {
        const QTreeWidgetItem *item = list->topLevelItem(row - 1);
        const int slot = RowSlot(item);
        if (!Check(slot >= 1 && slot <= library.Count && !seen[static_cast<std::size_t>(slot)],
                   QStringLiteral("row %1 shows slot '%2' twice or beyond the library").arg(row).arg(item->text(0))))
            return;
        seen[static_cast<std::size_t>(slot)] = true;
        const QString differs = RowDiffers(item, library.Records[static_cast<std::size_t>(slot)]);
        if (differs.isEmpty())
            mayDiffer_.remove(slot);
        else if (!Check(mayDiffer_.contains(slot),
                        QStringLiteral("row %1 (slot %2): %3").arg(row).arg(slot).arg(differs)))
            return;
    }

    // Unsorted rows stand in slot order; right after a header click, in the order of the column's texts.
    QHeaderView *header = list->header();
    if (!state.ListSorted()) {
        for (int row = 1; row <= rows; ++row) {
            if (!Check(
                    RowSlot(list->topLevelItem(row - 1)) == row,
                    QStringLiteral("unsorted row %1 shows slot %2").arg(row).arg(list->topLevelItem(row - 1)->text(0))))
                return;
        }
    } else if (sorted) {
        const int column = header->sortIndicatorSection();
        const bool ascending = header->sortIndicatorOrder() == Qt::AscendingOrder;
        for (int row = 1; row < rows; ++row) {
            const QString a = list->topLevelItem(row - 1)->text(column);
            const QString b = list->topLevelItem(row)->text(column);
            const int order = QString::compare(a, b, Qt::CaseInsensitive);
            if (!Check(ascending ? order <= 0 : order >= 0,
                       QStringLiteral("sorted by column %1, row %2 '%3' stands before '%4'")
                           .arg(column)
                           .arg(row)
                           .arg(a, b)))
                return;
        }
        const int selectedRow = RowOfSlot(list, library.SelectedRecord);
        Check(selectedRow == 0 || selectedRow == library.SelectedRow,
              QStringLiteral("after sorting, the selected slot %1 is in row %2, SelectedRow is %3")
                  .arg(library.SelectedRecord)
                  .arg(selectedRow)
                  .arg(library.SelectedRow));
    }
}

Invariants::PanelTexts Invariants::Cleared() {
    PanelTexts texts;
    texts.label14.fill(QStringLiteral("0 [0]"));
    texts.label14[10].clear();
    texts.label42.fill(QStringLiteral("0%/0%"));
    texts.label23.fill(QStringLiteral("0"));
    return texts;
}

Invariants::PanelTexts Invariants::Read(Form1 &form) {
    PanelTexts texts;
    for (int i = 0; i < 11; ++i) {
        texts.label14[static_cast<std::size_t>(i)] = LabelText(&form, QStringLiteral("Label14_%1").arg(i));
        texts.label23[static_cast<std::size_t>(i)] = LabelText(&form, QStringLiteral("Label23_%1").arg(i));
    }
    for (int i = 0; i < 5; ++i)
        texts.label42[static_cast<std::size_t>(i)] = LabelText(&form, QStringLiteral("Label42_%1").arg(i));
    return texts;
}

// A fresh evaluation of the slots, and the pet of its values. An experimented category keeps
// the values it had when the action came (a category the action itself switched took its caps).
Invariants::PanelTexts Invariants::Evaluation(Form1 &form) const {
    const ProgramState state(form);
    DnaTemplate t = state.Template();
    for (int c = 0; c < kCategoryCount; ++c) {
        if (!t.Experimented[static_cast<std::size_t>(c)])
            continue;
        const ValueArray &from = before_.Experimented[static_cast<std::size_t>(c)] ? before_.Current : before_.Caps;
        t.Current[2 * c] = from[2 * c];
        t.Current[2 * c + 1] = from[2 * c + 1];
    }
    const TemplateEvaluation evaluation = EvaluateTemplate(t);
    const PetPrediction pet = PredictPetStats(t.Current, PredictionSource::Template, state.Equations());
    PanelTexts texts;
    for (std::size_t a = 0; a < 10; ++a)
        texts.label14[a] = Q(evaluation.Label14[a]);
    texts.label14[10] = Q(evaluation.QualityText);
    for (std::size_t c = 0; c < 5; ++c)
        texts.label42[c] = Q(evaluation.Label42[c]);
    for (std::size_t i = 0; i < 11; ++i)
        texts.label23[i] = Q(pet.Labels[i]);
    return texts;
}

void Invariants::CheckPanels(Form1 &form, unsigned effects) {
    const ProgramState state(form);
    PanelTexts expected = shown_;
    if (effects & Evaluated) {
        expected = Evaluation(form);
    } else if (effects & WholeCleared) {
        expected = Cleared();
    } else if (effects & SampleDropped) {
        ValueArray values{};
        const AttributeArray &sample = state.Library().Selected().Attributes;
        std::copy(sample.begin(), sample.end(), values.begin());
        const PetPrediction pet = PredictPetStats(values, PredictionSource::Sample, state.Equations());
        for (std::size_t i = 0; i < 11; ++i)
            expected.label23[i] = Q(pet.Labels[i]);
    }
    const PanelTexts shown = Read(form);
    // The skin box may have raised the level shown since: to the skin's minimum or the last level.
    if (shown.label23[Index(PetStat::Level)] != expected.label23[Index(PetStat::Level)]) {
        auto *skins = form.findChild<QComboBox *>(QStringLiteral("Combo3"));
        const int index = skins->currentIndex();
        const bool chosen = index >= 0 && skins->currentText() == skins->itemText(index);
        const auto level = ApplySkinLevel(chosen ? index : -1, state.LastCreatureLevel());
        if (level && shown.label23[Index(PetStat::Level)] == Q(*level))
            expected.label23[Index(PetStat::Level)] = Q(*level);
    }
    for (std::size_t i = 0; i < 11; ++i) {
        Check(shown.label14[i] == expected.label14[i],
              QStringLiteral("Label14_%1 shows '%2', not '%3'").arg(i).arg(shown.label14[i], expected.label14[i]));
        Check(shown.label23[i] == expected.label23[i],
              QStringLiteral("Label23_%1 shows '%2', not '%3'").arg(i).arg(shown.label23[i], expected.label23[i]));
    }
    for (std::size_t c = 0; c < 5; ++c)
        Check(shown.label42[c] == expected.label42[c],
              QStringLiteral("Label42_%1 shows '%2', not '%3'").arg(c).arg(shown.label42[c], expected.label42[c]));
    shown_ = expected;
}

void Invariants::CheckSessionWindow(Form1 &form) {
    QWidget *window = nullptr;
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QLatin1String("Form5") && w->isVisible())
            window = w;
    }
    if (!Check(window, QStringLiteral("the experimentation window is not open")))
        return;
    const ProgramState state(form);
    const DnaTemplate &t = state.Template();
    const ExperimentSession &s = state.Session();
    const PetPrediction pet = PredictPetStats(t.Current, PredictionSource::Template, state.Equations());
    for (int i = 0; i < 11; ++i) {
        const QString shown = LabelText(window, QStringLiteral("Label23_%1").arg(i));
        Check(shown == Q(pet.Labels[static_cast<std::size_t>(i)]),
              QStringLiteral("ExpSim Label23_%1 shows '%2', not '%3'")
                  .arg(i)
                  .arg(shown, Q(pet.Labels[static_cast<std::size_t>(i)])));
    }
    for (int k = 0; k < 10; ++k) {
        const QString shown = LabelText(window, QStringLiteral("Label14_%1").arg(k));
        const QString text =
            Q(ValueCapText(t.Current[static_cast<std::size_t>(k)], t.Caps[static_cast<std::size_t>(k)]));
        // A Power the drawing has just raised to 113 shows as the minimum; drawn again, as a plain 113.
        Value raised = 0;
        const bool minimum = static_cast<std::size_t>(k) == kPower && t.Current[kPower] == 113 &&
                             shown == Q(PowerCapText(raised, t.Caps[kPower]));
        Check(shown == text || minimum,
              QStringLiteral("ExpSim Label14_%1 shows '%2', not '%3'").arg(k).arg(shown, text));
    }
    // One point at most is placed; the points left are the yellow boxes of the column.
    int green = 0;
    for (const auto &row : s.Rows)
        green += static_cast<int>(std::count(row.begin(), row.end(), BoxColour::Green));
    const int yellow = static_cast<int>(std::count(s.Points.begin(), s.Points.end(), BoxColour::Yellow));
    Check(green == (s.PointPending ? 1 : 0),
          QStringLiteral("%1 green boxes with a point pending: %2").arg(green).arg(s.PointPending));
    Check(yellow == s.RemainingPoints &&
              LabelText(window, QStringLiteral("Label1")) == QString::number(s.RemainingPoints),
          QStringLiteral("%1 yellow point boxes, %2 points left").arg(yellow).arg(s.RemainingPoints));
    auto *run = window->findChild<QPushButton *>(QStringLiteral("Command2"));
    Check(run && run->isEnabled() == s.PointPending,
          QStringLiteral("\"Run Experiment!\" enabled without a point placed"));
}
