// Typing samples: the editor below the DNA list and the Add DNA window.
#include "SoakRun.h"

#include "Form1.h"
#include "Numeric.h"
#include "ProgramState.h"
#include "ReadNumber.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace quorvel;

namespace {

// What a number box stores: its text read leniently, when it fits 16 bits.
std::optional<int16_t> Stored(const QLineEdit *box) {
    return ToInt16(ReadNumber(box->text().toStdString()));
}

QString BoxName(int box) {
    return QStringLiteral("Text1_%1").arg(box);
}

} // namespace

void SoakRun::AddEditorActions() {
    const auto always = [] { return true; };
    Add("type in the editor", 12, always, [this] {
        const int box = Below(12);
        TypeInto(In<QLineEdit>(&Main(), BoxName(box)), box == 10 ? NameText() : NumberText());
        return unsigned(NoEffect);
    });
    Add("Enter or Tab in the editor", 3, always, [this] {
        auto *box = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        if (!box || box->window() != &Main() || !box->objectName().startsWith(QLatin1String("Text1_")))
            box = In<QLineEdit>(&Main(), BoxName(Below(12)));
        box->setFocus(Qt::MouseFocusReason);
        const bool enter = Chance(70);
        Say(QStringLiteral("%1 in %2").arg(enter ? QLatin1String("Enter") : QLatin1String("Tab"), box->objectName()));
        QTest::keyClick(box, enter ? Qt::Key_Return : Qt::Key_Tab);
        return unsigned(NoEffect);
    });
    Add("Edit", 4, always, [this] {
        auto *edit = In<QPushButton>(&Main(), QStringLiteral("Command3"));
        const bool enabled = edit->isEnabled();
        const DnaRecord before = ProgramState(Main()).Library().Selected();
        testsupport::ClickWidget(edit);
        const DnaRecord &after = ProgramState(Main()).Library().Selected();
        checks_.Check(!enabled || ProgramState(Main()).LibraryChanged(),
                      QStringLiteral("Edit left the library unchanged"));
        for (int box = 0; enabled && box < 12; ++box) {
            const auto *text = In<QLineEdit>(&Main(), BoxName(box));
            if (box == 10) {
                checks_.Check(after.Name == text->text().toStdString(), QStringLiteral("Edit did not store the name"));
                continue;
            }
            const int16_t old = box == 11 ? before.Level : before.Attributes[static_cast<std::size_t>(box)];
            const int16_t now = box == 11 ? after.Level : after.Attributes[static_cast<std::size_t>(box)];
            checks_.Check(
                now == Stored(text).value_or(old),
                QStringLiteral("Edit stored %1 from '%2' (was %3)").arg(now).arg(text->text().left(30)).arg(old));
        }
        return unsigned(NoEffect);
    });
    Add("New", 3, always, [this] {
        const int count = ProgramState(Main()).Library().Count;
        answer_.Begin();
        testsupport::ClickWidget(In<QPushButton>(&Main(), QStringLiteral("Command4")));
        const ProgramState state(Main());
        const DnaLibrary &library = state.Library();
        if (count == kMaxSamples) {
            checks_.Check(library.Count == count && answer_.SawBox(QStringLiteral("New DNA")),
                          QStringLiteral("New in a full library"));
            return unsigned(NoEffect);
        }
        const DnaRecord &record = library.Records[static_cast<std::size_t>(library.Count)];
        checks_.Check(
            library.Count == count + 1 && library.SelectedRecord == library.Count &&
                library.SelectedRow == library.Count && !state.ListSorted() && record.Name == "New DNA" &&
                record.Attributes == AttributeArray{} && record.Level == 0 && state.LibraryChanged(),
            QStringLiteral("New made slot %1 '%2'").arg(library.Count).arg(QString::fromStdString(record.Name)));
        return unsigned(NoEffect);
    });
    Add("LFocus", 1, always, [this] {
        testsupport::ClickWidget(In<QWidget>(&Main(), QStringLiteral("Check1")));
        return unsigned(NoEffect);
    });
    Add("editor planet or quality", 3, always, [this] {
        ChooseInCombo(In<QComboBox>(&Main(), Chance(50) ? QStringLiteral("Combo1") : QStringLiteral("Combo2")));
        return unsigned(NoEffect);
    });
    Add("editor Wild or Mission", 1, always, [this] {
        testsupport::ClickWidget(In<QWidget>(&Main(), QStringLiteral("Option1_%1").arg(Below(2))));
        return unsigned(NoEffect);
    });
}

