// The checks after every action, and the readings that saved and loaded files must give.
#include "Soak.h"

#include "Cp1252.h"
#include "DnaFile.h"
#include "Numeric.h"
#include "PetStats.h"
#include "ReadNumber.h"
#include "ReferenceTables.h"
#include "Skins.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

#include <fstream>

using namespace quorvel;

namespace {

QString Q(const std::string &text) {
    return QString::fromStdString(text);
}

QString Line(const DnaRecord &r) {
    return Q(FormatDnaLine(r, false)).trimmed().left(200);
}

// A number as the program reads it: leniently, when it fits 16 bits.
std::optional<int16_t> Read(const QString &text) {
    return ToInt16(ReadNumber(text.toStdString()));
}

int RowSlot(const QTreeWidgetItem *item) {
    return item ? Read(item->text(0)).value_or(-1) : -1;
}

// A row shows its sample's name, numbers and words; a word cell may stay empty for a 0 (a row
// "New" added shows nothing there until it is edited).
bool RowShows(const QTreeWidgetItem *item, const DnaRecord &r) {
    const auto word = [item](int column, const std::optional<std::string> &name, bool zero) {
        return item->text(column) == Q(name.value_or(std::string())) || (zero && item->text(column).isEmpty());
    };
    bool same = item->text(1) == Q(r.Name) && Read(item->text(12)) == r.Level &&
                word(13, PlanetName(r.Planet), r.Planet == 0) && word(14, OriginName(r.Origin), r.Origin == 0) &&
                word(15, QualityName(r.Quality), r.Quality == 0.0f);
    for (int a = 0; a < kAttributeCount; ++a)
        same = same && Read(item->text(a + 2)) == r.Attributes[std::size_t(a)];
    return same;
}

template <typename Strings> QStringList Texts(const Strings &strings) {
    QStringList texts;
    for (const std::string &text : strings)
        texts << Q(text);
    return texts;
}

QStringList Stats(Soak &s, const ValueArray &values, PredictionSource source) {
    return Texts(PredictPetStats(values, source, s.Model().Equations()).Labels);
}

const QStringList kPanels =
    (Numbered("Label14_", 11) + u' ' + Numbered("Label42_", 5) + u' ' + Numbered("Label23_", 11)).split(u' ');
constexpr int kStats = 16; // where the statistics start among the panels

} // namespace

bool Soak::Check(bool ok, const QString &what) {
    ++checks;
    if (!ok && failure_.isEmpty())
        failure_ = what;
    return ok;
}

// What the samples of `order` read back as from a file the program wrote: the format carries
// a sample whole while its name holds no comma and each number has at most five characters.
Samples Soak::Written(const std::vector<int> &order, bool withWords) {
    Samples back;
    for (const int slot : order) {
        DnaRecord r = Model().Library().Records[std::size_t(slot)];
        if (r.Name.find(',') != std::string::npos) {
            back.foretold = false;
            break;
        }
        if (std::any_of(r.Attributes.begin(), r.Attributes.end(),
                        [](int16_t v) { return FormatWhole(v).size() > 5; })) {
            back.complete = false;
            break;
        }
        r.Name = r.Name.empty() ? FormatWhole(long(back.records.size()) + 1) : Cp1252ToUtf8(Utf8ToCp1252(r.Name));
        r.Quality = withWords ? 0.0f : ToSingle(ReadNumber(FormatSingle(r.Quality)));
        if (withWords)
            r.Planet = r.Origin = 0;
        back.records.push_back(r);
    }
    return back;
}

QString Soak::Differs(const DnaLibrary &library, int base, const Samples &expected) {
    const int n = int(expected.records.size());
    if (expected.foretold ? library.Count != base + n : library.Count < base + n)
        return QStringLiteral("%1 samples, not %2 + %3").arg(library.Count).arg(base).arg(n);
    for (int i = 0; i < n; ++i) {
        const DnaRecord &a = library.Records[std::size_t(base + i + 1)];
        const DnaRecord &b = expected.records[std::size_t(i)];
        if (a.Name != b.Name || a.Attributes != b.Attributes || a.Level != b.Level || a.Planet != b.Planet ||
            a.Origin != b.Origin || a.Quality != b.Quality)
            return QStringLiteral("slot %1 holds '%2', not '%3'").arg(base + i + 1).arg(Line(a), Line(b));
    }
    return {};
}

