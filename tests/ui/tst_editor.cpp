#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>

using namespace testsupport;

namespace {

// Power (column 11) is 45, 10 and 900: sorting by it changes the order.
const QStringList kSamples{
    QStringLiteral("100,200,300,400,500,600,700,800,900,45,Alpha,12,10,1,3"),
    QStringLiteral("1,2,3,4,5,6,7,8,9,10,Beta,2,1,0,2"),
    QStringLiteral("7,7,7,7,7,7,7,7,7,900,Gamma,1,0,0,7"),
};

QTreeWidget *List(Form1 *form) {
    return Find<QTreeWidget>(form, QStringLiteral("ListView1"));
}

QLineEdit *Box(Form1 *form, int i) {
    return Find<QLineEdit>(form, QStringLiteral("Text1_%1").arg(i));
}

QComboBox *Combo(Form1 *form, int i) {
    return Find<QComboBox>(form, QStringLiteral("Combo%1").arg(i));
}

void Load(Form1 *form, const QString &name, const QStringList &lines) {
    AnswerFileDialog(WriteDnaFile(name, lines));
    ToolbarAction(form, QStringLiteral("Load DNA"))->trigger();
    // The offscreen platform has no window manager to give the window back its focus.
    form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form));
}

// Focuses a box and replaces its whole text by typing.
void Type(QWidget *box, const QString &text) {
    box->setFocus();
    QLineEdit *edit = qobject_cast<QLineEdit *>(box);
    if (!edit)
        edit = qobject_cast<QComboBox *>(box)->lineEdit();
    edit->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, text);
}

const quorvel::DnaRecord &Record(Form1 *form, int slot) {
    return form->State().Library.Records[static_cast<std::size_t>(slot)];
}

} // namespace

