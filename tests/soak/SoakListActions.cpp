// The DNA list, the template's category boxes and the experimentation session.
#include "SoakRun.h"

#include "Form1.h"
#include "ProgramState.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

using namespace quorvel;

namespace {

constexpr std::array<const char *, 5> kMenuEntries{"m_phys", "m_prow", "m_ment", "m_psych", "m_aggro"};

} // namespace

void SoakRun::AddListActions() {
    const auto rows = [this] { return ListShown(); };
    Add(
        "header click", 4, [this] { return List()->isVisible(); },
        [this] {
            const int column = 1 + Below(15);
            QTreeWidget *list = List();
            if (list->topLevelItemCount() > 0)
                list->scrollTo(list->model()->index(0, column));
            QHeaderView *header = list->header();
            const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
            Say(QStringLiteral("column %1").arg(column));
            if (header->sectionSize(column) < 2 || x < 0 || x >= header->viewport()->width())
                return unsigned(NoEffect);
            testsupport::ClickHeader(list, column);
            checks_.Check(ProgramState(Main()).ListSorted(), QStringLiteral("a header click left the list unsorted"));
            return unsigned(Sorted);
        });
    Add(
        "No Sort", 2, [] { return true; },
        [this] {
            ClickToolbar(QStringLiteral("No Sort"));
            return unsigned(NoEffect);
        });
    Add("pick a row", 10, rows, [this] {
        const int row = 1 + Below(List()->topLevelItemCount());
        const int slot = List()->topLevelItem(row - 1)->text(0).toInt();
        Say(QStringLiteral("row %1").arg(row));
        testsupport::ClickRow(List(), row);
        const DnaLibrary &library = ProgramState(Main()).Library();
        checks_.Check(library.SelectedRecord == slot && library.SelectedRow == row,
                      QStringLiteral("picking row %1 selected slot %2 row %3")
                          .arg(row)
                          .arg(library.SelectedRecord)
                          .arg(library.SelectedRow));
        // The editor shows the sample picked.
        for (int a = 0; a < kAttributeCount; ++a) {
            const QString shown = In<QLineEdit>(&Main(), QStringLiteral("Text1_%1").arg(a))->text();
            checks_.Check(shown == QString::number(library.Selected().Attributes[static_cast<std::size_t>(a)]),
                          QStringLiteral("the editor shows '%1' for attribute %2").arg(shown).arg(a));
        }
        return unsigned(NoEffect);
    });
    Add("send to by menu", 6, rows, [this] {
        const int row = 1 + Below(List()->topLevelItemCount());
        testsupport::ClickRow(List(), row, Qt::RightButton);
        auto *menu = In<QMenu>(&Main(), QStringLiteral("m_test"));
        if (!checks_.Check(menu->isVisible(), QStringLiteral("no menu after a right click")))
            return unsigned(NoEffect);
        if (Chance(15)) {
            Say(QStringLiteral("row %1, menu dismissed").arg(row));
            QTest::keyClick(menu, Qt::Key_Escape);
            return unsigned(NoEffect);
        }
        const int category = Below(5);
        Say(QStringLiteral("row %1 to category %2").arg(row).arg(category));
        menu->findChild<QAction *>(QLatin1String(kMenuEntries[static_cast<std::size_t>(category)]))->trigger();
        menu->hide();
        const ProgramState state(Main());
        checks_.Check(state.Template().Slots[static_cast<std::size_t>(category)].Name ==
                          state.Library().Selected().Name,
                      QStringLiteral("the menu did not send the selected sample"));
        return unsigned(Evaluated);
    });
    Add("double-click a row", 4, rows, [this] {
        const int row = 1 + Below(List()->topLevelItemCount());
        const bool room = FirstFreeCategory(ProgramState(Main()).Template()).has_value();
        Say(QStringLiteral("row %1").arg(row));
        testsupport::DoubleClickRow(List(), row);
        return unsigned(room ? Evaluated : NoEffect);
    });
    Add("drag a row to a category", 4, rows, [this] {
        const int row = 1 + Below(List()->topLevelItemCount());
        const int category = Below(5);
        testsupport::ClickRow(List(), row);
        const bool onList = Chance(50);
        Say(QStringLiteral("row %1 onto %2 %3")
                .arg(row)
                .arg(onList ? QLatin1String("list") : QLatin1String("box"))
                .arg(category));
        if (onList)
            testsupport::DropOn(In<QListWidget>(&Main(), QStringLiteral("List1_%1").arg(category))->viewport());
        else
            testsupport::DropOn(In<QWidget>(&Main(), QStringLiteral("Picture1_%1").arg(category)));
        return unsigned(Evaluated);
    });
    // A person building a template sends five samples one after the other.
    Add("fill the template", 5, rows, [this] {
        for (int c = 0; c < 5; ++c) {
            const int row = 1 + Below(List()->topLevelItemCount());
            testsupport::ClickRow(List(), row);
            if (Chance(70))
                testsupport::DropOn(In<QWidget>(&Main(), QStringLiteral("Picture1_%1").arg(c)));
            else
                testsupport::SendToCategory(&Main(), row, c);
            Say(QStringLiteral("row %1").arg(row));
        }
        checks_.Check(In<QPushButton>(&Main(), QStringLiteral("Command7"))->isEnabled(),
                      QStringLiteral("a full template leaves \"Simulate Exp. Session\" disabled"));
        return unsigned(Evaluated);
    });
    Add(
        "drop on the prediction label", 2, [this] { return Reachable(In<QWidget>(&Main(), QStringLiteral("Label3"))); },
        [this] {
            if (ListShown() && Chance(70))
                testsupport::ClickRow(List(), 1 + Below(List()->topLevelItemCount()));
            testsupport::DropOn(In<QWidget>(&Main(), QStringLiteral("Label3")));
            return unsigned(SampleDropped);
        });
}