void Soak::CheckFile(const QString &path, const Samples &expected) {
    std::ifstream in(QFile::encodeName(path).toStdString(), std::ios::binary);
    auto library = std::make_unique<DnaLibrary>();
    const bool whole = in.is_open() && LoadDnaStream(in, *library, nullptr) == LoadEnd::Complete;
    const QString differs = Differs(*library, 0, expected);
    Check(differs.isEmpty() && (!expected.foretold || whole == expected.complete),
          QStringLiteral("%1 reads back %2: %3").arg(path, QLatin1String(whole ? "whole" : "cut short"), differs));
}

void Soak::Before() {
    failure_.clear();
    before_ = Model().Template();
    // A store goes to the record SelectedRecord names and to the row at SelectedRow; when that
    // row shows another sample (after a load, say), both rows may show the other's values.
    const DnaLibrary &library = Model().Library();
    const int rowSlot = RowSlot(List()->topLevelItem(library.SelectedRow - 1));
    if (rowSlot != library.SelectedRecord || library.SelectedRecord > library.Count)
        mayDiffer_ << rowSlot << library.SelectedRecord;
}

namespace {

void CheckTexts(Soak &s, QWidget *window, const QStringList &names, const QStringList &expected) {
    for (int i = 0; i < names.size(); ++i) {
        const QString shown = testsupport::TextOf(window, names[i]);
        s.Check(shown == expected[i], QStringLiteral("%1 shows '%2', not '%3'").arg(names[i], shown, expected[i]));
    }
}

// Every sample has one row, which shows it; unsorted rows stand in slot order, and right after
// a header click in the order of the column's texts.
void CheckList(Soak &s, bool sorted) {
    const DnaLibrary &library = s.Model().Library();
    QTreeWidget *list = s.List();
    const int rows = list->topLevelItemCount();
    if (!s.Check(library.Count >= 0 && library.Count <= kMaxSamples && rows == library.Count,
                 QStringLiteral("%1 rows for %2 samples").arg(rows).arg(library.Count)))
        return;
    std::vector<bool> seen(std::size_t(rows) + 1);
    const QHeaderView *header = list->header();
    const int column = header->sortIndicatorSection();
    const int order = header->sortIndicatorOrder() == Qt::AscendingOrder ? 1 : -1;
    for (int row = 1; row <= rows; ++row) {
        const QTreeWidgetItem *item = list->topLevelItem(row - 1);
        const int slot = RowSlot(item);
        if (!s.Check(slot >= 1 && slot <= rows && !seen[std::size_t(slot)] && (s.Model().Sort().Sorted || slot == row),
                     QStringLiteral("row %1 shows slot '%2'").arg(row).arg(item->text(0))))
            return;
        seen[std::size_t(slot)] = true;
        const DnaRecord &r = library.Records[std::size_t(slot)];
        if (RowShows(item, r))
            s.mayDiffer_.remove(slot);
        else if (!s.Check(s.mayDiffer_.contains(slot),
                          QStringLiteral("row %1 does not show slot %2 '%3'").arg(row).arg(slot).arg(Line(r))))
            return;
        const QString next = row < rows ? list->topLevelItem(row)->text(column) : QString();
        if (sorted && row < rows &&
            !s.Check(order * QString::compare(item->text(column), next, Qt::CaseInsensitive) <= 0,
                     QStringLiteral("sorted by column %1, '%2' stands before '%3'")
                         .arg(QString::number(column), item->text(column), next)))
            return;
    }
    s.Check(!sorted || library.SelectedRecord < 1 || library.SelectedRecord > rows ||
                RowSlot(list->topLevelItem(library.SelectedRow - 1)) == library.SelectedRecord,
            QString::asprintf("after sorting, SelectedRow %d does not show slot %d", library.SelectedRow,
                              library.SelectedRecord));
}

QStringList Empty() {
    return QStringList(10, QStringLiteral("0 [0]"))
           << QString() << QStringList(5, QStringLiteral("0%/0%")) << QStringList(11, QStringLiteral("0"));
}

// The panels show what the last action that drew them computed: a fresh evaluation of the
// slots and the pet of its values, where an experimented category keeps the values it had
// before the action (a category the action switched over took its caps); or the selected
// sample's pet. The skin box may have raised the level shown since, to the skin's minimum or
// the last level.
void CheckPanels(Soak &s, unsigned effects) {
    QStringList expected = effects & Cleared ? Empty() : s.shown_;
    if (effects & Evaluated) {
        DnaTemplate t = s.Model().Template();
        for (std::size_t c = 0; c < kCategoryCount; ++c) {
            const ValueArray &from = s.before_.Experimented[c] ? s.before_.Current : s.before_.Caps;
            for (std::size_t a = 2 * c; t.Experimented[c] && a <= 2 * c + 1; ++a)
                t.Current[a] = from[a];
        }
        const TemplateEvaluation evaluation = EvaluateTemplate(t);
        expected = Texts(evaluation.Label14) << Q(evaluation.QualityText) << Texts(evaluation.Label42)
                                             << Stats(s, t.Current, PredictionSource::Template);
    }
    if (effects & SampleShown) {
        ValueArray values{};
        std::copy_n(s.Model().Library().Selected().Attributes.begin(), kAttributeCount, values.begin());
        expected = expected.mid(0, kStats) + Stats(s, values, PredictionSource::Sample);
    }
    const auto *skins = s.In<QComboBox>("Form1", "Combo3");
    const bool chosen = skins->currentIndex() >= 0 && skins->currentText() == skins->itemText(skins->currentIndex());
    const auto skinLevel = ApplySkinLevel(chosen ? skins->currentIndex() : -1, s.Model().LastCreatureLevel());
    const int level = kStats + int(Index(PetStat::Level));
    if (skinLevel && s.In<QLabel>("Form1", kPanels[level])->text() == Q(*skinLevel))
        expected[level] = Q(*skinLevel);
    CheckTexts(s, &s.Main(), kPanels, expected);
    s.shown_ = expected;
}

// The session's boxes: one green box at most, for the point placed, and a yellow box for each
// point left; drawn afresh, the window shows the template's values and their pet.
void CheckSession(Soak &s, bool drawn) {
    QWidget *window = Soak::Open("Form5");
    const ExperimentSession &session = s.Model().Session();
    const DnaTemplate &t = s.Model().Template();
    int green = 0;
    for (const auto &row : session.Rows)
        green += int(std::count(row.begin(), row.end(), BoxColour::Green));
    const int yellow = int(std::count(session.Points.begin(), session.Points.end(), BoxColour::Yellow));
    s.Check(green == int(session.PointPending) && yellow == session.RemainingPoints &&
                testsupport::TextOf(window, QStringLiteral("Label1")) == QString::number(session.RemainingPoints) &&
                s.In<QPushButton>("Form5", "Command2")->isEnabled() == session.PointPending,
            QString::asprintf("%d green and %d yellow boxes for %d points left, pending %d", green, yellow,
                              session.RemainingPoints, int(session.PointPending)));
    if (!drawn)
        return;
    QStringList expected = Stats(s, t.Current, PredictionSource::Template);
    for (std::size_t k = 0; k < t.Current.size(); ++k)
        expected << Q(ValueCapText(t.Current[k], t.Caps[k]));
    // A Power the drawing has just raised to 113 shows as the minimum; drawn again, as a plain 113.
    const std::size_t power = Index(Attribute::Power);
    Value raised = 0;
    const QString minimum = Q(PowerCapText(raised, t.Caps[power]));
    if (t.Current[power] == 113 && testsupport::TextOf(window, QStringLiteral("Label14_9")) == minimum)
        expected.last() = minimum;
    CheckTexts(s, window, (Numbered("Label23_", 11) + u' ' + Numbered("Label14_", 10)).split(u' '), expected);
}

} // namespace

void Soak::After(unsigned effects) {
    QWidget *left =
        QApplication::activeModalWidget() ? QApplication::activeModalWidget() : QApplication::activePopupWidget();
    Check(!left, QStringLiteral("'%1' is left open").arg(left ? left->windowTitle() + left->objectName() : QString()));
    const QAction *recover = testsupport::ToolbarAction(&Main(), QStringLiteral("Recover Unsaved Samples"));
    Check(recover->isEnabled() == QFileInfo(RecoveryPath()).isFile(),
          QStringLiteral("\"Recover Unsaved Samples\" is not enabled exactly while there is a recovery file"));
    CheckList(*this, effects & Sorted);
    CheckPanels(*this, effects);
    if (Open("Form5"))
        CheckSession(*this, effects & SessionShown);
}

void Soak::Restarted() {
    shown_ = Empty();
    mayDiffer_.clear();
}