class TestEditor : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QLocale::setDefault(QLocale::c());
        RemoveSettingsFile();
    }
    void cleanup() { CloseAllWindows(); }

    void editReadsTypedNumbersLeniently() {
        auto form = MakeForm1();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        // Before anything is loaded the first slot changes and no row is written.
        Type(Box(form.get(), 0), QStringLiteral("5"));
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command3")));
        QCOMPARE(Record(form.get(), 1).Attributes[0], 5);
        QCOMPARE(RowCount(List(form.get())), 0);

        Load(form.get(), QStringLiteral("numbers.txt"), kSamples);
        ClickRow(List(form.get()), 1);
        QCOMPARE(Box(form.get(), 9)->text(), QStringLiteral("45"));
        QCOMPARE(Box(form.get(), 10)->text(), QStringLiteral("Alpha"));
        QCOMPARE(Combo(form.get(), 2)->currentText(), QStringLiteral("Tatooine"));
        QCOMPARE(Combo(form.get(), 1)->currentIndex(), 3);
        QVERIFY(Find<QRadioButton>(form.get(), QStringLiteral("Option1_1"))->isChecked());

        const QStringList typed{QStringLiteral("12abc"), QString(),
                                QStringLiteral("2.5"),   QStringLiteral("3.5"),
                                QStringLiteral("40000"), QStringLiteral("-2.5"),
                                QStringLiteral("1 2"),   QStringLiteral("abc"),
                                QStringLiteral("&H10")};
        for (int i = 0; i < typed.size(); ++i)
            Type(Box(form.get(), i), typed[i]);
        Type(Box(form.get(), 10), QStringLiteral("Alpha, renamed"));
        Type(Box(form.get(), 11), QStringLiteral("-32769"));
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command3")));

        const quorvel::DnaRecord &alpha = Record(form.get(), 1);
        const std::array<int, 10> stored{12, 0, 2, 4, 500, -2, 12, 0, 16, 45};
        for (int i = 0; i < 10; ++i) {
            QCOMPARE(alpha.Attributes[static_cast<std::size_t>(i)], stored[static_cast<std::size_t>(i)]);
            QCOMPARE(Cell(List(form.get()), 1, i + 2),
                     QStringLiteral("   %1").arg(stored[static_cast<std::size_t>(i)]));
        }
        // The refused numbers stay in their boxes; the rest of the Edit happened.
        QCOMPARE(Box(form.get(), 4)->text(), QStringLiteral("40000"));
        QCOMPARE(alpha.Level, 12);
        QCOMPARE(Cell(List(form.get()), 1, 12), QStringLiteral("   12"));
        QCOMPARE(alpha.Name, std::string("Alpha, renamed"));
        QCOMPARE(Cell(List(form.get()), 1, 1), QStringLiteral("Alpha, renamed"));
        QCOMPARE(Cell(List(form.get()), 1, 13), QStringLiteral("Tatooine"));
        QCOMPARE(Cell(List(form.get()), 1, 14), QStringLiteral("Mission"));
        QCOMPARE(Cell(List(form.get()), 1, 15), QStringLiteral("Above Average"));
        // The other sample keeps the loader's cells.
        QCOMPARE(Record(form.get(), 2).Attributes[0], 1);
        QCOMPARE(Cell(List(form.get()), 2, 2), QStringLiteral("    1"));
    }

    void leaveBoxStoresOnlyWithLFocus() {
        auto form = MakeForm1();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        Load(form.get(), QStringLiteral("lfocus.txt"), kSamples);
        ClickRow(List(form.get()), 1);
        auto *check = Find<QCheckBox>(form.get(), QStringLiteral("Check1"));
        auto *edit = Find<QPushButton>(form.get(), QStringLiteral("Command3"));

        Type(Box(form.get(), 0), QStringLiteral("77"));
        QTest::keyClick(Box(form.get(), 0), Qt::Key_Tab);
        QVERIFY(Box(form.get(), 1)->hasFocus());
        QCOMPARE(Record(form.get(), 1).Attributes[0], 100);
        ClickWidget(Find<QRadioButton>(form.get(), QStringLiteral("Option1_0")));
        QCOMPARE(Record(form.get(), 1).Origin, 1);

        ClickWidget(check);
        QVERIFY(check->isChecked());
        QVERIFY(!edit->isEnabled());
        // Entering a box selects its whole text, so typing replaces it.
        Box(form.get(), 0)->setFocus();
        QCOMPARE(Box(form.get(), 0)->selectedText(), QStringLiteral("77"));
        QTest::keyClicks(Box(form.get(), 0), QStringLiteral("78"));
        QTest::keyClick(Box(form.get(), 0), Qt::Key_Tab);
        QCOMPARE(Record(form.get(), 1).Attributes[0], 78);
        QCOMPARE(Cell(List(form.get()), 1, 2), QStringLiteral("   78"));
        QCOMPARE(Record(form.get(), 1).Attributes[1], 200);

        // Enter moves on and stores the box it leaves.
        QTest::keyClicks(Box(form.get(), 1), QStringLiteral("88"));
        QTest::keyClick(Box(form.get(), 1), Qt::Key_Return);
        QVERIFY(Box(form.get(), 2)->hasFocus());
        QCOMPARE(Record(form.get(), 1).Attributes[1], 88);

        // Enter in the Level box stays there and stores nothing until the box is left.
        Type(Box(form.get(), 11), QStringLiteral("33"));
        QTest::keyClick(Box(form.get(), 11), Qt::Key_Return);
        QVERIFY(Box(form.get(), 11)->hasFocus());
        QCOMPARE(Record(form.get(), 1).Level, 12);
        Box(form.get(), 0)->setFocus();
        QCOMPARE(Record(form.get(), 1).Level, 33);
        QCOMPARE(Cell(List(form.get()), 1, 12), QStringLiteral("   33"));

        ClickWidget(Find<QRadioButton>(form.get(), QStringLiteral("Option1_0")));
        QCOMPARE(Record(form.get(), 1).Origin, 0);
        QCOMPARE(Cell(List(form.get()), 1, 14), QStringLiteral("Wild"));

        ClickWidget(check);
        QVERIFY(edit->isEnabled());
        Type(Box(form.get(), 2), QStringLiteral("5"));
        Box(form.get(), 3)->setFocus();
        QCOMPARE(Record(form.get(), 1).Attributes[2], 300);
    }

    void typingWorksRightAfterTheFileDialogCloses() {
        auto form = MakeForm1();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        ClickWidget(Find<QCheckBox>(form.get(), QStringLiteral("Check1")));
        // No help from the test: the main window takes the keyboard back from its dialog.
        AnswerFileDialog(WriteDnaFile(QStringLiteral("after.txt"), kSamples));
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        QTRY_COMPARE(QApplication::activeWindow(), form.get());
        ClickRow(List(form.get()), 2);
        Box(form.get(), 0)->setFocus();
        QTest::keyClicks(Box(form.get(), 0), QStringLiteral("44"));
        Box(form.get(), 1)->setFocus();
        QCOMPARE(Record(form.get(), 2).Attributes[0], 44);
        QCOMPARE(Cell(List(form.get()), 2, 2), QStringLiteral("   44"));
    }

    void leavingBoxStoresBeforeAnotherRowIsPicked() {
        auto form = MakeForm1();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        Load(form.get(), QStringLiteral("leave.txt"), kSamples);
        ClickWidget(Find<QCheckBox>(form.get(), QStringLiteral("Check1")));
        ClickRow(List(form.get()), 1);
        Type(Box(form.get(), 5), QStringLiteral("99"));
        ClickRow(List(form.get()), 2);
        QCOMPARE(Record(form.get(), 1).Attributes[5], 99);
        QCOMPARE(Cell(List(form.get()), 1, 7), QStringLiteral("   99"));
        QCOMPARE(Record(form.get(), 2).Attributes[5], 6);
        QCOMPARE(form->State().Library.SelectedRecord, 2);
        QCOMPARE(Box(form.get(), 5)->text(), QStringLiteral("6"));
    }

    void editKeepsPlanetAndShowsStoredChoices() {
        auto form = MakeForm1();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        Load(form.get(), QStringLiteral("choices.txt"), kSamples);
        auto *edit = Find<QPushButton>(form.get(), QStringLiteral("Command3"));
        ClickRow(List(form.get()), 1);
        Type(Combo(form.get(), 1), QStringLiteral("HQ"));
        ClickWidget(edit);
        QCOMPARE(Record(form.get(), 1).Planet, 10);
        QCOMPARE(Record(form.get(), 1).Quality, 4.0f);
        QCOMPARE(Cell(List(form.get()), 1, 13), QStringLiteral("Tatooine"));
        QCOMPARE(Cell(List(form.get()), 1, 15), QStringLiteral("High"));

        // A text that names no entry counts as the first entry.
        Type(Combo(form.get(), 2), QStringLiteral("Nowhere"));
        ClickWidget(edit);
        QCOMPARE(Record(form.get(), 1).Planet, 0);
        QCOMPARE(Cell(List(form.get()), 1, 13), QStringLiteral("?"));

        // Quality index 7 has no entry in the box: nothing chosen, nothing shown.
        ClickRow(List(form.get()), 3);
        QCOMPARE(Combo(form.get(), 1)->currentIndex(), -1);
        QCOMPARE(Combo(form.get(), 1)->currentText(), QString());
        QCOMPARE(Combo(form.get(), 2)->currentText(), QStringLiteral("Any"));
        ClickWidget(edit);
        QCOMPARE(Record(form.get(), 3).Quality, 0.0f);
        QCOMPARE(Cell(List(form.get()), 3, 15), QStringLiteral("Poor"));
    }

    void leaveBoxChoicesReachTheSortedRow() {
        auto form = MakeForm1();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        Load(form.get(), QStringLiteral("sorted.txt"), kSamples);
        ClickHeader(List(form.get()), 11);
        QCOMPARE(Cell(List(form.get()), 1, 0), QStringLiteral("2"));
        ClickWidget(Find<QCheckBox>(form.get(), QStringLiteral("Check1")));
        ClickRow(List(form.get()), 2); // Alpha, slot 1
        Type(Combo(form.get(), 2), QStringLiteral("Lok"));
        Type(Combo(form.get(), 1), QStringLiteral("VHQ"));
        ClickWidget(Find<QRadioButton>(form.get(), QStringLiteral("Option1_0")));
        Type(Box(form.get(), 9), QStringLiteral("5"));
        Box(form.get(), 0)->setFocus();

        const quorvel::DnaRecord &alpha = Record(form.get(), 1);
        QCOMPARE(alpha.Planet, 6);
        QCOMPARE(alpha.Quality, 5.0f);
        QCOMPARE(alpha.Origin, 0);
        QCOMPARE(alpha.Attributes[9], 5);
        QCOMPARE(Cell(List(form.get()), 2, 0), QStringLiteral("1"));
        const QStringList expected{QStringLiteral("   5"), QStringLiteral("Lok"), QStringLiteral("Wild"),
                                   QStringLiteral("Very High")};
        const QList<int> columns{11, 13, 14, 15};
        for (int i = 0; i < columns.size(); ++i)
            QCOMPARE(Cell(List(form.get()), 2, columns[i]), expected[i]);
        QCOMPARE(Cell(List(form.get()), 1, 13), QStringLiteral("Corellia"));
        QCOMPARE(Cell(List(form.get()), 3, 13), QStringLiteral("?"));
    }

    void newSampleUnsortedAndSorted() {
        auto form = MakeForm1();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        QTreeWidget *list = List(form.get());
        Load(form.get(), QStringLiteral("new.txt"), kSamples.mid(0, 2));
        ClickWidget(Find<QCheckBox>(form.get(), QStringLiteral("Check1")));
        ClickRow(list, 1);
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command4")));
        // The reset of the panel stores nothing into the "Mission" sample left.
        QCOMPARE(Record(form.get(), 1).Origin, 1);
        QCOMPARE(RowCount(list), 3);
        QCOMPARE(Cell(list, 3, 0), QStringLiteral("3"));
        QCOMPARE(Cell(list, 3, 1), QStringLiteral("New DNA"));
        QCOMPARE(Cell(list, 3, 2), QString());
        QCOMPARE(form->State().Library.SelectedRecord, 3);
        QCOMPARE(form->State().Library.SelectedRow, 3);
        QCOMPARE(Box(form.get(), 0)->text(), QStringLiteral("0"));
        QCOMPARE(Box(form.get(), 10)->text(), QStringLiteral("New DNA"));
        QCOMPARE(Combo(form.get(), 2)->currentText(), QStringLiteral("Any"));
        QCOMPARE(Combo(form.get(), 1)->currentText(), QStringLiteral("Poor"));
        QVERIFY(Find<QRadioButton>(form.get(), QStringLiteral("Option1_0"))->isChecked());

        ClickHeader(list, 11);
        QVERIFY(form->State().ListSorted);
        QCOMPARE(Cell(list, 1, 0), QStringLiteral("3"));
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command4")));
        QVERIFY(!form->State().ListSorted);
        QCOMPARE(RowCount(list), 4);
        for (int row = 1; row <= 4; ++row)
            QCOMPARE(Cell(list, row, 0), QString::number(row));
        QCOMPARE(Cell(list, 4, 1), QStringLiteral("New DNA"));
        QCOMPARE(Cell(list, 4, 2), QStringLiteral("   0"));
        QCOMPARE(Cell(list, 1, 11), QStringLiteral("  45"));
        QCOMPARE(form->State().Library.SelectedRecord, 4);
        QCOMPARE(form->State().Library.SelectedRow, 4);
    }

    void newAfterShrinkingLoadStartsFromZero() {
        auto form = MakeForm1();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        Load(form.get(), QStringLiteral("long.txt"), kSamples);
        Load(form.get(), QStringLiteral("short.txt"), kSamples.mid(1, 1));
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command4")));
        const quorvel::DnaRecord &made = Record(form.get(), 2);
        QCOMPARE(made.Name, std::string("New DNA"));
        for (int16_t value : made.Attributes)
            QCOMPARE(value, 0);
        QCOMPARE(made.Level, 0);
        QCOMPARE(made.Planet, 0);
        QCOMPARE(made.Origin, 0);
        QCOMPARE(made.Quality, 0.0f);
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command3")));
        QCOMPARE(Cell(List(form.get()), 2, 11), QStringLiteral("   0"));
        QCOMPARE(Cell(List(form.get()), 2, 13), QStringLiteral("?"));
        QCOMPARE(Cell(List(form.get()), 2, 15), QStringLiteral("Poor"));
    }

    void newIsRefusedWhenTheLibraryIsFull() {
        auto form = MakeForm1();
        QStringList lines;
        for (int i = 1; i <= 500; ++i)
            lines << QStringLiteral("1,2,3,4,5,6,7,8,9,10,S%1,1,0,0,0").arg(i);
        Load(form.get(), QStringLiteral("full.txt"), lines);
        QCOMPARE(form->State().Library.Count, 500);
        QString title;
        QString text;
        AnswerMessageBox(QMessageBox::Ok, &title, &text);
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command4")));
        QCOMPARE(title, QStringLiteral("New DNA"));
        QVERIFY(text.contains(QStringLiteral("full")));
        QCOMPARE(form->State().Library.Count, 500);
        QCOMPARE(RowCount(List(form.get())), 500);
    }
};

QTEST_MAIN(TestEditor)
#include "tst_editor.moc"