void SoakRun::AddTemplateActions() {
    Add(
        "empty a category", 3, [] { return true; },
        [this] {
            const int category = Below(5);
            QWidget *viewport = In<QListWidget>(&Main(), QStringLiteral("List1_%1").arg(category))->viewport();
            Say(QStringLiteral("category %1").arg(category));
            QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, viewport->rect().center());
            return unsigned(Evaluated);
        });
    Add(
        "toggle +", 4, [] { return true; },
        [this] {
            const int category = Below(5);
            auto *button = In<QPushButton>(&Main(), QStringLiteral("Command2_%1").arg(category));
            const bool enabled = button->isEnabled();
            Say(QStringLiteral("category %1%2").arg(category).arg(enabled ? QString() : QStringLiteral(", disabled")));
            testsupport::ClickWidget(button);
            return unsigned(enabled ? Evaluated : NoEffect);
        });
    Add(
        "Clear", 1, [] { return true; },
        [this] {
            ClickToolbar(QStringLiteral("Clear"));
            return unsigned(WholeCleared);
        });
    Add(
        "Clear Experiment", 1, [] { return true; },
        [this] {
            auto *button = In<QPushButton>(&Main(), QStringLiteral("Command6"));
            const bool enabled = button->isEnabled();
            testsupport::ClickWidget(button);
            return unsigned(enabled ? Evaluated : NoEffect);
        });
    Add(
        "Simulate Exp. Session", 3, [] { return true; },
        [this] {
            auto *button = In<QPushButton>(&Main(), QStringLiteral("Command7"));
            const bool enabled = button->isEnabled();
            const bool opens = !Open("Form5");
            testsupport::ClickWidget(button);
            return unsigned(enabled ? (Evaluated | (opens ? unsigned(SessionShown) : 0u)) : NoEffect);
        });
    Add(
        "E", 2, [this] { return Reachable(In<QWidget>(&Main(), QStringLiteral("Command8"))); },
        [this] {
            const bool opens = !Open("Form5");
            if (ListShown() && Chance(50))
                testsupport::ClickRow(List(), 1 + Below(List()->topLevelItemCount()));
            testsupport::ClickWidget(In<QPushButton>(&Main(), QStringLiteral("Command8")));
            return unsigned(Evaluated | (opens ? unsigned(SessionShown) : 0u));
        });
}

