#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>

using namespace testsupport;
using namespace Qt::StringLiterals;

namespace {

// Power (column 11) is 45, 10 and 900: sorting by it changes the order.
const QStringList kSamples{
    u"100,200,300,400,500,600,700,800,900,45,Alpha,12,10,1,3"_s,
    u"1,2,3,4,5,6,7,8,9,10,Beta,2,1,0,2"_s,
    u"7,7,7,7,7,7,7,7,7,900,Gamma,1,0,0,7"_s,
};

struct CellText {
    int row;
    int column;
    const char *text;
};

} // namespace

class TestEditor : public WindowTest {
    Q_OBJECT

    std::unique_ptr<Form1> form_;

    QTreeWidget *List() { return Find<QTreeWidget>(form_.get(), u"ListView1"_s); }
    QLineEdit *Box(int i) { return Find<QLineEdit>(form_.get(), u"Text1_%1"_s.arg(i)); }
    QComboBox *Combo(int i) { return Find<QComboBox>(form_.get(), u"Combo%1"_s.arg(i)); }
    void Click(const QString &name) { ClickWidget(Find<QWidget>(form_.get(), name)); }
    const quorvel::DnaRecord &Record(int slot) { return form_->State().Library.Records[std::size_t(slot)]; }
    // A new main window with the keyboard, and the samples loaded when there are any.
    void Open(const QStringList &lines = kSamples) {
        form_.reset();
        form_ = MakeForm1();
        if (!lines.isEmpty())
            LoadSamples(form_.get(), lines);
        // The offscreen platform has no window manager to give the window back its focus.
        form_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    // Focuses a box and replaces its whole text by typing.
    static void Type(QWidget *box, const QString &text) {
        box->setFocus();
        auto *edit = qobject_cast<QLineEdit *>(box);
        (edit ? edit : qobject_cast<QComboBox *>(box)->lineEdit())->selectAll();
        QTest::keyClick(box, Qt::Key_Backspace);
        QTest::keyClicks(box, text);
    }
    void CheckCells(std::initializer_list<CellText> cells) {
        for (const CellText &c : cells)
            QVERIFY2(
                Cell(List(), c.row, c.column) == QLatin1String(c.text),
                qPrintable(u"row %1 column %2: '%3'"_s.arg(c.row).arg(c.column).arg(Cell(List(), c.row, c.column))));
    }

private slots:
    void cleanupTestCase() { form_.reset(); }

    void editReadsTypedNumbersLeniently() {
        Open({});
        // Before anything is loaded the first slot changes and no row is written.
        Type(Box(0), u"5"_s);
        Click(u"Command3"_s);
        QCOMPARE(Record(1).Attributes[0], 5);
        QCOMPARE(RowCount(List()), 0);

        Open();
        ClickRow(List(), 1);
        QCOMPARE(Box(9)->text(), u"45"_s);
        QCOMPARE(Box(10)->text(), u"Alpha"_s);
        QCOMPARE(Combo(2)->currentText(), u"Tatooine"_s);
        QCOMPARE(Combo(1)->currentIndex(), 3);
        QVERIFY(Find<QRadioButton>(form_.get(), u"Option1_1"_s)->isChecked());
        const QStringList typed{u"12abc"_s, u""_s,    u"2.5"_s, u"3.5"_s, u"40000"_s,
                                u"-2.5"_s,  u"1 2"_s, u"abc"_s, u"&H10"_s};
        for (int i = 0; i < typed.size(); ++i)
            Type(Box(i), typed[i]);
        Type(Box(10), u"Alpha, renamed"_s);
        Type(Box(11), u"-32769"_s);
        Click(u"Command3"_s);
        // Halves go to even, 40000 and -32769 are refused and stay in their boxes; the rest of the Edit happened.
        const std::array<int, 10> stored{12, 0, 2, 4, 500, -2, 12, 0, 16, 45};
        for (int i = 0; i < 10; ++i) {
            QCOMPARE(Record(1).Attributes[std::size_t(i)], stored[std::size_t(i)]);
            QCOMPARE(Cell(List(), 1, i + 2), u"   %1"_s.arg(stored[std::size_t(i)]));
        }
        QCOMPARE(Box(4)->text(), u"40000"_s);
        QCOMPARE(Record(1).Level, 12);
        QCOMPARE(Record(1).Name, std::string("Alpha, renamed"));
        CheckCells({{1, 1, "Alpha, renamed"}, {1, 12, "   12"}, {1, 13, "Tatooine"}, {1, 14, "Mission"}});
        CheckCells({{1, 15, "Above Average"}, {2, 2, "    1"}});
    }

    void leaveBoxStoresOnlyWithLFocus() {
        Open();
        ClickRow(List(), 1);
        Type(Box(0), u"77"_s);
        QTest::keyClick(Box(0), Qt::Key_Tab);
        QVERIFY(Box(1)->hasFocus());
        Click(u"Option1_0"_s);
        QCOMPARE(Record(1).Attributes[0], 100);
        QCOMPARE(Record(1).Origin, 1);

        Click(u"Check1"_s);
        QVERIFY(!Find<QPushButton>(form_.get(), u"Command3"_s)->isEnabled());
        // Entering a box selects its whole text, so typing replaces it.
        Box(0)->setFocus();
        QCOMPARE(Box(0)->selectedText(), u"77"_s);
        QTest::keyClicks(Box(0), u"78"_s);
        QTest::keyClick(Box(0), Qt::Key_Tab);
        QCOMPARE(Record(1).Attributes[0], 78);
        QCOMPARE(Record(1).Attributes[1], 200);
        CheckCells({{1, 2, "   78"}});
        // Enter moves on and stores the box it leaves.
        QTest::keyClicks(Box(1), u"88"_s);
        QTest::keyClick(Box(1), Qt::Key_Return);
        QVERIFY(Box(2)->hasFocus());
        QCOMPARE(Record(1).Attributes[1], 88);
        // Enter in the Level box stays there and stores nothing until the box is left.
        Type(Box(11), u"33"_s);
        QTest::keyClick(Box(11), Qt::Key_Return);
        QVERIFY(Box(11)->hasFocus());
        QCOMPARE(Record(1).Level, 12);
        Box(0)->setFocus();
        QCOMPARE(Record(1).Level, 33);
        Click(u"Option1_0"_s);
        QCOMPARE(Record(1).Origin, 0);
        CheckCells({{1, 12, "   33"}, {1, 14, "Wild"}});

        Click(u"Check1"_s);
        QVERIFY(Find<QPushButton>(form_.get(), u"Command3"_s)->isEnabled());
        Type(Box(2), u"5"_s);
        Box(3)->setFocus();
        QCOMPARE(Record(1).Attributes[2], 300);
    }

    void typingWorksRightAfterTheFileDialogCloses() {
        form_.reset();
        form_ = MakeForm1();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
        Click(u"Check1"_s);
        // No help from the test: the main window takes the keyboard back from its dialog.
        LoadSamples(form_.get(), kSamples);
        QTRY_COMPARE(QApplication::activeWindow(), form_.get());
        ClickRow(List(), 2);
        Box(0)->setFocus();
        QTest::keyClicks(Box(0), u"44"_s);
        Box(1)->setFocus();
        QCOMPARE(Record(2).Attributes[0], 44);
        CheckCells({{2, 2, "   44"}});
    }

    void leavingBoxStoresBeforeAnotherRowIsPicked() {
        Open();
        Click(u"Check1"_s);
        ClickRow(List(), 1);
        Type(Box(5), u"99"_s);
        ClickRow(List(), 2);
        QCOMPARE(Record(1).Attributes[5], 99);
        QCOMPARE(Record(2).Attributes[5], 6);
        QCOMPARE(form_->State().Library.SelectedRecord, 2);
        QCOMPARE(Box(5)->text(), u"6"_s);
        CheckCells({{1, 7, "   99"}});
    }

    void editKeepsPlanetAndShowsStoredChoices() {
        Open();
        ClickRow(List(), 1);
        Type(Combo(1), u"HQ"_s);
        Click(u"Command3"_s);
        QCOMPARE(Record(1).Planet, 10);
        QCOMPARE(Record(1).Quality, 4.0f);
        CheckCells({{1, 13, "Tatooine"}, {1, 15, "High"}});
        // A text that names no entry counts as the first entry.
        Type(Combo(2), u"Nowhere"_s);
        Click(u"Command3"_s);
        QCOMPARE(Record(1).Planet, 0);
        CheckCells({{1, 13, "?"}});
        // Quality index 7 has no entry in the box: nothing chosen, nothing shown.
        ClickRow(List(), 3);
        QCOMPARE(Combo(1)->currentIndex(), -1);
        QCOMPARE(Combo(1)->currentText(), QString());
        QCOMPARE(Combo(2)->currentText(), u"Any"_s);
        Click(u"Command3"_s);
        QCOMPARE(Record(3).Quality, 0.0f);
        CheckCells({{3, 15, "Poor"}});
    }

    void leaveBoxChoicesReachTheSortedRow() {
        Open();
        ClickHeader(List(), 11);
        CheckCells({{1, 0, "2"}, {2, 0, "1"}});
        Click(u"Check1"_s);
        ClickRow(List(), 2);
        Type(Combo(2), u"Lok"_s);
        Type(Combo(1), u"VHQ"_s);
        Click(u"Option1_0"_s);
        Type(Box(9), u"5"_s);
        Box(0)->setFocus();
        QCOMPARE(Record(1).Planet, 6);
        QCOMPARE(Record(1).Quality, 5.0f);
        QCOMPARE(Record(1).Origin, 0);
        QCOMPARE(Record(1).Attributes[9], 5);
        CheckCells({{2, 0, "1"}, {2, 11, "   5"}, {2, 13, "Lok"}, {2, 14, "Wild"}, {2, 15, "Very High"}});
        CheckCells({{1, 13, "Corellia"}, {3, 13, "?"}});
    }

    void newSampleUnsortedAndSorted() {
        Open(kSamples.mid(0, 2));
        Click(u"Check1"_s);
        ClickRow(List(), 1);
        Click(u"Command4"_s);
        // The reset of the panel stores nothing into the "Mission" sample left.
        QCOMPARE(Record(1).Origin, 1);
        QCOMPARE(RowCount(List()), 3);
        CheckCells({{3, 0, "3"}, {3, 1, "New DNA"}, {3, 2, ""}});
        QCOMPARE(form_->State().Library.SelectedRecord, 3);
        QCOMPARE(form_->State().Library.SelectedRow, 3);
        QCOMPARE(Box(0)->text(), u"0"_s);
        QCOMPARE(Box(10)->text(), u"New DNA"_s);
        QCOMPARE(Combo(2)->currentText(), u"Any"_s);
        QCOMPARE(Combo(1)->currentText(), u"Poor"_s);
        QVERIFY(Find<QRadioButton>(form_.get(), u"Option1_0"_s)->isChecked());

        // A New on a sorted list rebuilds it in slot order.
        ClickHeader(List(), 11);
        CheckCells({{1, 0, "3"}});
        Click(u"Command4"_s);
        QVERIFY(!form_->State().ListSorted);
        QCOMPARE(RowCount(List()), 4);
        CheckCells({{1, 0, "1"}, {2, 0, "2"}, {3, 0, "3"}, {4, 0, "4"}, {4, 1, "New DNA"}, {4, 2, "   0"}});
        CheckCells({{1, 11, "  45"}});
        QCOMPARE(form_->State().Library.SelectedRecord, 4);
        QCOMPARE(form_->State().Library.SelectedRow, 4);
    }

    void newAfterShrinkingLoadStartsFromZero() {
        Open();
        LoadSamples(form_.get(), kSamples.mid(1, 1));
        Click(u"Command4"_s);
        const quorvel::DnaRecord &made = Record(2);
        QCOMPARE(made.Name, std::string("New DNA"));
        QVERIFY(std::all_of(made.Attributes.begin(), made.Attributes.end(), [](int16_t v) { return v == 0; }));
        QVERIFY(made.Level == 0 && made.Planet == 0 && made.Origin == 0 && made.Quality == 0.0f);
        Click(u"Command3"_s);
        CheckCells({{2, 11, "   0"}, {2, 13, "?"}, {2, 15, "Poor"}});
    }

    void newIsRefusedWhenTheLibraryIsFull() {
        QStringList lines;
        for (int i = 1; i <= 500; ++i)
            lines << u"1,2,3,4,5,6,7,8,9,10,S%1,1,0,0,0"_s.arg(i);
        Open(lines);
        QString title;
        QString text;
        AnswerMessageBox(QMessageBox::Ok, &title, &text);
        Click(u"Command4"_s);
        QCOMPARE(title, u"New DNA"_s);
        QVERIFY(text.contains(u"full"_s));
        QCOMPARE(form_->State().Library.Count, 500);
        QCOMPARE(RowCount(List()), 500);
    }
};

QTEST_MAIN(TestEditor)
#include "tst_editor.moc"