void SoakRun::AddAddDnaActions() {
    const auto open = [] { return Open("Form2") != nullptr; };
    Add(
        "Add DNA", 2, [] { return true; },
        [this] {
            ClickToolbar(QStringLiteral("Add DNA"));
            checks_.Check(Open("Form2"), QStringLiteral("the Add DNA window did not open"));
            return unsigned(NoEffect);
        });
    Add("type in Add DNA", 10, open, [this] {
        const int box = Below(12);
        TypeInto(In<QLineEdit>(Open("Form2"), BoxName(box)), box == 10 ? NameText() : NumberText());
        return unsigned(NoEffect);
    });
    Add("Add DNA planet or quality", 2, open, [this] {
        ChooseInCombo(In<QComboBox>(Open("Form2"), Chance(50) ? QStringLiteral("Combo1") : QStringLiteral("Combo2")));
        return unsigned(NoEffect);
    });
    Add("Add DNA Wild or Mission", 1, open, [this] {
        testsupport::ClickWidget(In<QWidget>(Open("Form2"), QStringLiteral("Option1_%1").arg(Below(2))));
        return unsigned(NoEffect);
    });
    Add(">>", 1, open, [this] {
        testsupport::ClickWidget(In<QWidget>(Open("Form2"), QStringLiteral("Label1")));
        return unsigned(NoEffect);
    });
    Add("Add DNA Save", 6, open, [this] {
        QWidget *window = Open("Form2");
        const int count = ProgramState(Main()).Library().Count;
        // A full library or a value beyond 16 bits saves nothing, and a message says why.
        bool fits = count < kMaxSamples;
        DnaRecord typed;
        for (int box = 0; box < 12; ++box) {
            const auto *text = In<QLineEdit>(window, BoxName(box));
            const auto value = Stored(text);
            if (box == 10)
                typed.Name = text->text().toStdString();
            else if (!value)
                fits = false;
            else if (box == 11)
                typed.Level = *value;
            else
                typed.Attributes[static_cast<std::size_t>(box)] = *value;
        }
        answer_.Begin();
        testsupport::ClickWidget(In<QPushButton>(window, QStringLiteral("Command4")));
        const DnaLibrary &library = ProgramState(Main()).Library();
        Say(fits ? QStringLiteral("stored") : QStringLiteral("refused"));
        if (!fits) {
            checks_.Check(library.Count == count && answer_.SawBox(QStringLiteral("Add DNA")),
                          QStringLiteral("a sample that does not fit was saved, or silently refused"));
            return unsigned(NoEffect);
        }
        const DnaRecord &stored = library.Records[static_cast<std::size_t>(library.Count)];
        checks_.Check(library.Count == count + 1 && ProgramState(Main()).LibraryChanged() &&
                          stored.Name == typed.Name && stored.Attributes == typed.Attributes &&
                          stored.Level == typed.Level,
                      QStringLiteral("Add DNA saved '%1' as slot %2")
                          .arg(QString::fromStdString(typed.Name).left(30))
                          .arg(library.Count));
        checks_.Check(In<QLineEdit>(window, BoxName(0))->text().isEmpty() &&
                          In<QComboBox>(window, QStringLiteral("Combo1"))->currentText() == QLatin1String("?"),
                      QStringLiteral("the boxes were not emptied after Save"));
        return unsigned(NoEffect);
    });
    Add("Add DNA Exit", 2, open, [this] {
        QWidget *window = Open("Form2");
        if (Chance(70))
            testsupport::ClickWidget(In<QPushButton>(window, QStringLiteral("Command1")));
        else
            window->close();
        checks_.Check(!Main().isMinimized(), QStringLiteral("the main window stays minimised after Add DNA"));
        return unsigned(NoEffect);
    });
    Add("Add DNA always on top", 1, open, [this] {
        auto *check = In<QWidget>(Open("Form2"), QStringLiteral("Check1"));
        QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(8, check->height() / 2));
        return unsigned(NoEffect);
    });
}