void SoakRun::AddSessionActions() {
    const auto open = [] { return Open("Form5") != nullptr; };
    Add("click a session box", 12, open, [this] {
        QWidget *window = Open("Form5");
        const int category = Below(5);
        const int box = Below(10);
        auto *target = In<QWidget>(window, QStringLiteral("Picture%1_%2").arg(5 + category).arg(box));
        Say(QStringLiteral("category %1 box %2").arg(category).arg(box));
        if (!target->isVisible())
            return unsigned(NoEffect);
        const ExperimentSession before = ProgramState(Main()).Session();
        const BoxColour colour = before.Rows[static_cast<std::size_t>(category)][static_cast<std::size_t>(box)];
        testsupport::ClickWidget(target);
        const ExperimentSession &after = ProgramState(Main()).Session();
        int change = 0;
        if (before.RemainingPoints > 0 && !before.PointPending && colour == BoxColour::White)
            change = -1;
        else if (before.RemainingPoints > 0 && colour == BoxColour::Green)
            change = 1;
        checks_.Check(after.RemainingPoints == before.RemainingPoints + change &&
                          after.PointPending == (change == 0 ? before.PointPending : change < 0),
                      QStringLiteral("a click on a box left %1 points, pending %2")
                          .arg(after.RemainingPoints)
                          .arg(after.PointPending));
        return unsigned(NoEffect);
    });
    Add("Run Experiment!", 5, open, [this] {
        auto *run = In<QPushButton>(Open("Form5"), QStringLiteral("Command2"));
        const bool enabled = run->isEnabled();
        const ProgramState state(Main());
        const int c = static_cast<int>(Index(state.Session().PendingCategory));
        const DnaTemplate before = state.Template();
        testsupport::ClickWidget(run);
        const DnaTemplate &after = state.Template();
        // A point never takes a value beyond its cap. (With negative values in the pair the
        // shares of the 140 can be negative too: such a value may also go down.)
        for (int a = 2 * c; enabled && a <= 2 * c + 1; ++a) {
            const Value old = before.Current[static_cast<std::size_t>(a)];
            const Value cap = after.Caps[static_cast<std::size_t>(a)];
            const Value now = after.Current[static_cast<std::size_t>(a)];
            checks_.Check(now <= std::max(old, std::max<Value>(cap, 113)),
                          QStringLiteral("a point took attribute %1 from %2 to %3 with cap %4")
                              .arg(a)
                              .arg(old)
                              .arg(now)
                              .arg(cap));
        }
        return unsigned(enabled ? SessionShown : NoEffect);
    });
    Add("Reset", 1, open, [this] {
        auto *reset = In<QPushButton>(Open("Form5"), QStringLiteral("Command3"));
        const bool enabled = reset->isEnabled();
        testsupport::ClickWidget(reset);
        return unsigned(enabled ? SessionShown : NoEffect);
    });
    Add("Done Experimenting", 2, open, [this] {
        QWidget *window = Open("Form5");
        if (Chance(70))
            testsupport::ClickWidget(In<QPushButton>(window, QStringLiteral("Command1")));
        else
            window->close();
        checks_.Check(!Main().isMinimized(), QStringLiteral("the main window stays minimised after the session"));
        return unsigned(NoEffect);
    });
    Add("session always on top", 1, open, [this] {
        testsupport::ClickWidget(In<QWidget>(Open("Form5"), QStringLiteral("Check1")));
        return unsigned(NoEffect);
    });
}
